#include "valuation/InterestSummary.h"

#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"

#include <algorithm>
#include <vector>

namespace InterestSummary {

QMap<int, Pennies> yearsWithInterestEarned(const BondAssessor &database, const QList<BondFacts> &bonds,
                                           SummaryMode mode)
{
    QMap<int, Pennies> years;
    BondAssessor::ReadBatch batch(database);
    const std::optional<int> latest = database.maximumRedemptionMonth();
    if (!latest)
        return years;
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
        return years;
    database.prefetch(issues);
    // Every year from the earliest issue to the last is some holding's, so a dense table holds them.
    std::vector<Pennies> sums(size_t(lastYear - firstYear + 1), 0);
    const ValuationContext context{&database, Month()};
    for (const BondFacts &bond : bonds) {
        const int issueYear = bond.issueMonth.isNull() ? lastYear + 1 : bond.issueMonth.year();
        if (issueYear > lastYear)
            continue;
        HoldingFigures(context, bond).addCumulativeInterestByDecember(issueYear, lastYear,
                                                                      sums.data() + (issueYear - firstYear));
    }
    for (int year = firstYear; year <= lastYear; ++year)
        years.insert(year, sums[size_t(year - firstYear)]);
    if (mode == SummaryMode::Cumulative)
        return years;
    const QList<int> keys = years.keys();
    for (qsizetype k = keys.size() - 1; k >= 1; --k)
        years[keys.at(k)] -= years.value(keys.at(k - 1));
    return years;
}

QList<InterestSummaryRow> rows(const BondAssessor &database, const QList<BondFacts> &bonds, SummaryMode mode)
{
    const QMap<int, Pennies> years = yearsWithInterestEarned(database, bonds, mode);
    QList<InterestSummaryRow> rows;
    for (auto it = years.cbegin(); it != years.cend(); ++it) {
        if (rows.isEmpty() && it.value() == 0)
            continue;
        rows.append({it.key(), it.value()});
    }
    return rows;
}

} // namespace InterestSummary
