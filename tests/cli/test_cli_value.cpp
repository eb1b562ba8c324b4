#include "TestSupport.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

QStringList withDatabase(const QString &path)
{
    return {QStringLiteral("QUILLMERE_DATABASE=") + path};
}

const QStringList &shipped()
{
    static const QStringList environment = withDatabase(TestSupport::copyOfShippedDatabase());
    return environment;
}

TestSupport::ProcessResult value(const QStringList &arguments, const QStringList &environment = shipped())
{
    return TestSupport::runCli(QStringList{QStringLiteral("value")} + arguments, environment);
}

TEST(CliValue, PrintsValueIssuePriceAndInterestOfOneBond)
{
    const auto paper = value({"--series", "EE", "--face", "100", "--issued", "1990-01", "--as-of", "2021-11"});
    ASSERT_EQ(paper.exitCode, 0) << paper.standardError.toStdString();
    EXPECT_TRUE(paper.standardOutput.contains("Value:           $207.36\n")) << paper.standardOutput.toStdString();
    EXPECT_TRUE(paper.standardOutput.contains("Issue price:     $50.00\n"));
    EXPECT_TRUE(paper.standardOutput.contains("Interest earned: $157.36\n"));

    const auto electronic = value({"--series", "EE", "--face", "100", "--issued", "1990-01", "--as-of", "2021-11", "--electronic"});
    EXPECT_TRUE(electronic.standardOutput.contains("Value:           $414.72\n")) << electronic.standardOutput.toStdString();
    EXPECT_TRUE(electronic.standardOutput.contains("Interest earned: $314.72\n"));
}

struct SeriesName
{
    const char *name;
    const char *issued;
    const char *expected;
};

class CliSeriesName : public testing::TestWithParam<SeriesName> {};

TEST_P(CliSeriesName, IsUnderstood)
{
    const auto result = value({"--series", GetParam().name, "--face", "25", "--issued", GetParam().issued, "--as-of", "2026-11"});
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    EXPECT_TRUE(result.standardOutput.contains(QByteArray("Value:           ") + GetParam().expected + '\n'))
        << result.standardOutput.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Names, CliSeriesName,
                         testing::Values(SeriesName{"E", "1941-05", "$90.59"}, SeriesName{"e", "1941-05", "$90.59"},
                                         SeriesName{"SN", "1967-05", "$153.33"}, SeriesName{"Savings Note", "1967-05", "$153.33"},
                                         SeriesName{"S", "1967-05", "$153.33"}, SeriesName{"N", "1990-01", "$51.84"},
                                         SeriesName{"EE", "1990-01", "$51.84"}, SeriesName{"I", "2010-01", "$40.83"},
                                         SeriesName{"I", "2026-06", "not yet redeemable"},
                                         SeriesName{"I", "1990-01", "no pricing data"}));

struct BadInvocation
{
    QStringList arguments;
    const char *complaint;
};

class CliValueRefusal : public testing::TestWithParam<BadInvocation> {};

TEST_P(CliValueRefusal, FailsWithAMessage)
{
    const auto result = value(GetParam().arguments);
    EXPECT_NE(result.exitCode, 0);
    EXPECT_TRUE(result.standardError.contains(GetParam().complaint)) << result.standardError.toStdString();
    EXPECT_TRUE(result.standardOutput.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, CliValueRefusal,
    testing::Values(BadInvocation{{"--series", "F", "--face", "25", "--issued", "1990-01"}, "unknown series 'F'"},
                    BadInvocation{{"--series", "EE", "--face", "-5", "--issued", "1990-01"}, "positive number of dollars"},
                    BadInvocation{{"--series", "EE", "--face", "25", "--issued", "1990-13"}, "YYYY-MM, not '1990-13'"},
                    BadInvocation{{"--series", "EE", "--face", "25"}, "--issued is required"},
                    BadInvocation{{"--series", "EE", "--face", "25", "--issued", "1990-01", "--as-of", "May"}, "YYYY-MM, not 'May'"}));

TEST(CliDatabase, MissingOrUnreadableDatabaseIsAClearFailure)
{
    const QString dir = TestSupport::temporaryDirectory();
    const auto missing = TestSupport::runCli({"database"}, withDatabase(dir + QStringLiteral("/none.bvdb")));
    EXPECT_NE(missing.exitCode, 0);
    EXPECT_TRUE(missing.standardError.contains("does not exist")) << missing.standardError.toStdString();

    const QString garbage = TestSupport::writeFile(dir + QStringLiteral("/garbage.bvdb"), QByteArray(2048, 'g'));
    const auto unreadable = value({"--series", "EE", "--face", "25", "--issued", "1990-01"}, withDatabase(garbage));
    EXPECT_NE(unreadable.exitCode, 0);
    EXPECT_TRUE(unreadable.standardError.contains("Unable to load essential resources from " + garbage.toUtf8()))
        << unreadable.standardError.toStdString();
}

TEST(CliDatabase, ReportsRangeCountAndInstalledFiles)
{
    const auto result = TestSupport::runCli({"database"}, shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    const QByteArray out = result.standardOutput;
    EXPECT_TRUE(out.contains("Earliest redemption month:  1992-05\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("Latest redemption month:    2026-11\n"));
    EXPECT_TRUE(out.contains("Values:                     417048\n"));
    EXPECT_TRUE(out.contains("Installed files:            61\n"));
    EXPECT_TRUE(out.contains("  sb199205.asc\n"));
    EXPECT_TRUE(out.contains("  i-bond-values.csv\n"));
    EXPECT_TRUE(out.contains("  matured-carry-forward\n"));
}

TEST(CliBuildDatabase, RefusesAMalformedSourceNamingFileAndLine)
{
    const QString dir = TestSupport::temporaryDirectory();
    const QString source = TestSupport::writeFile(dir + QStringLiteral("/sb202106.asc"),
                                                  "E2021061980011062\r\nE2021061979011062\r\nX2021061978011062\r\n");
    const QString out = dir + QStringLiteral("/built.bvdb");
    const auto result = TestSupport::runCli({"build-database", "--out", out, source});
    EXPECT_NE(result.exitCode, 0);
    EXPECT_TRUE(result.standardError.contains(source.toUtf8() + ":3: bad series letter 'X'")) << result.standardError.toStdString();
    EXPECT_FALSE(QFile::exists(out));
}

} // namespace
