// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/RedemptionDatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <sqlite3.h>

namespace RedemptionDatabase {

QString seedPath()
{
    const QString name = QString::fromLatin1(FileName);
    // Where an installation puts it: beside the program's prefix, the prefix it was built for,
    // the system's data folders.
    QStringList candidates;
    const QString appDir = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
    if (!appDir.isEmpty())
        candidates << appDir + QStringLiteral("/../share/quillmere/") + name;
    candidates << QStringLiteral(QUILLMERE_INSTALLED_DATA_DIR "/") + name;
    const QString userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        if (folder != userData)
            candidates << folder + QStringLiteral("/quillmere/") + name;
    }
    // Only when nothing is installed, the build folder's: a program run where it was built.
    if (!appDir.isEmpty())
        candidates << appDir + QStringLiteral("/../../data/") + name << appDir + QStringLiteral("/../data/") + name;
    candidates << QStringLiteral(QUILLMERE_BUILD_DATA_DIR "/") + name;
    for (const QString &candidate : std::as_const(candidates)) {
        if (QFileInfo(candidate).isFile())
            return QFileInfo(candidate).canonicalFilePath();
    }
    return {};
}

QString path()
{
    const QByteArray overridden = qgetenv(PathEnvironmentVariable);
    if (!overridden.isEmpty())
        return QString::fromLocal8Bit(overridden);

    const QString dataDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString working = dataDir + QLatin1Char('/') + QString::fromLatin1(FileName);
    if (QFileInfo::exists(working))
        return working;
    const QString seed = seedPath();
    if (seed.isEmpty())
        return {};
    // Copy through a temporary file so that an interrupted first start leaves no half copy.
    QDir().mkpath(dataDir);
    QFile source(seed);
    QSaveFile target(working);
    if (source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly)) {
        while (!source.atEnd())
            target.write(source.read(1 << 20));
        if (target.commit()) {
            QFile::setPermissions(working, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                               | QFile::ReadOther);
            return working;
        }
    }
    // The user's folder cannot be written: read the seed itself (updates will be refused).
    return seed;
}

bool createSchema(sqlite3 *db, QString *error)
{
    // The key refuses duplicate values and serves every lookup; without a rowid the table is the index.
    static const char *schema =
        "create table bond_value (series text not null, ryr integer not null, rmo integer not null,"
        " iyr integer not null, imo integer not null, value integer not null,"
        " primary key (series, iyr, imo, ryr, rmo)) without rowid;"
        "create table min_rdate (ryr integer, rmo integer);"
        "create table max_rdate (ryr integer, rmo integer);"
        "create table data_file (name text);";
    char *message = nullptr;
    if (sqlite3_exec(db, schema, nullptr, nullptr, &message) != SQLITE_OK) {
        if (error)
            *error = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
        sqlite3_free(message);
        return false;
    }
    return true;
}

void configureReader(sqlite3 *db)
{
    sqlite3_busy_timeout(db, 10000);
}

void configureWriter(sqlite3 *db)
{
    configureReader(db);
    // The mode is stored in the file; a file opened read-only keeps its rollback journal.
    if (sqlite3_db_readonly(db, "main") == 0)
        sqlite3_exec(db, "pragma journal_mode=wal", nullptr, nullptr, nullptr);
}

bool execute(sqlite3 *db, const char *sql, QString *error)
{
    char *message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    if (error)
        *error = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
    sqlite3_free(message);
    return false;
}

bool hasTable(sqlite3 *db, const char *name)
{
    sqlite3_stmt *probe = nullptr;
    const bool found = sqlite3_prepare_v2(db, "select 1 from sqlite_master where type = 'table' and name = ?", -1, &probe,
                                          nullptr) == SQLITE_OK
                       && sqlite3_bind_text(probe, 1, name, -1, SQLITE_STATIC) == SQLITE_OK
                       && sqlite3_step(probe) == SQLITE_ROW;
    sqlite3_finalize(probe);
    return found;
}

void bindCell(sqlite3_stmt *stmt, const char *series, int ryr, int rmo, int iyr, int imo)
{
    sqlite3_reset(stmt);
    sqlite3_bind_text(stmt, 1, series, 1, SQLITE_TRANSIENT);
    sqlite3_bind_int(stmt, 2, ryr);
    sqlite3_bind_int(stmt, 3, rmo);
    sqlite3_bind_int(stmt, 4, iyr);
    sqlite3_bind_int(stmt, 5, imo);
}

} // namespace RedemptionDatabase
