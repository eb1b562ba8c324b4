// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The official files hold no values of Series E, EE and Savings Notes for the redemption months
// 2001-09 to 2002-02. Where the accrual rules make a value exact it follows from the official
// values on both sides of such a run of months: a bond whose value steps every six months keeps
// the value of the step it is in, a bond in its first months is not redeemable, and an EE bond
// growing every month follows its half-year's rate (MarketRateEeAccrual). Months the rules leave
// open stay without data.
#include "update/PriceDataFile.h"

#include <QHash>
#include <QList>
#include <QSet>

namespace GapMonthFill {

// The longest run filled: every six-monthly step period then reaches one of its ends.
inline constexpr int LongestRun = 6;

// Redemption months (year * 12 + month - 1, both ends included) without official values of a series.
struct Run
{
    char series;
    int first;
    int last;
};

// The runs of at most LongestRun months between months holding official values of Series E, EE
// or Savings Notes; officialMonths lists, by series, the months holding any.
QList<Run> runs(const QHash<char, QSet<int>> &officialMonths);

// Gives the run's cells without data (-2) the value the values outside the run determine, adding
// records as needed. Returns the number of cells filled.
int fill(QHash<quint64, PriceRecord> &records, const Run &run);

}
