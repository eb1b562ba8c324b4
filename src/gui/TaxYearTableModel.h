// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tax report's table in the dialog: the lines of TaxYearTable under TaxYearText's column
// titles, the owner named on the first line of each group, totals in bold.
#include "TaxYearTable.h"

#include <QAbstractTableModel>

class TaxYearTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Owner, Bonds, Event, Interest, Note, Count };
    enum Role { PenniesRole = Qt::UserRole + 1 };

    using QAbstractTableModel::QAbstractTableModel;

    void setReport(const TaxYearReport &report);
    const TaxYearReport &report() const { return m_report; }
    const QList<TaxYearLine> &lines() const { return m_lines; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    TaxYearReport m_report;
    QList<TaxYearLine> m_lines;
};
