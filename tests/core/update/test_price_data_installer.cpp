// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Installing price data files into a database, and the seed database built from the official sources.
#include "PriceUpdateTestData.h"
#include "TestSupport.h"

#include "base/Series.h"
#include "update/sources/SeedDatabaseBuilder.h"
#include "valuation/BondAssessor.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

class PriceDataInstallerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(sqlite3_open(m_path.toUtf8().constData(), &m_db), SQLITE_OK);
        m_feedback.status = [this](const QString &status) { m_statuses << status; };
        m_feedback.progress = [this](double value, double maximum) { m_progress = {value, maximum}; };
    }
    void TearDown() override { sqlite3_close(m_db); }

    qint64 count(const char *sql) const { return queryInt(m_path, QString::fromLatin1(sql)); }
    QStringList dataFiles() const { return queryColumn(m_path, QStringLiteral("select name from data_file order by rowid")); }
    bool install(const QByteArray &data, const QString &name)
    {
        return PriceDataInstaller(m_db, m_feedback).updatePricingDataWithData(data, name);
    }

    const QString m_path = TestSupport::emptyDatabase();
    sqlite3 *m_db = nullptr;
    PriceDataInstaller::Feedback m_feedback;
    QStringList m_statuses;
    std::pair<double, double> m_progress{-1, -1};
};

TEST_F(PriceDataInstallerTest, TrailingBytesThatFillNoRecordAreIgnored)
{
    QByteArray data = PriceDataFile::encode({record('N', 2021, 11, 1990, 5184), record('E', 2021, 11, 1980, 0)});
    data += QByteArray(30, '\x7f');
    ASSERT_EQ(data.size(), 142);
    ASSERT_TRUE(install(data, QStringLiteral("two.bin")));
    EXPECT_EQ(count("select count(*) from bond_value"), 24);
    EXPECT_EQ(count("select count(*) from bond_value where series = 'E' and value = 0"), 12); // zeros still add rows
    EXPECT_EQ(dataFiles(), QStringList{QStringLiteral("two.bin")});
    EXPECT_EQ(m_statuses, QStringList{QStringLiteral("Installing updated prices...")});
    EXPECT_EQ(m_progress, std::make_pair(0.0, 0.0)); // two records: maximum 2 / 10 = 0
}

TEST_F(PriceDataInstallerTest, AFileRepeatingPresentRowsRollsBackWhole)
{
    ASSERT_TRUE(install(PriceDataFile::encode({record('I', 2026, 10, 2010, 4071)}), QStringLiteral("first.bin")));
    m_statuses.clear();
    // Eleven records: the first ten are new, the last repeats the installed one.
    QByteArray eleven = priceFile('I', 2026, 10, 2000, 10);
    eleven += PriceDataFile::encode({record('I', 2026, 10, 2010, 4000)});
    EXPECT_FALSE(install(eleven, QStringLiteral("second.bin")));
    EXPECT_EQ(count("select count(*) from bond_value"), 12);
    EXPECT_EQ(count("select count(*) from bond_value where value <> 4071"), 0);
    EXPECT_EQ(dataFiles(), QStringList{QStringLiteral("first.bin")});
    EXPECT_EQ(m_statuses, QStringList({QStringLiteral("Installing updated prices..."), QStringLiteral("Data inconsistency; update canceled")}));
    EXPECT_EQ(m_progress.first, 0.0);
    // The connection is usable again: the transaction was closed.
    EXPECT_TRUE(install(PriceDataFile::encode({record('I', 2026, 11, 2010, 4080)}), QStringLiteral("third.bin")));
}

TEST_F(PriceDataInstallerTest, SummaryTablesFollowTheDataAndAreAnnounced)
{
    ASSERT_TRUE(install(PriceDataFile::encode({record('E', 1995, 3, 1980, 100), record('E', 1994, 7, 1980, 90)}), QStringLiteral("a")));
    ASSERT_TRUE(install(PriceDataFile::encode({record('I', 2026, 11, 2010, 4080)}), QStringLiteral("b")));
    QVariantMap announced;
    const auto connection = QObject::connect(RedemptionDateRangeNotifier::instance(), &RedemptionDateRangeNotifier::redemptionDateRangeDidChange,
                                             [&](const QObject *, const QVariantMap &userInfo) { announced = userInfo; });
    PriceDataInstaller installer(m_db, m_feedback);
    QDateTime minimum, maximum;
    ASSERT_TRUE(installer.updateRedemptionDateSummaryTables(&minimum, &maximum));
    QCoreApplication::processEvents();
    QObject::disconnect(connection);
    EXPECT_EQ(minimum, QDateTime(QDate(1994, 7, 1), QTime(0, 0, 1)));
    EXPECT_EQ(maximum, QDateTime(QDate(2026, 11, 1), QTime(0, 0, 1)));
    EXPECT_EQ(announced.value(QString::fromLatin1(QBMaximumRedemptionDateKey)).toDateTime(), maximum);
    EXPECT_EQ(announced.value(QString::fromLatin1(QBMinimumRedemptionDateKey)).toDateTime(), minimum);
    EXPECT_EQ(m_statuses.last(), QStringLiteral("Optimizing pricing data..."));
}

// Two months of one matured E bond, with March missing between them, and a later I month.
struct SmallSources
{
    QString dir = TestSupport::temporaryDirectory();
    QString february = TestSupport::writeFile(dir + QStringLiteral("/sb199502.asc"), "E1995021941      009059\r\n");
    QString april = TestSupport::writeFile(dir + QStringLiteral("/sb199504.asc"), "E1995041941      009059\r\n");
    QString csv = TestSupport::writeFile(dir + QStringLiteral("/values.csv"), "series,redemption_year,redemption_month,"
                                         "issue_year,issue_month,value\nI,1995,6,1995,1,-1\n");
};

TEST(SeedDatabaseBuilder, InstallsEachSourceThenTheCarryForward)
{
    const SmallSources sources;
    const QString out = sources.dir + QStringLiteral("/out/bondvalues.bvdb");
    QString error;
    SeedDatabaseBuilder::Summary summary;
    ASSERT_TRUE(SeedDatabaseBuilder::build(out, {sources.february, sources.april, sources.csv}, &error, &summary)) << error.toStdString();
    EXPECT_EQ(summary.values, 6 * 12); // three official records; March, May and June carried
    EXPECT_EQ(summary.firstMonth, QStringLiteral("1995-02"));
    EXPECT_EQ(summary.lastMonth, QStringLiteral("1995-06"));
    EXPECT_EQ(queryText(out, QStringLiteral("pragma journal_mode")), QStringLiteral("delete"));
    EXPECT_EQ(QDir(sources.dir + QStringLiteral("/out")).entryList(QDir::Files), QStringList{QStringLiteral("bondvalues.bvdb")});

    const BondAssessor assessor(out);
    EXPECT_EQ(assessor.installedFiles(), QStringList({QStringLiteral("sb199502.asc"), QStringLiteral("sb199504.asc"),
                                                      QStringLiteral("values.csv"), QStringLiteral("matured-carry-forward")}));
    const BondTerms bond{Series::seriesForCode(QStringLiteral("E")), Month(1941, 2), 2500, 1, {}};
    for (int month = 2; month <= 6; ++month)
        EXPECT_EQ(assessor.valueOf(bond, Month(1995, month)), 9059) << month;
}
