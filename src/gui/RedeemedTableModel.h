// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table of the portfolio's redeemed bonds, one row per redeemed holding in the document's
// order. The redemption month, the amount received and the serial number can be edited; each edit
// goes to the holding's setters, which the document records as an "Edit".
#include "model/Holding.h"

#include <QAbstractTableModel>

class BondPortfolio;

class RedeemedTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    // What was cashed and what it brought come first, so that a narrow window shows them.
    enum Column { Series, Quantity, FaceValue, IssueDate, RedemptionMonth, AmountReceived, Interest, TaxYear, SerialNumber,
                  People, Count };
    enum Role { HoldingRole = Qt::UserRole + 1, SortRole };

    explicit RedeemedTableModel(BondPortfolio *portfolio, QObject *parent = nullptr);

    HoldingRef holdingAt(int row) const;
    // The year whose return carries the holding's interest, or "every year" for a yearly reporter's.
    QString taxYearText(const Holding &holding) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    // An edit refused, with the message to show; the old value stays.
    void editRefused(const QString &title, const QString &message);

private:
    QVariant displayData(const Holding &holding, int column) const;
    QVariant sortData(const Holding &holding, int column) const;
    void rowChanged(const Holding *holding);

    BondPortfolio *m_portfolio;
};
