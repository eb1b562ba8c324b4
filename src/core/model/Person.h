// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A title holder: one record of the people store, named on bonds as owner, co-owner or
// beneficiary. Identity is the record's identifier alone; the name is read from the record on
// every request. The three role lists point at holdings without owning them.
#include "model/PersonRecord.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>

class Holding;
class PeopleStore;
class Person;
using PersonRef = std::shared_ptr<Person>;

class Person : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *OwnerHoldingsCountKey = "ownerHoldingsCount";
    static constexpr const char *CoOwnerHoldingsCountKey = "coOwnerHoldingsCount";
    static constexpr const char *BeneficiaryHoldingsCountKey = "beneficiaryHoldingsCount";
    static constexpr const char *DeletedUserName = QT_TRANSLATE_NOOP("Person", "Deleted User");

    explicit Person(std::shared_ptr<const PersonRecord> record);
    static PersonRef create(std::shared_ptr<const PersonRecord> record);
    // The user's family: every record whose last name begins with the me record's last name,
    // ignoring case, in store order. Empty (no list) when the store has no me record.
    static QList<PersonRef> family(const PeopleStore &store);

    QString uniqueId() const { return m_cachedPersonUID; }
    // "First Last", or "Deleted User" when either name is missing.
    QString name() const;
    std::shared_ptr<const PersonRecord> record() const { return m_person; }

    bool isEqual(const Person &other) const { return m_cachedPersonUID == other.m_cachedPersonUID; }

    const QList<Holding *> &ownerHoldings() const { return m_ownerHoldings; }
    const QList<Holding *> &coOwnerHoldings() const { return m_coOwnerHoldings; }
    const QList<Holding *> &beneficiaryHoldings() const { return m_beneficiaryHoldings; }
    // The list's length, or an invalid QVariant (no value) when the list is empty, so that a
    // table shows an empty cell rather than 0.
    QVariant ownerHoldingsCount() const { return countOf(m_ownerHoldings); }
    QVariant coOwnerHoldingsCount() const { return countOf(m_coOwnerHoldings); }
    QVariant beneficiaryHoldingsCount() const { return countOf(m_beneficiaryHoldings); }

    void addOwnerHolding(Holding *holding);
    void removeOwnerHolding(Holding *holding);
    void addCoOwnerHolding(Holding *holding);
    void removeCoOwnerHolding(Holding *holding);
    void addBeneficiaryHolding(Holding *holding);
    void removeBeneficiaryHolding(Holding *holding);

signals:
    // Around every change of a role list, with the count key ("ownerHoldingsCount", ...).
    void countAboutToChange(const QString &countKey);
    void countChanged(const QString &countKey);

private:
    static QVariant countOf(const QList<Holding *> &list);
    void addTo(QList<Holding *> &list, const char *countKey, Holding *holding);
    void removeFrom(QList<Holding *> &list, const char *countKey, Holding *holding);

    std::shared_ptr<const PersonRecord> m_person;
    QString m_cachedPersonUID;
    QList<Holding *> m_ownerHoldings;
    QList<Holding *> m_coOwnerHoldings;
    QList<Holding *> m_beneficiaryHoldings;
};

// Equality by identifier, for lists that hold distinct objects of one person.
inline bool samePerson(const Person *a, const Person *b)
{
    if (!a || !b)
        return a == b;
    return a->isEqual(*b);
}

Q_DECLARE_METATYPE(PersonRef)
