// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli inventory: the household's inventory of a portfolio as a PDF, the pages the
// window's Print Inventory prints.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "InventoryPrint.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QDate>
#include <QPageSize>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Writes the inventory of a portfolio as a PDF: every bond grouped by "
                                                 "owner with its figures, notes and the people named on it, a "
                                                 "subtotal per owner and the household's total."));
    const QCommandLineOption asOf = valuationMonthOption();
    const QCommandLineOption peopleOption = peopleFileOption();
    const QCommandLineOption paperOption(QStringLiteral("paper"), CliText::tr("The paper, letter or a4 (default: letter)."),
                                         QStringLiteral("size"), QStringLiteral("letter"));
    parser.addOptions({asOf, peopleOption, paperOption});
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("OUT"), CliText::tr("The PDF file to write."));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        PositionalCount::exactly(2, CliText::tr("inventory needs a portfolio file and a PDF file to write (see --help)")),
                        {}, &status))
        return status;
    const QString paperName = parser.value(paperOption).toLower();
    if (paperName != QLatin1String("letter") && paperName != QLatin1String("a4"))
        return cliFail(CliText::tr("the paper must be letter or a4, not '%1'").arg(parser.value(paperOption)));
    const QPageSize paper(paperName == QLatin1String("a4") ? QPageSize::A4 : QPageSize::Letter);

    const QStringList paths = parser.positionalArguments();
    QString error;
    PeopleStore people(peopleFilePath(parser, peopleOption, paths.at(0)));
    const auto portfolio = openValuedPortfolio(paths.at(0), parser, asOf, &error, people);
    if (!portfolio)
        return cliFail(error);
    const InventoryReport report = InventoryReport::of(portfolio->holdings(), portfolio->valuationContext());
    if (!InventoryPrint(report, portfolio->displayName(), QDate::currentDate()).writePdf(paths.at(1), paper, &error))
        return cliFail(CliText::tr("%1: cannot write the inventory: %2").arg(paths.at(1), error));
    cliOut() << CliText::tr("Wrote the inventory of %1 bonds to %2").arg(report.householdTotal.quantity).arg(paths.at(1)) << '\n';
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("inventory"),
                                             QT_TRANSLATE_NOOP("CliText", "inventory FILE OUT.pdf [--as-of YYYY-MM] [--people FILE] [--paper letter|a4]   "
                                                                          "write the household's inventory as PDF"),
                                             run, true});

} // namespace
