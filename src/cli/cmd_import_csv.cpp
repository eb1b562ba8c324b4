// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli import-csv: appends the bonds of a CSV file (this program's own export or a
// Savings Bond Wizard 4.10 export) to a portfolio and saves it.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/PortfolioCsvImport.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Appends the bonds of a CSV file to a portfolio and saves it "
                                                    "(a new portfolio is created when FILE does not exist). Lines "
                                                    "that cannot be read, H and HH bonds among them, are skipped."));
    const QCommandLineOption formatOption(QStringLiteral("format"),
                                          CliText::tr("own (written by Quillmere, line feeds) or wizard (Savings Bond "
                                                         "Wizard 4.10, CR LF)."),
                                          QStringLiteral("own|wizard"));
    const QCommandLineOption peopleOption = peopleFileOption();
    const QCommandLineOption dropOption(QStringLiteral("drop-missing-people"),
                                        CliText::tr("Save even though people the portfolio names are not in the "
                                                       "people file: they and their roles are dropped."));
    parser.addOptions({formatOption, peopleOption, dropOption});
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("CSV"), CliText::tr("The CSV file to read."));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        PositionalCount::exactly(2, CliText::tr("import-csv needs a portfolio file and a CSV file (see --help)")),
                        CliText::tr("--format own|wizard [options] FILE CSV"), &status))
        return status;
    const QStringList paths = parser.positionalArguments();
    if (!parser.isSet(formatOption))
        return cliFail(CliText::tr("--format own|wizard is required"));
    const QString formatName = parser.value(formatOption).toLower();
    if (formatName != QLatin1String("own") && formatName != QLatin1String("wizard"))
        return cliFail(CliText::tr("unknown format '%1' (use own or wizard)").arg(parser.value(formatOption)));
    const CsvImportFormat format = formatName == QLatin1String("own") ? CsvImportFormat::Own : CsvImportFormat::SavingsBondWizard;
    if (!QFileInfo(paths.at(1)).isFile())
        return cliFail(CliText::tr("%1: no such file").arg(paths.at(1)));

    QString error;
    const bool creating = !QFileInfo::exists(paths.at(0));
    PeopleStore people(peopleFilePath(parser, peopleOption, paths.at(0)));
    const auto portfolio = creating ? newPortfolio(people) : openPortfolioFile(paths.at(0), &error, people);
    if (!portfolio)
        return cliFail(error);
    // Saving keeps only the people the store knows: never drop the others unasked.
    if (const QString missing = missingPeopleText(portfolio->missingPeopleCount(), portfolio->fileName(), portfolio->peopleStore()); !missing.isEmpty() && !parser.isSet(dropOption))
        return cliFail(CliText::tr("%1; saving would drop them and every role that names them. Name the people "
                                      "file that holds them with --people FILE (or %2), or give --drop-missing-people "
                                      "to save without them. Nothing was changed.")
                           .arg(missing, QLatin1String(PeopleStore::PathEnvironmentVariable)));

    const CsvImportOutcome outcome = PortfolioCsvImport::importCSVFileAtPath(*portfolio, paths.at(1), format);
    const ExchangeAlert alert = ExchangeAlerts::of(outcome);
    if (!outcome.succeeded)
        return cliFail(QStringLiteral("%1: %2 (%3)").arg(alert.title, alert.message, outcome.detail));
    if (PortfolioSaveFailure failure; !portfolio->saveToFile(paths.at(0), &failure))
        return cliFail(saveFailureText(paths.at(0), failure));
    cliOut() << alert.title << ": " << alert.message << '\n';
    if (!alert.informative.isEmpty())
        cliOut() << alert.informative << '\n';
    if (creating)
        cliOut() << CliText::tr("Created %1\n").arg(paths.at(0));
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("import-csv"),
                                             QT_TRANSLATE_NOOP("CliText", "import-csv FILE CSV --format own|wizard [--people FILE] [--drop-missing-people]   add the bonds of a CSV file"),
                                             run});

} // namespace
