// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a holding's quantity, face value and paper flag may be. Entry in the window, CSV imports
// and pasted or dropped bonds all ask here, so a bond refused by one is refused by all. Reading
// a portfolio file does not: a file keeps whatever it holds.
#include "base/Money.h"
#include "base/Month.h"

#include <QString>
#include <QStringView>
#include <optional>

class Holding;
class Series;

enum class EntryRefusal {
    None,
    QuantityBelowOne,
    NotAnAmount,
    NotADenomination,          // a paper bond's face value
    ElectronicAmountOutOfRange, // an electronic bond's face value
    NeverElectronic,           // E bonds and Savings Notes
    NotYetElectronic,          // EE before 05/2003, I before 10/2002
    NotAMonth,
};

namespace EntryRules {
inline constexpr Pennies MinimumElectronicFaceValue = 2500;
inline constexpr Pennies MaximumElectronicFaceValue = 1000000;

// A typed face value: digits with at most two decimals, optionally "$" before them and commas
// between groups of three ("$1,000.00", "137.45", "25"); nothing else is an amount.
std::optional<Pennies> readFaceValue(QStringView text);

EntryRefusal checkQuantity(qint64 quantity);
EntryRefusal checkFaceValue(Pennies faceValue, bool paper);
// The first month the Treasury sold the series electronically; null for a series never sold so.
Month firstElectronicIssue(const Series *series);
// Whether a bond of the series issued in the month could be electronic; an unknown month
// judges by the series alone.
EntryRefusal checkElectronic(const Series *series, Month issue);
// The first rule a whole holding breaks (quantity, then face value, then the paper flag).
EntryRefusal check(const Holding &holding);
// A new bond is electronic only when the preference says so and the series and month allow it.
bool startsPaper(bool preferencePaper, const Series *series, Month issue);

// The refusal in words, for the bond of that series (the series names the first electronic month).
QString describe(EntryRefusal refusal, const Series *series = nullptr);
}
