// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli import-calculator: appends the bonds of a list saved from the Treasury's Savings
// Bond Calculator (an HTML page) to a portfolio and saves it.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "exchange/CalculatorListImport.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Appends the bonds of a list saved from the Treasury's Savings Bond "
                                                 "Calculator (the saved HTML page) to a portfolio, as paper bonds, and saves "
                                                 "it (a new portfolio is created when FILE does not exist)."));
    const QCommandLineOption peopleOption = peopleFileOption();
    parser.addOptions({peopleOption});
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("HTML"), CliText::tr("The saved calculator page."));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        PositionalCount::exactly(2, CliText::tr("import-calculator needs a portfolio file and a saved page (see --help)")),
                        CliText::tr("[options] FILE HTML"), &status))
        return status;
    const QStringList paths = parser.positionalArguments();
    QFile page(paths.at(1));
    if (!page.open(QIODevice::ReadOnly))
        return cliFail(CliText::tr("%1: cannot be read: %2").arg(paths.at(1), page.errorString()));
    const bool creating = !QFileInfo::exists(paths.at(0));
    PeopleStore people(peopleFilePath(parser, peopleOption, paths.at(0)));
    QString error;
    const auto portfolio = creating ? newPortfolio(people) : openPortfolioFile(paths.at(0), &error, people);
    if (!portfolio)
        return cliFail(error);
    const CalculatorListImport::Outcome outcome = CalculatorListImport::importInto(*portfolio, page.read(16 * 1024 * 1024));
    if (!outcome.ok())
        return cliFail(QStringLiteral("%1: %2").arg(paths.at(1), outcome.error));
    if (PortfolioSaveFailure failure; !portfolio->saveToFile(paths.at(0), &failure))
        return cliFail(saveFailureText(paths.at(0), failure));
    cliOut() << CliText::tr("Imported %1 of %2 bonds.").arg(outcome.imported).arg(outcome.imported + outcome.skipped.size()) << '\n';
    for (const QString &skipped : outcome.skipped)
        cliOut() << CliText::tr("Skipped %1").arg(skipped) << '\n';
    for (const QString &note : outcome.withoutValues)
        cliOut() << CliText::tr("Note: %1").arg(note) << '\n';
    if (creating)
        cliOut() << CliText::tr("Created %1\n").arg(paths.at(0));
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("import-calculator"),
                                             QT_TRANSLATE_NOOP("CliText", "import-calculator FILE HTML [--people FILE]   add the bonds of a saved Treasury calculator list"),
                                             run});

} // namespace
