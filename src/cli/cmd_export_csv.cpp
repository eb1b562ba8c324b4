// quillmere-cli export-csv: writes a portfolio's holdings as the comma-separated file the
// portfolio window exports.
#include "CliCommand.h"
#include "CliDatabase.h"
#include "CliPortfolioFile.h"
#include "exchange/HoldingCsv.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes every holding of a portfolio, with its figures as of the "
                                                    "valuation month, to a CSV file (ISO Latin 1, line feeds)."));
    parser.addHelpOption();
    const QCommandLineOption asOf = valuationMonthOption();
    parser.addOption(asOf);
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("The CSV file to write (replaced if it exists)."));
    if (!parser.parse(arguments))
        return cliFail(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        cliOut() << parser.helpText();
        return 0;
    }
    const QStringList paths = parser.positionalArguments();
    if (paths.size() != 2)
        return cliFail(QStringLiteral("export-csv needs a portfolio file and an output file (see --help)"));

    QString error;
    if (!openRedemptionDatabase(&error))
        return cliFail(error);
    const auto portfolio = openPortfolioFile(paths.at(0), &error);
    if (!portfolio)
        return cliFail(error);
    if (parser.isSet(asOf) && !applyValuationMonth(*portfolio, parser.value(asOf), &error))
        return cliFail(error);

    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(paths.at(1), portfolio->holdings());
    if (!outcome.succeeded)
        return cliFail(outcome.detail);
    cliOut() << "Exported " << portfolio->holdings().size() << " holdings as of " << monthText(portfolio->valueOfDate())
             << " to " << paths.at(1) << '\n';
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("export-csv"),
                                             QStringLiteral("export-csv FILE OUT [--as-of YYYY-MM]   write a portfolio's holdings as CSV"),
                                             run});

} // namespace
