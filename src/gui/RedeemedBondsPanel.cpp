// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "RedeemedBondsPanel.h"

#include "RedeemedTableModel.h"
#include "document/BondPortfolio.h"
#include "model/HoldingFilter.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

// The rows the people chosen narrow the table to, sorted as the user clicks.
class RedeemedBondsPanel::ShownRows : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void setPeople(const QList<PersonRef> &people)
    {
        m_filter = HoldingFilter(people);
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &) const override
    {
        const HoldingRef holding = static_cast<RedeemedTableModel *>(sourceModel())->holdingAt(row);
        return holding && m_filter.accepts(*holding);
    }

private:
    HoldingFilter m_filter;
};

RedeemedBondsPanel::RedeemedBondsPanel(BondPortfolio *portfolio, QWidget *parent)
    : QWidget(parent)
    , m_portfolio(portfolio)
{
    m_model = new RedeemedTableModel(portfolio, this);
    m_shown = new ShownRows(this);
    m_shown->setSourceModel(m_model);
    m_shown->setSortRole(RedeemedTableModel::SortRole);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("redeemedTable"));
    m_table->setModel(m_shown);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(-1, Qt::AscendingOrder);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                             | QAbstractItemView::AnyKeyPressed);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    m_table->horizontalHeader()->setSectionResizeMode(RedeemedTableModel::People, QHeaderView::Stretch);
    const int widths[RedeemedTableModel::Count] = {84, 66, 86, 80, 80, 120, 90, 72, 112, 200};
    for (int column = 0; column < RedeemedTableModel::Count; ++column)
        m_table->setColumnWidth(column, widths[column]);

    m_unredeem = new QPushButton(tr("Un-redeem"), this);
    m_unredeem->setToolTip(tr("Put the selected bonds back among the bonds held"));
    m_delete = new QPushButton(tr("Delete"), this);
    m_delete->setToolTip(tr("Delete the selected redeemed bonds from the portfolio"));
    m_totals = new QLabel(this);
    m_totals->setObjectName(QStringLiteral("redeemedTotals"));
    m_totals->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_totals->setWordWrap(true);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(m_totals, 1);
    row->addWidget(m_unredeem);
    row->addWidget(m_delete);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table, 1);
    layout->addLayout(row);

    connect(m_unredeem, &QPushButton::clicked, this, &RedeemedBondsPanel::unredeemSelected);
    connect(m_delete, &QPushButton::clicked, this, &RedeemedBondsPanel::deleteSelected);
    connect(m_model, &RedeemedTableModel::editRefused, this, &RedeemedBondsPanel::editRefused);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RedeemedBondsPanel::follow);
    connect(m_shown, &QAbstractItemModel::modelReset, this, &RedeemedBondsPanel::follow);
    connect(m_shown, &QAbstractItemModel::layoutChanged, this, &RedeemedBondsPanel::follow);
    connect(m_shown, &QAbstractItemModel::rowsInserted, this, &RedeemedBondsPanel::follow);
    connect(m_shown, &QAbstractItemModel::rowsRemoved, this, &RedeemedBondsPanel::follow);
    connect(m_shown, &QAbstractItemModel::dataChanged, this, &RedeemedBondsPanel::follow);
    follow();
}

QList<HoldingRef> RedeemedBondsPanel::selectedHoldings() const
{
    QList<HoldingRef> holdings;
    for (int row : selectedRowsFromLast())
        holdings.prepend(m_model->holdingAt(row));
    return holdings;
}

QList<int> RedeemedBondsPanel::selectedRowsFromLast() const
{
    QList<int> rows;
    for (const QModelIndex &index : m_table->selectionModel()->selectedRows())
        rows << m_shown->mapToSource(index).row();
    std::sort(rows.begin(), rows.end(), std::greater<>());
    return rows;
}

void RedeemedBondsPanel::unredeemSelected()
{
    const QList<int> rows = selectedRowsFromLast();
    UndoStep step(*m_portfolio, UndoActionName::Unredeem);
    for (int row : rows)
        m_portfolio->unredeemAt(row);
}

void RedeemedBondsPanel::deleteSelected()
{
    const QList<int> rows = selectedRowsFromLast();
    UndoStep step(*m_portfolio, UndoActionName::DeleteHolding);
    for (int row : rows)
        m_portfolio->removeRedeemedAt(row);
}

void RedeemedBondsPanel::setSelectedPeople(const QList<PersonRef> &people)
{
    m_shown->setPeople(people);
    follow();
}

QString RedeemedBondsPanel::totalsText() const
{
    return m_totals->text();
}

void RedeemedBondsPanel::follow()
{
    const bool selected = m_table->selectionModel()->hasSelection();
    m_unredeem->setEnabled(selected);
    m_delete->setEnabled(selected);
    qint64 bonds = 0;
    Pennies received = 0, interest = 0;
    for (int row = 0; row < m_shown->rowCount(); ++row) {
        const HoldingRef holding = m_model->holdingAt(m_shown->mapToSource(m_shown->index(row, 0)).row());
        bonds += holding->countedQuantity();
        received += holding->amountReceived();
        interest += holding->redemptionInterest();
    }
    const QString sums = bonds == 1 ? tr("1 bond redeemed: received %1 · interest %2").arg(formatDollars(received), formatDollars(interest))
                                    : tr("%1 bonds redeemed: received %2 · interest %3")
                                          .arg(QString::number(bonds), formatDollars(received), formatDollars(interest));
    m_totals->setText(sums);
}
