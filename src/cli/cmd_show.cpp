// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli show: a portfolio file as the window shows it, with totals and the interest summary.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "PortfolioReport.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Shows a portfolio: every holding's figures, totals and the interest summary."));
    const QCommandLineOption asOfOption = valuationMonthOption();
    const QCommandLineOption yearlyOption(QStringLiteral("yearly"), CliText::tr("Interest earned within each year instead of cumulative."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), CliText::tr("Print JSON for scripts (money in pennies)."));
    const QCommandLineOption peopleOption = peopleFileOption();
    parser.addOptions({asOfOption, yearlyOption, jsonOption, peopleOption});
    parser.addPositionalArgument(QStringLiteral("file"), CliText::tr("The portfolio (.%1).").arg(QLatin1String(PortfolioFile::Extension)));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        {1, 1, CliText::tr("which portfolio? Give one file"), CliText::tr("give one portfolio file only")}, {},
                        &status))
        return status;
    const QString file = parser.positionalArguments().first();
    PeopleStore people(peopleFilePath(parser, peopleOption, file));
    QString error;
    const auto portfolio = openValuedPortfolio(file, parser, asOfOption, &error, people);
    if (!portfolio)
        return cliFail(error);
    portfolio->setSummaryMode(parser.isSet(yearlyOption) ? SummaryMode::Yearly : SummaryMode::Cumulative);
    if (parser.isSet(jsonOption))
        cliOut() << QString::fromUtf8(PortfolioReport::json(*portfolio));
    else
        cliOut() << PortfolioReport::text(*portfolio);
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("show"),
                                             QT_TRANSLATE_NOOP("CliText", "show FILE [--as-of YYYY-MM] [--yearly] [--json] [--people FILE]"),
                                             run});

} // namespace
