// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// publish, update and install-treasury-file: an update directory served over HTTP brings databases up to date.
#include "../core/QtPrinters.h"
#include "LocalHttpServer.h"
#include "PriceUpdateTestData.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

QString buildDatabase(const QStringList &sourcePaths)
{
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/older.bvdb");
    const auto built = TestSupport::runCli(QStringList{"build-database", "--out", path} + sourcePaths);
    EXPECT_EQ(built.exitCode, 0) << built.standardError.toStdString();
    return path;
}

QStringList environment(const QString &database)
{
    // No test may reach the Treasury: a service root that refuses at once.
    return {QStringLiteral("QUILLMERE_DATABASE=") + database, QStringLiteral("QUILLMERE_UPDATE_URL="),
            QStringLiteral("QUILLMERE_FISCAL_DATA_URL=http://127.0.0.1:9/")};
}

// The database holds the shipped one's values in place (rows only marking a blank cell may differ).
void expectShippedValues(const QString &database)
{
    static const QString shipped = TestSupport::copyOfShippedDatabase();
    for (const char *sql : {"select count(*) from bond_value where value >= -1", "select sum(value) from bond_value where value >= -1",
                            "select sum(value * (ryr * 12 + rmo) % 1000003) from bond_value where value >= -1",
                            "select sum(value * (iyr * 12 + imo) % 999983) from bond_value where value >= -1",
                            "select ryr * 100 + rmo from min_rdate", "select ryr * 100 + rmo from max_rdate"})
        EXPECT_EQ(queryInt(database, QString::fromLatin1(sql)), queryInt(shipped, QString::fromLatin1(sql))) << sql;
}

// One published directory, served for all tests of this file.
class UpdateCommands : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const QString directory = TestSupport::temporaryDirectory() + QStringLiteral("/published");
        const auto published = TestSupport::runCli(QStringList{"publish", "--out", directory} + TestSupport::repositorySources());
        ASSERT_EQ(published.exitCode, 0) << published.standardError.toStdString();
        server = new LocalHttpServer;
        server->serveDirectory(directory, QStringLiteral("/bonddata/"));
    }
    static void TearDownTestSuite() { delete server; }

    static TestSupport::ProcessResult update(const QString &database, const QStringList &arguments = {},
                                             const char *path = "/bonddata/")
    {
        const QString base = server->url(QString::fromLatin1(path)).toString();
        return TestSupport::runCli(QStringList{"update", "--base-url", base} + arguments, environment(database));
    }

    static inline LocalHttpServer *server = nullptr;
};

TEST_F(UpdateCommands, EmptyDatabaseBecomesTheShippedOne)
{
    const QString database = TestSupport::emptyDatabase();
    const auto result = update(database);
    ASSERT_EQ(result.exitCode, 0) << result.standardOutput.toStdString();
    EXPECT_TRUE(result.standardOutput.contains("61 update(s) available\n"));
    EXPECT_TRUE(result.standardOutput.contains("Downloading update 61 of 61\n"));
    EXPECT_TRUE(result.standardOutput.endsWith("Optimizing pricing data...\nAll updates installed\n"));
    expectShippedValues(database);
    // The same files, in the same order: the shipped database has nothing left to update.
    const QString names = QStringLiteral("select name from data_file order by rowid");
    EXPECT_EQ(queryColumn(database, names), queryColumn(TestSupport::copyOfShippedDatabase(), names));
}

// Servers that never answer or trickle bytes: given up when the time asked for has passed in all.
TEST_F(UpdateCommands, TimeOutIsADeadline)
{
    server->setResponse(QStringLiteral("/silent/AvailableBondData.plist"),
                        LocalHttpServer::Response(200, {}, LocalHttpServer::Behaviour::NeverAnswer));
    // 64 bytes every 5 ms: 100 KB would take 8 s.
    server->setResponse(QStringLiteral("/drip/AvailableBondData.plist"),
                        LocalHttpServer::Response(200, QByteArray(100000, ' '), LocalHttpServer::Behaviour::Trickle));
    for (const char *path : {"/silent/", "/drip/"}) {
        QElapsedTimer clock;
        clock.start();
        const auto result = update(TestSupport::copyOfShippedDatabase(), {"--timeout", "1", "--catalogue"}, path);
        EXPECT_LT(clock.elapsed(), 4000) << path;
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.standardOutput.endsWith("Update information unavailable. Check internet connections and try again.\n"
                                                   "the time allowed for the download ran out\n"))
            << result.standardOutput.toStdString();
    }
}

TEST_F(UpdateCommands, ReadOnlyDatabaseIsCheckedButNotUpdated)
{
    const QString database = buildDatabase(TestSupport::repositorySources({QStringLiteral("i-bond-values.csv")}));
    QFile::setPermissions(database, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const qint64 rows = queryInt(database, QStringLiteral("select count(*) from bond_value"));
    const QString csv = TestSupport::sourcePath(QStringLiteral("data/fiscaldata/i-bond-values.csv"));
    for (const auto &result : {update(database), TestSupport::runCli({"install-treasury-file", csv}, environment(database))}) {
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.standardError.contains("cannot be written")) << result.standardError.toStdString();
    }
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rows);
    // Only looking needs no writing, and finds exactly the file the database lacks.
    const auto check = update(database, {"--check"});
    EXPECT_EQ(check.exitCode, 0);
    EXPECT_EQ(check.standardOutput, QByteArray("Checking for updates...\n1 update(s) available\n  i-bond-values.csv\n"));
}

// Two installations at once: the second waits, a repeat finds it installed; show never sees months missing.
TEST(ConcurrentInstallations, WaitForEachOtherWhileShowReads)
{
    const QString database = buildDatabase(TestSupport::repositorySources({"sb202012.asc", "sb202106.asc"}));
    QStringList env = QProcess::systemEnvironment();
    env << environment(database);
    auto start = [&](const QStringList &arguments) {
        auto process = std::make_unique<QProcess>();
        process->setEnvironment(env);
        process->start(QStringLiteral(QUILLMERE_CLI_PATH), arguments);
        return process;
    };
    const QString december = TestSupport::sourcePath("data/treasury/sb202012.asc");
    const QString june = TestSupport::sourcePath("data/treasury/sb202106.asc");
    std::vector<std::unique_ptr<QProcess>> installs;
    for (const QString &file : {december, june, june})
        installs.push_back(start({"install-treasury-file", file}));
    int shows = 0;
    const QString sample = TestSupport::sourcePath("examples/sample.bondportfolio");
    while (std::any_of(installs.begin(), installs.end(), [](const auto &p) { return p->state() != QProcess::NotRunning; })) {
        const auto shown = TestSupport::runCli({"show", sample, "--people", TestSupport::sourcePath("examples/people.vcf")},
                                               environment(database));
        EXPECT_EQ(shown.exitCode, 0) << shown.standardError.toStdString();
        ++shows;
        QCoreApplication::processEvents();
    }
    QStringList outcomes;
    for (const auto &process : installs) {
        process->waitForFinished(120000);
        outcomes << QStringLiteral("%1 %2").arg(process->exitCode()).arg(QString::fromUtf8(process->readAllStandardError()).trimmed());
    }
    std::sort(outcomes.begin(), outcomes.end());
    EXPECT_EQ(outcomes, QStringList({"0 ", "0 ", "1 quillmere-cli: sb202106.asc is already installed"})) << shows << " shows";
    EXPECT_GT(shows, 0);
    EXPECT_EQ(queryInt(database, "select count(*) from data_file where name in ('sb202012.asc', 'sb202106.asc')"), 2);
    expectShippedValues(database);
}

TEST(InstallTreasuryFile, InstallsANewerFileOnce)
{
    const QString newest = QStringLiteral("sb202106.asc");
    const QString database = buildDatabase(TestSupport::repositorySources({newest}));
    const QString file = TestSupport::sourcePath(QStringLiteral("data/treasury/") + newest);
    const auto installed = TestSupport::runCli({"install-treasury-file", file}, environment(database));
    ASSERT_EQ(installed.exitCode, 0) << installed.standardError.toStdString();
    // Every count in its place; the last month is the newest the repository's sources hold.
    EXPECT_TRUE(QString::fromUtf8(installed.standardOutput)
                    .contains(QRegularExpression(QStringLiteral(
                        "^Installed sb202106\\.asc: 222 new records, 0 already installed, 438 completed, 5115 derived "
                        "values replaced by official ones, 360 values of matured bonds carried forward, 0 values of "
                        "fixed-rate EE bonds computed; redemption months 1992-05 to 20\\d\\d-\\d\\d\\n$"))))
        << installed.standardOutput.toStdString();
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'sb202106.asc'")), 1);
    // New months, filled gaps and carried matured bonds: the same as a database built from all sources.
    expectShippedValues(database);
}
