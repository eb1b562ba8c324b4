// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli export-csv: writes a portfolio's holdings as the comma-separated file the
// portfolio window exports.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "model/PeopleStore.h"
#include "exchange/HoldingCsv.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Writes every holding of a portfolio, with its figures as of the "
                                                    "valuation month, to a CSV file (ISO Latin 1, line feeds)."));
    const QCommandLineOption asOf = valuationMonthOption();
    const QCommandLineOption peopleOption = peopleFileOption();
    const QCommandLineOption spreadsheetOption(QStringLiteral("spreadsheet"),
                                               CliText::tr("Write for spreadsheets (LibreOffice, Excel): UTF-8 with a byte "
                                                           "order mark, dates as YYYY-MM-01, fields with commas or quotes quoted."));
    parser.addOptions({asOf, peopleOption, spreadsheetOption});
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("OUT"), CliText::tr("The CSV file to write (replaced if it exists)."));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        PositionalCount::exactly(2, CliText::tr("export-csv needs a portfolio file and an output file (see --help)")),
                        {}, &status))
        return status;
    const QStringList paths = parser.positionalArguments();

    QString error;
    PeopleStore people(peopleFilePath(parser, peopleOption, paths.at(0)));
    const auto portfolio = openValuedPortfolio(paths.at(0), parser, asOf, &error, people);
    if (!portfolio)
        return cliFail(error);

    const CsvForm form = parser.isSet(spreadsheetOption) ? CsvForm::Spreadsheet : CsvForm::Plain;
    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(paths.at(1), portfolio->valuationContext(),
                                                                               portfolio->holdings(), form);
    if (!outcome.succeeded)
        return cliFail(outcome.detail);
    cliOut() << CliText::tr("Exported %1 holdings as of %2 to %3\n")
                    .arg(portfolio->holdings().size())
                    .arg(monthText(portfolio->valueOfDate()), paths.at(1));
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("export-csv"),
                                             QT_TRANSLATE_NOOP("CliText", "export-csv FILE OUT [--as-of YYYY-MM] [--people FILE] [--spreadsheet]   write a portfolio's holdings as CSV"),
                                             run});

} // namespace
