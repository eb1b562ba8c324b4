// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The interest summary: interest earned per tax year by a set of bonds, as of each December the
// database holds.
#include "valuation/BondFacts.h"

#include <QList>

class BondAssessor;

// What the interest summary lists per tax year: the interest earned since issue as of each
// December, or the interest earned in that year alone.
enum class SummaryMode { Cumulative, Yearly };

struct InterestSummaryRow
{
    int taxYear = 0;
    Pennies interestEarned = 0;
    // Bonds shown that the database has no value for in the Decembers the figure rests on (that
    // year's, and for the interest of one year the one before): the figure leaves them out.
    int bondsWithoutValue = 0;
    // The first row of a summary whose database has no value for the December before it: its
    // figure is the interest since issue, not that of one year.
    bool sinceIssue = false;
    bool operator==(const InterestSummaryRow &) const = default;
};

namespace InterestSummary {
// Every year from the earliest issue year to the last year whose December the database holds,
// with the interest as the mode says, without the leading years in which nothing was earned.
// A bond of an issue month its series was never sold in makes no year incomplete.
QList<InterestSummaryRow> rows(const BondAssessor &database, const QList<BondFacts> &bonds, SummaryMode mode);
}
