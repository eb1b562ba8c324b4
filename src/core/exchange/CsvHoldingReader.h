#pragma once
// Turns the lines of an imported CSV file into holdings: the header becomes a column map, each
// data line a new holding or a rejection.
#include "exchange/CsvImportFormat.h"
#include "model/Holding.h"

#include <QMap>
#include <QString>

// Column index (0-based position in the header) to the header name, for the columns of the
// format's set that the header contains. A name that occurs twice is mapped at both places.
using CsvFieldMap = QMap<int, QString>;

namespace CsvHoldingReader {
// Header fields are compared after their surrounding double quotes are removed.
CsvFieldMap fieldMapForHeader(const QString &headerLine, CsvImportFormat format);
// The number of comma-separated fields of a line (quotes do not protect commas).
int fieldCount(const QString &line);

// A new holding with its defaults, filled from the mapped fields in column order; nullptr when
// the line does not have the promised number of fields or no mapped series text names a
// series. Malformed numbers and dates do not reject a line: they read as 0 or no date.
HoldingRef holdingForCSVLine(const QString &line, int promisedFieldCount, const CsvFieldMap &fieldMap);
}
