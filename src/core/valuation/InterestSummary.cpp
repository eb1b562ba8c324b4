// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/InterestSummary.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"

#include <algorithm>
#include <vector>

namespace InterestSummary {

QList<InterestSummaryRow> rows(const BondAssessor &database, const QList<BondFacts> &bonds, SummaryMode mode)
{
    QList<InterestSummaryRow> rows;
    BondAssessor::ReadBatch batch(database);
    const std::optional<int> latest = database.maximumRedemptionMonth();
    if (!latest)
        return rows;
    // Only years whose December the database holds are summarised.
    const Month last = Month::fromIndex(*latest);
    const int lastYear = last.month() < 12 ? last.year() - 1 : last.year();
    int firstYear = lastYear + 1;
    QList<std::pair<const Series *, int>> issues;
    issues.reserve(bonds.size());
    for (const BondFacts &bond : bonds) {
        if (bond.issueMonth.isNull())
            continue;
        firstYear = std::min(firstYear, bond.issueMonth.year());
        issues.append({bond.series, bond.issueMonth.index()});
    }
    if (firstYear > lastYear)
        return rows;
    database.prefetch(issues);
    // Every year from the earliest issue to the last is some holding's, so dense tables hold them.
    const size_t years = size_t(lastYear - firstYear + 1);
    std::vector<Pennies> sums(years, 0);
    std::vector<int> unvalued(years, 0), ignored(years, 0);
    const ValuationContext context{&database, Month()};
    for (const BondFacts &bond : bonds) {
        const int issueYear = bond.issueMonth.isNull() ? lastYear + 1 : bond.issueMonth.year();
        if (issueYear > lastYear)
            continue;
        // A bond of a month its series was never sold in will never have a value: no update can
        // complete a year for it, so it makes none incomplete.
        const size_t at = size_t(issueYear - firstYear);
        int *counted = bond.series->wasIssuedIn(bond.issueMonth) ? unvalued.data() : ignored.data();
        HoldingFigures(context, bond).addCumulativeInterestByDecember(issueYear, lastYear, sums.data() + at, counted + at);
    }
    for (int year = firstYear; year <= lastYear; ++year) {
        const size_t at = size_t(year - firstYear);
        if (rows.isEmpty() && sums[at] == 0)
            continue;
        InterestSummaryRow row{year, sums[at], unvalued[at], false};
        if (rows.isEmpty()) {
            row.sinceIssue = at > 0 && unvalued[at - 1] > 0;
        } else if (mode == SummaryMode::Yearly) {
            row.interestEarned -= sums[at - 1];
            row.bondsWithoutValue = std::max(unvalued[at], unvalued[at - 1]);
        }
        rows.append(row);
    }
    return rows;
}

} // namespace InterestSummary
