// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Months as users write them: "YYYY-MM" (and "YYYY/MM" for issue months), the window's "MM/YYYY", nothing else.
#include "base/Month.h"

#include <gtest/gtest.h>

struct Reading
{
    const char *text;
    Month::Form form;
    Month expected; // null: refused
};

class MonthReading : public ::testing::TestWithParam<Reading>
{};

TEST_P(MonthReading, ReadsOnlyItsOwnForm)
{
    const Reading &r = GetParam();
    EXPECT_EQ(Month::fromString(QString::fromUtf8(r.text), r.form), r.expected) << r.text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, MonthReading,
    ::testing::Values(Reading{"2010-06", Month::Form::Iso, Month(2010, 6)},
                      Reading{" 1999-1 ", Month::Form::Iso, Month(1999, 1)},
                      Reading{"2010/06", Month::Form::Iso, Month()},
                      Reading{"2010/06", Month::Form::IsoOrSlash, Month(2010, 6)},
                      Reading{"2010-12", Month::Form::IsoOrSlash, Month(2010, 12)},
                      Reading{"2010-13", Month::Form::Iso, Month()},
                      Reading{"2010-00", Month::Form::IsoOrSlash, Month()},
                      Reading{"10-2010", Month::Form::Iso, Month()},
                      Reading{"06/2010", Month::Form::Slash, Month(2010, 6)},
                      Reading{"6 / 2010", Month::Form::Slash, Month(2010, 6)},
                      Reading{"13/2020", Month::Form::Slash, Month()},
                      Reading{"ab/cd", Month::Form::Slash, Month()},
                      Reading{"2010-06", Month::Form::Slash, Month()},
                      Reading{"0000-05", Month::Form::Iso, Month()},
                      Reading{"", Month::Form::IsoOrSlash, Month()}));

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
