// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/IBondRates.h"

#include "valuation/BondAssessor.h"

#include <cmath>

namespace IBondRates {

namespace {

constexpr qint64 FaceValue = 2500; // an I bond costs its face value
constexpr int MonthsToFinalMaturity = 30 * 12;
constexpr int MonthsWithPenalty = 5 * 12;
constexpr int PenaltyMonths = 3;
constexpr int ShortHoldingBefore = 2003 * 12 + 1; // issues before February 2003 wait six months

qint64 floorDivide(qint64 a, qint64 b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

// The accrued value k = 0..360 months after issue, in cents, or nothing when a rate is missing.
std::optional<qint64> accrued(int issue, int months)
{
    months = std::min(months, MonthsToFinalMaturity);
    qint64 start = FaceValue;
    for (int periodBegin = 0;; periodBegin += 6) {
        // A period's first month is worth what the last period ended at: it needs no new rate.
        const int into = months - periodBegin;
        if (into == 0)
            return start;
        const std::optional<int> rate = rateAt(issue, issue + periodBegin);
        if (!rate)
            return std::nullopt;
        if (into < 6) {
            const long double growth = std::pow(1.0L + *rate / 20000.0L, into / 6.0L);
            return static_cast<qint64>(std::floor(start * growth + 0.5L));
        }
        start = floorDivide(start * (20000 + *rate) + 10000, 20000);
    }
}

} // namespace

const RateTable &fixedRates()
{
    static const RateTable table = RateTable::resource(QStringLiteral("i-bond-fixed-rates.csv"), false, FixedHeader);
    return table;
}

const RateTable &inflationRates()
{
    static const RateTable table = RateTable::resource(QStringLiteral("i-bond-inflation-rates.csv"), true, InflationHeader, 6);
    return table;
}

int composite(int fixed, int inflation)
{
    // In hundred-millionths: fixed and 2 x inflation are exact, their product needs the four extra digits.
    const qint64 exact = qint64(fixed) * 10000 + 2 * qint64(inflation) * 10000 + qint64(fixed) * inflation;
    return std::max<qint64>(0, floorDivide(exact + 5000, 10000));
}

int periodStart(int issue, int month)
{
    return month < issue ? issue : issue + (month - issue) / 6 * 6;
}

std::optional<int> rateAt(int issue, int month)
{
    const std::optional<int> fixed = fixedRates().basisPointsFor(issue);
    const std::optional<int> inflation = inflationRates().basisPointsFor(periodStart(issue, month));
    if (!fixed || !inflation)
        return std::nullopt;
    return composite(*fixed, *inflation);
}

std::optional<qint32> valueAt(int issue, int redemption)
{
    const int months = redemption - issue;
    if (months < (issue < ShortHoldingBefore ? 6 : 12))
        return static_cast<qint32>(RedemptionMarker::NotRedeemable);
    const std::optional<qint64> value = accrued(issue, months < MonthsWithPenalty ? months - PenaltyMonths : months);
    if (!value)
        return std::nullopt;
    return static_cast<qint32>(*value);
}

}
