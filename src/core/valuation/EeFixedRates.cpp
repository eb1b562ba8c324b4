// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/EeFixedRates.h"

#include "valuation/BondAssessor.h"

#include <cmath>

namespace EeFixedRates {

namespace {

constexpr qint64 PaperPrice = 1250; // cents: a $25 paper EE bond cost $12.50
constexpr qint64 FaceValue = 2500;
constexpr int MonthsWithPenalty = 5 * 12; // redeemed earlier, the last three months' interest is lost
constexpr int PenaltyMonths = 3;
constexpr int MonthsNotRedeemable = 12;

// x rounded to the nearest cent, halves up.
qint64 roundHalfUp(long double cents)
{
    return static_cast<qint64>(std::floor(cents + 0.5L));
}

} // namespace

Table read(const QByteArray &data, const QString &fileName)
{
    return RateTable::readRanges(data, fileName, Header);
}

const Table &shipped()
{
    static const Table table = RateTable::resource(QStringLiteral("ee-fixed-rates.csv"), false, Header);
    return table;
}

qint32 valueAt(int basisPoints, int monthsSinceIssue)
{
    if (monthsSinceIssue < MonthsNotRedeemable)
        return static_cast<qint32>(RedemptionMarker::NotRedeemable);
    const int months = std::min(monthsSinceIssue, MonthsToFinalMaturity);
    const int earning = months < MonthsWithPenalty ? months - PenaltyMonths : months;
    const int periods = earning / 6;
    const int intoPeriod = earning % 6;
    // Each six-month period compounds half the annual rate on the rounded value of the last, in
    // whole cents; 2 * 10000 basis points make one (1 + rate / 2).
    qint64 value = PaperPrice;
    for (int period = 1; period <= periods; ++period) {
        value = (value * (20000 + basisPoints) + 10000) / 20000;
        if (period * 6 == MonthsToGuarantee && value < FaceValue)
            value = FaceValue;
    }
    if (intoPeriod == 0)
        return static_cast<qint32>(value);
    const long double growth = std::pow(1.0L + basisPoints / 20000.0L, intoPeriod / 6.0L);
    return static_cast<qint32>(roundHalfUp(value * growth));
}

} // namespace EeFixedRates
