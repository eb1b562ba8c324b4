// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The updater against an HTTP server on 127.0.0.1: checks, installations, failures, and the database afterwards.
#include "../QtPrinters.h"
#include "LocalHttpServer.h"
#include "PriceUpdateTestData.h"
#include "update/PriceUpdater.h"
#include "valuation/RedemptionDateRangeNotifier.h"
#include "update/UpdateCatalogue.h"
#include "valuation/BondAssessor.h"

#include <QFile>
#include <qtestsupport_core.h>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;
using Behaviour = LocalHttpServer::Behaviour;
using Response = LocalHttpServer::Response;

const QString Checking = QStringLiteral("Checking for updates...");
const QString Installing = QStringLiteral("Installing updated prices...");
const QString Optimizing = QStringLiteral("Optimizing pricing data...");
const QString AllInstalled = QStringLiteral("All updates installed");
const QString SomeFailed = QStringLiteral("Some updates could not be performed");
const QString Catalogue = QStringLiteral("/updates/AvailableBondData.plist");

// Three months of Series I values; the database starts with the first.
const QString January = QStringLiteral("i-2027-01.bin");
const QString February = QStringLiteral("i-2027-02.bin");
const QString March = QStringLiteral("i-2027-03.bin");

std::optional<QStringList> offered(const QStringList &names) { return names; }
QString downloading(int file, int of) { return QStringLiteral("Downloading update %1 of %2").arg(file).arg(of); }
QString unavailable(const char *why)
{
    return QStringLiteral("Update information unavailable. Check internet connections and try again.\n") + QLatin1String(why);
}

struct Recorder
{
    QStringList statuses;
    QList<QPair<double, double>> progress;
    QList<bool> downloading;
    QList<QVariantMap> ranges;
    QList<const QObject *> rangeSenders;
};

class PriceUpdaterTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        database = TestSupport::emptyDatabase();
        ASSERT_TRUE(install(database, {{January, priceFile('I', 2027, 1, 2000, 25)}}));
        const QStringList months{January, February, March};
        for (int m = 0; m < 3; ++m)
            server.setBody(QStringLiteral("/updates/") + months[m], priceFile('I', 2027, m + 1, 2000, 25));
        QObject::connect(RedemptionDateRangeNotifier::instance(), &RedemptionDateRangeNotifier::redemptionDateRangeDidChange,
                         &context, [this](const QObject *sender, const QVariantMap &userInfo) {
                             recorder.ranges << userInfo;
                             recorder.rangeSenders << sender;
                         });
    }

    std::unique_ptr<PriceUpdater> makeUpdater()
    {
        auto updater = std::make_unique<PriceUpdater>(database);
        updater->setSource(UpdateLocation::Source::Catalogue);
        updater->setBaseUrl(server.url(QStringLiteral("/updates/")));
        // A time-out generous for a loaded machine: only the silent server waits it out.
        updater->setDownloadLimits({.idleTimeoutMs = 2000, .maximumBytes = 4096});
        PriceUpdater *u = updater.get();
        QObject::connect(u, &PriceUpdater::statusTextChanged, &context, [this](const QString &s) { recorder.statuses << s; });
        QObject::connect(u, &PriceUpdater::progressChanged, &context,
                         [this](double value, double maximum) { recorder.progress << qMakePair(value, maximum); });
        QObject::connect(u, &PriceUpdater::downloadingChanged, &context, [this](bool on) { recorder.downloading << on; });
        return updater;
    }

    void setCatalogue(const QStringList &entries) { server.setBody(Catalogue, UpdateCatalogue::encode(entries)); }

    void check(PriceUpdater &updater)
    {
        ASSERT_TRUE(updater.checkForUpdates());
        EXPECT_TRUE(updater.checkingForUpdates());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !updater.checkingForUpdates(); }, 60000));
    }

    // Clears the record first; waits for the range announcement, which travels one hop further.
    void installAll(PriceUpdater &updater)
    {
        recorder = {};
        ASSERT_TRUE(updater.updatePriceData());
        EXPECT_TRUE(updater.updatingPriceData());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !updater.updatingPriceData(); }, 60000));
        (void)QTest::qWaitFor([&] { return !recorder.ranges.isEmpty(); }, 2000);
    }

    QStringList installed() const { return BondAssessor(database).installedFiles(); }
    QDateTime announced(const char *key) const { return recorder.ranges.value(0).value(QString::fromLatin1(key)).toDateTime(); }
    QString latestMonth() const { return queryText(database, QStringLiteral("select ryr || '-' || rmo from max_rdate")); }

    QObject context;
    LocalHttpServer server;
    QString database;
    Recorder recorder;
};

// Entries are files of the update directory; the catalogue's order is kept.
TEST_F(PriceUpdaterTest, CheckThenInstallBringsTheNewMonths)
{
    const QString march = March, february = February;
    setCatalogue({march, January, february});
    auto updater = makeUpdater();
    QList<bool> availability;
    QObject::connect(updater.get(), &PriceUpdater::updateAvailableChanged, &context, [&](bool on) { availability << on; });
    check(*updater);
    EXPECT_EQ(updater->statusText(), QStringLiteral("2 update(s) available"));
    EXPECT_EQ(updater->availableUpdates(), offered({march, february}));
    EXPECT_TRUE(updater->updateAvailable());

    installAll(*updater);
    EXPECT_EQ(recorder.statuses, QStringList({downloading(1, 2), Installing, downloading(2, 2), Installing, Optimizing, AllInstalled}));
    EXPECT_EQ(installed(), QStringList({January, march, february}));
    EXPECT_TRUE(server.requestedPaths().contains(QStringLiteral("/updates/") + February));
    EXPECT_EQ(latestMonth(), QStringLiteral("2027-3"));
    EXPECT_EQ(updater->availableUpdates(), offered({}));
    EXPECT_EQ(availability, QList<bool>({true, false}));

    ASSERT_EQ(recorder.ranges.size(), 1);
    EXPECT_EQ(announced(QBMaximumRedemptionDateKey), BondAssessor::monthDate(2027, 3));
    EXPECT_EQ(announced(QBMinimumRedemptionDateKey), BondAssessor::monthDate(2027, 1));
    EXPECT_EQ(recorder.rangeSenders[0], updater.get());

    // 25 records: a bar of 2 steps, stepped after records 0, 10 and 20, then set to its maximum.
    const QList<QPair<double, double>> oneFile = {{0, 2}, {1, 2}, {2, 2}, {3, 2}, {2, 2}};
    EXPECT_EQ(recorder.progress, oneFile + oneFile);
    EXPECT_EQ(recorder.downloading, QList<bool>({true, false, true, false}));
    EXPECT_TRUE(BondAssessor(database).isValidValueOfDate(Month(2027, 3)));
}

// One way a server answers a request, and the status the updater ends up showing.
struct ReplyCase { const char *name; Response response; QString status; };

class ReplyTest : public PriceUpdaterTest, public ::testing::WithParamInterface<ReplyCase> {};

const auto replyCaseName = [](const auto &info) { return std::string(info.param.name); };

// After a check that found February, a failing catalogue says why and keeps the list; slow or redirected reads.
using CatalogueReplyTest = ReplyTest;

TEST_P(CatalogueReplyTest, EndsInItsStatusAndKeepsTheList)
{
    setCatalogue({January, February});
    server.setBody(QStringLiteral("/moved/AvailableBondData.plist"), UpdateCatalogue::encode({January, February}));
    auto updater = makeUpdater();
    check(*updater);
    ASSERT_EQ(updater->availableUpdates(), offered({February}));

    server.setResponse(Catalogue, GetParam().response);
    recorder = {};
    check(*updater);
    ASSERT_EQ(recorder.statuses.size(), 2);
    EXPECT_EQ(recorder.statuses[0], Checking);
    EXPECT_EQ(recorder.statuses[1], GetParam().status);
    EXPECT_EQ(updater->availableUpdates(), offered({February}));
    EXPECT_EQ(installed(), QStringList({January}));
}

// The forms a catalogue can be corrupt in are the parser's table; here one shows the status.
INSTANTIATE_TEST_SUITE_P(
    Replies, CatalogueReplyTest,
    ::testing::Values(
        ReplyCase{"Slow", Response{200, UpdateCatalogue::encode({January, February}), Behaviour::Trickle}, QStringLiteral("1 update(s) available")},
        ReplyCase{"Redirected", Response{301, "", Behaviour::Answer, "/moved/AvailableBondData.plist"}, QStringLiteral("1 update(s) available")},
        ReplyCase{"Missing", Response{404, "no such file"}, unavailable("the server answered with status 404")},
        ReplyCase{"NeverAnswers", Response{200, "", Behaviour::NeverAnswer}, unavailable("the server fell silent for 2 seconds")},
        ReplyCase{"TooLarge", Response{200, QByteArray(8192, ' ')}, unavailable("the reply is larger than 4096 bytes")},
        ReplyCase{"RedirectToFile", Response{302, "", Behaviour::Answer, "file:///etc/hostname"},
                  unavailable("Unknown protocol specified")},
        ReplyCase{"NotAPropertyList", Response{200, "<html>Not here</html>"},
                  QStringLiteral("Download corrupt; unable to update\nnot a property list")}),
    replyCaseName);

// A file failing mid-run: earlier files stay, the run stops, the next check offers the rest.
using FileFailureTest = ReplyTest;

TEST_P(FileFailureTest, KeepsEarlierFilesAndOffersTheRest)
{
    const QString broken = QStringLiteral("broken.bin");
    server.setResponse(QStringLiteral("/updates/") + broken, GetParam().response);
    setCatalogue({January, February, broken, March});
    auto updater = makeUpdater();
    check(*updater);
    ASSERT_EQ(updater->availableUpdates(), offered({February, broken, March}));

    installAll(*updater);
    ASSERT_GE(recorder.statuses.size(), 3);
    EXPECT_EQ(recorder.statuses.mid(recorder.statuses.size() - 3, 2), QStringList({downloading(2, 3), Optimizing}));
    EXPECT_EQ(recorder.statuses.last(), SomeFailed + '\n' + GetParam().status);
    EXPECT_FALSE(recorder.statuses.contains(downloading(3, 3)));
    EXPECT_FALSE(updater->availableUpdates().has_value());
    EXPECT_FALSE(updater->updateAvailable());
    EXPECT_EQ(installed(), QStringList({January, February}));
    EXPECT_EQ(latestMonth(), QStringLiteral("2027-2"));
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), 2 * 25 * 12);
    ASSERT_EQ(recorder.ranges.size(), 1);
    EXPECT_EQ(announced(QBMaximumRedemptionDateKey), BondAssessor::monthDate(2027, 2));

    check(*updater);
    EXPECT_EQ(updater->availableUpdates(), offered({broken, March}));
}

// Field 0: redemption year, 1: issue year, 2: redemption month, 3: the May value, 4: series.
PriceRecord withField(PriceRecord r, int field, int value)
{
    switch (field) {
    case 0: r.ryr = quint16(value); break;
    case 1: r.iyr = quint16(value); break;
    case 2: r.rmo = quint8(value); break;
    case 3: r.value[4] = value; break;
    default: r.series = char(value); break;
    }
    return r;
}

const PriceRecord Good = PriceUpdateTestData::record('I', 2027, 4, 2026, 2600);
Response file(const QList<PriceRecord> &records) { return Response{200, PriceDataFile::encode(records)}; }

// The broken file is the second of three; network failures are the catalogue's table above.
INSTANTIATE_TEST_SUITE_P(
    Replies, FileFailureTest,
    ::testing::Values(
        ReplyCase{"ContradictsInstalledRows", Response{200, priceFile('I', 2027, 1, 2000, 25, 2600)},
                  "broken.bin: Series I bonds, issue month 2000-01, redemption month 2027-01: $26.00 differs from the "
                  "installed official value $25.00"},
        ReplyCase{"CutShort", Response{200, priceFile('I', 2027, 2, 2000, 25).left(1000)},
                  "Download corrupt: broken.bin: 1000 bytes are not a whole number of 56-byte records"},
        ReplyCase{"FarFutureYear", file({Good, withField(Good, 0, 17487)}), "broken.bin: record 2: redemption month 17487-4 is out of range"},
        ReplyCase{"IssuedAfterRedemption", file({withField(Good, 1, 2027), withField(Good, 1, 2028)}),
                  "broken.bin: record 2: issue year 2028 is out of range for redemption year 2027"},
        ReplyCase{"MonthThirteen", file({withField(Good, 2, 13)}), "broken.bin: record 1: redemption month 2027-13 is out of range"},
        ReplyCase{"UnknownSeries", file({withField(Good, 4, 'X')}), "broken.bin: record 1: series code 88 is not E, N, I or S"}),
    replyCaseName);

// An entry leaving the update directory refuses the catalogue, naming it; nothing else is fetched.
class CatalogueEntryTest : public PriceUpdaterTest, public ::testing::WithParamInterface<const char *> {};

TEST_P(CatalogueEntryTest, OutsideTheDirectoryIsRefused)
{
    const QString entry = QString::fromUtf8(GetParam());
    server.setBody(QStringLiteral("/outside/x"), priceFile('I', 2027, 2, 2000, 25));
    setCatalogue({January, entry});
    auto updater = makeUpdater();
    check(*updater);
    EXPECT_EQ(updater->statusText(), QStringLiteral("Download corrupt; unable to update\nthe entry \"%1\" is not a file of "
                                                    "the update directory").arg(entry));
    EXPECT_FALSE(updater->updateAvailable());
    EXPECT_EQ(server.requestedPaths(), QStringList{Catalogue});
    EXPECT_EQ(installed(), QStringList{January});
}

INSTANTIATE_TEST_SUITE_P(Entries, CatalogueEntryTest,
                         ::testing::Values("../../outside/x", "../outside/x", "/outside/x", "http://other-host/outside/x",
                                           "x?y=1", "%2e%2e"));
