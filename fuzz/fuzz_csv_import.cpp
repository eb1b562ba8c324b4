// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the CSV import, in the format the first byte picks, and exports what
// came in back to CSV. Checks that an import is all or nothing and that its counts add up.
#include "document/BondPortfolio.h"
#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioCsvImport.h"
#include "exchange/SpreadsheetCsv.h"
#include "model/PeopleStore.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUndoStack>
#include <cstdlib>
#include <memory>

namespace {

struct Environment
{
    QTemporaryDir home;
    std::unique_ptr<QCoreApplication> application;
    std::unique_ptr<PeopleStore> people;
    std::unique_ptr<BondPortfolio> portfolio;
};

Environment *environment = nullptr;

void check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    environment = new Environment;
    // Settings and data go to a throw-away folder, never the user's own.
    qputenv("XDG_CONFIG_HOME", (environment->home.path() + QStringLiteral("/config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", (environment->home.path() + QStringLiteral("/data")).toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    environment->application = std::make_unique<QCoreApplication>(*argc, *argv);
    environment->people = std::make_unique<PeopleStore>(environment->home.path() + QStringLiteral("/people.vcf"));
    // No database: the import never consults it, and valuation then reads as nothing.
    environment->portfolio = std::make_unique<BondPortfolio>(environment->people.get(),
                                                             environment->home.path() + QStringLiteral("/none.bvdb"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    BondPortfolio &portfolio = *environment->portfolio;
    portfolio.setHoldings({});
    portfolio.undoStack()->clear(); // an import is one undo step; a million of them would fill memory
    const CsvImportFormat format = (data[0] & 1) ? CsvImportFormat::SavingsBondWizard : CsvImportFormat::Own;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));

    const CsvImportOutcome outcome = PortfolioCsvImport::importCSVData(portfolio, bytes, format);
    if (!outcome.succeeded) {
        check(portfolio.holdings().isEmpty());
        return 0;
    }
    check(portfolio.holdings().size() == outcome.importedCount);
    // Every line after the header is imported or counted as rejected; in the spreadsheet form a
    // quoted field may hold line breaks, so there a record counts, not a line.
    const qsizetype counted = outcome.importedCount + outcome.rejectedCount + 1;
    const qsizetype lines = QString::fromLatin1(bytes).split(CsvImportFormats::lineSeparator(format)).size();
    const QByteArray body = SpreadsheetCsv::withoutByteOrderMark(bytes);
    check(counted == lines || (format == CsvImportFormat::Own && counted == SpreadsheetCsv::records(QString::fromLatin1(body)).size()));
    const QByteArray exported = PortfolioCsv::csvRepresentation(portfolio.valuationContext(), portfolio.holdings());
    check(exported.count('\n') >= outcome.importedCount + 1);
    return 0;
}
