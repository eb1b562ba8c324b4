// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/MarketRateEeAccrual.h"

#include <QSet>
#include <cmath>
#include <set>
#include <vector>

namespace MarketRateEeAccrual {

namespace {

constexpr qint64 PaperPrice = 1250; // cents: a $25 paper EE bond cost $12.50
constexpr int PeriodMonths = 6;
constexpr int MonthsWithPenalty = 5 * 12; // redeemed earlier, the last three months' interest is lost
constexpr int PenaltyMonths = 3;
constexpr int FirstYearLongHolding = 2003 * 12 + 1; // bonds issued from February 2003 wait a year
// Far above any rate these bonds earned; rates are whole hundredths of a percent.
constexpr int HighestBasisPoints = 2000;
// A bond whose possible start values spread wider than this is left open rather than searched.
constexpr std::size_t MostStartValues = 64;
// How far around the months to fill rates are recovered: the farthest period a bond's values
// there depend on.
constexpr int RateSearchBefore = 2 * 12;
constexpr int RateSearchAfter = 12;

using Rates = std::vector<int>;
// A bond's accrued values in cents by months since issue, as its official values show them.
using Accrued = QMap<int, qint64>;

const Rates &everyRate()
{
    static const Rates rates = [] {
        Rates all;
        for (int bp = 0; bp <= HighestBasisPoints; ++bp)
            all.push_back(bp);
        return all;
    }();
    return rates;
}

// k months into a period started at the given value: a whole period compounds half the annual
// rate in integer cents, a part of it the matching fraction, both rounded half up.
qint64 accrued(qint64 start, int basisPoints, int months)
{
    if (months == 0)
        return start;
    if (months == PeriodMonths)
        return (start * (20000 + basisPoints) + 10000) / 20000;
    const long double growth = std::pow(1.0L + basisPoints / 20000.0L, static_cast<long double>(months) / PeriodMonths);
    return static_cast<qint64>(std::floor(start * growth + 0.5L));
}

// The month of the announcement whose rate a period starting in the given month earns: the
// latest May or November.
int announcement(int periodStart)
{
    return periodStart - (periodStart % 12 + 8) % PeriodMonths;
}

// The months since issue whose accrued value a bond of that age is redeemed at.
int accrualMonth(int age)
{
    return age < MonthsWithPenalty ? age - PenaltyMonths : age;
}

Accrued officialAccrual(int issue, const History &history, int first, int last)
{
    Accrued known;
    known.insert(0, PaperPrice);
    for (auto value = history.cbegin(); value != history.cend(); ++value) {
        if ((value.key() < first || value.key() > last) && value.value() > 0)
            known.insert(accrualMonth(value.key() - issue), value.value());
    }
    return known;
}

// Whether a period starting (months since issue) at the given value and rate gives every accrued
// value known in it, the next period's start included.
bool fits(const Accrued &known, int periodStart, qint64 start, int basisPoints)
{
    for (int k = 1; k <= PeriodMonths; ++k) {
        const auto value = known.constFind(periodStart + k);
        if (value != known.cend() && accrued(start, basisPoints, k) != *value)
            return false;
    }
    return true;
}

// The rates, by announcement month, that every period with a known start and a known later value
// allows; a period whose bonds all contradict the rule leaves no rate, so nothing is filled there.
QHash<int, Rates> recoverRates(const QHash<int, Accrued> &bonds, int from, int to)
{
    QHash<int, Rates> rates;
    for (auto bond = bonds.cbegin(); bond != bonds.cend(); ++bond) {
        const Accrued &known = *bond;
        for (int periodStart = 0; bond.key() + periodStart <= to; periodStart += PeriodMonths) {
            const auto start = known.constFind(periodStart);
            if (bond.key() + periodStart < from || start == known.cend()
                || known.lowerBound(periodStart + 1) == known.upperBound(periodStart + PeriodMonths))
                continue;
            auto group = rates.find(announcement(bond.key() + periodStart));
            if (group == rates.end())
                group = rates.insert(announcement(bond.key() + periodStart), everyRate());
            std::erase_if(*group, [&](int bp) { return !fits(known, periodStart, *start, bp); });
        }
    }
    return rates;
}

// A step from a period's start value, at one rate, to the next period's start value.
struct Step
{
    qint64 start;
    int basisPoints;
    qint64 next;
};

History fillBond(int issue, const Accrued &known, const QHash<int, Rates> &rates, int first, int last)
{
    History filled;
    QMap<int, int> needed; // redemption month -> months since issue of the accrued value it shows
    for (int month = std::max(first, issue); month <= last; ++month) {
        if (month - issue < monthsNotRedeemable(issue))
            filled.insert(month, -1);
        else
            needed.insert(month, accrualMonth(month - issue));
    }
    if (needed.isEmpty())
        return filled;
    const auto [lowest, highest] = std::minmax_element(needed.cbegin(), needed.cend());
    int firstPeriod = *lowest / PeriodMonths * PeriodMonths;
    while (!known.contains(firstPeriod))
        firstPeriod -= PeriodMonths; // stops at issue, whose value is known
    const int lastPeriod = *highest / PeriodMonths * PeriodMonths;

    // Forward: every start value and rate the known values allow, period by period.
    std::vector<std::vector<Step>> periods;
    std::set<qint64> starts{known.value(firstPeriod)};
    for (int periodStart = firstPeriod; periodStart <= lastPeriod; periodStart += PeriodMonths) {
        const auto group = rates.constFind(announcement(issue + periodStart));
        const Rates &candidates = group == rates.cend() ? everyRate() : *group;
        std::vector<Step> steps;
        std::set<qint64> next;
        for (const qint64 start : starts) {
            for (const int bp : candidates) {
                if (fits(known, periodStart, start, bp)) {
                    steps.push_back({start, bp, accrued(start, bp, PeriodMonths)});
                    next.insert(steps.back().next);
                }
            }
        }
        if (steps.empty() || next.size() > MostStartValues)
            return filled;
        periods.push_back(std::move(steps));
        starts = std::move(next);
    }
    // Backward: only steps a later period continues from; a month is filled when they agree.
    QMap<int, std::set<qint64>> values;
    std::set<qint64> continued = starts;
    for (int p = int(periods.size()) - 1; p >= 0; --p) {
        const int periodStart = firstPeriod + p * PeriodMonths;
        std::set<qint64> reached;
        for (const Step &step : periods[p]) {
            if (!continued.count(step.next))
                continue;
            reached.insert(step.start);
            for (const int month : std::as_const(needed)) {
                if (month >= periodStart && month < periodStart + PeriodMonths)
                    values[month].insert(accrued(step.start, step.basisPoints, month - periodStart));
            }
        }
        continued = std::move(reached);
    }
    for (auto month = needed.cbegin(); month != needed.cend(); ++month) {
        const auto candidates = values.constFind(month.value());
        if (candidates != values.cend() && candidates->size() == 1)
            filled.insert(month.key(), static_cast<qint32>(*candidates->begin()));
    }
    return filled;
}

} // namespace

int monthsNotRedeemable(int issue)
{
    return issue < FirstYearLongHolding ? 6 : 12;
}

QHash<int, History> fill(const QHash<int, History> &bonds, int first, int last)
{
    QHash<int, Accrued> known;
    for (auto bond = bonds.cbegin(); bond != bonds.cend(); ++bond) {
        if (bond.key() >= FirstIssue && bond.key() <= LastIssue)
            known.insert(bond.key(), officialAccrual(bond.key(), *bond, first, last));
    }
    const QHash<int, Rates> rates = recoverRates(known, first - RateSearchBefore, last + RateSearchAfter);
    QHash<int, History> filled;
    for (auto bond = known.cbegin(); bond != known.cend(); ++bond) {
        History values = fillBond(bond.key(), *bond, rates, first, last);
        if (!values.isEmpty())
            filled.insert(bond.key(), std::move(values));
    }
    return filled;
}

} // namespace MarketRateEeAccrual
