#pragma once
// The tax report on paper: title, portfolio, year and the date printed at the top, the table with
// its header repeated on every page, the totals, the state tax note and next year's plan, and
// "Page 1 of 2" at the foot of every page. The text flows and breaks between lines by itself.
#include "document/TaxYearReport.h"

#include <QDate>
#include <QString>

class QPagedPaintDevice;

namespace TaxYearPrint {
// The page's contents as HTML, for the text layout.
QString htmlOf(const TaxYearReport &report, const QString &portfolioName, QDate printed);
// Paints every page onto the device; false when nothing fits a page.
bool print(QPagedPaintDevice &device, const TaxYearReport &report, const QString &portfolioName, QDate printed);
// Writes a PDF on Letter paper; false when the file could not be written.
bool writePdf(const QString &path, const TaxYearReport &report, const QString &portfolioName, QDate printed);
}
