#include "HoldingsFilterModel.h"

#include "HoldingsTableModel.h"
#include "document/BondPortfolio.h"

HoldingsFilterModel::HoldingsFilterModel(BondPortfolio *portfolio, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_portfolio(portfolio)
{
    setSortRole(HoldingsTableModel::SortRole);
    setDynamicSortFilter(true);
    connect(portfolio, &BondPortfolio::holdingsFilterChanged, this, &HoldingsFilterModel::invalidateFilter);
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
    return m_portfolio->isHoldingShown(*m_portfolio->holdings().at(sourceRow));
}
