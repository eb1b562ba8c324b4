// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Series I bonds: the fixed rate each earns for life, the semiannual inflation rate announced each
// May and November, the composite rate they make, and the redemption values that follow. Both
// tables are data (data/rates/, built into the program); a month their rows do not reach has no
// rate, and no value is computed for it.
#include "valuation/RateTable.h"

#include <optional>

namespace IBondRates {

inline constexpr QByteArrayView FixedHeader = "first_issue_month,last_issue_month,fixed_rate_percent";
inline constexpr QByteArrayView InflationHeader = "inflation_period_start,semiannual_inflation_percent";

// The tables built into the program: fixed rates by issue month, inflation rates by the month
// a rate period starts in (an announcement holds for periods starting in the six months after it).
const RateTable &fixedRates();
const RateTable &inflationRates();

// fixed + 2 x inflation + fixed x inflation, rounded half up to hundredths of a percent, never
// below zero; all in hundredths of a percent.
int composite(int fixedBasisPoints, int inflationBasisPoints);

// The composite rate of the rate period of a bond issued in `issue` that holds `month`; nothing
// when a table lacks the rate. Month indexes are year * 12 + month - 1.
std::optional<int> rateAt(int issue, int month);

// The first month of the rate period holding `month`: the issue month and every six months after.
int periodStart(int issue, int month);

// Cents per $25 face value of a bond issued in `issue`, redeemed in `redemption`: -1 while it
// cannot be cashed, the value of three months earlier before five years, nothing when a rate is
// missing. Bonds stop earning thirty years after issue.
std::optional<qint32> valueAt(int issue, int redemption);

}
