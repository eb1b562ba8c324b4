// publish, update and install-treasury-file together: an update directory published from the
// repository's sources and served over HTTP brings older databases up to the shipped one, with
// the files named and ordered as the shipped database records them.
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
    const auto built = TestSupport::runCli(QStringList{QStringLiteral("build-database"), QStringLiteral("--out"), path} + sourcePaths);
    EXPECT_EQ(built.exitCode, 0) << built.standardError.toStdString();
    return path;
}

QStringList environment(const QString &database)
{
    return {QStringLiteral("QUILLMERE_DATABASE=") + database, QStringLiteral("QUILLMERE_UPDATE_URL=")};
}

QString names(const QString &database)
{
    return queryColumn(database, QStringLiteral("select name from data_file order by rowid")).join(QLatin1Char(','));
}

// One published directory, served for all tests of this file.
class UpdateCommands : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        directory = new QString(TestSupport::temporaryDirectory() + QStringLiteral("/published"));
        const auto published = TestSupport::runCli(QStringList{QStringLiteral("publish"), QStringLiteral("--out"), *directory} + TestSupport::repositorySources());
        ASSERT_EQ(published.exitCode, 0) << published.standardError.toStdString();
        server = new LocalHttpServer;
        server->serveDirectory(*directory, QStringLiteral("/bonddata/"));
    }
    static void TearDownTestSuite()
    {
        delete server;
        delete directory;
    }

    static TestSupport::ProcessResult update(const QString &database, const QStringList &arguments = {},
                                             const char *path = "/bonddata/")
    {
        return TestSupport::runCli(QStringList{QStringLiteral("update"), QStringLiteral("--base-url"),
                                               server->url(QString::fromLatin1(path)).toString()}
                                       + arguments,
                                   environment(database));
    }

    static QString *directory;
    static LocalHttpServer *server;
};

QString *UpdateCommands::directory = nullptr;
LocalHttpServer *UpdateCommands::server = nullptr;

TEST_F(UpdateCommands, ShippedDatabaseIsUpToDate)
{
    const QString database = TestSupport::copyOfShippedDatabase();
    for (const QStringList &arguments : {QStringList{QStringLiteral("--check")}, QStringList{}}) {
        const auto result = update(database, arguments);
        EXPECT_EQ(result.exitCode, 0) << result.standardError.toStdString();
        EXPECT_TRUE(result.standardOutput.contains("Your software is up to date.\n")) << result.standardOutput.toStdString();
    }
}

TEST_F(UpdateCommands, EmptyDatabaseBecomesTheShippedOne)
{
    const QString database = TestSupport::emptyDatabase();
    const auto result = update(database);
    ASSERT_EQ(result.exitCode, 0) << result.standardOutput.toStdString();
    EXPECT_TRUE(result.standardOutput.contains("61 update(s) available\n"));
    EXPECT_TRUE(result.standardOutput.contains("Downloading update 61 of 61\n"));
    EXPECT_TRUE(result.standardOutput.endsWith("Optimizing pricing data...\nAll updates installed\n"));
    const QString shipped = TestSupport::copyOfShippedDatabase();
    for (const char *sql : {"select count(*) from bond_value", "select sum(value) from bond_value",
                            "select ryr * 100 + rmo from min_rdate", "select ryr * 100 + rmo from max_rdate"}) {
        SCOPED_TRACE(sql);
        EXPECT_EQ(queryInt(database, QString::fromLatin1(sql)), queryInt(shipped, QString::fromLatin1(sql)));
    }
    EXPECT_EQ(names(database), names(shipped));
}

TEST_F(UpdateCommands, FailuresExitNonZeroWithTheStatus)
{
    const QString database = TestSupport::copyOfShippedDatabase();
    server->setResponse(QStringLiteral("/silent/AvailableBondData.plist"),
                        LocalHttpServer::Response(200, {}, LocalHttpServer::Behaviour::NeverAnswer));
    server->setBody(QStringLiteral("/garbled/AvailableBondData.plist"), "{not a list");
    struct Case
    {
        const char *path;
        QStringList extra;
        QByteArray status;
    };
    for (const Case &c : {Case{"/missing/", {}, "Update information unavailable. Check internet connections and try again.\n"},
                          Case{"/silent/", {QStringLiteral("--timeout"), QStringLiteral("0.5")},
                               "Update information unavailable. Check internet connections and try again.\n"},
                          Case{"/garbled/", {}, "Download corrupt; unable to update\n"}}) {
        SCOPED_TRACE(c.path);
        const auto result = update(database, c.extra, c.path);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.standardOutput.endsWith(c.status)) << result.standardOutput.toStdString();
    }
}

TEST_F(UpdateCommands, ReadOnlyDatabaseIsCheckedButNotUpdated)
{
    const QString database = buildDatabase(TestSupport::repositorySources({QStringLiteral("i-bond-values.csv")}));
    QFile::setPermissions(database, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const qint64 rows = queryInt(database, QStringLiteral("select count(*) from bond_value"));
    const QString csv = TestSupport::sourcePath(QStringLiteral("data/fiscaldata/i-bond-values.csv"));
    for (const auto &result : {update(database), TestSupport::runCli({QStringLiteral("install-treasury-file"), csv},
                                                                     environment(database))}) {
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.standardError.contains("cannot be written")) << result.standardError.toStdString();
    }
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rows);
    // Only looking needs no writing, and finds exactly the file the database lacks.
    const auto check = update(database, {QStringLiteral("--check")});
    EXPECT_EQ(check.exitCode, 0);
    EXPECT_EQ(check.standardOutput, QByteArray("Checking for updates...\n1 update(s) available\n  i-bond-values.csv\n"));
}

TEST(InstallTreasuryFile, InstallsANewerFileOnceAndRefusesContradictions)
{
    const QString newest = QStringLiteral("sb202106.asc");
    const QString database = buildDatabase(TestSupport::repositorySources({newest}));
    const QString file = TestSupport::sourcePath(QStringLiteral("data/treasury/") + newest);
    const QString shipped = TestSupport::copyOfShippedDatabase();
    const auto installed = TestSupport::runCli({QStringLiteral("install-treasury-file"), file}, environment(database));
    ASSERT_EQ(installed.exitCode, 0) << installed.standardError.toStdString();
    EXPECT_TRUE(installed.standardOutput.startsWith("Installed sb202106.asc: ")) << installed.standardOutput.toStdString();
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'sb202106.asc'")), 1);
    // The new months, the gaps they fill and the matured bonds carried into them: the database
    // now holds what one built from all sources holds.
    for (const char *sql : {"select count(*) from bond_value", "select sum(value) from bond_value",
                            "select sum(value * (ryr * 12 + rmo) % 1000003) from bond_value",
                            "select sum(value * (iyr * 12 + imo) % 999983) from bond_value"}) {
        SCOPED_TRACE(sql);
        EXPECT_EQ(queryInt(database, QString::fromLatin1(sql)), queryInt(shipped, QString::fromLatin1(sql)));
    }
    const qint64 rows = queryInt(database, QStringLiteral("select count(*) from bond_value"));

    const auto again = TestSupport::runCli({QStringLiteral("install-treasury-file"), file}, environment(database));
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_TRUE(again.standardError.contains("already installed"));

    // The same months under another name, one value changed: refused whole.
    QByteArray text = TestSupport::readFile(file);
    const qsizetype line = text.indexOf("\nN2021061990");
    ASSERT_GT(line, 0);
    text[line + 12 + 5] = text[line + 12 + 5] == '9' ? '8' : '9'; // the January value's last digit
    const QString altered = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/sb202106-revised.asc"), text);
    const auto refused = TestSupport::runCli({QStringLiteral("install-treasury-file"), altered}, environment(database));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.standardError.contains("differ from those installed")) << refused.standardError.toStdString();
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rows);
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'sb202106-revised.asc'")), 0);
}

} // namespace
