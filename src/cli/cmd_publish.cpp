// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli publish: writes an update directory (price data files and their catalogue) that
// any static web server can serve to the updater.
#include "CliCommand.h"
#include "update/PriceDataFile.h"
#include "update/UpdateCatalogue.h"
#include "update/UpdateLocation.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/PriceSource.h"

#include <QCommandLineParser>
#include <QDir>
#include <QSaveFile>
#include <QUrl>

namespace {

bool writeFile(const QString &path, const QByteArray &data, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit())
        return true;
    *error = QStringLiteral("%1: %2").arg(path, file.errorString());
    return false;
}

// A name that a relative URL would not carry intact (a scheme, a query, a fragment) cannot be
// fetched from the directory under that same name.
bool isPublishableName(const QString &name)
{
    const QUrl base(QStringLiteral("http://host.invalid/dir/"));
    return name != QLatin1String(UpdateLocation::CatalogueName)
        && UpdateLocation::fileUrl(base, name) == QUrl(base.toString() + name)
        && !name.contains(QLatin1Char('#')) && !name.contains(QLatin1Char('?'));
}

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        CliText::tr("Writes an update directory from the same sources build-database uses: one price\n"
                       "data file per source, named as the built database records it, the values of\n"
                       "matured bonds carried forward, and the catalogue %1\n"
                       "listing them in installation order. Serve DIR from any static web server.")
            .arg(QLatin1String(UpdateLocation::CatalogueName)));
    const QCommandLineOption outOption(QStringLiteral("out"), CliText::tr("The directory to write (created if needed)."),
                                       QStringLiteral("DIR"));
    parser.addOption(outOption);
    parser.addPositionalArgument(QStringLiteral("SOURCE"), CliText::tr("The value files to publish."), QStringLiteral("SOURCE..."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::atLeast(1, CliText::tr("publish needs at least one source file")),
                        CliText::tr("--out DIR SOURCE..."), &status))
        return status;
    const QString out = parser.value(outOption);
    if (out.isEmpty())
        return cliFail(CliText::tr("publish needs --out DIR"));
    const QStringList sourcePaths = parser.positionalArguments();

    QString error;
    QList<NamedPriceRecords> sources;
    if (!PriceSource::readFiles(sourcePaths, &sources, &error))
        return cliFail(error);
    const MaturedBondCarryForward::Result carried = MaturedBondCarryForward::compute(sources);
    if (!carried.ok())
        return cliFail(carried.error);
    // The same files, in the same order, as build-database installs.
    sources.append({QString::fromLatin1(MaturedBondCarryForward::SourceName), carried.records});
    for (int i = 0; i + 1 < sources.size(); ++i) {
        if (sources.at(i).name == QLatin1String(MaturedBondCarryForward::SourceName))
            return cliFail(CliText::tr("%1: this name is reserved for the derived values").arg(sources.at(i).name));
    }
    QStringList catalogue;
    for (const NamedPriceRecords &source : sources) {
        if (!isPublishableName(source.name))
            return cliFail(CliText::tr("%1: this name cannot be published").arg(source.name));
        catalogue << source.name;
    }

    const QDir dir(out);
    if (!QDir().mkpath(dir.absolutePath()))
        return cliFail(CliText::tr("%1: cannot create the directory").arg(out));
    qint64 records = 0;
    for (const NamedPriceRecords &source : sources) {
        if (!writeFile(dir.filePath(source.name), PriceDataFile::encode(source.records), &error))
            return cliFail(error);
        records += source.records.size();
    }
    // The catalogue last: a directory never lists a file that is not there yet.
    if (!writeFile(dir.filePath(QString::fromLatin1(UpdateLocation::CatalogueName)), UpdateCatalogue::encode(catalogue), &error))
        return cliFail(error);
    cliOut() << CliText::tr("Published %1 price data files (%2 records) and %3 in %4\n")
                    .arg(catalogue.size())
                    .arg(records)
                    .arg(QLatin1String(UpdateLocation::CatalogueName), dir.absolutePath());
    return 0;
}

const CliCommand::Registration registration(
    {QStringLiteral("publish"),
     QT_TRANSLATE_NOOP("CliText", "publish --out DIR SOURCE...  write an update directory for the updater"), run});

} // namespace
