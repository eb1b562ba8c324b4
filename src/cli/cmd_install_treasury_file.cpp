// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli install-treasury-file: installs a value file downloaded from the Treasury straight
// into the user's redemption value database, without an update server.
#include "CliCommand.h"
#include "CliDatabase.h"
#include "update/InstallationSummary.h"
#include "update/TreasuryFileInstallation.h"
#include "valuation/RedemptionDatabase.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        CliText::tr("Installs Treasury savings bond value files (sbYYYYMM.asc) or Fiscal Data value\n"
                       "files (.csv) into the redemption value database, each in one transaction.\n"
                       "Values the database already holds are passed over and months it holds without\n"
                       "data are filled in; a file whose values contradict it is refused. Values the\n"
                       "program derived (matured bonds, EE bonds of a fixed rate) give way to the file's\n"
                       "official ones, and a difference between them is reported. Then matured bonds keep\n"
                       "their value and fixed-rate EE bonds are computed up to the latest month. Each file\n"
                       "is recorded under its name, so the updater never offers it again.\n"
                       "The database is QUILLMERE_DATABASE, or the working copy in the user's data folder."));
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The value files to install, in order."), QStringLiteral("FILE..."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::atLeast(1, CliText::tr("install-treasury-file needs a file")), {},
                        &status))
        return status;
    const QStringList files = parser.positionalArguments();

    TreasuryFileInstallation installation(RedemptionDatabase::path());
    const QString database = installation.databasePath();
    switch (installation.check()) {
    case TreasuryFileInstallation::Failure::NoDatabase:
        return cliFail(CliText::tr("no redemption value database found"));
    case TreasuryFileInstallation::Failure::NotWritable:
        return cliFail(CliText::tr("the redemption value database %1 cannot be written").arg(database));
    default:
        break;
    }
    // Opened before any file is read: a database that cannot be opened is named as such.
    if (installation.open() != TreasuryFileInstallation::Failure::None)
        return cliFail(CliText::tr("cannot open the redemption value database %1").arg(database));

    for (const QString &file : files) {
        const TreasuryFileInstallation::FileResult result = installation.install(file);
        if (!result.installed())
            return cliFail(result.detail);
        cliOut() << installationSummary(result.fileName, result.outcome) << '\n';
    }
    return 0;
}

const CliCommand::Registration registration(
    {QStringLiteral("install-treasury-file"),
     QT_TRANSLATE_NOOP("CliText", "install-treasury-file FILE...  install Treasury value files into the database"), run});

} // namespace
