// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Money.h"

#include <QDate>
#include <gmock/gmock.h>

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
