// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bond table as shown: the holdings its people filter lets through (and, when asked, only
// those that have stopped earning), sorted by the chosen column's raw values. The filter is this view's; the interest summary and the totals ask for it,
// so that they always cover the rows shown.
#include "model/HoldingFilter.h"

#include <QSortFilterProxyModel>

class BondPortfolio;

class HoldingsFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit HoldingsFilterModel(BondPortfolio *portfolio, QObject *parent = nullptr);

    const HoldingFilter &filter() const { return m_filter; }
    // Shows the holdings naming any of these people; none shows every holding.
    void setSelectedPeople(const QList<PersonRef> &people);
    // Shows only the bonds past final maturity as of the valuation month, which it follows.
    void setStoppedEarningOnly(bool only);
    bool isStoppedEarningOnly() const { return m_stoppedEarningOnly; }
    // Keeps a newly added holding shown until the people chosen change.
    void keepShown(const HoldingRef &holding);
    QList<HoldingRef> shownHoldings() const;

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

signals:
    void filterChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    // A cell without a figure sorts after every figure, whichever the order.
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    void titleHoldersChanged();
    void valuationMonthChanged();
    void applyFilter(HoldingFilter filter);

    BondPortfolio *m_portfolio;
    HoldingFilter m_filter;
    bool m_stoppedEarningOnly = false;
};
