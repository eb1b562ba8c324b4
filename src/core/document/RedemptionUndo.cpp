// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/RedemptionUndo.h"

#include "document/BondPortfolio.h"

RedeemCommand::RedeemCommand(BondPortfolio *portfolio, int heldIndex, qint32 quantity, Month month, Pennies amount)
    : QUndoCommand(UndoActionName::text(UndoActionName::Redeem))
    , m_portfolio(portfolio)
    , m_held(portfolio->holdings().at(heldIndex))
    , m_heldIndex(heldIndex)
    , m_quantity(quantity)
    , m_month(month)
    , m_amount(amount)
{
    if (quantity < m_held->quantity()) {
        // Some of the bonds: a copy of them is what was cashed.
        m_redeemed = Holding::create();
        for (HoldingProperty property : {HoldingProperty::Series, HoldingProperty::Paper, HoldingProperty::IssueDate,
                                         HoldingProperty::FaceValue, HoldingProperty::SerialNumber})
            m_redeemed->setValue(property, m_held->value(property));
        m_redeemed->setQuantity(quantity);
    } else {
        m_redeemed = m_held;
    }
    m_roles = HoldingRoles::of(*m_held);
}

void RedeemCommand::redo()
{
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    if (m_redeemed == m_held)
        m_portfolio->takeHoldingWithoutRecording(m_heldIndex);
    else
        m_portfolio->changeValue(m_held.get(), HoldingProperty::Quantity, m_held->quantity() - m_quantity);
    m_redeemed->setRedemptionMonth(m_month);
    m_redeemed->setAmountReceived(m_amount);
    m_portfolio->insertRedeemedWithoutRecording(m_redeemed, int(m_portfolio->redeemedHoldings().size()));
    m_roles.restoreTo(*m_redeemed);
}

void RedeemCommand::undo()
{
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    m_portfolio->takeRedeemedWithoutRecording(m_portfolio->indexOfRedeemed(m_redeemed.get()));
    if (m_redeemed == m_held) {
        m_held->setRedemptionMonth({});
        m_held->setAmountReceived(0);
        m_portfolio->insertHoldingWithoutRecording(m_held, m_heldIndex);
        m_roles.restoreTo(*m_held);
    } else {
        m_portfolio->changeValue(m_held.get(), HoldingProperty::Quantity, m_held->quantity() + m_quantity);
    }
}

RedeemedPlacementCommand::RedeemedPlacementCommand(BondPortfolio *portfolio, int redeemedIndex, Kind kind)
    : QUndoCommand(UndoActionName::text(kind == Kind::Unredeem ? UndoActionName::Unredeem : UndoActionName::DeleteHolding))
    , m_portfolio(portfolio)
    , m_holding(portfolio->redeemedHoldings().at(redeemedIndex))
    , m_index(redeemedIndex)
    , m_kind(kind)
    , m_month(m_holding->redemptionMonth())
    , m_amount(m_holding->amountReceived())
    , m_roles(HoldingRoles::of(*m_holding))
{
}

void RedeemedPlacementCommand::redo()
{
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    m_portfolio->takeRedeemedWithoutRecording(m_index);
    if (m_kind == Kind::Unredeem) {
        m_holding->setRedemptionMonth({});
        m_holding->setAmountReceived(0);
        m_portfolio->insertHoldingWithoutRecording(m_holding, int(m_portfolio->holdings().size()));
        m_roles.restoreTo(*m_holding);
    }
}

void RedeemedPlacementCommand::undo()
{
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    if (m_kind == Kind::Unredeem)
        m_portfolio->takeHoldingWithoutRecording(m_portfolio->indexOfHolding(m_holding.get()));
    m_holding->setRedemptionMonth(m_month);
    m_holding->setAmountReceived(m_amount);
    m_portfolio->insertRedeemedWithoutRecording(m_holding, m_index);
    m_roles.restoreTo(*m_holding);
}

YearlyReportersCommand::YearlyReportersCommand(BondPortfolio *portfolio, QStringList before, QStringList after)
    : QUndoCommand(UndoActionName::text(UndoActionName::EditPeople))
    , m_portfolio(portfolio)
    , m_before(std::move(before))
    , m_after(std::move(after))
{
}

void YearlyReportersCommand::redo()
{
    m_portfolio->setYearlyInterestReportersWithoutRecording(m_after);
}

void YearlyReportersCommand::undo()
{
    m_portfolio->setYearlyInterestReportersWithoutRecording(m_before);
}
