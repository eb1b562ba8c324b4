// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Series.h"
#include "base/UserDefaults.h"

#include <gtest/gtest.h>

TEST(Series, LooksUpOnlyTheExactOneLetterCodes)
{
    EXPECT_EQ(Series::seriesForCode(QStringLiteral("N")), Series::eeBond());
    for (const char *code : {"EE", "e", "", "n", "SN", "X"}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(Series::seriesForCode(QString::fromLatin1(code)), nullptr);
    }
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
