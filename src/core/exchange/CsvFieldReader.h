// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the CSV import reads a line and the text of its fields, the same for both formats it takes.
// The rules are lenient where the files in circulation need it (digits followed by junk, a
// one-digit month) and otherwise literal: nothing is unquoted or unescaped beyond what is said
// here, and no currency sign is stripped from a number. Files written by earlier versions read
// exactly as they always have, quirks included.
#include "base/Money.h"

#include "base/Month.h"

#include <QList>
#include <QString>
#include <QStringView>

class Series;

namespace CsvFieldReader {
// Every comma splits, one inside double quotes too: the export never quotes a comma, so a line
// whose name held one comes back with a field too many and is rejected by its count.
QList<QStringView> fields(QStringView line);

// The text without its leading and trailing double-quote characters.
QStringView withoutSurroundingQuotes(QStringView text);

// Leading white space skipped, an optional sign, decimal digits up to the first other
// character; no digits gives 0. Values beyond 32 bits saturate at the 32-bit limits.
qint32 integerValue(QStringView text);

// Dollars to pennies, with two quirks the format has always had:
// - the whole dollars (before the first ".") are scaled to pennies as a 32-bit product, which
//   wraps above $21,474,836;
// - with exactly two pieces the second is added as the integer it reads as, not scaled by its
//   number of digits: 50.5 is 5005 pennies, 50.50 is 5050. Three or more pieces add nothing.
Pennies faceValue(QStringView text);

// "M/YYYY" or "MM/YYYY", optionally surrounded by spaces (and stricter than Month's reader: no
// blank beside the slash). Anything else (another month number, a two-digit year, trailing
// text) gives no month.
Month issueMonth(const QString &text);
// "YYYY-MM-DD", a real date, optionally surrounded by spaces: the month of that date. The
// spreadsheet form writes the first of the month; a spreadsheet may save any day of it.
Month isoIssueMonth(const QString &text);

// The series a field names, its surrounding double quotes removed first; nullptr for none.
const Series *series(QStringView text);
}

namespace SeriesCsv {
// Case-sensitive prefix test: "EE" the EE series, then "E", "I", "S" the series of that code.
// Anything else, H and HH bonds among them, has no series (nullptr).
const Series *seriesForCSVCode(QStringView text);
}
