// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Dollars rounded and read as typed, series codes and prices, months only as "YYYY-MM", "YYYY/MM" (issue) or "MM/YYYY".
#include "base/Money.h"
#include "base/Month.h"
#include "base/Series.h"
#include "base/UserDefaults.h"

#include <gmock/gmock.h>

struct Reading { const char *text; Month::Form form; Month expected; }; // a null month: refused

class MonthReading : public ::testing::TestWithParam<Reading> {};

TEST_P(MonthReading, ReadsOnlyItsOwnForm)
{
    const Reading &r = GetParam();
    EXPECT_EQ(Month::fromString(QString::fromUtf8(r.text), r.form), r.expected) << r.text;
}

using F = Month::Form;
INSTANTIATE_TEST_SUITE_P(
    Texts, MonthReading,
    ::testing::Values(Reading{"2010-06", F::Iso, Month(2010, 6)}, Reading{" 1999-1 ", F::Iso, Month(1999, 1)},
                      Reading{"2010/06", F::Iso, Month()}, Reading{"2010/06", F::IsoOrSlash, Month(2010, 6)},
                      Reading{"2010-12", F::IsoOrSlash, Month(2010, 12)}, Reading{"2010-13", F::Iso, Month()},
                      Reading{"2010-00", F::IsoOrSlash, Month()}, Reading{"10-2010", F::Iso, Month()},
                      Reading{"06/2010", F::Slash, Month(2010, 6)}, Reading{"6 / 2010", F::Slash, Month(2010, 6)},
                      Reading{"13/2020", F::Slash, Month()}, Reading{"ab/cd", F::Slash, Month()},
                      Reading{"2010-06", F::Slash, Month()}, Reading{"0000-05", F::Iso, Month()},
                      Reading{"", F::IsoOrSlash, Month()}));

TEST(MonthText, WritesBothStylesWithLeadingZeros)
{
    EXPECT_EQ(Month(1941, 5).toString(Month::Style::Slash), QStringLiteral("05/1941"));
    EXPECT_EQ(Month(2026, 11).toString(Month::Style::Iso), QStringLiteral("2026-11"));
    EXPECT_EQ(Month().toString(Month::Style::Iso), QString());
    // What is written reads back as the same month.
    for (const Month m : {Month(1941, 1), Month(1999, 12), Month(2026, 7)}) {
        EXPECT_EQ(Month::fromString(m.toString(Month::Style::Iso), Month::Form::Iso), m);
        EXPECT_EQ(Month::fromString(m.toString(Month::Style::Slash), Month::Form::Slash), m);
    }
}

TEST(MonthArithmetic, CountsAcrossYears)
{
    EXPECT_EQ(Month(2020, 11).addMonths(3), Month(2021, 2));
    EXPECT_EQ(Month(2021, 2).addMonths(-14), Month(2019, 12));
    EXPECT_LT(Month(2019, 12), Month(2020, 1));
    EXPECT_EQ(Month::fromIndex(Month(2003, 7).index()), Month(2003, 7));
    EXPECT_EQ(Month::of(QDate(2004, 2, 29)), Month(2004, 2));
    EXPECT_TRUE(Month::of(QDate()).isNull());
}

TEST(MonthInstant, IsTheFirstOfTheMonthInLocalTime)
{
    const QDateTime instant = Month(2000, 3).toDateTime();
    EXPECT_EQ(instant.date(), QDate(2000, 3, 1));
    EXPECT_EQ(instant.timeSpec(), Qt::LocalTime);
    EXPECT_EQ(Month::of(instant), Month(2000, 3));
    EXPECT_FALSE(Month().toDateTime().isValid());
}

TEST(DollarTransformer, DollarsRoundHalfUpTowardPositiveInfinity)
{
    const std::pair<double, Pennies> cases[] = {{123.456, 12346}, {0.004, 0}, {0.005, 1}, {0.125, 13},
                                                {-0.125, -12}, {-0.126, -13}, {25.0, 2500}, {0.0, 0}};
    for (const auto &[dollars, pennies] : cases) {
        EXPECT_EQ(dollarsToPennies(dollars), pennies) << dollars;
        EXPECT_EQ(DollarTransformer::reverseTransformedValue(dollars).toLongLong(), pennies) << dollars;
    }
}

// Typed text is read as the number it begins with; whatever follows is ignored.
TEST(DollarTransformer, TypedTextReadsTheLeadingNumberOnly)
{
    const std::pair<const char *, Pennies> cases[] = {
        {"123.456", 12346}, {"12.5x", 1250}, {"abc", 0}, {" 3e2", 30000}, {"", 0}, {"1,234", 100}, {"$5", 0},
        {"\t\n-.5 dollars", -50}, {"+2.", 200}, {"7e", 700}, {"1e-2x", 1}, {"inf", 0}, {"nan", 0}, {"0x10", 0},
        {"1e999", 0}, {"-", 0}, {".", 0}, {"1e300", std::numeric_limits<Pennies>::max()}};
    for (const auto &[text, pennies] : cases)
        EXPECT_EQ(DollarTransformer::reverseTransformedValue(QString::fromUtf8(text)).toLongLong(), pennies) << '"' << text << '"';
}

TEST(Money, FormatsDollarsWithTwoDecimalsAndGrouping)
{
    EXPECT_EQ(formatDollars(123456), QStringLiteral("$1,234.56"));
    EXPECT_EQ(formatDollars(5), QStringLiteral("$0.05"));
    EXPECT_EQ(formatDollars(-25), QStringLiteral("-$0.25"));
}

TEST(Series, LooksUpOnlyTheExactOneLetterCodes)
{
    EXPECT_EQ(Series::seriesForCode(QStringLiteral("N")), Series::eeBond());
    for (const char *code : {"EE", "e", "", "n", "SN", "X"})
        EXPECT_EQ(Series::seriesForCode(QString::fromLatin1(code)), nullptr) << code;
    for (const char *code : {"E", "N", "I", "S"})
        EXPECT_EQ(Series::seriesForCode(QString::fromLatin1(code))->code(), QString::fromLatin1(code));
}

TEST(Series, AllSeriesAreOrderedByLabelWithEBeforeEE)
{
    QStringList labels;
    for (const Series *series : Series::allSeries())
        labels << series->label();
    EXPECT_EQ(labels, QStringList({"E Bond", "EE Bond", "I Bond", "Savings Note"}));
    EXPECT_LT(Series::seriesForCode(QStringLiteral("E"))->compare(Series::eeBond()), 0);
    EXPECT_GT(Series::eeBond()->compare(Series::seriesForCode(QStringLiteral("E"))), 0);
}

TEST(Series, IssuePriceFollowsTheSeriesRuleTruncatingTowardZero)
{
    const struct { const char *code; Pennies face; bool paper; Pennies price; } cases[] = {
        {"S", 5000, true, 4050}, {"E", 5000, true, 3750}, {"E", 5000, false, 3750}, {"N", 5000, true, 2500},
        {"N", 5000, false, 5000}, {"I", 5000, true, 5000}, {"I", 5000, false, 5000}, {"S", 3, true, 2},
        {"S", -3, true, -2}, {"E", -5, true, -3}, {"E", 10, true, 7}, {"N", -5, true, -2}, {"N", 5, true, 2}};
    for (const auto &c : cases)
        EXPECT_EQ(Series::seriesForCode(QLatin1String(c.code))->issuePriceForFaceValue(c.face, c.paper), c.price)
            << c.code << ' ' << c.face << (c.paper ? " paper" : " electronic");
}

TEST(Series, DefaultSeriesFallsBackToEEAndRefusesUnknownCodes)
{
    const QString key = QString::fromLatin1(UserDefaults::DefaultBondSeriesKey);
    UserDefaults::remove(key);
    EXPECT_EQ(Series::defaultSeries(), Series::eeBond());
    Series::setDefaultSeries(Series::seriesForCode(QStringLiteral("I")));
    EXPECT_EQ(Series::defaultSeries(), Series::seriesForCode(QStringLiteral("I")));
    UserDefaults::setValue(key, QStringLiteral("Q"));
    EXPECT_EQ(Series::defaultSeries(), nullptr);
    UserDefaults::remove(key);
}
