// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Person.h"

#include "model/PeopleStore.h"
#include <QCoreApplication>

Person::Person(std::shared_ptr<const PersonRecord> record)
    : m_person(std::move(record))
    , m_cachedPersonUID(m_person ? m_person->uniqueId : QString())
{
}

PersonRef Person::create(std::shared_ptr<const PersonRecord> record)
{
    return std::make_shared<Person>(std::move(record));
}

QList<PersonRef> Person::family(const PeopleStore &store)
{
    const auto me = store.me();
    if (!me)
        return {};
    // A me record without last name would match everybody; it stands for itself alone.
    if (me->lastName.isEmpty())
        return {create(me)};
    QList<PersonRef> members;
    for (const auto &record : store.recordsWithLastNamePrefix(me->lastName))
        members << create(record);
    return members;
}

QString Person::name() const
{
    if (!m_person || m_person->firstName.isEmpty() || m_person->lastName.isEmpty())
        return QCoreApplication::translate("Person", DeletedUserName);
    return QStringLiteral("%1 %2").arg(m_person->firstName, m_person->lastName);
}

QVariant Person::countOf(const QList<Holding *> &list)
{
    if (list.isEmpty())
        return {};
    return QVariant(int(list.size()));
}

void Person::addTo(QList<Holding *> &list, const char *countKey, Holding *holding)
{
    const QString key = QString::fromLatin1(countKey);
    emit countAboutToChange(key);
    list.append(holding);
    emit countChanged(key);
}

void Person::removeFrom(QList<Holding *> &list, const char *countKey, Holding *holding)
{
    const QString key = QString::fromLatin1(countKey);
    emit countAboutToChange(key);
    list.removeAll(holding);
    emit countChanged(key);
}

void Person::addOwnerHolding(Holding *holding) { addTo(m_ownerHoldings, OwnerHoldingsCountKey, holding); }
void Person::removeOwnerHolding(Holding *holding) { removeFrom(m_ownerHoldings, OwnerHoldingsCountKey, holding); }
void Person::addCoOwnerHolding(Holding *holding) { addTo(m_coOwnerHoldings, CoOwnerHoldingsCountKey, holding); }
void Person::removeCoOwnerHolding(Holding *holding) { removeFrom(m_coOwnerHoldings, CoOwnerHoldingsCountKey, holding); }
void Person::addBeneficiaryHolding(Holding *holding) { addTo(m_beneficiaryHoldings, BeneficiaryHoldingsCountKey, holding); }
void Person::removeBeneficiaryHolding(Holding *holding) { removeFrom(m_beneficiaryHoldings, BeneficiaryHoldingsCountKey, holding); }
