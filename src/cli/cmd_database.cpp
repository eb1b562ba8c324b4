// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli database: which redemption value database the program uses and what it holds.
#include "CliCommand.h"
#include "CliDatabase.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Prints the path of the redemption value database, its earliest and latest\n"
                                                    "redemption months, its number of values and its installed files."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::none(), {}, &status))
        return status;
    QString error;
    const auto assessor = openRedemptionDatabase(&error);
    if (!assessor)
        return cliFail(error);
    const QStringList files = assessor->installedFiles();
    cliOut() << CliText::tr("Database:                   %1\n").arg(assessor->databasePath())
             << CliText::tr("Earliest redemption month:  %1\n").arg(monthText(assessor->minimumRedemptionDate()))
             << CliText::tr("Latest redemption month:    %1\n").arg(monthText(assessor->maximumRedemptionDate()))
             << CliText::tr("Values:                     %1\n").arg(assessor->valueCount())
             << CliText::tr("Installed files:            %1\n").arg(files.size());
    for (const QString &file : files)
        cliOut() << "  " << file << '\n';
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("database"),
                                             QT_TRANSLATE_NOOP("CliText", "database                 where the redemption value database is and what it holds"),
                                             run});

} // namespace
