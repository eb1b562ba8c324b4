// quillmere-cli build-database: makes the shipped redemption value database from the official sources.
#include "CliCommand.h"
#include "update/sources/SeedDatabaseBuilder.h"

namespace {

int run(const QStringList &arguments)
{
    QString out;
    QStringList sources;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            cliOut() << "Usage: quillmere-cli build-database --out FILE SOURCE...\n\n"
                        "Builds a redemption value database from Treasury value files (sbYYYYMM.asc) and\n"
                        "Fiscal Data value files (.csv), adding the values of matured bonds carried forward.\n"
                        "FILE is replaced only when the whole build succeeds.\n";
            return 0;
        }
        if (argument == QLatin1String("--out")) {
            if (++i == arguments.size())
                return cliFail(QStringLiteral("--out needs a file name"));
            out = arguments.at(i);
        } else if (argument.startsWith(QLatin1String("--out="))) {
            out = argument.mid(6);
        } else if (argument.startsWith(QLatin1String("--"))) {
            return cliFail(QStringLiteral("unknown option '%1'").arg(argument));
        } else {
            sources << argument;
        }
    }
    if (out.isEmpty())
        return cliFail(QStringLiteral("build-database needs --out FILE"));
    if (sources.isEmpty())
        return cliFail(QStringLiteral("build-database needs at least one source file"));

    QString error;
    SeedDatabaseBuilder::Summary built;
    if (!SeedDatabaseBuilder::build(out, sources, &error, &built))
        return cliFail(QStringLiteral("database not built: %1").arg(error));
    // Read from the build itself: opening the new file here could change its journal mode.
    cliOut() << "Built " << out << ": " << built.values << " values in " << built.installedFiles
             << " installed files (the sources and the values of matured bonds), redemption months "
             << built.firstMonth << " to " << built.lastMonth << '\n';
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("build-database"),
                                             QStringLiteral("build-database --out FILE SOURCE...  build a redemption value database"),
                                             run});

} // namespace
