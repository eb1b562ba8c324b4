// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Readers keep reading during an installation; one killed halfway leaves the file wholly installed or not at all.
#include "PriceUpdateTestData.h"
#include "TestSupport.h"
#include "base/Series.h"
#include "update/UpdateConnection.h"
#include "valuation/BondAssessor.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

const char *ChildDatabaseVariable = "QUILLMERE_TEST_CHILD_DATABASE";
const char *ChildFileVariable = "QUILLMERE_TEST_CHILD_FILE";

// Big enough that the installation cannot keep its changes in the page cache.
constexpr int LargeFileRecords = 60000;

// Issue years 0.. for January 2031 onwards: never colliding with the 2030 rows already there.
QByteArray largeFile()
{
    QList<PriceRecord> records;
    for (int i = 0; i < LargeFileRecords; ++i)
        records << record('E', 2031 + i / 12000, 1 + (i / 1000) % 12, i % 1000, 4000 + i % 97);
    return PriceDataFile::encode(records);
}

QString databaseWithOneMonth()
{
    const QString database = TestSupport::emptyDatabase();
    EXPECT_TRUE(install(database, {{QStringLiteral("base.bin"), priceFile('I', 2030, 1, 2000, 25)}}));
    return database;
}

TEST(InstallationWhileReading, PortfoliosReadTheCommittedStateThroughout)
{
    const QString database = databaseWithOneMonth();
    BondAssessor portfolio(database);
    const BondTerms bond{Series::seriesForCode(QStringLiteral("I")), Month(2001, 3), 2500, 1, {}};
    const qint64 before = portfolio.valueOf(bond, Month(2030, 1));
    ASSERT_EQ(before, 2500 + 12 + 2);

    UpdateConnection connection(database);
    ASSERT_EQ(connection.state(), UpdateConnection::State::Open);
    connection.prepareForWriting();
    int readsDuringInstallation = 0;
    PriceDataInstaller::Feedback feedback;
    feedback.progress = [&](double value, double maximum) {
        // Reads from another connection while the installation's transaction is open and large.
        if (value < maximum / 2 || readsDuringInstallation > 0)
            return;
        ++readsDuringInstallation;
        EXPECT_EQ(portfolio.valueOf(bond, Month(2030, 1)), before);
        EXPECT_FALSE(portfolio.isValidValueOfDate(Month(2031, 1)));
        EXPECT_EQ(BondAssessor(database).maximumRedemptionDate(), BondAssessor::monthDate(2030, 1));
    };
    PriceDataInstaller installer(connection.handle(), feedback);
    ASSERT_TRUE(installer.updatePricingDataWithData(largeFile(), QStringLiteral("large.bin")));
    EXPECT_EQ(readsDuringInstallation, 1);
    EXPECT_TRUE(portfolio.isValidValueOfDate(Month(2031, 1)));
    EXPECT_EQ(queryText(database, QStringLiteral("pragma journal_mode")), QStringLiteral("wal"));
}

// Not a test of its own: the child process of the next test, started with the variables set.
TEST(KilledInstallationChild, InstallsAndReportsHalfway)
{
    const QByteArray database = qgetenv(ChildDatabaseVariable);
    if (database.isEmpty())
        GTEST_SKIP() << "runs only as the child of KilledInstallation";
    const QByteArray data = TestSupport::readFile(QString::fromLocal8Bit(qgetenv(ChildFileVariable)));
    ASSERT_FALSE(data.isEmpty());
    UpdateConnection connection(QString::fromLocal8Bit(database));
    connection.prepareForWriting();
    bool reported = false;
    PriceDataInstaller::Feedback feedback;
    feedback.progress = [&](double value, double maximum) {
        if (!reported && value >= maximum / 3) {
            reported = true;
            std::fputs("halfway\n", stdout);
            std::fflush(stdout);
        }
    };
    PriceDataInstaller installer(connection.handle(), feedback);
    EXPECT_TRUE(installer.updatePricingDataWithData(data, QStringLiteral("large.bin")));
}

TEST(KilledInstallation, LeavesNoneOfTheFile)
{
    const QString database = databaseWithOneMonth();
    const QString fileName = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/large.bin"), largeFile());
    const qint64 rowsBefore = queryInt(database, QStringLiteral("select count(*) from bond_value"));

    QProcess child;
    child.setEnvironment(QProcess::systemEnvironment() << QStringLiteral("%1=%2").arg(QLatin1String(ChildDatabaseVariable), database)
                                                       << QStringLiteral("%1=%2").arg(QLatin1String(ChildFileVariable), fileName));
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=KilledInstallationChild.*")});
    ASSERT_TRUE(child.waitForStarted());
    QByteArray output;
    while (!output.contains("halfway") && child.waitForReadyRead(120000))
        output += child.readAllStandardOutput();
    ASSERT_TRUE(output.contains("halfway")) << output.constData();
    child.kill(); // SIGKILL: no chance to roll back or clean up
    child.waitForFinished();
    EXPECT_EQ(child.exitStatus(), QProcess::CrashExit);

    EXPECT_EQ(queryText(database, QStringLiteral("pragma integrity_check")), QStringLiteral("ok"));
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")), rowsBefore);
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'large.bin'")), 0);

    // The interrupted file installs cleanly afterwards, wholly.
    ASSERT_TRUE(install(database, {{QStringLiteral("large.bin"), largeFile()}}));
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from bond_value")),
              rowsBefore + LargeFileRecords * 12);
    EXPECT_EQ(queryInt(database, QStringLiteral("select count(*) from data_file where name = 'large.bin'")), 1);
}
