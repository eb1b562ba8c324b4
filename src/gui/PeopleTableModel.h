// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The people table's model: the portfolio's title holders, sorted by name as the document keeps
// them, with the number of holdings naming each as owner, co-owner and beneficiary. A count of
// none is no value, so its cell stays empty.
#include "model/Person.h"

#include <QAbstractTableModel>

class BondPortfolio;

class PeopleTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Name, Owner, CoOwner, Beneficiary, Count };
    enum Role { PersonRole = Qt::UserRole + 1 };

    explicit PeopleTableModel(BondPortfolio *portfolio, QObject *parent = nullptr);

    PersonRef personAt(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void watchPeople();
    void countChanged(Person *person, const QString &countKey);

    BondPortfolio *m_portfolio;
};
