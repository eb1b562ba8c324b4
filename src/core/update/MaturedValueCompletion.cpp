// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/MaturedValueCompletion.h"

#include "update/sources/MaturedBondCarryForward.h"
#include "valuation/BondAssessor.h"

#include <QMap>
#include <algorithm>
#include <limits>

namespace MaturedValueCompletion {

namespace {
constexpr qint32 NoData = static_cast<qint32>(RedemptionMarker::NoPricingData);

int monthIndex(int year, int month) { return year * 12 + month - 1; }

quint64 bondKey(char series, int issue)
{
    return (quint64(quint8(series)) << 32) | quint64(quint32(issue));
}
} // namespace

quint64 recordKey(char series, int ryr, int rmo, int iyr)
{
    return (quint64(quint8(series)) << 40) | (quint64(quint32(monthIndex(ryr, rmo))) << 16) | quint64(quint16(iyr));
}

PriceRecord &recordFor(QHash<quint64, PriceRecord> &records, char series, int ryr, int rmo, int iyr)
{
    auto record = records.find(recordKey(series, ryr, rmo, iyr));
    if (record == records.end()) {
        PriceRecord fresh;
        fresh.series = series;
        fresh.ryr = static_cast<quint16>(ryr);
        fresh.rmo = static_cast<quint8>(rmo);
        fresh.iyr = static_cast<quint16>(iyr);
        fresh.value.fill(NoData);
        record = records.insert(recordKey(fresh), fresh);
    }
    return *record;
}

int complete(QHash<quint64, PriceRecord> &records)
{
    // Every bond's known values by redemption month.
    QHash<quint64, QMap<int, qint32>> bonds;
    int first = std::numeric_limits<int>::max();
    int last = std::numeric_limits<int>::min();
    for (const PriceRecord &record : std::as_const(records)) {
        const int redemption = monthIndex(record.ryr, record.rmo);
        first = std::min(first, redemption);
        last = std::max(last, redemption);
        for (int k = 0; k < 12; ++k) {
            if (record.value[k] != NoData)
                bonds[bondKey(record.series, monthIndex(record.iyr, k + 1))].insert(redemption, record.value[k]);
        }
    }

    int filled = 0;
    for (auto bond = bonds.cbegin(); bond != bonds.cend(); ++bond) {
        const char series = static_cast<char>(bond.key() >> 32);
        const int issue = static_cast<int>(bond.key() & 0xffffffffu);
        const int issueYear = issue / 12, issueMonth = issue % 12 + 1;
        const int maturity = issue + MaturedBondCarryForward::monthsToFinalMaturity(series, issueYear, issueMonth);
        const auto matured = bond->lowerBound(maturity);
        if (matured == bond->cend() || matured.value() <= 0)
            continue; // not matured within the data, or never issued
        for (int redemption = std::max(maturity, first); redemption <= last; ++redemption) {
            const int ryr = redemption / 12, rmo = redemption % 12 + 1;
            qint32 &value = recordFor(records, series, ryr, rmo, issueYear).value[issueMonth - 1];
            if (value == NoData) {
                value = matured.value();
                ++filled;
            }
        }
    }
    return filled;
}

} // namespace MaturedValueCompletion
