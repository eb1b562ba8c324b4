// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a downloaded price data file, installed as the updater installs it: screened,
// then merged into a small database that holds official values and values derived from them
// (matured bonds carried forward, fixed-rate EE bonds computed). The installation must succeed
// whole or change nothing, and derived values never reach more than a year past the latest
// official month.
#include "FuzzDatabase.h"
#include "update/OfficialSourceInstaller.h"
#include "update/PriceDataFile.h"
#include "valuation/RedemptionDatabase.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>
#include <sqlite3.h>

namespace {
PriceRecord record(char series, int ryr, int rmo, int iyr, qint32 base)
{
    PriceRecord r{series, quint8(rmo), quint16(ryr), quint16(iyr), {}};
    for (int k = 0; k < 12; ++k)
        r.value[k] = base + k;
    return r;
}

// Matured E bonds, fixed-rate EE bonds and an I bond, as of 11/2021: every extension has work.
const QList<PriceRecord> &base()
{
    static const QList<PriceRecord> records{record('E', 2021, 11, 1980, 11000), record('N', 2021, 11, 2010, 1400),
                                            record('I', 2021, 11, 2010, 3200)};
    return records;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    setenv(RedemptionDatabase::PathEnvironmentVariable, "/nonexistent/fuzz.bvdb", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    OfficialSourceInstaller::Options options;
    options.updateSummary = false; // it reads the range through the file, which memory has not
    static const FuzzDatabase installed([&options](sqlite3 *db) {
        return RedemptionDatabase::createSchema(db) && OfficialSourceInstaller::install(db, {"base.asc", base()}, options).ok();
    });
    sqlite3 *db = installed.open();
    if (!db)
        std::abort();
    const sqlite3_int64 rowsBefore = FuzzDatabase::number(db, "select count(*) from bond_value");
    const sqlite3_int64 derivedBefore = FuzzDatabase::number(db, "select count(*) from derived_value");

    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const OfficialSourceInstaller::Outcome outcome =
        OfficialSourceInstaller::install(db, {"fuzzed.bin", PriceDataFile::decode(bytes)}, options);
    const sqlite3_int64 recorded = FuzzDatabase::number(db, "select count(*) from data_file where name = 'fuzzed.bin'");
    if (outcome.ok()) {
        if (recorded != 1 || !PriceDataFile::screen(PriceDataFile::decode(bytes)).isEmpty())
            std::abort();
        const sqlite3_int64 latestOfficial = FuzzDatabase::number(
            db, "select max(ryr * 12 + rmo - 1) from bond_value b where value >= -1 and not exists (select 1 from "
                "derived_value d where d.series = b.series and d.iyr = b.iyr and d.imo = b.imo and d.ryr = b.ryr and d.rmo = b.rmo)");
        if (FuzzDatabase::number(db, "select max(ryr * 12 + rmo - 1) from derived_value") > latestOfficial + 12)
            std::abort();
        if (FuzzDatabase::number(db, "select count(*) from max_rdate") != 1)
            std::abort();
    } else if (recorded != 0 || FuzzDatabase::number(db, "select count(*) from bond_value") != rowsBefore
               || FuzzDatabase::number(db, "select count(*) from derived_value") != derivedBefore) {
        std::abort();
    }
    sqlite3_close(db);
    return 0;
}
