// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PeopleTableModel.h"

#include "document/BondPortfolio.h"

#include <algorithm>

namespace {

// The held bonds a person is named on: redeemed ones stay registered with their people, for the
// tax report, but are no longer the household's. No value (an empty cell) for none.
QVariant heldCount(const QList<Holding *> &holdings)
{
    const auto held = std::count_if(holdings.cbegin(), holdings.cend(), [](const Holding *holding) { return !holding->isRedeemed(); });
    return held ? QVariant(int(held)) : QVariant();
}

} // namespace

PeopleTableModel::PeopleTableModel(BondPortfolio *portfolio, QObject *parent)
    : QAbstractTableModel(parent)
    , m_portfolio(portfolio)
{
    connect(portfolio, &BondPortfolio::titleHoldersAboutToChange, this, [this] {
        beginResetModel();
        for (const PersonRef &person : m_portfolio->titleHolders())
            disconnect(person.get(), nullptr, this, nullptr);
    });
    connect(portfolio, &BondPortfolio::titleHoldersChanged, this, [this] {
        watchPeople();
        endResetModel();
    });
    // Bonds cashed or put back change what each person holds without changing their roles.
    const auto countsChanged = [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, Owner), index(rowCount() - 1, Beneficiary));
    };
    for (auto signal : {&BondPortfolio::redeemedInserted, &BondPortfolio::redeemedRemoved})
        connect(portfolio, signal, this, countsChanged);
    connect(portfolio, &BondPortfolio::redeemedReset, this, countsChanged);
    connect(portfolio, &BondPortfolio::holdingChanged, this, [countsChanged](Holding *, HoldingProperty property) {
        if (property == HoldingProperty::RedemptionMonth)
            countsChanged();
    });
    watchPeople();
}

void PeopleTableModel::watchPeople()
{
    for (const PersonRef &person : m_portfolio->titleHolders()) {
        Person *raw = person.get();
        connect(raw, &Person::countChanged, this,
                [this, raw](const QString &countKey) { countChanged(raw, countKey); });
    }
}

void PeopleTableModel::countChanged(Person *person, const QString &countKey)
{
    const QList<PersonRef> &people = m_portfolio->titleHolders();
    for (qsizetype row = 0; row < people.size(); ++row) {
        if (people.at(row).get() != person)
            continue;
        const int column = countKey == QLatin1String(Person::OwnerHoldingsCountKey)     ? Owner
                           : countKey == QLatin1String(Person::CoOwnerHoldingsCountKey) ? CoOwner
                                                                                       : Beneficiary;
        emit dataChanged(index(int(row), column), index(int(row), column));
        return;
    }
}

PersonRef PeopleTableModel::personAt(int row) const
{
    const QList<PersonRef> &people = m_portfolio->titleHolders();
    return row >= 0 && row < people.size() ? people.at(row) : PersonRef();
}

int PeopleTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_portfolio->titleHolders().size());
}

int PeopleTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant PeopleTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Person &person = *m_portfolio->titleHolders().at(index.row());
    if (role == PersonRole)
        return QVariant::fromValue(m_portfolio->titleHolders().at(index.row()));
    if (role == Qt::TextAlignmentRole)
        return index.column() == Name ? QVariant() : QVariant(Qt::AlignCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    switch (index.column()) {
    case Name:
        return person.name();
    case Owner:
        return heldCount(person.ownerHoldings());
    case CoOwner:
        return heldCount(person.coOwnerHoldings());
    case Beneficiary:
        return heldCount(person.beneficiaryHoldings());
    }
    return {};
}

QVariant PeopleTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    static const char *const titles[Count] = {QT_TR_NOOP("Name"), QT_TR_NOOP("Owner"), QT_TR_NOOP("Co-owner"),
                                               QT_TR_NOOP("Beneficiary")};
    return section >= 0 && section < Count ? tr(titles[section]) : QVariant();
}
