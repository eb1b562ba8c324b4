// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TaxYearTableModel.h"

#include "document/TaxYearText.h"

#include <QFont>

void TaxYearTableModel::setReport(const TaxYearReport &report)
{
    beginResetModel();
    m_report = report;
    m_lines = TaxYearTable::linesOf(report);
    endResetModel();
}

int TaxYearTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

int TaxYearTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant TaxYearTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const TaxYearLine &line = m_lines.at(index.row());
    const bool total = line.kind != TaxYearLine::Kind::Item;
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case Owner: return line.firstOfOwner || line.kind == TaxYearLine::Kind::HouseholdTotal ? line.owner : QString();
        case Bonds: return line.bonds;
        case Event: return line.event;
        case Interest: return formatDollars(line.interest);
        case Note: return line.note;
        }
        return {};
    case PenniesRole:
        return line.interest;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(index.column() == Interest ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::FontRole:
        if (total || (line.firstOfOwner && index.column() == Owner)) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    default:
        return {};
    }
}

QVariant TaxYearTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return TaxYearText::columnTitles().value(section);
}
