// quillmere-cli database: which redemption value database the program uses and what it holds.
#include "CliCommand.h"
#include "CliDatabase.h"

#include <QCommandLineParser>

namespace {

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the path of the redemption value database, its earliest and latest\n"
                                                    "redemption months, its number of values and its installed files."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::none(), {}, &status))
        return status;
    QString error;
    const auto assessor = openRedemptionDatabase(&error);
    if (!assessor)
        return cliFail(error);
    const QStringList files = assessor->installedFiles();
    cliOut() << "Database:                   " << assessor->databasePath() << '\n'
             << "Earliest redemption month:  " << monthText(assessor->minimumRedemptionDate()) << '\n'
             << "Latest redemption month:    " << monthText(assessor->maximumRedemptionDate()) << '\n'
             << "Values:                     " << assessor->valueCount() << '\n'
             << "Installed files:            " << files.size() << '\n';
    for (const QString &file : files)
        cliOut() << "  " << file << '\n';
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("database"),
                                             QStringLiteral("database                 where the redemption value database is and what it holds"),
                                             run});

} // namespace
