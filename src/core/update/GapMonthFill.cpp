// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/GapMonthFill.h"

#include "update/MarketRateEeAccrual.h"
#include "update/MaturedValueCompletion.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "valuation/BondAssessor.h"

#include <algorithm>
#include <optional>

namespace GapMonthFill {

namespace {

constexpr qint32 NoData = static_cast<qint32>(RedemptionMarker::NoPricingData);
constexpr int StepPeriod = 6;
// Each side of a run: where a bond's six-monthly steps are read from.
constexpr int StepSearchMonths = 12;
// Each side of a run: all any rule looks at.
constexpr int HistoryMonths = 3 * 12;

using History = MarketRateEeAccrual::History;

// The point of the half-year (month index modulo 6) at which a bond's value steps, read from the
// months around the run: only for a bond priced throughout them that steps, always at the same
// point. Old Series E bonds step three months off their issue month, so the issue
// month alone cannot tell. The step at final maturity may fall elsewhere and is not counted.
std::optional<int> stepPoint(const History &history, const Run &run, int maturity)
{
    std::optional<int> point;
    for (int month = run.first - StepSearchMonths + 1; month <= run.last + StepSearchMonths; ++month) {
        if (month >= run.first && month <= run.last + 1)
            continue;
        const qint32 before = history.value(month - 1, NoData), now = history.value(month, NoData);
        if (before <= 0 || now <= 0)
            return std::nullopt;
        if (before == now || month == maturity)
            continue;
        if (point && *point != month % StepPeriod)
            return std::nullopt;
        point = month % StepPeriod;
    }
    return point;
}

// Months before final maturity keep the value of the month before the run or after it, whichever
// lies in the same step period; later months are the matured value's (MaturedValueCompletion).
void fillSixMonthly(const History &history, const Run &run, int maturity, History &filled)
{
    const std::optional<int> point = stepPoint(history, run, maturity);
    if (!point)
        return;
    const auto stepsWithin = [&](int from, int to) {
        for (int month = from; month <= to; ++month) {
            if (month % StepPeriod == *point || month == maturity)
                return true;
        }
        return false;
    };
    for (int month = run.first; month <= run.last && month < maturity; ++month) {
        if (!stepsWithin(run.first, month))
            filled.insert(month, history.value(run.first - 1));
        else if (!stepsWithin(month + 1, run.last + 1))
            filled.insert(month, history.value(run.last + 1));
    }
}

} // namespace

QList<Run> runs(const QHash<char, QSet<int>> &officialMonths)
{
    QList<Run> found;
    for (const char series : {'E', 'N', 'S'}) {
        QList<int> months = officialMonths.value(series).values();
        std::sort(months.begin(), months.end());
        for (int i = 1; i < months.size(); ++i) {
            const int missing = months.at(i) - months.at(i - 1) - 1;
            if (missing > 0 && missing <= LongestRun)
                found.append({series, months.at(i - 1) + 1, months.at(i) - 1});
        }
    }
    return found;
}

int fill(QHash<quint64, PriceRecord> &records, const Run &run)
{
    // Every bond's values around the run, by issue month.
    QHash<int, History> bonds;
    for (const PriceRecord &record : std::as_const(records)) {
        const int month = record.ryr * 12 + record.rmo - 1;
        if (record.series != run.series || month < run.first - HistoryMonths || month > run.last + HistoryMonths
            || (month >= run.first && month <= run.last))
            continue;
        for (int k = 0; k < 12; ++k) {
            if (record.value[k] != NoData)
                bonds[record.iyr * 12 + k].insert(month, record.value[k]);
        }
    }
    QHash<int, History> filled;
    QHash<int, History> marketRate;
    for (auto bond = bonds.cbegin(); bond != bonds.cend(); ++bond) {
        const int issue = bond.key();
        if (run.series == 'N' && issue >= MarketRateEeAccrual::FirstIssue) {
            if (issue <= MarketRateEeAccrual::LastIssue)
                marketRate.insert(issue, *bond);
            continue; // later EE bonds earn a fixed rate, computed on their own
        }
        const int maturity = issue + MaturedBondCarryForward::monthsToFinalMaturity(run.series, issue / 12, issue % 12 + 1);
        fillSixMonthly(*bond, run, maturity, filled[issue]);
    }
    filled.insert(MarketRateEeAccrual::fill(marketRate, run.first, run.last));

    int count = 0;
    for (auto bond = filled.cbegin(); bond != filled.cend(); ++bond) {
        const int iyr = bond.key() / 12, imo = bond.key() % 12 + 1;
        for (auto value = bond->cbegin(); value != bond->cend(); ++value) {
            qint32 &cell = MaturedValueCompletion::recordFor(records, run.series, value.key() / 12, value.key() % 12 + 1, iyr)
                               .value[imo - 1];
            if (cell == NoData) {
                cell = value.value();
                ++count;
            }
        }
    }
    return count;
}

} // namespace GapMonthFill
