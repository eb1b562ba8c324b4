// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/SeedDatabaseBuilder.h"

#include "update/DerivedValues.h"
#include "update/PriceDataInstaller.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/PriceSource.h"
#include "valuation/RedemptionDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <sqlite3.h>
#include <QCoreApplication>

namespace SeedDatabaseBuilder {

const char *const BuildSettings = "pragma journal_mode = memory; pragma synchronous = off; pragma cache_size = -65536;";

namespace {

using RedemptionDatabase::execute;


// The first column of the first row of a query, as text; empty when there is none.
QString firstText(sqlite3 *db, const char *sql)
{
    sqlite3_stmt *stmt = nullptr;
    QString text;
    if (sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW)
        text = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
    return text;
}

bool installOne(PriceDataInstaller &installer, const NamedPriceRecords &source, QString *error)
{
    if (installer.updatePricingDataWithData(PriceDataFile::encode(source.records), source.name))
        return true;
    *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: could not be installed: %2").arg(source.name, installer.lastError());
    return false;
}

// The temporary database and its connection; removed with its journal files unless kept.
struct TemporaryDatabase
{
    QTemporaryFile file;
    sqlite3 *db = nullptr;

    explicit TemporaryDatabase(const QString &outPath)
        : file(outPath + QStringLiteral(".building-XXXXXX"))
    {
    }
    ~TemporaryDatabase()
    {
        close();
        if (file.autoRemove() && !file.fileName().isEmpty()) {
            for (const char *suffix : {"-journal", "-wal", "-shm"})
                QFile::remove(file.fileName() + QLatin1String(suffix));
        }
    }
    void close()
    {
        sqlite3_close(db);
        db = nullptr;
    }
};

} // namespace

bool install(sqlite3 *db, const QList<NamedPriceRecords> &sources, QString *error)
{
    // Derive first: a source that contradicts itself must not leave a half-filled database.
    const MaturedBondCarryForward::Result carried = MaturedBondCarryForward::compute(sources);
    if (!carried.ok()) {
        *error = carried.error;
        return false;
    }
    for (const NamedPriceRecords &source : sources) {
        if (source.name == QLatin1String(MaturedBondCarryForward::SourceName)) {
            *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: this name is reserved for the derived values").arg(source.name);
            return false;
        }
    }
    const EeFixedRates::Table &rates = EeFixedRates::shipped();
    if (!rates.ok()) {
        *error = rates.error;
        return false;
    }
    if (!RedemptionDatabase::createSchema(db, error) || !DerivedValues::ensureTable(db, error))
        return false;
    PriceDataInstaller installer(db);
    for (const NamedPriceRecords &source : sources) {
        if (!installOne(installer, source, error))
            return false;
    }
    if (!installer.updateDerivedDataWithData(PriceDataFile::encode(carried.records),
                                             QString::fromLatin1(MaturedBondCarryForward::SourceName))) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: could not be installed: %2")
                     .arg(QString::fromLatin1(MaturedBondCarryForward::SourceName), installer.lastError());
        return false;
    }
    // Then whatever else can be derived: the fixed-rate EE bonds up to the latest month, the
    // months the official files skip, and Series I bonds to the end of their current rate period.
    DerivedValues::Extension extension;
    int forecast = 0;
    if (!execute(db, "begin", error) || !DerivedValues::extend(db, rates, &extension, error, DerivedValues::Scope::FixedRateEeOnly)
        || !DerivedValues::fillGaps(db, &extension.filled, error) || !DerivedValues::forecastSeriesI(db, &forecast, error)
        || !execute(db, "commit", error)) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "the derived values could not be installed: %1").arg(*error);
        return false;
    }
    if (!installer.updateRedemptionDateSummaryTables(nullptr, nullptr, false)) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "could not build the summary tables: %1").arg(installer.lastError());
        return false;
    }
    return true;
}

bool build(const QString &outPath, const QStringList &sourcePaths, QString *error, Summary *summary)
{
    QList<NamedPriceRecords> sources;
    if (!PriceSource::readFiles(sourcePaths, &sources, error))
        return false;

    const QString target = QFileInfo(outPath).absoluteFilePath();
    if (!QDir().mkpath(QFileInfo(target).absolutePath())) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: cannot create its folder").arg(outPath);
        return false;
    }
    TemporaryDatabase temporary(target);
    if (!temporary.file.open()) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: cannot create a temporary file beside it: %2").arg(outPath, temporary.file.errorString());
        return false;
    }
    const QString building = temporary.file.fileName();
    temporary.file.close(); // the name stays reserved until the object goes
    if (sqlite3_open_v2(building.toUtf8().constData(), &temporary.db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        *error = QStringLiteral("%1: %2").arg(building, QString::fromUtf8(sqlite3_errmsg(temporary.db)));
        return false;
    }
    // The file is thrown away if anything fails, so it needs no journal on disk and no syncing
    // while it fills; the journal stays in memory so that a refused source still rolls back.
    // A cache larger than the whole database keeps pages from being spilled between files.
    if (!execute(temporary.db, BuildSettings, error)
        || !install(temporary.db, sources, error))
        return false;
    // The shipped seed is one self-contained file: rollback journal (a read-only copy in a
    // read-only folder must open without -wal and -shm files), no free pages, synced. The
    // summary rebuild reads through a connection of its own, which may have switched the file to
    // write-ahead logging; this connection notices that only when it next reads the file.
    firstText(temporary.db, "select count(*) from sqlite_master");
    if (firstText(temporary.db, "pragma journal_mode = delete") != QLatin1String("delete")) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: cannot leave write-ahead logging: %2").arg(building, QString::fromUtf8(sqlite3_errmsg(temporary.db)));
        return false;
    }
    if (!execute(temporary.db, "pragma synchronous = full; vacuum;", error)) {
        *error = QStringLiteral("%1: %2").arg(building, *error);
        return false;
    }
    if (summary) {
        summary->values = firstText(temporary.db, "select count(*) from bond_value").toLongLong();
        summary->installedFiles = firstText(temporary.db, "select count(*) from data_file").toInt();
        summary->firstMonth = firstText(temporary.db, "select printf('%04d-%02d', ryr, rmo) from min_rdate");
        summary->lastMonth = firstText(temporary.db, "select printf('%04d-%02d', ryr, rmo) from max_rdate");
    }
    temporary.close();

    QFile::setPermissions(building, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (std::rename(QFile::encodeName(building).constData(), QFile::encodeName(target).constData()) != 0) {
        *error = QCoreApplication::translate("SeedDatabaseBuilder", "%1: cannot be replaced by the new database").arg(outPath);
        return false;
    }
    temporary.file.setAutoRemove(false);
    return true;
}

} // namespace SeedDatabaseBuilder
