// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A bond earns nothing after its final maturity, so its value stays what it was at maturity for
// good. The official sources stop listing matured bonds after a while and have a gap
// (2001-09 to 2002-02 for all but I bonds); this derives the missing months of every bond whose
// final maturity lies within the official data, so that old bonds keep their value.
#include "update/sources/PriceSourceContents.h"

#include <QList>
#include <QString>

namespace MaturedBondCarryForward {
// The name the derived records are installed and recorded under.
inline constexpr const char *SourceName = "matured-carry-forward";

// Months from issue to final maturity: 40 years for Series E issued through November 1965,
// 30 years for every other bond.
int monthsToFinalMaturity(char series, int issueYear, int issueMonth);

struct Result
{
    QList<PriceRecord> records; // ordered by series, redemption month, issue year
    QString error;              // set when an official value changes after final maturity
    bool ok() const { return error.isEmpty(); }
};

// For every series and issue month with an official value at or after its final maturity, the
// values at and after maturity must all be equal (else the result is an error naming series,
// issue month and redemption month). When that value is a price, every redemption month from
// maturity (but not before the earliest official month) up to the latest official month for
// which no source has a record of that series and issue year gets the value. Issue months of a
// derived record without a carried value hold -2 (no pricing data).
Result compute(const QList<NamedPriceRecords> &officialSources);
}
