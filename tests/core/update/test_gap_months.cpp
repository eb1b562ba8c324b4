// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSupport.h"

#include "update/GapMonthFill.h"
#include "update/MaturedValueCompletion.h"
#include "update/PriceDataInstaller.h"
#include "update/sources/PriceSource.h"
#include "valuation/RedemptionDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

constexpr int NoData = -2;

int monthIndex(int year, int month) { return year * 12 + month - 1; }

std::string monthText(int index) { return QString::asprintf("%04d-%02d", index / 12, index % 12 + 1).toStdString(); }

// Every official E, EE and Savings Note value: one record per series, redemption month and issue year.
const QHash<quint64, PriceRecord> &officialRecords()
{
    static const QHash<quint64, PriceRecord> records = [] {
        QList<NamedPriceRecords> sources;
        QString error;
        QHash<quint64, PriceRecord> all;
        if (!PriceSource::readFiles(TestSupport::repositorySources(), &sources, &error))
            ADD_FAILURE() << error.toStdString();
        for (const NamedPriceRecords &source : sources) {
            for (const PriceRecord &record : source.records) {
                if (record.series != 'I')
                    all.insert(MaturedValueCompletion::recordKey(record), record);
            }
        }
        return all;
    }();
    return records;
}

// The redemption months taken out, then the values filled, by kind.
struct Window { int firstMonth, months, sixMonthly, marketRateEe, notRedeemable; };

class GapMonthReproduction : public testing::TestWithParam<Window> {};

// Filling is as good as publishing: six official months taken out and filled give back the official values.
TEST_P(GapMonthReproduction, FilledValuesAreTheOfficialOnes)
{
    const Window window = GetParam();
    const int last = window.firstMonth + window.months - 1;
    QHash<quint64, PriceRecord> records = officialRecords();
    QHash<char, QSet<int>> official;
    for (auto record = records.begin(); record != records.end();) {
        const int month = monthIndex(record->ryr, record->rmo);
        if (month >= window.firstMonth && month <= last) {
            record = records.erase(record);
            continue;
        }
        official[record->series].insert(month);
        ++record;
    }
    const QList<GapMonthFill::Run> runs = GapMonthFill::runs(official);
    const auto run = std::find_if(runs.cbegin(), runs.cend(), [&](const GapMonthFill::Run &r) {
        return r.series == 'N' && r.first == window.firstMonth && r.last == last;
    });
    ASSERT_NE(run, runs.cend());
    for (const GapMonthFill::Run &each : runs)
        if (each.first == window.firstMonth)
            GapMonthFill::fill(records, each);

    int sixMonthly = 0, marketRateEe = 0, notRedeemable = 0, differences = 0;
    for (const PriceRecord &filled : std::as_const(records)) {
        const int month = monthIndex(filled.ryr, filled.rmo);
        if (month < window.firstMonth || month > last)
            continue;
        const PriceRecord truth = officialRecords().value(MaturedValueCompletion::recordKey(filled));
        for (int k = 0; k < 12; ++k) {
            if (filled.value[k] == NoData)
                continue;
            const int issue = monthIndex(filled.iyr, k + 1);
            if (filled.value[k] != truth.value[k]) {
                ++differences;
                ADD_FAILURE() << filled.series << " issued " << monthText(issue) << ", redeemed " << monthText(month)
                              << ": filled " << filled.value[k] << ", official " << truth.value[k];
            } else if (filled.value[k] < 0) {
                ++notRedeemable;
            } else if (filled.series == 'N' && issue >= monthIndex(1997, 5)) {
                ++marketRateEe;
            } else {
                ++sixMonthly;
            }
        }
    }
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(sixMonthly, window.sixMonthly);
    EXPECT_EQ(marketRateEe, window.marketRateEe);
    EXPECT_EQ(notRedeemable, window.notRedeemable);
}

INSTANTIATE_TEST_SUITE_P(AroundTheMissingMonths, GapMonthReproduction,
                         testing::Values(Window{monthIndex(1999, 9), 6, 1973, 144, 36}, Window{monthIndex(2000, 3), 6, 1913, 189, 36},
                                         Window{monthIndex(2003, 3), 6, 1592, 378, 37}, Window{monthIndex(2003, 9), 6, 1540, 383, 62},
                                         Window{monthIndex(2000, 6), 1, 388, 32, 6}, Window{monthIndex(2003, 5), 3, 956, 204, 18}));

// Cells of months the official files skip: the value of redemption month sameAs, of the same step period, or their own.
struct GapCell { char series; int issue, redemption, sameAs, value; };

const GapCell GapCells[] = {
    {'N', monthIndex(1990, 1), monthIndex(2001, 12), monthIndex(2001, 8), 0}, // steps in January and July
    {'N', monthIndex(1990, 1), monthIndex(2002, 1), monthIndex(2002, 3), 0},
    {'E', monthIndex(1980, 6), monthIndex(2001, 11), monthIndex(2001, 8), 0},
    {'E', monthIndex(1980, 6), monthIndex(2001, 12), monthIndex(2002, 3), 0},
    {'E', monthIndex(1964, 1), monthIndex(2001, 9), monthIndex(2001, 8), 0}, // steps in April and October
    {'E', monthIndex(1964, 1), monthIndex(2001, 10), monthIndex(2002, 3), 0},
    {'S', monthIndex(1967, 5), monthIndex(2001, 12), monthIndex(2001, 8), 0}, // matured
    {'N', monthIndex(1990, 3), monthIndex(2001, 12), 0, NoData},             // a step period inside the gap
    {'N', monthIndex(2001, 10), monthIndex(2001, 12), 0, -1},                // not redeemable yet
    {'N', monthIndex(1998, 1), monthIndex(2001, 12), 0, 1504},               // grows every month
};

// The first column of a cell's row in a query over one table, or nothing without a row.
std::optional<int> cellRow(sqlite3 *db, const char *select, char series, int issue, int redemption)
{
    const char code[2] = {series, '\0'};
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(db, (QByteArray(select) + " where series = ? and ryr = ? and rmo = ? and iyr = ? and imo = ?").constData(),
                       -1, &stmt, nullptr);
    RedemptionDatabase::bindCell(stmt, code, redemption / 12, redemption % 12 + 1, issue / 12, issue % 12 + 1);
    std::optional<int> value;
    if (sqlite3_step(stmt) == SQLITE_ROW)
        value = sqlite3_column_int(stmt, 0);
    sqlite3_finalize(stmt);
    return value;
}

void expectGapCells(sqlite3 *db)
{
    const auto value = [db](char series, int issue, int redemption) {
        return cellRow(db, "select value from bond_value", series, issue, redemption).value_or(NoData);
    };
    const auto derived = [db](char series, int issue, int redemption) {
        return cellRow(db, "select 1 from derived_value", series, issue, redemption).has_value();
    };
    for (const GapCell &cell : GapCells) {
        SCOPED_TRACE(std::string(1, cell.series) + " issued " + monthText(cell.issue) + ", redeemed " + monthText(cell.redemption));
        const int filled = value(cell.series, cell.issue, cell.redemption);
        EXPECT_EQ(filled, cell.sameAs ? value(cell.series, cell.issue, cell.sameAs) : cell.value);
        EXPECT_EQ(derived(cell.series, cell.issue, cell.redemption), filled != NoData);
        if (cell.sameAs) {
            EXPECT_FALSE(derived(cell.series, cell.issue, cell.sameAs));
        }
    }
}
sqlite3 *open(const QString &path)
{
    sqlite3 *db = nullptr;
    EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    return db;
}

TEST(GapMonths, TheShippedDatabaseHoldsThemAsDerivedValues)
{
    sqlite3 *db = open(TestSupport::copyOfShippedDatabase());
    expectGapCells(db);
    sqlite3_close(db);
}

// A database updated one file at a time gets them too, once the files on both sides are in.
TEST(GapMonths, ExtendingADatabaseFillsThem)
{
    sqlite3 *db = open(TestSupport::emptyDatabase());
    QString error;
    ASSERT_TRUE(DerivedValues::ensureTable(db, &error)) << error.toStdString();
    PriceDataInstaller installer(db);
    for (const char *name : {"sb200009.asc", "sb200103.asc", "sb200203.asc", "sb200206.asc", "sb200212.asc"}) {
        QList<NamedPriceRecords> sources;
        ASSERT_TRUE(PriceSource::readFiles({TestSupport::sourcePath(QStringLiteral("data/treasury/") + QLatin1String(name))},
                                           &sources, &error))
            << error.toStdString();
        ASSERT_TRUE(installer.updatePricingDataWithData(PriceDataFile::encode(sources.first().records), sources.first().name))
            << installer.lastError().toStdString();
    }
    DerivedValues::Extension added;
    ASSERT_TRUE(RedemptionDatabase::execute(db, "begin", &error));
    ASSERT_TRUE(DerivedValues::extend(db, EeFixedRates::shipped(), &added, &error)) << error.toStdString();
    ASSERT_TRUE(RedemptionDatabase::execute(db, "commit", &error));
    EXPECT_GT(added.filled, 0);
    expectGapCells(db);
    sqlite3_close(db);
}
