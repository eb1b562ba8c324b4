// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tax report on paper: title, portfolio, year and the date printed at the top, the table with
// its column titles repeated on every page, the totals, the state tax note and next year's plan,
// and "Page 1 of 2" at the foot of every page. Pages break between the table's lines, never
// inside one.
#include "document/TaxYearReport.h"

#include <QDate>
#include <QString>

class QPagedPaintDevice;

namespace TaxYearPrint {
// Paints every page onto the device; false when a line is too tall for a page.
bool print(QPagedPaintDevice &device, const TaxYearReport &report, const QString &portfolioName, QDate printed);
// Writes a PDF on Letter paper; false when the file could not be written.
bool writePdf(const QString &path, const TaxYearReport &report, const QString &portfolioName, QDate printed);
}
