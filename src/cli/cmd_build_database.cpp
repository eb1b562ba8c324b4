// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli build-database: makes the shipped redemption value database from the official sources.
#include "CliCommand.h"
#include "update/sources/SeedDatabaseBuilder.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        CliText::tr("Builds a redemption value database from Treasury value files (sbYYYYMM.asc) and\n"
                       "Fiscal Data value files (.csv), adding the values of matured bonds carried forward\n"
                       "and those of Series EE bonds of a fixed rate, computed from the built-in rate table.\n"
                       "FILE is replaced only when the whole build succeeds."));
    const QCommandLineOption outOption(QStringLiteral("out"), CliText::tr("The database file to write."), QStringLiteral("FILE"));
    parser.addOption(outOption);
    parser.addPositionalArgument(QStringLiteral("SOURCE"), CliText::tr("The value files to build from."), QStringLiteral("SOURCE..."));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        PositionalCount::atLeast(1, CliText::tr("build-database needs at least one source file")),
                        CliText::tr("--out FILE SOURCE..."), &status))
        return status;
    const QString out = parser.value(outOption);
    if (out.isEmpty())
        return cliFail(CliText::tr("build-database needs --out FILE"));
    const QStringList sources = parser.positionalArguments();

    QString error;
    SeedDatabaseBuilder::Summary built;
    if (!SeedDatabaseBuilder::build(out, sources, &error, &built))
        return cliFail(CliText::tr("database not built: %1").arg(error));
    // Read from the build itself: opening the new file here could change its journal mode.
    cliOut() << CliText::tr("Built %1: %2 values in %3 installed files (the sources and the values of matured bonds), "
                            "redemption months %4 to %5\n")
                    .arg(out, QString::number(built.values), QString::number(built.installedFiles), built.firstMonth,
                         built.lastMonth);
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("build-database"),
                                             QT_TRANSLATE_NOOP("CliText", "build-database --out FILE SOURCE...  build a redemption value database"),
                                             run});

} // namespace
