// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Automatic checks: at most daily, never when off, only while a series lacks this month's official values.
#include "../QtPrinters.h"
#include "PriceUpdateTestData.h"
#include "TestSupport.h"
#include "base/UserDefaults.h"
#include "update/AutomaticUpdateCheck.h"

#include <gtest/gtest.h>

const QDateTime Now(QDate(2026, 11, 23), QTime(12, 0), Qt::UTC);

struct TimingCase
{
    const char *name;
    bool enabled;
    qint64 lastCheckSecondsAgo; // -1: never
    bool due;
};

class CheckTiming : public ::testing::TestWithParam<TimingCase> {};

TEST_P(CheckTiming, IsDueOnlyWhenEnabledAndADayHasPassed)
{
    QSettings settings = UserDefaults::settings();
    settings.clear();
    if (!GetParam().enabled)
        AutomaticUpdateCheck::setEnabled(false);
    if (GetParam().lastCheckSecondsAgo != -1)
        AutomaticUpdateCheck::noteCheck(Now.addSecs(-GetParam().lastCheckSecondsAgo));
    EXPECT_EQ(AutomaticUpdateCheck::isTimeForCheck(Now), GetParam().due);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, CheckTiming,
    ::testing::Values(TimingCase{"NeverChecked", true, -1, true}, TimingCase{"TurnedOff", false, -1, false},
                      TimingCase{"CheckedAnHourAgo", true, 3600, false},
                      TimingCase{"CheckedAlmostADayAgo", true, 24 * 3600 - 60, false},
                      TimingCase{"CheckedADayAgo", true, 24 * 3600, true},
                      TimingCase{"TurnedOffAfterAWeek", false, 7 * 24 * 3600, false},
                      TimingCase{"CheckNotedInTheFuture", true, -3600, true}),
    [](const auto &info) { return std::string(info.param.name); });

// The shipped database lacks official EE values after 11/2021 (its later EE values are derived).
TEST(CurrentValues, ShippedDatabaseLacksThem)
{
    EXPECT_TRUE(AutomaticUpdateCheck::lacksCurrentValues(TestSupport::copyOfShippedDatabase(), Now));
}

// Every series with official values of the month: nothing to look for, until the next month.
TEST(CurrentValues, ADatabaseCurrentInEverySeriesHasThem)
{
    const QString database = TestSupport::emptyDatabase();
    QList<PriceRecord> records;
    for (const char series : {'E', 'N', 'I', 'S'})
        records << PriceUpdateTestData::record(series, 2026, 11, 2000, 3000);
    ASSERT_TRUE(PriceUpdateTestData::installOfficial(database, {"current", records}).ok());
    EXPECT_FALSE(AutomaticUpdateCheck::lacksCurrentValues(database, Now));
    EXPECT_TRUE(AutomaticUpdateCheck::lacksCurrentValues(database, Now.addMonths(1)));
    EXPECT_FALSE(AutomaticUpdateCheck::lacksCurrentValues(TestSupport::temporaryDirectory() + "/none.bvdb", Now));
}
