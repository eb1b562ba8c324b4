#pragma once
// How the CSV import reads the text of one field. The rules are lenient in the way the files
// in circulation need (a one-digit month, digits followed by junk) and otherwise literal: no
// currency signs or quotes are stripped from numbers.
#include "base/Money.h"

#include <QDateTime>
#include <QString>

class Series;

namespace CsvField {
// Leading white space skipped, an optional sign, decimal digits up to the first other
// character; no digits gives 0; values beyond 32 bits saturate at the 32-bit limits.
qint32 integerValue(QStringView text);

// Dollars to pennies: the part before "." times 100 as a 32-bit product (it wraps above
// $21,474,836), plus, when there are exactly two parts, the second part's integer value as it
// stands (50.5 is 5005 pennies, 50.50 is 5050). Three or more parts add nothing after the first.
Pennies faceValue(const QString &text);

// "M/YYYY" or "MM/YYYY", optionally surrounded by blanks: the first day of the month at
// midnight, local time. Anything else (another month number, a two-digit year, trailing
// text) gives an invalid date.
QDateTime issueMonth(const QString &text);

// The text without its leading and trailing double-quote characters.
QString withoutSurroundingQuotes(const QString &text);
}

namespace SeriesCsv {
// Case-sensitive prefix test: "EE" the EE series, then "E", "I", "S" the series of that code.
// Anything else, H and HH bonds among them, has no series (nullptr).
const Series *seriesForCSVCode(const QString &text);
}
