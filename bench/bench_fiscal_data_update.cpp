// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// An update from the Fiscal Data service: five years of months of every series (about 7,000
// records, served 1,000 to a page from 127.0.0.1) installed into a database that holds the month
// before. Beside it, the same pages fetched and read without installing, and a plain SQLite
// insert of the same rows in one transaction: paging and parsing must cost less than installing.
#include "FiscalDataTestServer.h"
#include "PriceUpdateTestData.h"

#include "update/OfficialSourceInstaller.h"
#include "update/PriceUpdateRun.h"
#include "update/UpdateConnection.h"
#include "update/fiscaldata/FiscalDataClient.h"
#include "valuation/MonthIndex.h"
#include "valuation/RedemptionDatabase.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

// Issue years each series has records for in a month: E 1941-1980, EE 1980 on, I 1998 on, notes.
QList<PriceRecord> monthOfEverySeries(int ryr, int rmo)
{
    QList<PriceRecord> records;
    auto add = [&](char series, int first, int last) {
        for (int iyr = first; iyr <= std::min(last, ryr); ++iyr) {
            PriceRecord r = PriceUpdateTestData::record(series, ryr, rmo, iyr);
            for (int k = 0; k < 12; ++k)
                r.value[k] = 2500 + (ryr - iyr) * 97 + k * 3 + rmo;
            records << r;
        }
    };
    add('E', 1941, 1980);
    add('N', 1980, 2026);
    add('I', 1998, 2026);
    add('S', 1967, 1970);
    return records;
}

struct Fixture
{
    QTemporaryDir folder;
    QString base = folder.filePath("base.bvdb");
    FiscalDataTestServer service;
    QList<PriceRecord> served;

    Fixture()
    {
        sqlite3 *db = nullptr;
        sqlite3_open(base.toUtf8().constData(), &db);
        RedemptionDatabase::createSchema(db);
        OfficialSourceInstaller::install(db, {"sb202111.asc", monthOfEverySeries(2021, 11)});
        sqlite3_close(db);
        for (int m = MonthIndex::of(2021, 12); m <= MonthIndex::of(2026, 11); ++m)
            served += monthOfEverySeries(MonthIndex::yearOf(m), MonthIndex::monthOf(m));
        service.addRecords(served);
        FiscalDataTestServer::Faults faults;
        faults.pageCap = 1000;
        service.setFaults(faults);
        // The stand-in answers from its cache from now on: what is timed is the client.
        FiscalDataClient(service.root(), {}).fetch({{"ENIS", MonthIndex::of(2021, 12), 0}});
    }

    QString freshCopy(const char *name)
    {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QFile::remove(path);
        QFile::copy(base, path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }
};

Fixture &fixture()
{
    static Fixture made;
    return made;
}

void BM_UpdateFromFiscalData(benchmark::State &state)
{
    Fixture &f = fixture();
    for (auto _ : state) {
        state.PauseTiming();
        auto connection = std::make_shared<UpdateConnection>(f.freshCopy("update.bvdb"));
        PriceUpdateRun run(connection, {UpdateLocation::Source::FiscalData, {}, f.service.root(), {}}, {});
        state.ResumeTiming();
        if (!run.updatePriceData({}))
            state.SkipWithError("the update failed");
    }
    state.counters["records"] = double(f.served.size());
}
BENCHMARK(BM_UpdateFromFiscalData)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_FetchAndReadPagesOnly(benchmark::State &state)
{
    Fixture &f = fixture();
    const QList<FiscalDataRequest> requests{{"ENIS", MonthIndex::of(2021, 12), 0}};
    for (auto _ : state) {
        FiscalDataClient client(f.service.root(), {});
        const auto records = client.fetch(requests);
        if (!records || records->size() != f.served.size())
            state.SkipWithError("the fetch failed");
    }
}
BENCHMARK(BM_FetchAndReadPagesOnly)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PlainInsertOfTheSameRows(benchmark::State &state)
{
    Fixture &f = fixture();
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = f.freshCopy("plain.bvdb");
        sqlite3 *db = nullptr;
        sqlite3_open(path.toUtf8().constData(), &db);
        state.ResumeTiming();
        sqlite3_exec(db, "begin", nullptr, nullptr, nullptr);
        sqlite3_stmt *stmt = nullptr;
        sqlite3_prepare_v2(db, "insert into bond_value (series, ryr, rmo, iyr, imo, value) values (?, ?, ?, ?, ?, ?)", -1,
                           &stmt, nullptr);
        for (const PriceRecord &r : f.served) {
            const char series[2] = {r.series, 0};
            for (int k = 0; k < 12; ++k) {
                sqlite3_reset(stmt);
                RedemptionDatabase::bindCell(stmt, series, r.ryr, r.rmo, r.iyr, k + 1);
                sqlite3_bind_int(stmt, 6, r.value[k]);
                if (sqlite3_step(stmt) != SQLITE_DONE)
                    state.SkipWithError(sqlite3_errmsg(db));
            }
        }
        sqlite3_finalize(stmt);
        sqlite3_exec(db, "commit", nullptr, nullptr, nullptr);
        state.PauseTiming();
        sqlite3_close(db);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PlainInsertOfTheSameRows)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
