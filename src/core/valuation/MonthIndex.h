// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Months as plain counts for the valuation's inner loops: the counts of Month::index().
#include "base/Month.h"

namespace MonthIndex {
// 0 stands for "no month": year 0 is never a bond's.
inline constexpr int None = 0;

constexpr int of(int year, int month) { return Month(year, month).index(); }
constexpr int yearOf(int index) { return Month::fromIndex(index).year(); }
constexpr int monthOf(int index) { return Month::fromIndex(index).month(); }

inline int of(const QDate &date) { return Month::of(date).index(); }
inline int of(const QDateTime &date) { return Month::of(date).index(); }
}
