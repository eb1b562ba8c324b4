// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a downloaded price data file, installed into an in-memory database with the
// real schema: the installation must succeed or roll back, never crash, and leave data_file in
// step with bond_value.
#include "FuzzDatabase.h"
#include "update/PriceDataFile.h"
#include "update/PriceDataInstaller.h"
#include "update/ValueHistoryPacking.h"
#include "valuation/RedemptionDatabase.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>
#include <sqlite3.h>

// The summary rebuild reads the range back through a fresh connection to the database's file; an
// in-memory database has none, so point the fallback at nothing rather than the user's copy.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    setenv(RedemptionDatabase::PathEnvironmentVariable, "/nonexistent/fuzz.bvdb", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The schema with the packed histories' tables and triggers, as an installed database has them.
    static const FuzzDatabase empty([](sqlite3 *db) {
        return RedemptionDatabase::createSchema(db) && ValueHistoryPacking::refresh(db, nullptr);
    });
    sqlite3 *db = empty.open();
    if (!db)
        std::abort();
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    // The first byte's low bit decides the file name's quote, so that both paths are exercised.
    const QString name = size > 0 && (data[0] & 1) ? QStringLiteral("it's.bin") : QStringLiteral("plain.bin");
    bool installed = false;
    {
        PriceDataInstaller installer(db);
        installed = installer.updatePricingDataWithData(bytes, name);
        installer.updateRedemptionDateSummaryTables(nullptr, nullptr, false);
    }
    const sqlite3_int64 rows = FuzzDatabase::number(db, "select count(*) from bond_value");
    const sqlite3_int64 files = FuzzDatabase::number(db, "select count(*) from data_file");
    if (installed) {
        // Every record that got in, got in whole; duplicates within the file refuse it all.
        if (files != 1 || rows != 12LL * PriceDataFile::recordCount(bytes))
            std::abort();
    } else if (files != 0 || rows != 0) {
        std::abort();
    }
    sqlite3_close(db);
    return 0;
}
