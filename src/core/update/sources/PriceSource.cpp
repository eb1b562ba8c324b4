// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/PriceSource.h"

#include "update/sources/FiscalDataCsv.h"
#include "update/sources/SourceText.h"
#include "update/sources/TreasuryValueFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QCoreApplication>

namespace PriceSource {

Kind kindOf(const QString &fileName, const QByteArray &data)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("asc"))
        return Kind::TreasuryValueFile;
    if (suffix == QLatin1String("csv"))
        return Kind::FiscalDataCsv;
    const QList<QByteArrayView> lines = SourceText::lines(data.left(4096));
    for (QByteArrayView line : lines) {
        if (SourceText::isBlank(line))
            continue;
        if (SourceText::trimmed(line).startsWith("series,") || line.contains("redemption_year"))
            return Kind::FiscalDataCsv;
        if (line.size() >= TreasuryValueFile::HeaderWidth && SourceText::isSeriesCode(line.front())
            && SourceText::digits(line.sliced(1, 10)))
            return Kind::TreasuryValueFile;
        break;
    }
    return Kind::Unknown;
}

PriceSourceContents readData(const QByteArray &data, const QString &fileName)
{
    switch (kindOf(fileName, data)) {
    case Kind::TreasuryValueFile:
        return TreasuryValueFile::read(data, fileName);
    case Kind::FiscalDataCsv:
        return FiscalDataCsv::read(data, fileName);
    case Kind::Unknown:
        break;
    }
    return PriceSourceContents::refused(fileName, 0,
                                        QCoreApplication::translate("PriceSource", "not a Treasury value file (.asc) nor a Fiscal Data value file (.csv)"));
}

PriceSourceContents readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return PriceSourceContents::refused(path, 0, QCoreApplication::translate("PriceSource", "cannot be read: %1").arg(file.errorString()));
    return readData(file.readAll(), path);
}

bool readFiles(const QStringList &paths, QList<NamedPriceRecords> *sources, QString *error)
{
    QStringList names;
    for (const QString &path : paths) {
        const QString name = QFileInfo(path).fileName();
        if (names.contains(name)) {
            *error = QCoreApplication::translate("PriceSource", "%1: a source named %2 was given twice").arg(path, name);
            return false;
        }
        PriceSourceContents contents = readFile(path);
        if (!contents.ok()) {
            *error = contents.error;
            return false;
        }
        names << name;
        sources->append({name, std::move(contents.records)});
    }
    return true;
}

} // namespace PriceSource
