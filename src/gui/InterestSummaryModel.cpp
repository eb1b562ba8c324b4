// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "InterestSummaryModel.h"

#include "HoldingsFilterModel.h"
#include "document/HoldingPresentation.h"

#include <QTimer>

InterestSummaryModel::InterestSummaryModel(BondPortfolio *portfolio, const HoldingsFilterModel *shown, QObject *parent)
    : QAbstractTableModel(parent)
    , m_portfolio(portfolio)
    , m_shown(shown)
{
    connect(portfolio, &BondPortfolio::interestSummaryChanged, this, &InterestSummaryModel::scheduleRefresh);
    connect(shown, &HoldingsFilterModel::filterChanged, this, &InterestSummaryModel::scheduleRefresh);
    m_dirty = true;
    refreshNow();
}

void InterestSummaryModel::scheduleRefresh()
{
    if (m_dirty)
        return;
    m_dirty = true;
    QTimer::singleShot(0, this, &InterestSummaryModel::refreshNow);
}

void InterestSummaryModel::refreshNow()
{
    if (!m_dirty)
        return;
    m_dirty = false;
    QList<InterestSummaryRow> rows;
    {
        BondAssessor::ReadBatch batch(m_portfolio->assessor());
        rows = m_portfolio->interestSummary(m_shown->filter());
    }
    if (rows == m_rows)
        return;
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

int InterestSummaryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int InterestSummaryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant InterestSummaryModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const InterestSummaryRow &row = m_rows.at(index.row());
    if (role == Qt::TextAlignmentRole)
        return index.column() == TaxYear ? QVariant(Qt::AlignCenter) : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DisplayRole) {
        if (index.column() == TaxYear)
            return HoldingPresentation::taxYearText(row);
        // An incomplete figure never passes for a lower one.
        return row.bondsWithoutValue > 0 ? tr("%1 (incomplete)").arg(formatDollars(row.interestEarned))
                                         : formatDollars(row.interestEarned);
    }
    if (role == Qt::ToolTipRole && index.column() == Interest && row.bondsWithoutValue > 0)
        return HoldingPresentation::incompleteYearNote(row);
    if (role == Qt::EditRole)
        return index.column() == TaxYear ? QVariant(row.taxYear) : QVariant(row.interestEarned);
    return {};
}

QVariant InterestSummaryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return section == TaxYear ? tr("Tax Year") : tr("Interest");
}
