// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A tax year's report as the lines of a table, grouped per owner: each owner's items, then the
// owner's total; the household's total last. The dialog shows these lines, the CSV and the PDF
// write them, so that all three read the same.
#include "document/TaxYearReport.h"

#include <QByteArray>
#include <QList>
#include <QString>

struct TaxYearLine
{
    enum class Kind { Item, OwnerTotal, HouseholdTotal };
    Kind kind = Kind::Item;
    bool firstOfOwner = false;
    QString owner, bonds, event, note;
    Pennies interest = 0;
};

namespace TaxYearTable {
QList<TaxYearLine> linesOf(const TaxYearReport &report);
// "Final maturity 03/2027, interest so far $76.64" for a bond of next year's plan.
QString nextYearText(const NextYearMaturity &maturity);
// The table's column titles and lines, then next year's plan and the state tax note, as UTF-8
// comma-separated values; interest in plain dollars for spreadsheets.
QByteArray csvOf(const TaxYearReport &report);
}
