// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Adds the bonds of a CSV file to a portfolio. The import works out every new holding first and
// changes the document once, at the end: the new holdings are appended after the existing ones
// as one undoable "Insert Holding", and the document is edited. Every refusal leaves the document
// exactly as it was.
#include "exchange/CsvImportFormat.h"
#include "exchange/ExchangeOutcome.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

class BondPortfolio;

struct CsvImportOutcome : ExchangeOutcome
{
    int importedCount = 0;
    int rejectedCount = 0; // data lines skipped, the empty one after a final separator included
    QStringList skipped;   // "line N: why" for each skipped line but a last empty one
    int unmatchedNames = 0; // names of people that were not exactly one person of the store
    CsvImportFormat format = CsvImportFormat::Own; // a refused file's alert names its producer
    bool headerOfOtherFormat = false;              // refused: the header is the other format's
};

namespace PortfolioCsvImport {
// Files beyond these sizes are no household's bond list; they are refused before any holding
// is built, so that a wrong choice in the open panel cannot exhaust memory.
inline constexpr qint64 MaximumFileSize = 8 * 1024 * 1024;
inline constexpr int MaximumLineCount = 100000;

// Line 0 is the header; every later line is a bond or is skipped and counted. Fewer than two
// lines are refused as corrupt.
CsvImportOutcome importCSVLines(BondPortfolio &portfolio, const std::optional<QStringList> &lines,
                                CsvImportFormat format);
// The bytes of a whole file: read as ISO Latin 1 and split at the format's separator. Refused as
// corrupt when too large or not text (a NUL or another control character than tab, line
// breaks, form feed and the DOS end-of-file mark).
CsvImportOutcome importCSVData(BondPortfolio &portfolio, const QByteArray &data, CsvImportFormat format);
CsvImportOutcome importCSVFileAtPath(BondPortfolio &portfolio, const QString &path, CsvImportFormat format);

// A refusal of a file of the format as corrupt, with the reason for the log.
CsvImportOutcome corruptFileOutcome(CsvImportFormat format, const QString &detail);
}
