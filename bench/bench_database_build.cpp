// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Building the redemption value database: the whole build from the source files, the
// installation alone, and a plain SQLite insert loop of the same rows in one transaction.
#include "DatabaseLayouts.h"

#include "update/PriceDataFile.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/PriceSource.h"
#include "update/sources/SeedDatabaseBuilder.h"
#include "valuation/IBondRates.h"
#include "valuation/RedemptionDatabase.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace {

// Every record the build installs: the sources and the carry-forward.
const QList<NamedPriceRecords> &sources()
{
    static const QList<NamedPriceRecords> read = [] {
        QList<NamedPriceRecords> list;
        QString error;
        if (!PriceSource::readFiles(DatabaseLayouts::sourcePaths(), &list, &error))
            qFatal("%s", qPrintable(error));
        return list;
    }();
    return read;
}

sqlite3 *openScratch(const QString &path)
{
    sqlite3 *db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    // The same settings the build uses while it fills its temporary file.
    sqlite3_exec(db, SeedDatabaseBuilder::BuildSettings, nullptr, nullptr, nullptr);
    return db;
}

void BM_BuildFromSourceFiles(benchmark::State &state)
{
    const QStringList paths = DatabaseLayouts::sourcePaths();
    const QString out = DatabaseLayouts::scratchFile(QStringLiteral("built.bvdb"));
    SeedDatabaseBuilder::Summary summary;
    for (auto _ : state) {
        QString error;
        if (!SeedDatabaseBuilder::build(out, paths, &error, &summary))
            state.SkipWithError(qPrintable(error));
    }
    state.counters["rows"] = static_cast<double>(summary.values);
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(summary.values), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["file bytes"] = static_cast<double>(DatabaseLayouts::fileSize(out));
}

void BM_InstallThroughInstaller(benchmark::State &state)
{
    sources();
    qint64 rows = 0;
    for (auto _ : state) {
        const QString path = DatabaseLayouts::scratchFile(QStringLiteral("installed.bvdb"));
        sqlite3 *db = openScratch(path);
        QString error;
        if (!SeedDatabaseBuilder::install(db, sources(), &error))
            state.SkipWithError(qPrintable(error));
        state.PauseTiming();
        sqlite3_stmt *count = nullptr;
        sqlite3_prepare_v2(db, "select count(*) from bond_value", -1, &count, nullptr);
        sqlite3_step(count);
        rows = sqlite3_column_int64(count, 0);
        sqlite3_finalize(count);
        sqlite3_close(db);
        state.ResumeTiming();
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsIterationInvariantRate);
}

// Records grouped as the build installs them: each source, then the carry-forward.
QList<QList<PriceRecord>> recordsByFile()
{
    QList<QList<PriceRecord>> files;
    for (const NamedPriceRecords &source : sources())
        files << source.records;
    files << MaturedBondCarryForward::compute(sources()).records;
    return files;
}

// range(0): layout; range(1): 1 for one transaction per source file, as the installer commits.
void BM_PlainInsertLoop(benchmark::State &state)
{
    const DatabaseLayouts::Layout &layout = DatabaseLayouts::All[state.range(0)];
    const bool transactionPerFile = state.range(1) != 0;
    state.SetLabel(QByteArray(layout.name).append(transactionPerFile ? ", one transaction per file" : ", one transaction").constData());
    const QList<QList<PriceRecord>> files = recordsByFile();
    QString path;
    qint64 rows = 0;
    for (auto _ : state) {
        path = DatabaseLayouts::scratchFile(QStringLiteral("plain.bvdb"));
        sqlite3 *db = openScratch(path);
        if (layout.bondValueTable)
            sqlite3_exec(db, layout.bondValueTable, nullptr, nullptr, nullptr);
        else
            RedemptionDatabase::createSchema(db);
        sqlite3_stmt *insert = nullptr;
        sqlite3_prepare_v2(db, "insert into bond_value (series, ryr, rmo, iyr, imo, value) values (?, ?, ?, ?, ?, ?)", -1, &insert, nullptr);
        rows = 0;
        sqlite3_exec(db, "begin", nullptr, nullptr, nullptr);
        for (const QList<PriceRecord> &records : files) {
            for (const PriceRecord &record : records) {
                const char series[2] = {record.series, '\0'};
                for (int month = 1; month <= 12; ++month) {
                    sqlite3_bind_text(insert, 1, series, 1, SQLITE_STATIC);
                    sqlite3_bind_int(insert, 2, record.ryr);
                    sqlite3_bind_int(insert, 3, record.rmo);
                    sqlite3_bind_int(insert, 4, record.iyr);
                    sqlite3_bind_int(insert, 5, month);
                    sqlite3_bind_int(insert, 6, record.value[month - 1]);
                    if (sqlite3_step(insert) != SQLITE_DONE)
                        state.SkipWithError(sqlite3_errmsg(db));
                    sqlite3_reset(insert);
                    ++rows;
                }
            }
            if (transactionPerFile)
                sqlite3_exec(db, "commit; begin", nullptr, nullptr, nullptr);
        }
        sqlite3_exec(db, "commit", nullptr, nullptr, nullptr);
        sqlite3_finalize(insert);
        state.PauseTiming();
        sqlite3_exec(db, "vacuum", nullptr, nullptr, nullptr); // compare file sizes as shipped
        sqlite3_close(db);
        state.ResumeTiming();
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["file bytes"] = static_cast<double>(DatabaseLayouts::fileSize(path));
}

// Every Series I value the database holds, computed from the rate tables as the proof does:
// each issue month from 09/1998, each redemption month to 11/2026.
void BM_ComputeEverySeriesIValue(benchmark::State &state)
{
    const int first = 1998 * 12 + 8, last = 2026 * 12 + 10;
    qint64 values = 0;
    for (auto _ : state) {
        values = 0;
        qint64 sum = 0;
        for (int issue = first; issue <= last; ++issue) {
            for (int redemption = issue; redemption <= last; ++redemption, ++values)
                sum += IBondRates::valueAt(issue, redemption).value_or(0);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["values"] = static_cast<double>(values);
}

BENCHMARK(BM_ComputeEverySeriesIValue)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildFromSourceFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InstallThroughInstaller)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainInsertLoop)->ArgsProduct({benchmark::CreateDenseRange(0, DatabaseLayouts::Count - 1, 1), {0}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainInsertLoop)->Args({0, 1})->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
