// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// value, show and database as the user runs them: figures to the cent, computed ones marked, missing ones explained.
#include "../core/QtPrinters.h"
#include "TestSupport.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

QStringList withDatabase(const QString &path) { return {QStringLiteral("QUILLMERE_DATABASE=") + path}; }

// A private copy of the shipped database, with the sample's people.
const QStringList &shipped()
{
    static const QStringList environment = withDatabase(TestSupport::copyOfShippedDatabase())
        + QStringList{QStringLiteral("QUILLMERE_PEOPLE=") + TestSupport::sourcePath(QStringLiteral("examples/people.vcf"))};
    return environment;
}

QString sample() { return TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio")); }

struct ValueCase
{
    QStringList bond; // series, face, issue month, valuation month, and any further option
    const char *issuePrice, *value, *interest;
    const char *note; // what the "Computed:" or "Note:" line says, "" for no such line
};

void PrintTo(const ValueCase &c, std::ostream *out) { *out << c.bond.join(u' ').toStdString(); }

class CliValueOf : public testing::TestWithParam<ValueCase> {};

TEST_P(CliValueOf, IsPrintedWithItsProvenance)
{
    const ValueCase &c = GetParam();
    const QStringList &bond = c.bond;
    const auto result = TestSupport::runCli(QStringList{"value", "--series", bond.at(0), "--face", bond.at(1), "--issued",
                                                        bond.at(2), "--as-of", bond.at(3)} + bond.mid(4), shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    const QByteArray out = result.standardOutput;
    EXPECT_TRUE(out.contains(QStringLiteral("Issue price:     %1\nValue:           %2\nInterest earned: %3\n")
                                 .arg(QLatin1String(c.issuePrice), QLatin1String(c.value), QLatin1String(c.interest)).toUtf8()))
        << out.toStdString();
    const bool noted = out.contains("\nComputed:        ") || out.contains("\nNote:            ");
    EXPECT_EQ(noted, *c.note != 0) << out.toStdString();
    EXPECT_TRUE(out.contains(c.note)) << c.note << '\n' << out.toStdString();
}

const char *const Computed = "Computed:        computed by this program";
INSTANTIATE_TEST_SUITE_P(Bonds, CliValueOf, testing::Values(
    // Every spelling of each series, per $25 in November 2026, matured values carried forward.
    ValueCase{{"E", "25", "1941-05", "2026-11"}, "$18.75", "$90.59", "$71.84", Computed},
    ValueCase{{"SN", "25", "1967-05", "2026-11"}, "$20.25", "$153.33", "$133.08", Computed},
    ValueCase{{"N", "25", "1990-01", "2026-11"}, "$12.50", "$51.84", "$39.34", Computed},
    ValueCase{{"EE", "25", "1990-01", "2026-11"}, "$12.50", "$51.84", "$39.34", Computed},
    ValueCase{{"I", "25", "2010-01", "2026-11"}, "$25.00", "$40.83", "$15.83", ""},
    ValueCase{{"I", "25", "2026-06", "2026-11"}, "$25.00", "not yet redeemable", "$0.00", ""},
    // Published, computed (fixed rate; matured, carried forward) and missing values; electronic EE is worth twice.
    ValueCase{{"EE", "100", "1990-01", "2021-11"}, "$50.00", "$207.36", "$157.36", ""},
    ValueCase{{"EE", "100", "1990-01", "2021-11", "--electronic"}, "$100.00", "$414.72", "$314.72", ""},
    ValueCase{{"EE", "100", "2005-05", "2021-11"}, "$50.00", "$88.56", "$38.56", ""},
    ValueCase{{"EE", "100", "2005-05", "2026-11"}, "$50.00", "$105.36", "$55.36", Computed},
    ValueCase{{"E", "100", "1980-06", "2026-11"}, "$75.00", "$447.00", "$372.00", Computed},
    ValueCase{{"EE", "100", "1995-05", "2026-11"}, "$50.00", "no pricing data", "$0.00",
              "Note:            the database has no value for this bond in that month; \"quillmere-cli update\" installs"},
    // Issue months in which a series was never sold: no update will bring a value.
    ValueCase{{"I", "50", "1998-08", "2021-11"}, "$50.00", "no pricing data", "$0.00",
              "Note:            Series I bonds were first issued in 09/1998; no values exist for this issue month\n"},
    ValueCase{{"SN", "50", "1967-04", "2021-11"}, "$40.50", "no pricing data", "$0.00", "Savings Notes were first issued in 05/1967;"}));

// What a command cannot do fails with a message on standard error and nothing on standard output.
struct Refusal
{
    QStringList arguments;
    const char *message;
    const char *database = nullptr; // a file in a fresh folder instead of the shipped database's copy
    QByteArray contents = {};       // written to that file first
};

void PrintTo(const Refusal &c, std::ostream *out) { *out << c.arguments.join(u' ').toStdString(); }

class CliRefuses : public testing::TestWithParam<Refusal> {};

TEST_P(CliRefuses, WithAMessage)
{
    const Refusal &c = GetParam();
    QStringList environment = shipped();
    QByteArray message = c.message;
    if (c.database) {
        const QString path = TestSupport::temporaryDirectory() + u'/' + QLatin1String(c.database);
        if (!c.contents.isEmpty())
            TestSupport::writeFile(path, c.contents);
        environment = withDatabase(path);
        message.replace("%1", path.toUtf8());
    }
    const auto result = TestSupport::runCli(c.arguments, environment);
    EXPECT_NE(result.exitCode, 0);
    EXPECT_TRUE(result.standardError.contains(message)) << result.standardError.toStdString();
    EXPECT_TRUE(result.standardOutput.isEmpty()) << result.standardOutput.toStdString();
}

const QString junk = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/junk.bondportfolio"), "not a portfolio");
INSTANTIATE_TEST_SUITE_P(Cli, CliRefuses, testing::Values(
    Refusal{{"value", "--series", "F", "--face", "25", "--issued", "1990-01"}, "unknown series 'F'"},
    Refusal{{"value", "--series", "EE", "--face", "25", "--issued", "1990-13"}, "YYYY-MM, not '1990-13'"},
    Refusal{{"value", "--series", "EE", "--face", "25"}, "--issued is required"},
    Refusal{{"value", "--series", "EE", "--face", "25", "--issued", "1990-01"}, "Unable to load essential resources from %1",
            "garbage.bvdb", QByteArray(2048, 'g')},
    Refusal{{"database"}, "does not exist", "none.bvdb"},
    Refusal{{"show", junk}, "portfolio"},
    Refusal{{"show", sample(), "--as-of", "1850-01"}, "No pricing data available for bonds with that valuation date"},
    Refusal{{"show"}, "portfolio"}));

TEST(CliDatabase, ReportsRangeCountAndInstalledFiles)
{
    const auto result = TestSupport::runCli({"database"}, shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    for (const char *line : {"Earliest redemption month:  1992-05\n", "Latest redemption month:    2026-11\n",
                             "Values:                     420639\n", "Installed files:            61\n", "  sb199205.asc\n",
                             "  i-bond-values.csv\n", "  matured-carry-forward\n"})
        EXPECT_TRUE(result.standardOutput.contains(line)) << line << result.standardOutput.toStdString();
}

// 1997 I bond never sold, 2026 I bond valued before issue; appended 05/1995 EE bonds lack values.
struct GapCase
{
    const char *asOf;
    int ee1995Bonds;
    qint64 left;
    QList<const char *> shown, absent;
};

void PrintTo(const GapCase &c, std::ostream *out) { *out << c.asOf << " +" << c.ee1995Bonds; }

class CliShowGaps : public testing::TestWithParam<GapCase> {};

TEST_P(CliShowGaps, TextAndJsonCountTheBondsLeftOutOfTheTotals)
{
    const GapCase &c = GetParam();
    const QString dir = TestSupport::temporaryDirectory(), portfolio = dir + QStringLiteral("/gaps.bondportfolio");
    ASSERT_TRUE(QFile::copy(sample(), portfolio));
    const QStringList environment = withDatabase(shipped().constFirst().section(u'=', 1))
        + QStringList{QStringLiteral("QUILLMERE_PEOPLE=") + dir + QStringLiteral("/people.vcf")};
    ASSERT_TRUE(QFile::copy(TestSupport::sourcePath(QStringLiteral("examples/people.vcf")), dir + QStringLiteral("/people.vcf")));
    if (c.ee1995Bonds) {
        QByteArray csv = "Series,Denomination,Serial Number,Issue Date\r\n";
        for (int i = 0; i < c.ee1995Bonds; ++i)
            csv += "EE,100,Q" + QByteArray::number(i) + ",05/1995\r\n";
        const QString file = TestSupport::writeFile(dir + QStringLiteral("/ee.csv"), csv);
        ASSERT_EQ(TestSupport::runCli({"import-csv", portfolio, file, "--format", "wizard"}, environment).exitCode, 0);
    }
    const auto text = TestSupport::runCli({"show", portfolio, "--as-of", c.asOf}, environment);
    ASSERT_EQ(text.exitCode, 0) << text.standardError.toStdString();
    for (const char *line : c.shown)
        EXPECT_TRUE(text.standardOutput.contains(line)) << line << '\n' << text.standardOutput.toStdString();
    for (const char *line : c.absent)
        EXPECT_FALSE(text.standardOutput.contains(line)) << line << '\n' << text.standardOutput.toStdString();
    const auto json = TestSupport::runCli({"show", portfolio, "--as-of", c.asOf, "--json"}, environment);
    const QJsonObject totals = QJsonDocument::fromJson(json.standardOutput).object().value("totals").toObject();
    EXPECT_EQ(totals.value("withoutPricingData").toInteger(-1), c.left);
    EXPECT_EQ(totals.value("quantity").toInteger(), 13 + c.ee1995Bonds) << "the existing fields stay";
}

const char *const NeverSoldNote = "\n([no pricing data] Series I bonds were first issued in 09/1998; no values exist for this issue month)\n";
const char *const UpdateNote = "\n([no pricing data] the database has no value for this bond in that month; \"quillmere-cli update\"";
const char *const NotIssuedNote = "\n([no pricing data] this bond was issued in 03/2026, after the valuation month; it has no value before then)\n";
INSTANTIATE_TEST_SUITE_P(Sample, CliShowGaps, testing::Values(
    GapCase{"2026-11", 0, 1, {"\n(1 bond without pricing data is not in these totals)\n", NeverSoldNote}, {UpdateNote, NotIssuedNote, "bonds without"}},
    GapCase{"2021-11", 0, 2, {"\n(2 bonds without pricing data are not in these totals)\n", NeverSoldNote, NotIssuedNote}, {UpdateNote}},
    GapCase{"2026-11", 3, 4, {"\n(4 bonds without pricing data are not in these totals)\n", NeverSoldNote, UpdateNote}, {NotIssuedNote}}));

TEST(CliShow, JsonHasTheOfficialValuesInPennies)
{
    const auto result = TestSupport::runCli({"show", sample(), "--as-of", "2021-11", "--yearly", "--json"}, shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.constData();
    const QJsonObject root = QJsonDocument::fromJson(result.standardOutput).object();
    EXPECT_EQ(root.value("valueOfDate").toString(), QStringLiteral("2021-11"));
    EXPECT_EQ(root.value("summaryMode").toString(), QStringLiteral("yearly"));
    // Official 11/2021 values per $25, times $25 units and bonds; the last two I bonds are worth nothing.
    const QList<qint64> values{5184 * 4 * 2, 2214 * 2 * 2 * 4, 11175, 3226 * 40, 8963 * 2 * 2, 15333 * 2, 0, 0};
    const QJsonArray holdings = root.value("holdings").toArray();
    ASSERT_EQ(holdings.size(), values.size());
    for (qsizetype i = 0; i < values.size(); ++i)
        EXPECT_EQ(holdings.at(i).toObject().value("value").toInteger(), values.at(i)) << "holding " << i;
    EXPECT_EQ(holdings.at(0).toObject().value("interestEarned").toInteger(), 41472 - 2 * 5000);
    EXPECT_EQ(root.value("totals").toObject().value("value").toInteger(), 283629);
}

// What each bond is doing, as the window's columns show it: per holding in JSON, in its lines in the text, values computed
// by this program and those missing marked with why, and the bonds that stopped earning listed under the totals.
struct FactsCase
{
    const char *asOf;
    QStringList holdings; // in JSON, in the sample's order: note|rate|next increase|status|computed, "null" for none
    qint64 ytdInterest, stoppedEarning, stoppedEarningValue;
    QList<const char *> lines;
};

void PrintTo(const FactsCase &c, std::ostream *out) { *out << c.asOf; }

class CliShowFacts : public testing::TestWithParam<FactsCase> {};

TEST_P(CliShowFacts, TextAndJsonTellWhatEachBondIsDoing)
{
    const FactsCase &c = GetParam();
    const auto json = TestSupport::runCli({"show", sample(), "--as-of", c.asOf, "--json"}, shipped());
    ASSERT_EQ(json.exitCode, 0) << json.standardError.toStdString();
    const QJsonObject root = QJsonDocument::fromJson(json.standardOutput).object();
    QStringList holdings;
    for (const QJsonValue &value : root.value("holdings").toArray()) {
        const QJsonObject holding = value.toObject();
        const QString rate = holding.value("rate").isNull() ? QStringLiteral("null")
            : QString::number(holding.value("rate").toDouble(), 'f', 2) + u' ' + holding.value("rateBasis").toString()
                + (holding.value("doublesAtTwentyYears").toBool() ? " doubles" : "");
        holdings << QStringList{holding.value("note").toString("null"), rate, holding.value("nextIncrease").toString("null"),
                                holding.value("status").toString("null"), holding.value("computed").toBool() ? "computed" : ""}
                        .join(u'|');
        EXPECT_EQ(holding.value("stoppedEarning").toBool(), holding.value("note").toString() == QLatin1String("MA"));
    }
    EXPECT_EQ(holdings, c.holdings);
    const QJsonObject totals = root.value("totals").toObject();
    EXPECT_EQ(totals.value("ytdInterest").toInteger(), c.ytdInterest);
    EXPECT_EQ(totals.value("stoppedEarning").toInteger(), c.stoppedEarning);
    EXPECT_EQ(totals.value("stoppedEarningValue").toInteger(), c.stoppedEarningValue);
    const auto text = TestSupport::runCli({"show", sample(), "--as-of", c.asOf}, shipped());
    for (const char *line : c.lines)
        EXPECT_TRUE(text.standardOutput.contains(line)) << line << '\n' << text.standardOutput.toStdString();
}

// Year to date at 11/2026: $13.28 + $51.20 + $30.36 (see the bond table's test); the three matured holdings are worth
// $414.72 + $111.75 + $306.66. The 1997 I bond was never sold, the 2026 one is valued before its issue in 2021.
INSTANTIATE_TEST_SUITE_P(Sample, CliShowFacts, testing::Values(
    FactsCase{"2026-11", {"MA|0.00 matured|null|null|computed", "null|3.50 fixed|2026-12|null|computed",
                          "MA|0.00 matured|null|null|computed", "null|3.65 composite|2026-12|null|", "null|6.80 composite|2026-12|null|",
                          "MA|0.00 matured|null|null|computed", "null|null|null|no pricing data|",
                          "NE|4.26 composite|2027-03|not yet redeemable|"}, 9484, 4, 83313,
              {" 3.50% fixed 05/2035   12/2026 ", "   NE not redeemable until 03/2027  [not yet redeemable] Samuel Whitfield\n",
               "     $94.84\n", "\n\n4 bonds no longer earn interest: $833.13\nEE Bond          2 01/1990 ",
               "Thomas Whitfield\nE Bond           1 06/1980 ", "[computed] Margaret Whitfield\nSavings Note     1 05/1967 ",
               "[computed] Thomas Whitfield POD Eleanor Whitfield\n", "[no pricing data] Thomas Whitfield\n",
               "\n([computed] computed by this program, not published by the Treasury"}},
    FactsCase{"2021-11", {"MA|0.00 matured|null|null|", "null|3.50 fixed doubles|2021-12|null|", "MA|0.00 matured|null|null|",
                          "null|3.85 composite|2021-12|null|", "null|7.00 composite|2021-12|null|", "MA|0.00 matured|null|null|",
                          "null|null|null|no pricing data|", "NI|null|null|no pricing data|"}, 5776, 4, 83313,
              {"3.50% fixed, doubles at 20 years 05/2035   12/2021 ", "YTD interest", "Next rise Note", "$414.72",
               "Margaret Whitfield OR Thomas Whitfield", "Thomas Whitfield POD Eleanor Whitfield"}}));

TEST(CliMakeSample, WritesTheCommittedExampleAgain)
{
    const QString folder = TestSupport::temporaryDirectory();
    const auto result = TestSupport::runCli({"make-sample", folder}, shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.constData();
    for (const char *name : {"people.vcf", "sample.bondportfolio"}) {
        SCOPED_TRACE(name);
        const QByteArray made = TestSupport::readFile(folder + u'/' + QString::fromLatin1(name));
        EXPECT_FALSE(made.isEmpty());
        EXPECT_EQ(made, TestSupport::readFile(TestSupport::sourcePath(QStringLiteral("examples/") + QString::fromLatin1(name))));
    }
}
