// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "../QtPrinters.h"
#include "../ValueTableFixture.h"
#include "PriceUpdateTestData.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <gtest/gtest.h>

const Series *series(const char *code) { return Series::seriesForCode(QString::fromLatin1(code)); }

BondTerms bond(const char *code, int issueYear, int issueMonth, Pennies face = 2500, int factor = 1)
{
    return {series(code), Month(issueYear, issueMonth), face, factor, QStringLiteral("US SAVINGS BOND")};
}

// Per $25 face, or a marker: official values, then those carried forward from final maturity by the build.
TEST(ShippedDatabase, OfficialAndCarriedForwardValuesComeBackExactly)
{
    const struct { const char *code; int issueYear, issueMonth, year, month; qint64 stored; } values[] = {
        {"I", 2010, 1, 2026, 10, 4071}, {"I", 2010, 1, 2021, 11, 3226}, {"N", 1990, 1, 2021, 11, 5184},
        {"E", 1980, 6, 2021, 6, 11175}, {"S", 1967, 5, 2000, 10, 15333}, {"I", 1998, 9, 1999, 3, 2529},
        {"N", 2005, 5, 2021, 11, 2214}, {"E", 1941, 5, 2006, 10, 9059}, {"I", 2026, 1, 2026, 6, RedemptionMarker::NotRedeemable},
        {"I", 1990, 1, 2020, 1, RedemptionMarker::NoPricingData}, {"N", 1990, 1, 2026, 12, RedemptionMarker::NoPricingData},
        {"E", 1941, 4, 2000, 1, RedemptionMarker::NoPricingData}, // a blank field
        {"E", 1941, 5, 2026, 11, 9059}, {"E", 1941, 5, 2001, 12, 9059}, {"S", 1967, 5, 2026, 11, 15333},
        {"S", 1967, 5, 2002, 2, 15333}, {"N", 1992, 1, 2026, 11, RedemptionMarker::NoPricingData},
        {"N", 1991, 12, 2022, 1, RedemptionMarker::NoPricingData}}; // matures after the data ends
    const BondAssessor shipped(TestSupport::copyOfShippedDatabase()); // a private copy of the database the build made
    for (const auto &v : values)
        EXPECT_EQ(shipped.valueOf(bond(v.code, v.issueYear, v.issueMonth), Month(v.year, v.month)), v.stored)
            << v.code << ' ' << v.issueYear << '-' << v.issueMonth << " in " << v.year << '-' << v.month;
}

TEST(BondAssessor, ScalesWithIntegerArithmeticTruncatingTowardZero)
{
    ValueTable values; // one stored value and one stored zero
    const BondAssessor assessor(values.add("N", 2000, 1, 1990, 1, 3000).add("N", 2000, 1, 1990, 2, 0).finish());
    const Month asOf(2000, 1);
    for (auto [face, expected] : {std::pair<Pennies, qint64>{5000, 6000}, {1000, 1200}, {1, 1}, {2500, 3000}}) {
        SCOPED_TRACE(face);
        EXPECT_EQ(assessor.valueOf(bond("N", 1990, 1, face), asOf), expected);
    }
    EXPECT_EQ(assessor.valueOf(bond("N", 1990, 2, 5000), asOf), 0); // a stored zero
    BondTerms undated = bond("N", 1990, 1);
    undated.issueMonth = Month();
    EXPECT_EQ(assessor.valueOf(undated, asOf), RedemptionMarker::NoIssueDate);
}

// Blank cells of the official files arrive as −2 rows; they must read exactly like no row.
TEST(BondAssessor, BlankCellsReadLikeMissingRows)
{
    ValueTable values;
    values.add("N", 2021, 11, 2021, 12, -2)  // an issue month that only blank cells name
        .add("N", 2021, 11, 2021, 6, -1)     // not yet redeemable
        .add("N", 2021, 11, 1990, 1, 5184)
        .add("N", 2021, 12, 1990, 1, -2)     // a month that only blank cells reach
        .add("E", 1992, 4, 1941, 4, -2);     // an earlier one
    const BondAssessor assessor(values.finish());
    const Month november(2021, 11);
    for (int factor : {1, 2}) {
        SCOPED_TRACE(factor);
        EXPECT_EQ(assessor.valueOf(bond("N", 2021, 12, 10000, factor), november), RedemptionMarker::NoPricingData);
        EXPECT_EQ(assessor.valueOf(bond("N", 1990, 1, 10000, factor), Month(2021, 12)),
                  RedemptionMarker::NoPricingData);
    }
    // A stored −1 doubled for an electronic bond reads as no data, as it always has.
    EXPECT_EQ(assessor.valueOf(bond("N", 2021, 6, 10000, 1), november), RedemptionMarker::NotRedeemable);
    EXPECT_EQ(assessor.valueOf(bond("N", 2021, 6, 10000, 2), november), RedemptionMarker::NoPricingData);
    EXPECT_FALSE(assessor.isValidIssueDate(Month(2021, 12), series("N")));
    EXPECT_FALSE(assessor.isValidIssueDate(Month(1941, 4), series("E")));
    EXPECT_TRUE(assessor.isValidIssueDate(Month(2021, 6), series("N")));
    EXPECT_FALSE(assessor.isValidValueOfDate(Month(2021, 12)));
    EXPECT_FALSE(assessor.isValidValueOfDate(Month(1992, 4)));
    EXPECT_EQ(assessor.minimumRedemptionDate(), november.toDateTime());
    EXPECT_EQ(assessor.maximumRedemptionDate(), november.toDateTime());
}

TEST(BondAssessor, ReadingLeavesTheFileInRollbackJournalMode)
{
    const QString copy = TestSupport::copyOfShippedDatabase();
    ASSERT_EQ(PriceUpdateTestData::queryText(copy, QStringLiteral("pragma journal_mode")), QStringLiteral("delete"));
    {
        const BondAssessor assessor(copy);
        EXPECT_EQ(assessor.valueOf(bond("N", 1990, 1), Month(2021, 11)), 5184);
    }
    // A file left in write-ahead logging would no longer open from a folder that cannot be written.
    EXPECT_EQ(PriceUpdateTestData::queryText(copy, QStringLiteral("pragma journal_mode")), QStringLiteral("delete"));
}

TEST(BondAssessor, MissingFileAnswersNothingAndAnUnreadableOneIsReportedWithItsPath)
{
    const BondAssessor missing(TestSupport::temporaryDirectory() + QStringLiteral("/none.bvdb"));
    EXPECT_EQ(missing.state(), BondAssessor::State::Missing);
    EXPECT_EQ(missing.valueOf(bond("E", 1980, 6), Month(2021, 6)), RedemptionMarker::NoPricingData);
    EXPECT_FALSE(missing.maximumRedemptionDate().isValid());
    EXPECT_FALSE(missing.isValidIssueDate(Month(1980, 6), series("E")));
    EXPECT_TRUE(missing.errorMessage().isEmpty());

    const QString path = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/garbage.bvdb"), QByteArray(4096, 'x'));
    const BondAssessor unreadable(path);
    EXPECT_EQ(unreadable.state(), BondAssessor::State::Unreadable);
    EXPECT_EQ(unreadable.errorMessage(), QStringLiteral("Unable to load essential resources from %1").arg(path));
}

// A program run from the folder it was built in still finds an installed seed first.
TEST(RedemptionDatabase, PrefersAnInstalledSeedToTheBuildFolders)
{
    const QString built = RedemptionDatabase::seedPath();
    ASSERT_TRUE(built.startsWith(QFileInfo(QStringLiteral(QUILLMERE_TEST_DATABASE)).canonicalPath())) << built.toStdString();
    const QString system = TestSupport::temporaryDirectory();
    ASSERT_TRUE(QDir().mkpath(system + QStringLiteral("/quillmere")));
    const QString installed = TestSupport::writeFile(system + QStringLiteral("/quillmere/bondvalues.bvdb"), "installed");
    const QByteArray dataDirs = qgetenv("XDG_DATA_DIRS");
    qputenv("XDG_DATA_DIRS", system.toLocal8Bit());
    EXPECT_EQ(RedemptionDatabase::seedPath(), QFileInfo(installed).canonicalFilePath());
    qputenv("XDG_DATA_DIRS", dataDirs);
}

TEST(RedemptionDatabase, CopiesTheSeedIntoTheUserFolderOnFirstUseOnly)
{
    qunsetenv(RedemptionDatabase::PathEnvironmentVariable);
    const QString seed = RedemptionDatabase::seedPath();
    ASSERT_FALSE(seed.isEmpty());
    const QString working = RedemptionDatabase::path();
    EXPECT_EQ(working, QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/bondvalues.bvdb"));
    EXPECT_NE(QFileInfo(working).canonicalFilePath(), QFileInfo(seed).canonicalFilePath());
    EXPECT_EQ(TestSupport::readFile(working), TestSupport::readFile(seed));
    // Later uses keep the working copy (an updated one must not be overwritten by the seed).
    TestSupport::writeFile(working, "updated");
    EXPECT_EQ(RedemptionDatabase::path(), working);
    EXPECT_EQ(TestSupport::readFile(working), QByteArray("updated"));
    QFile::remove(working);

    qputenv(RedemptionDatabase::PathEnvironmentVariable, "/elsewhere/values.bvdb");
    EXPECT_EQ(RedemptionDatabase::path(), QStringLiteral("/elsewhere/values.bvdb"));
    qunsetenv(RedemptionDatabase::PathEnvironmentVariable);
}
