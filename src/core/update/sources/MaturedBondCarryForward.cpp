// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/MaturedBondCarryForward.h"

#include "base/Series.h"

#include "base/Money.h"
#include "valuation/BondAssessor.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>
#include <QCoreApplication>

namespace MaturedBondCarryForward {

namespace {

// Months counted from year 0, so that month arithmetic is plain integer arithmetic.
int monthIndex(int year, int month) { return year * 12 + month - 1; }
int yearOf(int index) { return index / 12; }
int monthOf(int index) { return index % 12 + 1; }
QString monthText(int index) { return QString::asprintf("%04d-%02d", yearOf(index), monthOf(index)); }

// Key of a record: series, redemption month, issue year; ordered that way.
quint64 recordKey(char series, int redemption, int issueYear)
{
    return (quint64(quint8(series)) << 40) | (quint64(redemption) << 16) | quint64(issueYear);
}

struct Cell
{
    char series;
    int issue;      // month index
    int redemption; // month index
    qint32 value;
    int source;     // index into the sources, for messages
};

QString valueText(qint32 value)
{
    if (value == RedemptionMarker::NotRedeemable)
        return QCoreApplication::translate("MaturedBondCarryForward", "not redeemable");
    if (value == RedemptionMarker::NoPricingData)
        return QStringLiteral("blank");
    return formatDollars(value);
}

QString seriesName(char series)
{
    switch (series) {
    case 'E': return QCoreApplication::translate("MaturedBondCarryForward", "Series E");
    case 'N': return QCoreApplication::translate("MaturedBondCarryForward", "Series EE");
    case 'I': return QCoreApplication::translate("MaturedBondCarryForward", "Series I");
    default: return QCoreApplication::translate("MaturedBondCarryForward", "Savings Note");
    }
}

} // namespace

int monthsToFinalMaturity(char series, int issueYear, int issueMonth)
{
    const Series *kind = Series::seriesForCode(QString(QLatin1Char(series)));
    const Month issue(issueYear, issueMonth);
    return kind ? kind->finalMaturity(issue).index() - issue.index() : 30 * 12;
}

Result compute(const QList<NamedPriceRecords> &officialSources)
{
    std::vector<Cell> cells;
    QSet<quint64> officialRecords;
    int first = std::numeric_limits<int>::max();
    int last = std::numeric_limits<int>::min();
    for (int s = 0; s < officialSources.size(); ++s) {
        for (const PriceRecord &record : officialSources.at(s).records) {
            const int redemption = monthIndex(record.ryr, record.rmo);
            first = std::min(first, redemption);
            last = std::max(last, redemption);
            officialRecords.insert(recordKey(record.series, redemption, record.iyr));
            for (int m = 1; m <= 12; ++m)
                cells.push_back({record.series, monthIndex(record.iyr, m), redemption, record.value[m - 1], s});
        }
    }
    std::sort(cells.begin(), cells.end(), [](const Cell &a, const Cell &b) {
        return std::tie(a.series, a.issue, a.redemption) < std::tie(b.series, b.issue, b.redemption);
    });

    Result result;
    QMap<quint64, PriceRecord> derived;
    for (auto bondBegin = cells.begin(); bondBegin != cells.end();) {
        const auto bondEnd = std::find_if(bondBegin, cells.end(), [&](const Cell &c) {
            return c.series != bondBegin->series || c.issue != bondBegin->issue;
        });
        const char series = bondBegin->series;
        const int issue = bondBegin->issue;
        const int maturity = issue + monthsToFinalMaturity(series, yearOf(issue), monthOf(issue));
        const auto matured = std::find_if(bondBegin, bondEnd, [&](const Cell &c) { return c.redemption >= maturity; });
        bondBegin = bondEnd;
        if (matured == bondEnd)
            continue; // not matured within the official data: nothing is known of its final value
        for (auto later = matured + 1; later != bondEnd; ++later) {
            if (later->value != matured->value) {
                result.error = QCoreApplication::translate("MaturedBondCarryForward", "%1 issued %2 reached final maturity in %3, yet its value changes "
                                              "afterwards: %4 in %5 (%6) but %7 in %8 (%9)")
                                   .arg(seriesName(series), monthText(issue), monthText(maturity),
                                        valueText(matured->value), monthText(matured->redemption),
                                        officialSources.at(matured->source).name, valueText(later->value),
                                        monthText(later->redemption), officialSources.at(later->source).name);
                return result;
            }
        }
        if (matured->value <= 0)
            continue; // a bond that was never issued stays without data
        for (int redemption = std::max(maturity, first); redemption <= last; ++redemption) {
            const quint64 key = recordKey(series, redemption, yearOf(issue));
            if (officialRecords.contains(key))
                continue;
            auto record = derived.find(key);
            if (record == derived.end()) {
                PriceRecord fresh;
                fresh.series = series;
                fresh.ryr = static_cast<quint16>(yearOf(redemption));
                fresh.rmo = static_cast<quint8>(monthOf(redemption));
                fresh.iyr = static_cast<quint16>(yearOf(issue));
                fresh.value.fill(static_cast<qint32>(RedemptionMarker::NoPricingData));
                record = derived.insert(key, fresh);
            }
            record->value[monthOf(issue) - 1] = matured->value;
        }
    }
    result.records = derived.values();
    return result;
}

} // namespace MaturedBondCarryForward
