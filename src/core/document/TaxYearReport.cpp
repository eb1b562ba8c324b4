// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/TaxYearReport.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"

#include <QHash>
#include <algorithm>

namespace {

// The value of all the holding's bonds in the month or, when the database lacks it, in the latest
// month before it that has one (*estimated then set).
Pennies valueIn(const BondAssessor &database, const Holding &holding, Month month, bool *estimated)
{
    const HoldingFigures figures({&database, month}, holding.facts());
    Month latest = month;
    if (const std::optional<int> last = database.maximumRedemptionMonth(); last && month.index() > *last)
        latest = Month::fromIndex(*last);
    while (latest >= holding.issueDate() && figures.absoluteValueAsOfMonth(latest) == 0)
        latest = latest.addMonths(-1);
    *estimated = latest != month;
    return latest < holding.issueDate() ? 0 : figures.absoluteValueAsOfMonth(latest) * holding.countedQuantity();
}

Pennies cost(const Holding &holding)
{
    return holding.issuePrice() * holding.countedQuantity();
}

// A yearly reporter's bond: from December before (or its price, when issued in the year or not
// yet cashable then) to the year's last month it earned in.
std::optional<TaxYearItem> accrued(const BondAssessor &database, const HoldingRef &holding, int year)
{
    const Month issue = holding->issueDate(), maturity = holding->series()->finalMaturity(issue);
    const Month december(year - 1, 12);
    if (issue.isNull() || issue > Month(year, 12) || maturity <= december
        || (holding->isRedeemed() && holding->redemptionMonth() <= december))
        return std::nullopt;
    bool startEstimated = false, endEstimated = false;
    const bool fromPrice = issue > december || !HoldingFigures({&database, december}, holding->facts()).isRedeemableIssue();
    Pennies start = fromPrice ? cost(*holding) : valueIn(database, *holding, december, &startEstimated);
    if (start == 0)
        start = cost(*holding);
    Month end = std::min(Month(year, 12), maturity);
    Pennies worth = 0;
    if (holding->isRedeemed() && holding->redemptionMonth().year() == year) {
        end = holding->redemptionMonth();
        worth = holding->amountReceived();
    } else {
        worth = valueIn(database, *holding, end, &endEstimated);
    }
    return TaxYearItem{TaxYearItem::Kind::Accrued, holding, end, std::max<Pennies>(0, worth - start),
                       startEstimated || endEstimated};
}

// A deferring owner's bond: cashed in the year, or reaching final maturity in it uncashed.
std::optional<TaxYearItem> deferred(const BondAssessor &database, const HoldingRef &holding, int year)
{
    const Month maturity = holding->series()->finalMaturity(holding->issueDate());
    if (holding->issueDate().isNull())
        return std::nullopt;
    // Interest of a bond that matured in an earlier year was reportable then.
    if (holding->isRedeemed() && holding->redemptionMonth().year() == year && maturity.year() >= year)
        return TaxYearItem{TaxYearItem::Kind::Redeemed, holding, holding->redemptionMonth(),
                           std::max<Pennies>(0, holding->redemptionInterest()), false};
    if (maturity.year() == year && (!holding->isRedeemed() || holding->redemptionMonth().year() > year)) {
        bool estimated = false;
        const Pennies worth = valueIn(database, *holding, maturity, &estimated);
        return TaxYearItem{TaxYearItem::Kind::Matured, holding, maturity, std::max<Pennies>(0, worth - cost(*holding)), estimated};
    }
    return std::nullopt;
}

} // namespace

Pennies OwnerTaxYear::interest(TaxYearItem::Kind kind) const
{
    Pennies sum = 0;
    for (const TaxYearItem &item : items)
        sum += item.kind == kind ? item.interest : 0;
    return sum;
}

Pennies OwnerTaxYear::total() const
{
    Pennies sum = 0;
    for (const TaxYearItem &item : items)
        sum += item.interest;
    return sum;
}

Pennies TaxYearReport::householdTotal() const
{
    Pennies sum = 0;
    for (const OwnerTaxYear &owner : owners)
        sum += owner.total();
    return sum;
}

TaxYearReport TaxYearReport::of(const Portfolio &portfolio, const BondAssessor &database, int year)
{
    const BondAssessor::ReadBatch batch(database);
    TaxYearReport report;
    report.year = year;
    QHash<QString, int> ownerIndex; // by identifier; "" for no owner
    for (const HoldingRef &holding : portfolio.holdings + portfolio.redeemed) {
        const PersonRef owner = holding->owner();
        const QString id = owner ? owner->uniqueId() : QString();
        const bool yearly = owner && portfolio.yearlyInterestReporters.contains(id);
        const std::optional<TaxYearItem> item = yearly ? accrued(database, holding, year) : deferred(database, holding, year);
        if (!item)
            continue;
        auto found = ownerIndex.constFind(id);
        if (found == ownerIndex.cend()) {
            found = ownerIndex.insert(id, int(report.owners.size()));
            report.owners.append({owner, yearly, {}});
        }
        report.owners[*found].items << *item;
    }
    std::stable_sort(report.owners.begin(), report.owners.end(), [](const OwnerTaxYear &a, const OwnerTaxYear &b) {
        if (!a.owner || !b.owner)
            return a.owner && !b.owner;
        return QString::localeAwareCompare(a.owner->name(), b.owner->name()) < 0;
    });
    for (const HoldingRef &holding : portfolio.holdings) {
        const Month maturity = holding->series()->finalMaturity(holding->issueDate());
        if (maturity.isNull() || maturity.year() != year + 1)
            continue;
        bool estimated = false;
        const Pennies worth = valueIn(database, *holding, maturity, &estimated);
        report.nextYear.append({holding, maturity, std::max<Pennies>(0, worth - cost(*holding))});
    }
    return report;
}
