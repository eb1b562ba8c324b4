// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Updates from a Fiscal Data stand-in: what is asked for, pages followed, what is installed, and failures that install nothing.
#include "../QtPrinters.h"
#include "FiscalDataTestServer.h"
#include "PriceUpdateTestData.h"
#include "update/PriceUpdater.h"
#include "valuation/BondAssessor.h"

#include <qtestsupport_core.h>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

const QString UpToDate = QStringLiteral("Your redemption values are up to date");
const QString SomeFailed = QStringLiteral("Some updates could not be performed");

// Two issue years of each redemption month of one series; values told apart by month and year.
QList<PriceRecord> months(char series, int ryr, QList<int> rmos)
{
    QList<PriceRecord> records;
    for (int rmo : rmos) {
        for (int iyr : {2000, 2001}) {
            records << record(series, ryr, rmo, iyr);
            for (int k = 0; k < 12; ++k)
                records.last().value[k] = 5000 + (iyr - 2000) * 100 + k + ryr % 100 * 10 + rmo;
        }
    }
    return records;
}
QList<PriceRecord> month(char series, int ryr, int rmo) { return months(series, ryr, {rmo}); }

class FiscalDataUpdateTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        database = TestSupport::emptyDatabase();
        // Installed: EE for 01 and 03/2024 (02 missing), I for 01 to 03/2024.
        const auto outcome = installOfficial(database, {"sb202401.asc", months('N', 2024, {1, 3}) + months('I', 2024, {1, 2, 3})});
        ASSERT_TRUE(outcome.ok()) << outcome.error.toStdString();
        // The service holds EE and I from 01 to 06/2024, the installed months with the same values.
        service.addRecords(months('N', 2024, {1, 2, 3, 4, 5, 6}) + months('I', 2024, {1, 2, 3, 4, 5, 6}));
    }

    std::unique_ptr<PriceUpdater> makeUpdater()
    {
        auto updater = std::make_unique<PriceUpdater>(database);
        updater->setSource(UpdateLocation::Source::FiscalData);
        updater->setServiceRoot(service.root());
        updater->setDownloadLimits({.idleTimeoutMs = 5000});
        QObject::connect(updater.get(), &PriceUpdater::statusTextChanged, &context, [this](const QString &s) { statuses << s; });
        QObject::connect(updater.get(), &PriceUpdater::progressChanged, &context,
                         [this](double value, double maximum) { progress << qMakePair(value, maximum); });
        return updater;
    }

    bool run(PriceUpdater &updater, bool (PriceUpdater::*action)())
    {
        statuses.clear();
        progress.clear();
        bool succeeded = false, done = false;
        QObject::connect(&updater, &PriceUpdater::finished, &context, [&](bool ok) { succeeded = ok; done = true; });
        EXPECT_TRUE((updater.*action)());
        EXPECT_TRUE(QTest::qWaitFor([&] { return done; }, 60000));
        return succeeded;
    }

    // What a user could tell apart: every value and every recorded source.
    QString fingerprint() const
    {
        return queryText(database, "select count(*) || ':' || total(value * (ryr * 13 + rmo * 7 + iyr * 3 + imo)) from bond_value")
            + QLatin1Char('|') + queryColumn(database, "select name from data_file order by name").join(QLatin1Char(','));
    }
    qint64 value(char series, int ryr, int rmo, int iyr, int imo) const
    {
        return queryInt(database, QStringLiteral("select value from bond_value where series = '%1' and ryr = %2 and rmo = %3 "
                                                 "and iyr = %4 and imo = %5").arg(QLatin1Char(series)).arg(ryr).arg(rmo).arg(iyr).arg(imo));
    }

    QObject context;
    FiscalDataTestServer service;
    QString database;
    QStringList statuses;
    QList<QPair<double, double>> progress;
};

// The service caps pages at 3 records though 10,000 were asked for: every page is followed.
TEST_F(FiscalDataUpdateTest, CheckThenInstallFollowsEveryPage)
{
    service.setFaults({.pageCap = 3});
    auto updater = makeUpdater();
    ASSERT_TRUE(run(*updater, &PriceUpdater::checkForUpdates));
    EXPECT_EQ(statuses, QStringList({"Checking for updates...", "Values for 02/2024 to 06/2024 are available"}));
    EXPECT_EQ(updater->availableUpdates(), std::optional<QStringList>(QStringList{"fiscaldata:2024-02..2024-06"}));
    // A check only reads: the file keeps its journal (the seed the build made must).
    EXPECT_EQ(queryText(database, "pragma journal_mode"), QStringLiteral("delete"));

    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData));
    EXPECT_EQ(statuses.last(), QStringLiteral("Installed values for 02/2024 to 06/2024"));
    EXPECT_EQ(queryText(database, "pragma journal_mode"), QStringLiteral("wal"));
    // Requests: E and S (none), EE 02/2024 (2 records, 1 page), EE and I from 04/2024 (12 records, 4 pages).
    EXPECT_TRUE(statuses.contains(QStringLiteral("Downloading page 2 of 3")));
    EXPECT_TRUE(statuses.contains(QStringLiteral("Downloading page 6 of 6")));
    EXPECT_EQ(progress.first(), qMakePair(1.0, 3.0));
    EXPECT_TRUE(progress.contains(qMakePair(6.0, 6.0)));
    EXPECT_EQ(progress.last(), qMakePair(4.0, 4.0)); // then the four months installed
    EXPECT_EQ(queryColumn(database, "select name from data_file order by name"),
              QStringList({"fiscaldata:2024-02..2024-06", "sb202401.asc"}));
    for (const PriceRecord &r : months('N', 2024, {2, 6}) + months('I', 2024, {4, 6}))
        for (int imo : {1, 12})
            EXPECT_EQ(value(r.series, r.ryr, r.rmo, r.iyr, imo), r.value[imo - 1]) << r.series << r.rmo << r.iyr;
    EXPECT_EQ(queryText(database, "select ryr || '-' || rmo from max_rdate"), QStringLiteral("2024-6"));
    EXPECT_EQ(updater->availableUpdates(), std::optional<QStringList>(QStringList()));

    // A second update finds nothing and changes nothing.
    const QString before = fingerprint();
    ASSERT_TRUE(run(*updater, &PriceUpdater::checkForUpdates));
    EXPECT_EQ(statuses.last(), UpToDate);
    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData));
    EXPECT_EQ(statuses.last(), UpToDate);
    EXPECT_EQ(fingerprint(), before);
}

// "null" is a month without bonds; "NO PAY", "0" and "0.00" a bond not yet redeemable.
TEST_F(FiscalDataUpdateTest, MarkersKeepTheirMeaning)
{
    QList<PriceRecord> july = month('I', 2024, 7);
    july[1].value = {-1, -1, -1, -1, -1, -1, -2, -2, -2, -2, -2, -2};
    service.addRecords(july);
    auto updater = makeUpdater();
    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData)) << statuses.join('\n').toStdString();
    for (int imo = 1; imo <= 12; ++imo)
        EXPECT_EQ(value('I', 2024, 7, 2001, imo), imo <= 6 ? -1 : -2) << imo;
    EXPECT_EQ(value('I', 2024, 7, 2000, 5), july[0].value[4]);
}

// Whatever goes wrong on whichever page, nothing is installed and the status says why.
struct FailureCase
{
    const char *name;
    FiscalDataTestServer::Faults faults;
    QList<QJsonObject> extraRows;
    const char *why;
};

class FailureTest : public FiscalDataUpdateTest, public ::testing::WithParamInterface<FailureCase> {};

// An I record of 08/2024 with fields changed; an undefined value removes the field.
QJsonObject rowWith(std::initializer_list<std::pair<const char *, QJsonValue>> changes)
{
    QJsonObject row = FiscalDataTestServer::row(month('I', 2024, 8).first(), 0);
    for (const auto &[key, value] : changes) {
        if (value.isUndefined())
            row.remove(key);
        else
            row.insert(key, value);
    }
    return row;
}

// A first page holding only that row.
QByteArray pageOf(const QJsonObject &row)
{
    const QJsonObject top{{"data", QJsonArray{row}}, {"meta", QJsonObject{{"total-pages", "1"}, {"total-count", "1"}}}};
    return QJsonDocument(top).toJson();
}

TEST_P(FailureTest, InstallsNothingAndSaysWhy)
{
    service.setFaults(GetParam().faults);
    for (const QJsonObject &row : GetParam().extraRows)
        service.addRow(row);
    auto updater = makeUpdater();
    const QString before = fingerprint();
    EXPECT_FALSE(run(*updater, &PriceUpdater::updatePriceData));
    ASSERT_FALSE(statuses.isEmpty());
    EXPECT_TRUE(statuses.last().startsWith(SomeFailed + '\n')) << statuses.last().toStdString();
    EXPECT_TRUE(statuses.last().contains(QLatin1String(GetParam().why))) << statuses.last().toStdString();
    EXPECT_EQ(fingerprint(), before);
    EXPECT_FALSE(updater->availableUpdates().has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Replies, FailureTest,
    ::testing::Values(
        FailureCase{"SecondPageFails", {.pageCap = 3, .failingPage = 2}, {}, "page 2: the server answered with status 500"},
        FailureCase{"NoPageCount", {.failingPage = 1, .replacedBody = R"({"data": []})"}, {}, "page count"},
        FailureCase{"RecordsMissing", {.pageCap = 3, .failingPage = 2, .replacedBody = R"({"data": [], "meta": {"total-pages": "4", "total-count": "12"}})"},
                    {}, "9 records arrived where the service announced 12"},
        FailureCase{"IssuedAfterRedemption", {}, {rowWith({{"issue_year", "2025"}})}, "issue_year 2025 is out of range for redemption month 2024-08"},
        FailureCase{"AmountBeyondRecords", {}, {rowWith({{"issue_mar_amt", "53192"}})}, "issue_mar_amt \"53192\" is out of range"},
        FailureCase{"MissingIssueYear", {}, {rowWith({{"issue_year", QJsonValue::Undefined}})}, "issue_year nothing is not a year"},
        FailureCase{"MonthOutOfRange", {.failingPage = 1, .replacedBody = pageOf(rowWith({{"redemp_period", "2024-13"}, {"redemption_month", QJsonValue::Undefined}}))},
                    {}, "redemption month 2024-13 is out of range"},
        FailureCase{"PeriodsDisagree", {}, {rowWith({{"redemption_month", "9"}})}, "disagrees with redemp_period"},
        FailureCase{"UnknownSeries", {.failingPage = 1, .replacedBody = pageOf(rowWith({{"series_cd", "X"}}))}, {},
                    "series_cd \"X\" is not E, N, I or S"},
        FailureCase{"SameRecordTwiceDiffering", {}, {rowWith({{"issue_jan_amt", "1.00"}}), rowWith({{"issue_jan_amt", "2.00"}})},
                    "twice with different values"}),
    [](const auto &info) { return std::string(info.param.name); });

// A service ignoring the filters sends known months, one differing: only the months asked for are installed.
TEST_F(FiscalDataUpdateTest, OnlyTheMonthsAskedForAreInstalled)
{
    QList<PriceRecord> changed = month('N', 2024, 1);
    changed[0].value[0] += 1;
    service.addRecords(changed);
    service.setFaults({.replacedBody = {}, .ignoreFilter = true});
    auto updater = makeUpdater();
    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData)) << statuses.join('\n').toStdString();
    EXPECT_EQ(statuses.last(), QStringLiteral("Installed values for 02/2024 to 06/2024"));
    EXPECT_EQ(value('N', 2024, 1, 2000, 1), month('N', 2024, 1).first().value[0]);
}

// Values of the same months that arrive later (a series the service adds) are recorded apart.
TEST_F(FiscalDataUpdateTest, LaterValuesOfTheSameMonthsAreRecordedApart)
{
    auto updater = makeUpdater();
    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData));
    service.addRecords(months('E', 2024, {2, 6}));
    ASSERT_TRUE(run(*updater, &PriceUpdater::updatePriceData)) << statuses.join('\n').toStdString();
    EXPECT_EQ(queryColumn(database, "select name from data_file order by name"),
              QStringList({"fiscaldata:2024-02..2024-06", "fiscaldata:2024-02..2024-06#2", "sb202401.asc"}));
    EXPECT_EQ(value('E', 2024, 6, 2001, 3), month('E', 2024, 6).last().value[2]);
}
