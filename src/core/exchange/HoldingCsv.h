// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The comma-separated export: a fixed header line and one line per holding, written so that a
// spreadsheet opens it and the CSV import reads it back.
//
// The format is deliberately plain: no field is escaped (a comma in a name adds a field, and the
// import then rejects that line), only the series label is quoted, lines end in a bare line
// feed, and the text is ISO Latin 1 with '?' for what Latin 1 cannot hold. The spreadsheet form
// (SpreadsheetCsv.h) has the same columns and amounts but quotes, dates and text a spreadsheet reads.
#include "exchange/ExchangeOutcome.h"
#include "exchange/SpreadsheetCsv.h"
#include "model/Holding.h"
#include "valuation/HoldingFigures.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace HoldingCsv {
// "Bond Series,Quantity,Issue Date,...,Beneficiary\n": 11 columns, 118 bytes.
QString csvHeader();
// The holding's line, with the figures as of the context's month, ending in "\n".
// Face value and issue price are those of one bond, value and interest those of the whole
// holding. A holding without issue date writes "0/0" (an empty field in the spreadsheet form).
QString asCSV(const Holding &holding, const ValuationContext &context, CsvForm form = CsvForm::Plain);
}


namespace PortfolioCsv {
// The header's bytes followed by each holding's line, in list order; the spreadsheet form starts
// with the byte order mark.
QByteArray csvRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings,
                             CsvForm form = CsvForm::Plain);
// Writes csvRepresentation atomically, replacing any file of that name. A failure has no alert
// (the window only beeps) but carries the reason in its detail. Never touches the document.
ExchangeOutcome exportToCommaSeparatedValues(const QString &path, const ValuationContext &valuation,
                                             const QList<HoldingRef> &holdings, CsvForm form = CsvForm::Plain);
}
