// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The interest summary beside the tables: tax year and interest, over the holdings the bond
// table shows. The document computes the rows; this model asks once per burst of changes, not
// once per signal.
#include "document/BondPortfolio.h"

class HoldingsFilterModel;

#include <QAbstractTableModel>

class InterestSummaryModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { TaxYear, Interest, Count };

    InterestSummaryModel(BondPortfolio *portfolio, const HoldingsFilterModel *shown, QObject *parent = nullptr);

    // Reads the summary now if a change is pending (tests and printing need it at once).
    void refreshNow();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void scheduleRefresh();

    BondPortfolio *m_portfolio;
    const HoldingsFilterModel *m_shown;
    QList<InterestSummaryRow> m_rows;
    bool m_dirty = false;
};
