// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Builds the shipped redemption value database from the official sources, through the same
// installation code the updater uses: each source becomes one price data file recorded in
// data_file under its file name, then the derived carry-forward of matured bonds, then the
// computed values of fixed-rate EE bonds (both listed in derived_value), then the summary tables.
#include "update/sources/PriceSourceContents.h"

#include <QList>
#include <QString>
#include <QStringList>

struct sqlite3;

namespace SeedDatabaseBuilder {
// The connection settings of a build while it fills its temporary file.
extern const char *const BuildSettings;

// Into an open database without tables: the schema, every source and the carry-forward, each
// as one installed price data file, the computed EE values, then min_rdate and max_rdate
// (without announcing them).
bool install(sqlite3 *db, const QList<NamedPriceRecords> &sources, QString *error);

// What a finished build holds.
struct Summary
{
    qint64 values = 0;       // rows of bond_value
    int installedFiles = 0;  // rows of data_file, the carry-forward included
    QString firstMonth;      // earliest redemption month, "YYYY-MM"
    QString lastMonth;       // latest redemption month
};

// Reads the sources and builds the database at outPath. The database is made in a temporary
// file beside outPath and renamed into place only when everything succeeded, so a failed build
// leaves outPath as it was. The result is a self-contained file in rollback-journal mode.
bool build(const QString &outPath, const QStringList &sourcePaths, QString *error, Summary *summary = nullptr);
}
