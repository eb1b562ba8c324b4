// publish, update and install-treasury-file together: an update directory published from the
// repository's sources and served over HTTP brings older databases up to the shipped one, with
// the files named and ordered as the shipped database records them.
#include "../core/QtPrinters.h"
#include "LocalHttpServer.h"
#include "PriceUpdateTestData.h"
#include "TestSupport.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

namespace {

QString buildDatabase(const QStringList &sourcePaths)
{
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/older.bvdb");
    const auto built = TestSupport::runCli(QStringList{"build-database", "--out", path} + sourcePaths);
    EXPECT_EQ(built.exitCode, 0) << built.standardError.toStdString();
    return path;
}

QStringList environment(const QString &database)
{
    return {QStringLiteral("QUILLMERE_DATABASE=") + database, QStringLiteral("QUILLMERE_UPDATE_URL=")};
}

TestSupport::ProcessResult installTreasuryFile(const QString &file, const QString &database)
{
    return TestSupport::runCli({"install-treasury-file", file}, environment(database));
}

// The database holds the values the shipped one holds, each in its place.
void expectShippedValues(const QString &database)
{
    static const QString shipped = TestSupport::copyOfShippedDatabase();
    for (const char *sql : {"select count(*) from bond_value", "select sum(value) from bond_value",
                            "select sum(value * (ryr * 12 + rmo) % 1000003) from bond_value",
                            "select sum(value * (iyr * 12 + imo) % 999983) from bond_value",
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

// The statuses of each failure are the updater's; here a server that never answers, given up
// after the time asked for.
TEST_F(UpdateCommands, FailureExitsNonZeroWithTheStatus)
{
    server->setResponse(QStringLiteral("/silent/AvailableBondData.plist"),
                        LocalHttpServer::Response(200, {}, LocalHttpServer::Behaviour::NeverAnswer));
    const auto result = update(TestSupport::copyOfShippedDatabase(), {"--timeout", "0.5"}, "/silent/");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.standardOutput.endsWith("Update information unavailable. Check internet connections and try again.\n"))
        << result.standardOutput.toStdString();
}

TEST_F(UpdateCommands, ReadOnlyDatabaseIsCheckedButNotUpdated)
{
    const QString database = buildDatabase(TestSupport::repositorySources({QStringLiteral("i-bond-values.csv")}));
    QFile::setPermissions(database, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const qint64 rows = queryInt(database, QStringLiteral("select count(*) from bond_value"));
    const QString csv = TestSupport::sourcePath(QStringLiteral("data/fiscaldata/i-bond-values.csv"));
    for (const auto &result : {update(database), installTreasuryFile(csv, database)}) {
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.standardError.contains("cannot be written")) << result.standardError.toStdString();
    }
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rows);
    // Only looking needs no writing, and finds exactly the file the database lacks.
    const auto check = update(database, {"--check"});
    EXPECT_EQ(check.exitCode, 0);
    EXPECT_EQ(check.standardOutput, QByteArray("Checking for updates...\n1 update(s) available\n  i-bond-values.csv\n"));
}

TEST(InstallTreasuryFile, InstallsANewerFileOnce)
{
    const QString newest = QStringLiteral("sb202106.asc");
    const QString database = buildDatabase(TestSupport::repositorySources({newest}));
    const QString file = TestSupport::sourcePath(QStringLiteral("data/treasury/") + newest);
    const auto installed = installTreasuryFile(file, database);
    ASSERT_EQ(installed.exitCode, 0) << installed.standardError.toStdString();
    EXPECT_TRUE(installed.standardOutput.startsWith("Installed sb202106.asc: ")) << installed.standardOutput.toStdString();
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'sb202106.asc'")), 1);
    // The new months, the gaps they fill and the matured bonds carried into them: the database
    // now holds what one built from all sources holds.
    expectShippedValues(database);
    const qint64 rows = queryInt(database, QStringLiteral("select count(*) from bond_value"));
    const auto again = installTreasuryFile(file, database);
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_TRUE(again.standardError.contains("already installed")) << again.standardError.toStdString();
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rows);
}

} // namespace
