// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Price data files and database look-ups shared by the updater tests.
#include "update/OfficialSourceInstaller.h"
#include "update/PriceDataFile.h"
#include "update/PriceDataInstaller.h"
#include "valuation/RedemptionDatabase.h"

#include <QStringList>
#include <sqlite3.h>

namespace PriceUpdateTestData {

// A record with every issue month set to fill (-2: no data).
inline PriceRecord record(char series, int ryr, int rmo, int iyr, qint32 fill = -2)
{
    PriceRecord r{series, quint8(rmo), quint16(ryr), quint16(iyr), {}};
    r.value.fill(fill);
    return r;
}

// Records of one series and month from firstIssueYear on; value[k] = base + year offset * 12 + k, all distinct.
inline QByteArray priceFile(char series, int ryr, int rmo, int firstIssueYear, int records, qint32 base = 2500)
{
    QList<PriceRecord> list;
    for (int i = 0; i < records; ++i) {
        list << record(series, ryr, rmo, firstIssueYear + i);
        for (int k = 0; k < 12; ++k)
            list.last().value[k] = base + i * 12 + k;
    }
    return PriceDataFile::encode(list);
}

// The first column of every row a query yields, as text; the database is opened read-only.
inline QStringList queryColumn(const QString &database, const QString &sql)
{
    sqlite3 *db = nullptr;
    QStringList rows;
    if (sqlite3_open_v2(database.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_busy_timeout(db, 10000);
        sqlite3_stmt *stmt = nullptr;
        if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &stmt, nullptr) == SQLITE_OK) {
            while (sqlite3_step(stmt) == SQLITE_ROW)
                rows << QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0)));
        }
        sqlite3_finalize(stmt);
    }
    sqlite3_close(db);
    return rows;
}

inline QString queryText(const QString &database, const QString &sql) { return queryColumn(database, sql).value(0); }
// -1 when the query yields no row.
inline qint64 queryInt(const QString &database, const QString &sql)
{
    const QStringList rows = queryColumn(database, sql);
    return rows.isEmpty() ? -1 : rows.first().toLongLong();
}

// Installs files straight into a database, as the build does.
inline bool install(const QString &database, const QList<QPair<QString, QByteArray>> &files)
{
    sqlite3 *db = nullptr;
    if (sqlite3_open(database.toUtf8().constData(), &db) != SQLITE_OK)
        return false;
    bool ok = true;
    {
        PriceDataInstaller installer(db);
        for (const auto &[name, data] : files)
            ok = ok && installer.updatePricingDataWithData(data, name);
        ok = ok && installer.updateRedemptionDateSummaryTables(nullptr, nullptr, false);
    }
    sqlite3_close(db);
    return ok;
}

// Installs official records into a database file, as install-treasury-file does.
inline OfficialSourceInstaller::Outcome installOfficial(const QString &database, const NamedPriceRecords &source)
{
    sqlite3 *db = nullptr;
    sqlite3_open(database.toUtf8().constData(), &db);
    const OfficialSourceInstaller::Outcome outcome = OfficialSourceInstaller::install(db, source);
    sqlite3_close(db);
    return outcome;
}

} // namespace PriceUpdateTestData
