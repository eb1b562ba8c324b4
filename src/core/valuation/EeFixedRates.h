// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The fixed rate every Series EE bond issued from May 2005 earns for life, by issue month, and the
// redemption values that follow from it. The table is data (data/rates/ee-fixed-rates.csv, built
// into the program), so rates announced later extend the computed bonds without a code change.
#include "valuation/RateTable.h"

namespace EeFixedRates {

using Table = RateTable;

inline constexpr QByteArrayView Header = "first_issue_month,last_issue_month,fixed_rate_percent";

// Reads "first_issue_month,last_issue_month,fixed_rate_percent" with months as YYYY-MM.
Table read(const QByteArray &data, const QString &fileName);
// The table built into the program.
const Table &shipped();

// Months from issue to final maturity, after which a bond earns nothing.
inline constexpr int MonthsToFinalMaturity = 30 * 12;
// A fixed-rate bond is worth at least twice its price this many months after issue.
inline constexpr int MonthsToGuarantee = 20 * 12;

// Cents per $25 face value, priced as a paper bond (bought for $12.50), of a bond earning the
// given rate, redeemed the given number of months after its issue month; -1 (not redeemable)
// in the first twelve months.
qint32 valueAt(int basisPoints, int monthsSinceIssue);

}
