// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Series EE bonds issued from May 1997 to April 2005 grow every month at market rates announced
// each May and November, and no table of those rates ships with the program. Where a run of
// redemption months has no official values, their values follow from the official ones around
// it: the rate of each half-year is recovered from every bond whose values pin it, and a month is
// filled only when every rate the official values allow gives it the same value.
#include <QHash>
#include <QMap>

namespace MarketRateEeAccrual {

// Redemption values (cents per $25 face, -1 not redeemable) by redemption month index
// (year * 12 + month - 1).
using History = QMap<int, qint32>;

inline constexpr int FirstIssue = 1997 * 12 + 4; // May 1997
inline constexpr int LastIssue = 2005 * 12 + 3;  // April 2005; later bonds earn a fixed rate

// Months from issue during which a bond cannot be cashed.
int monthsNotRedeemable(int issue);

// Values of the given bonds (by issue month index) for the redemption months first..last, from
// their values outside those months: only months those values determine exactly. By issue month,
// then redemption month.
QHash<int, History> fill(const QHash<int, History> &bonds, int first, int last);

}
