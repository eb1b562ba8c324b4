#pragma once
// The interest summary: interest earned per tax year by a set of bonds, as of each December the
// database holds.
#include "valuation/BondFacts.h"

#include <QList>
#include <QMap>

class BondAssessor;

// What the interest summary lists per tax year: the interest earned since issue as of each
// December, or the interest earned in that year alone.
enum class SummaryMode { Cumulative, Yearly };

struct InterestSummaryRow
{
    int taxYear = 0;
    Pennies interestEarned = 0;
    bool operator==(const InterestSummaryRow &) const = default;
};

namespace InterestSummary {
// Every year from the earliest issue year to the last year whose December the database holds,
// with the interest as the mode says.
QMap<int, Pennies> yearsWithInterestEarned(const BondAssessor &database, const QList<BondFacts> &bonds,
                                           SummaryMode mode);
// The same without the leading years in which nothing was earned.
QList<InterestSummaryRow> rows(const BondAssessor &database, const QList<BondFacts> &bonds, SummaryMode mode);
}
