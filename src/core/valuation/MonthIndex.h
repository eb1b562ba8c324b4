#pragma once
// Months as plain counts (year × 12 + month − 1), so that valuation can step through months with
// integer arithmetic instead of building local-time dates, which costs a time zone look-up each.
#include <QDate>
#include <QDateTime>

namespace MonthIndex {
// 0 stands for "no month": year 0 is never a bond's.
inline constexpr int None = 0;

constexpr int of(int year, int month) { return year * 12 + month - 1; }
constexpr int yearOf(int index) { return index / 12; }
constexpr int monthOf(int index) { return index % 12 + 1; }

inline int of(const QDate &date) { return date.isValid() ? of(date.year(), date.month()) : None; }
inline int of(const QDateTime &date) { return date.isValid() ? of(date.date()) : None; }
}
