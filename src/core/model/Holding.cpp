// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Holding.h"

#include "model/EntryRules.h"

#include "base/UserDefaults.h"
#include "valuation/BondAssessor.h"
#include <QCoreApplication>

namespace HoldingKey {

const char *of(HoldingProperty property)
{
    switch (property) {
    case HoldingProperty::Series: return Series;
    case HoldingProperty::Quantity: return Quantity;
    case HoldingProperty::Paper: return Paper;
    case HoldingProperty::IssueDate: return IssueDate;
    case HoldingProperty::FaceValue: return FaceValue;
    case HoldingProperty::SerialNumber: return SerialNumber;
    case HoldingProperty::Owner: return Owner;
    case HoldingProperty::CoOwner: return CoOwner;
    case HoldingProperty::Beneficiary: return Beneficiary;
    case HoldingProperty::RedemptionMonth: return RedemptionMonth;
    case HoldingProperty::AmountReceived: return AmountReceived;
    }
    return "";
}

bool affectsDerivedValues(HoldingProperty property)
{
    return property == HoldingProperty::Series || property == HoldingProperty::Paper
        || property == HoldingProperty::IssueDate || property == HoldingProperty::Quantity
        || property == HoldingProperty::FaceValue;
}

} // namespace HoldingKey

// Groups the announcements of one outermost setter call: the role rules make one setter change
// up to three keys, and observers should see them as one change.
class Holding::ChangeScope
{
public:
    explicit ChangeScope(Holding *holding)
        : m_holding(holding)
    {
        ++m_holding->m_changeDepth;
    }
    ~ChangeScope()
    {
        if (--m_holding->m_changeDepth == 0 && m_holding->m_changedInScope) {
            m_holding->m_changedInScope = false;
            emit m_holding->changesCompleted();
        }
    }
    ChangeScope(const ChangeScope &) = delete;
    ChangeScope &operator=(const ChangeScope &) = delete;

private:
    Holding *m_holding;
};

Holding::Holding()
    : m_series(Series::defaultSeries())
{
    const QVariant paper = UserDefaults::value(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
    // A series never sold electronically starts paper, whatever the preference.
    m_isPaper = EntryRules::startsPaper(paper.isValid() ? paper.toBool() : true, m_series, {});
}

Holding::~Holding()
{
    // The people's role lists must not keep pointing at a holding that is gone.
    if (m_owner)
        m_owner->removeOwnerHolding(this);
    if (m_coOwner)
        m_coOwner->removeCoOwnerHolding(this);
    if (m_beneficiary)
        m_beneficiary->removeBeneficiaryHolding(this);
}

void Holding::announce(HoldingProperty property, const QVariant &oldValue)
{
    m_changedInScope = true;
    emit valueChanged(property, oldValue);
    if (HoldingKey::affectsDerivedValues(property))
        emit derivedValuesChanged();
}

const Series *Holding::series() const
{
    return m_series ? m_series : Series::eeBond();
}

void Holding::setSeries(const Series *series)
{
    ChangeScope scope(this);
    if (series == m_series)
        return;
    const Series *old = m_series;
    m_series = series;
    announce(HoldingProperty::Series, QVariant::fromValue(old));
}

void Holding::setQuantity(qint32 quantity)
{
    ChangeScope scope(this);
    if (quantity == m_quantity)
        return;
    const qint32 old = m_quantity;
    m_quantity = quantity;
    announce(HoldingProperty::Quantity, old);
}

void Holding::setFaceValue(Pennies faceValue)
{
    ChangeScope scope(this);
    if (faceValue == m_faceValue)
        return;
    const Pennies old = m_faceValue;
    m_faceValue = faceValue;
    announce(HoldingProperty::FaceValue, old);
}

void Holding::setIssueDate(Month issueDate)
{
    ChangeScope scope(this);
    if (issueDate == m_issueDate)
        return;
    const Month old = m_issueDate;
    m_issueDate = issueDate;
    announce(HoldingProperty::IssueDate, old.isNull() ? QVariant() : QVariant::fromValue(old));
}

void Holding::setSerialNumber(const QString &serialNumber)
{
    ChangeScope scope(this);
    if (serialNumber.isNull() == m_serialNumber.isNull() && serialNumber == m_serialNumber)
        return;
    const QString old = m_serialNumber;
    m_serialNumber = serialNumber;
    announce(HoldingProperty::SerialNumber, old.isNull() ? QVariant() : QVariant(old));
}

void Holding::setPaper(bool paper)
{
    ChangeScope scope(this);
    if (paper == m_isPaper)
        return;
    const bool old = m_isPaper;
    m_isPaper = paper;
    announce(HoldingProperty::Paper, old);
}

void Holding::setRedemptionMonth(Month month)
{
    ChangeScope scope(this);
    if (month == m_redemptionMonth)
        return;
    const Month old = m_redemptionMonth;
    m_redemptionMonth = month;
    announce(HoldingProperty::RedemptionMonth, old.isNull() ? QVariant() : QVariant::fromValue(old));
}

void Holding::setAmountReceived(Pennies amount)
{
    ChangeScope scope(this);
    if (amount == m_amountReceived)
        return;
    const Pennies old = m_amountReceived;
    m_amountReceived = amount;
    announce(HoldingProperty::AmountReceived, old);
}

void Holding::setOwner(const PersonRef &person)
{
    ChangeScope scope(this);
    if (person != m_owner) {
        const PersonRef old = m_owner;
        if (old)
            old->removeOwnerHolding(this);
        m_owner = person;
        if (person)
            person->addOwnerHolding(this);
        announce(HoldingProperty::Owner, old ? QVariant::fromValue(old) : QVariant());
    }
    if (person) {
        if (samePerson(person.get(), m_coOwner.get()))
            setCoOwner(nullptr);
        else if (samePerson(person.get(), m_beneficiary.get()))
            setBeneficiary(nullptr);
    }
}

void Holding::setCoOwner(const PersonRef &person)
{
    ChangeScope scope(this);
    if (person != m_coOwner) {
        const PersonRef old = m_coOwner;
        if (old)
            old->removeCoOwnerHolding(this);
        m_coOwner = person;
        if (person)
            person->addCoOwnerHolding(this);
        announce(HoldingProperty::CoOwner, old ? QVariant::fromValue(old) : QVariant());
    }
    if (m_coOwner && m_beneficiary)
        setBeneficiary(nullptr);
    if (m_owner && samePerson(m_owner.get(), m_coOwner.get()))
        setOwner(nullptr);
}

void Holding::setBeneficiary(const PersonRef &person)
{
    ChangeScope scope(this);
    if (person != m_beneficiary) {
        const PersonRef old = m_beneficiary;
        if (old)
            old->removeBeneficiaryHolding(this);
        m_beneficiary = person;
        if (person)
            person->addBeneficiaryHolding(this);
        announce(HoldingProperty::Beneficiary, old ? QVariant::fromValue(old) : QVariant());
    }
    if (m_coOwner && m_beneficiary)
        setCoOwner(nullptr);
    if (m_owner && samePerson(m_owner.get(), m_beneficiary.get()))
        setOwner(nullptr);
}

void Holding::deleteTitleHolder(const Person *person)
{
    ChangeScope scope(this);
    if (!person)
        return;
    if (m_owner.get() == person)
        setOwner(nullptr);
    if (m_coOwner.get() == person)
        setCoOwner(nullptr);
    if (m_beneficiary.get() == person)
        setBeneficiary(nullptr);
}

bool Holding::validateIssueDate(Month proposed, const BondAssessor &database, ValidationError *error) const
{
    if (!proposed.isNull() && database.isValidIssueDate(proposed, series()))
        return true;
    if (error)
        *error = {QString::fromLatin1(IssueDateErrorDomain), 1, QCoreApplication::translate("Holding", NoIssueDataMessage)};
    return false;
}

QString Holding::registration() const
{
    if (!m_owner)
        return {};
    if (m_coOwner)
        return QStringLiteral("%1 OR %2").arg(m_owner->name(), m_coOwner->name());
    if (m_beneficiary)
        return QStringLiteral("%1 POD %2").arg(m_owner->name(), m_beneficiary->name());
    return m_owner->name();
}

QVariant Holding::value(HoldingProperty property) const
{
    auto person = [](const PersonRef &p) { return p ? QVariant::fromValue(p) : QVariant(); };
    switch (property) {
    case HoldingProperty::Series: return QVariant::fromValue(m_series);
    case HoldingProperty::Quantity: return m_quantity;
    case HoldingProperty::FaceValue: return m_faceValue;
    case HoldingProperty::IssueDate: return m_issueDate.isNull() ? QVariant() : QVariant::fromValue(m_issueDate);
    case HoldingProperty::SerialNumber: return m_serialNumber.isNull() ? QVariant() : QVariant(m_serialNumber);
    case HoldingProperty::Paper: return m_isPaper;
    case HoldingProperty::Owner: return person(m_owner);
    case HoldingProperty::CoOwner: return person(m_coOwner);
    case HoldingProperty::Beneficiary: return person(m_beneficiary);
    case HoldingProperty::RedemptionMonth:
        return m_redemptionMonth.isNull() ? QVariant() : QVariant::fromValue(m_redemptionMonth);
    case HoldingProperty::AmountReceived: return m_amountReceived;
    }
    return {};
}

void Holding::setValue(HoldingProperty property, const QVariant &value)
{
    switch (property) {
    case HoldingProperty::Series:
        setSeries(value.typeId() == QMetaType::QString ? Series::seriesForCode(value.toString())
                                                       : value.value<const Series *>());
        break;
    case HoldingProperty::Quantity: setQuantity(value.toInt()); break;
    case HoldingProperty::FaceValue: setFaceValue(value.toLongLong()); break;
    case HoldingProperty::IssueDate: setIssueDate(value.value<Month>()); break;
    case HoldingProperty::SerialNumber: setSerialNumber(value.isValid() ? value.toString() : QString()); break;
    case HoldingProperty::Paper: setPaper(value.toBool()); break;
    case HoldingProperty::Owner: setOwner(value.value<PersonRef>()); break;
    case HoldingProperty::CoOwner: setCoOwner(value.value<PersonRef>()); break;
    case HoldingProperty::Beneficiary: setBeneficiary(value.value<PersonRef>()); break;
    case HoldingProperty::RedemptionMonth: setRedemptionMonth(value.value<Month>()); break;
    case HoldingProperty::AmountReceived: setAmountReceived(value.toLongLong()); break;
    }
}
