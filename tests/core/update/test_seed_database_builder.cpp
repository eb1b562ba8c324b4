#include "TestSupport.h"

#include "update/sources/SeedDatabaseBuilder.h"
#include "model/Series.h"
#include "valuation/BondAssessor.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

QString writeFile(const QString &dir, const QString &name, const QByteArray &content)
{
    QFile file(dir + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
}

// Two months of one matured E bond, with March missing between them, and a later I month.
struct SmallSources
{
    QString dir = TestSupport::temporaryDirectory();
    QString february = writeFile(dir, QStringLiteral("sb199502.asc"), "E1995021941      009059\r\n");
    QString april = writeFile(dir, QStringLiteral("sb199504.asc"), "E1995041941      009059\r\n");
    QString csv = writeFile(dir, QStringLiteral("values.csv"),
                            "series,redemption_year,redemption_month,issue_year,issue_month,value\nI,1995,6,1995,1,-1\n");
};

QString journalMode(const QString &path)
{
    sqlite3 *db = nullptr;
    sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(db, "pragma journal_mode", -1, &stmt, nullptr);
    QString mode;
    if (sqlite3_step(stmt) == SQLITE_ROW)
        mode = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return mode;
}

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
    EXPECT_EQ(journalMode(out), QStringLiteral("delete"));
    EXPECT_EQ(QDir(sources.dir + QStringLiteral("/out")).entryList(QDir::Files), QStringList{QStringLiteral("bondvalues.bvdb")});

    const BondAssessor assessor(out);
    EXPECT_EQ(assessor.installedFiles(), QStringList({QStringLiteral("sb199502.asc"), QStringLiteral("sb199504.asc"),
                                                      QStringLiteral("values.csv"), QStringLiteral("matured-carry-forward")}));
    BondTerms bond;
    bond.series = Series::seriesForCode(QStringLiteral("E"));
    bond.issueDate = BondAssessor::monthDate(1941, 2);
    bond.faceValue = 2500;
    for (int month = 2; month <= 6; ++month)
        EXPECT_EQ(assessor.valueOf(bond, BondAssessor::monthDate(1995, month)), 9059) << month;
}

TEST(SeedDatabaseBuilder, AFailedBuildLeavesTheOldDatabaseAndNoLeftovers)
{
    const SmallSources sources;
    const QString out = writeFile(sources.dir, QStringLiteral("bondvalues.bvdb"), "previous");
    const QString bad = writeFile(sources.dir, QStringLiteral("sb199506.asc"), "E1995061941      009059\r\nE1995061942      0090x9\r\n");
    QString error;
    EXPECT_FALSE(SeedDatabaseBuilder::build(out, {sources.february, bad}, &error));
    EXPECT_EQ(error, bad + QStringLiteral(":2: non-numeric value '0090x9' for issue month February"));

    // A doctored source: the matured bond's value changes in April. Refused before anything is built.
    const QString doctored = writeFile(sources.dir, QStringLiteral("sb199504x.asc"), "E1995041941      009060\r\n");
    EXPECT_FALSE(SeedDatabaseBuilder::build(out, {sources.february, doctored}, &error));
    EXPECT_TRUE(error.contains(QLatin1String("Series E issued 1941-02"))) << error.toStdString();
    EXPECT_TRUE(error.contains(QLatin1String("1995-04 (sb199504x.asc)"))) << error.toStdString();

    // Two sources repeating each other's rows fail inside the database.
    const QString repeat = writeFile(sources.dir, QStringLiteral("copy.asc"), "E1995021941      009059\r\n");
    EXPECT_FALSE(SeedDatabaseBuilder::build(out, {sources.february, repeat}, &error));
    EXPECT_TRUE(error.startsWith(QStringLiteral("copy.asc: could not be installed"))) << error.toStdString();

    QFile previous(out);
    ASSERT_TRUE(previous.open(QIODevice::ReadOnly));
    EXPECT_EQ(previous.readAll(), QByteArray("previous"));
    EXPECT_EQ(QDir(sources.dir).entryList({QStringLiteral("bondvalues.bvdb*")}, QDir::Files), QStringList{QStringLiteral("bondvalues.bvdb")});
}

} // namespace
