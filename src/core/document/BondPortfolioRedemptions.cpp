// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The portfolio's redeemed bonds: cashing held bonds, and the redeemed list's own changes.
#include "document/BondPortfolio.h"
#include "document/PortfolioUndo.h"
#include "document/RedemptionUndo.h"
#include "valuation/BondOutlook.h"

#include <algorithm>

void BondPortfolio::setRedeemedHoldings(const QList<HoldingRef> &holdings)
{
    emit redeemedAboutToBeReset();
    for (const HoldingRef &holding : std::as_const(m_data.redeemed))
        m_recorder->stopObserving(holding.get());
    m_data.redeemed = holdings;
    for (const HoldingRef &holding : std::as_const(m_data.redeemed))
        m_recorder->startObserving(holding);
    emit redeemedReset();
}

int BondPortfolio::indexOfRedeemed(const Holding *holding) const
{
    const auto found = std::find_if(m_data.redeemed.cbegin(), m_data.redeemed.cend(),
                                    [holding](const HoldingRef &h) { return h.get() == holding; });
    return found == m_data.redeemed.cend() ? -1 : int(found - m_data.redeemed.cbegin());
}

bool BondPortfolio::validateRedemption(const Holding &holding, Month month, ValidationError *error) const
{
    const auto refuse = [error](int code, const QString &message) {
        if (error)
            *error = {QString::fromLatin1(RedemptionErrorDomain), code, message};
        return false;
    };
    if (holding.issueDate().isNull())
        return refuse(1, QCoreApplication::translate("BondPortfolio", "A bond without an issue date cannot be redeemed."));
    if (month.isNull() || month < holding.issueDate())
        return refuse(2, QCoreApplication::translate("BondPortfolio", "The redemption month cannot be before the issue month, %1.")
                             .arg(holding.issueDate().toString(Month::Style::Slash)));
    const BondOutlook outlook({m_assessor.get(), month}, holding.facts());
    if (outlook.note() == BondNote::NotRedeemable)
        return refuse(3, QCoreApplication::translate("BondPortfolio", "These bonds cannot be cashed before %1.")
                             .arg(outlook.noteUntil().toString(Month::Style::Slash)));
    return true;
}

Pennies BondPortfolio::redemptionValue(const Holding &holding, qint32 quantity, Month month) const
{
    return HoldingFigures({m_assessor.get(), month}, holding.facts()).absoluteValueAsOfMonth(month) * std::max(0, quantity);
}

bool BondPortfolio::redeem(const HoldingRef &holding, qint32 quantity, Month month, Pennies amount, ValidationError *error)
{
    const int index = indexOfHolding(holding.get());
    if (index < 0 || quantity < 1 || quantity > holding->quantity()) {
        if (error)
            *error = {QString::fromLatin1(RedemptionErrorDomain), 4,
                      QCoreApplication::translate("BondPortfolio", "Choose from 1 to %1 bonds to redeem.").arg(holding->quantity())};
        return false;
    }
    if (!validateRedemption(*holding, month, error))
        return false;
    m_recorder->record(new RedeemCommand(this, index, quantity, month, amount));
    return true;
}

void BondPortfolio::unredeemAt(int redeemedIndex)
{
    if (redeemedIndex >= 0 && redeemedIndex < m_data.redeemed.size())
        m_recorder->record(new RedeemedPlacementCommand(this, redeemedIndex, RedeemedPlacementCommand::Kind::Unredeem));
}

void BondPortfolio::removeRedeemedAt(int redeemedIndex)
{
    if (redeemedIndex >= 0 && redeemedIndex < m_data.redeemed.size())
        m_recorder->record(new RedeemedPlacementCommand(this, redeemedIndex, RedeemedPlacementCommand::Kind::Delete));
}

void BondPortfolio::insertRedeemedWithoutRecording(const HoldingRef &holding, int index)
{
    index = std::clamp(index, 0, int(m_data.redeemed.size()));
    emit redeemedAboutToBeInserted(index);
    m_recorder->startObserving(holding);
    m_data.redeemed.insert(index, holding);
    emit redeemedInserted(index);
}

HoldingRef BondPortfolio::takeRedeemedWithoutRecording(int index)
{
    const HoldingRef holding = m_data.redeemed.at(index);
    emit redeemedAboutToBeRemoved(index);
    m_recorder->stopObserving(holding.get());
    // Unobserved, so clearing the roles records nothing; it unlinks the people's lists.
    holding->setOwner(nullptr);
    holding->setCoOwner(nullptr);
    holding->setBeneficiary(nullptr);
    m_data.redeemed.removeAt(index);
    emit redeemedRemoved(index);
    return holding;
}

bool BondPortfolio::reportsInterestYearly(const Person *person) const
{
    return person && m_data.yearlyInterestReporters.contains(person->uniqueId());
}

void BondPortfolio::setReportsInterestYearly(const PersonRef &person, bool yearly)
{
    if (!person || reportsInterestYearly(person.get()) == yearly)
        return;
    QStringList after = m_data.yearlyInterestReporters;
    if (yearly)
        after << person->uniqueId();
    else
        after.removeAll(person->uniqueId());
    m_recorder->record(new YearlyReportersCommand(this, m_data.yearlyInterestReporters, after));
}

void BondPortfolio::setYearlyInterestReportersWithoutRecording(const QStringList &ids)
{
    m_data.yearlyInterestReporters = ids;
    emit yearlyInterestReportersChanged();
}
