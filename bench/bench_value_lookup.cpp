// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Value lookups per second: through BondAssessor, and through a bare prepared statement on the
// same file (the floor any lookup code could reach); and bare lookups on other layouts.
#include "DatabaseLayouts.h"
#include "PortfolioGenerator.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/RedemptionDatabase.h"

#include <QDate>
#include <QFile>
#include <benchmark/benchmark.h>
#include <optional>
#include <random>
#include <vector>

namespace {

struct Lookup
{
    QByteArray series;
    int ryr, rmo, iyr, imo;
};

using PortfolioGenerator::databaseCopy;

// Rows that exist, in random order, so that the lookups wander over the whole file.
const std::vector<Lookup> &lookups()
{
    static const std::vector<Lookup> list = [] {
        std::vector<Lookup> all;
        sqlite3 *db = nullptr;
        sqlite3_open_v2(databaseCopy().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt *stmt = nullptr;
        sqlite3_prepare_v2(db, "select series, ryr, rmo, iyr, imo from bond_value", -1, &stmt, nullptr);
        while (sqlite3_step(stmt) == SQLITE_ROW)
            all.push_back({QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0))), sqlite3_column_int(stmt, 1),
                           sqlite3_column_int(stmt, 2), sqlite3_column_int(stmt, 3), sqlite3_column_int(stmt, 4)});
        sqlite3_finalize(stmt);
        sqlite3_close(db);
        std::shuffle(all.begin(), all.end(), std::mt19937(42));
        all.resize(std::min<size_t>(all.size(), 20000));
        return all;
    }();
    return list;
}

// The same rows in a layout, copied in key order from the built database, so that every layout
// is measured on a file made the same way.
QString layoutDatabase(int index)
{
    const DatabaseLayouts::Layout &layout = DatabaseLayouts::All[index];
    const QString path = DatabaseLayouts::scratchFile(QStringLiteral("layout%1.bvdb").arg(index));
    sqlite3 *db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    if (layout.bondValueTable)
        sqlite3_exec(db, layout.bondValueTable, nullptr, nullptr, nullptr);
    else
        RedemptionDatabase::createSchema(db);
    const QByteArray attach = "attach '" + databaseCopy().toUtf8() + "' as shipped";
    sqlite3_exec(db, attach.constData(), nullptr, nullptr, nullptr);
    sqlite3_exec(db, "insert into bond_value select series, ryr, rmo, iyr, imo, value from shipped.bond_value; "
                     "detach shipped; vacuum;", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return path;
}

// range(0) = 1: inside one read batch, as a table, a report or the interest summary reads.
void BM_AssessorValueOf(benchmark::State &state)
{
    struct Prepared { BondTerms bond; Month asOf; };
    std::vector<Prepared> prepared;
    for (const Lookup &l : lookups()) {
        BondTerms bond;
        bond.series = Series::seriesForCode(QString::fromLatin1(l.series));
        bond.issueMonth = Month(l.iyr, l.imo);
        bond.faceValue = 10000;
        prepared.push_back({bond, Month(l.ryr, l.rmo)});
    }
    const BondAssessor assessor(databaseCopy());
    std::optional<BondAssessor::ReadBatch> batch;
    if (state.range(0))
        batch.emplace(assessor);
    state.SetLabel(state.range(0) ? "in a read batch" : "single reads");
    size_t i = 0;
    for (auto _ : state) {
        const Prepared &p = prepared[i++ % prepared.size()];
        benchmark::DoNotOptimize(assessor.valueOf(p.bond, p.asOf));
    }
    state.SetItemsProcessed(state.iterations());
}

// One lookup after another with a bare prepared statement, bound, stepped and reset.
void lookupLoop(benchmark::State &state, const QString &path, int flags)
{
    sqlite3 *db = nullptr;
    sqlite3_open_v2(path.toUtf8().constData(), &db, flags, nullptr);
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(db, "select value from bond_value where series = ? and ryr = ? and rmo = ? and iyr = ? and imo = ?", -1, &stmt, nullptr);
    const std::vector<Lookup> &list = lookups();
    size_t i = 0;
    for (auto _ : state) {
        const Lookup &l = list[i++ % list.size()];
        sqlite3_bind_text(stmt, 1, l.series.constData(), 1, SQLITE_STATIC);
        sqlite3_bind_int(stmt, 2, l.ryr);
        sqlite3_bind_int(stmt, 3, l.rmo);
        sqlite3_bind_int(stmt, 4, l.iyr);
        sqlite3_bind_int(stmt, 5, l.imo);
        if (sqlite3_step(stmt) == SQLITE_ROW)
            benchmark::DoNotOptimize(sqlite3_column_int(stmt, 0));
        sqlite3_reset(stmt);
    }
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    state.SetItemsProcessed(state.iterations());
}

// The same file and journal mode the assessor works on (its connection turned the working copy
// to write-ahead logging).
void BM_BarePreparedStatement(benchmark::State &state)
{
    { const BondAssessor opensLikeTheProgram(databaseCopy()); }
    lookupLoop(state, databaseCopy(), SQLITE_OPEN_READWRITE);
}

// Each layout in a file made the same way, read-only in rollback-journal mode as a seed is.
void BM_BareLookupByLayout(benchmark::State &state)
{
    state.SetLabel(DatabaseLayouts::All[state.range(0)].name);
    lookupLoop(state, layoutDatabase(static_cast<int>(state.range(0))), SQLITE_OPEN_READONLY);
}

// The valuation-month check scans for a redemption month, which the key does not lead with.
void BM_IsValidValueOfDate(benchmark::State &state)
{
    state.SetLabel(DatabaseLayouts::All[state.range(0)].name);
    const BondAssessor assessor(layoutDatabase(static_cast<int>(state.range(0))));
    int month = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(assessor.isValidValueOfDate(Month(2000 + month % 25, month % 12 + 1)));
        ++month;
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_IsValidIssueDate(benchmark::State &state)
{
    const BondAssessor assessor(databaseCopy());
    int month = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(assessor.isValidIssueDate(Month(1960 + month % 60, month % 12 + 1), Series::eeBond()));
        ++month;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_AssessorValueOf)->Arg(0)->Arg(1);
BENCHMARK(BM_BarePreparedStatement);
BENCHMARK(BM_BareLookupByLayout)->DenseRange(0, DatabaseLayouts::Count - 1);
BENCHMARK(BM_IsValidValueOfDate)->DenseRange(0, DatabaseLayouts::Count - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_IsValidIssueDate)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
