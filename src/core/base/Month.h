// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A calendar month (year and month), the one type for every month the program handles: issue
// months, valuation months, redemption months. Kept as a count of months so that valuation steps
// through months with integer arithmetic; the one place months are read from and written as text.
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <compare>

class Month
{
public:
    // The two ways months are written: "MM/YYYY" in the window and printouts, "YYYY-MM" on the
    // command line, in JSON and in file names.
    enum class Style { Slash, Iso };
    // What a reader accepts: "YYYY-MM"; "YYYY-MM" or "YYYY/MM"; "MM/YYYY" (or "M/YYYY").
    enum class Form { Iso, IsoOrSlash, Slash };

    constexpr Month() = default; // no month
    constexpr Month(int year, int month) : m_index(year * 12 + month - 1) {}
    // From a count as index() gives it; 0 is no month.
    static constexpr Month fromIndex(int index)
    {
        Month m;
        m.m_index = index;
        return m;
    }
    static Month of(const QDate &date) { return date.isValid() ? Month(date.year(), date.month()) : Month(); }
    static Month of(const QDateTime &date) { return date.isValid() ? of(date.date()) : Month(); }

    // Year 0 is never a bond's, so count 0 can stand for "no month".
    constexpr bool isNull() const { return m_index == 0; }
    constexpr int index() const { return m_index; }
    constexpr int year() const { return m_index / 12; }
    constexpr int month() const { return m_index % 12 + 1; }
    constexpr Month addMonths(int months) const { return fromIndex(m_index + months); }

    // The instant that stands for the month where one is needed: the first of the month at
    // 00:00:01 local time, so that a time-zone shift never moves it into the month before.
    QDateTime toDateTime() const;

    // Empty for no month.
    QString toString(Style style) const;
    // Surrounding blanks are allowed, a month outside 1 to 12 is not; no month for anything else.
    static Month fromString(QStringView text, Form form);

    friend constexpr auto operator<=>(Month, Month) = default;

private:
    int m_index = 0;
};
