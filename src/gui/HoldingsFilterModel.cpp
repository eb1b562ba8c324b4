// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingsFilterModel.h"

#include "HoldingsTableModel.h"
#include "document/BondPortfolio.h"

HoldingsFilterModel::HoldingsFilterModel(BondPortfolio *portfolio, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_portfolio(portfolio)
{
    setSortRole(HoldingsTableModel::SortRole);
    setDynamicSortFilter(true);
    connect(portfolio, &BondPortfolio::titleHoldersChanged, this, &HoldingsFilterModel::titleHoldersChanged);
    connect(portfolio, &BondPortfolio::valueOfDateChanged, this, &HoldingsFilterModel::valuationMonthChanged);
}

void HoldingsFilterModel::setSelectedPeople(const QList<PersonRef> &people)
{
    applyFilter(HoldingFilter(people));
}

void HoldingsFilterModel::setStoppedEarningOnly(bool only)
{
    if (only == m_stoppedEarningOnly)
        return;
    m_stoppedEarningOnly = only;
    applyFilter(HoldingFilter(m_filter.people()));
}

void HoldingsFilterModel::valuationMonthChanged()
{
    // Another month matures other bonds.
    if (m_stoppedEarningOnly && m_filter.stoppedEarningAsOf() != m_portfolio->valueOfMonth())
        applyFilter(HoldingFilter(m_filter.people()));
}

void HoldingsFilterModel::applyFilter(HoldingFilter filter)
{
    if (m_stoppedEarningOnly)
        filter.showOnlyStoppedEarningAsOf(m_portfolio->valueOfMonth());
    m_filter = std::move(filter);
    invalidateFilter();
    emit filterChanged();
}

void HoldingsFilterModel::keepShown(const HoldingRef &holding)
{
    m_filter.keepShown(holding);
    invalidateFilter();
}

QList<HoldingRef> HoldingsFilterModel::shownHoldings() const
{
    return m_filter.shownOf(m_portfolio->holdings());
}

void HoldingsFilterModel::titleHoldersChanged()
{
    if (!m_filter.keepOnly(m_portfolio->titleHolders()))
        return;
    invalidateFilter();
    emit filterChanged();
}

void HoldingsFilterModel::sort(int column, Qt::SortOrder order)
{
    // Sorting reads a figure of every row, twice per comparison: one batch for all of it.
    BondAssessor::ReadBatch batch(m_portfolio->assessor());
    m_portfolio->prefetchValues(m_portfolio->holdings());
    QSortFilterProxyModel::sort(column, order);
}

bool HoldingsFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex &) const
{
    if (sourceRow < 0 || sourceRow >= m_portfolio->holdings().size())
        return false;
    return m_filter.accepts(*m_portfolio->holdings().at(sourceRow));
}

bool HoldingsFilterModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const bool leftHasFigure = left.data(sortRole()).isValid(), rightHasFigure = right.data(sortRole()).isValid();
    if (leftHasFigure && rightHasFigure)
        return QSortFilterProxyModel::lessThan(left, right);
    // Descending order asks lessThan(right, left): answer so that the empty cell still comes last.
    return sortOrder() == Qt::AscendingOrder ? leftHasFigure && !rightHasFigure : !leftHasFigure && rightHasFigure;
}
