// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The Fiscal Data source: arbitrary bytes as one page of the service's reply, and as the months a
// database holds. A page is read or refused with a reason; every record it yields passes the
// installer's own screening. A plan asks for exactly the months each series lacks, once each.
#include "update/PriceDataFile.h"
#include "update/fiscaldata/FiscalDataPage.h"
#include "update/fiscaldata/FiscalDataRequest.h"

#include <QByteArray>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace {
void checkPage(const QByteArray &bytes)
{
    const FiscalDataPage page = FiscalDataPage::parse(bytes);
    if (page.ok() == !page.error.isEmpty())
        std::abort();
    if (!page.ok() && !page.records.isEmpty())
        std::abort();
    if (!PriceDataFile::screen(page.records).isEmpty())
        std::abort();
}

// Two bytes a month of a series: the series from the first's low bits, the month from both.
void checkPlan(const QByteArray &bytes)
{
    static const char codes[4] = {'E', 'N', 'I', 'S'};
    QHash<char, QList<int>> official;
    constexpr int origin = 1941 * 12;
    constexpr int span = 90 * 12;
    // Flat tables rather than hashes: the check must cost less than the plan it checks.
    std::array<std::array<bool, span>, 4> held{};
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        const int code = quint8(bytes[i]) & 3;
        const int month = origin + ((quint8(bytes[i]) >> 2) * 256 + quint8(bytes[i + 1])) % span;
        official[codes[code]] << month;
        held[code][month - origin] = true;
    }
    const QList<FiscalDataRequest> plan = FiscalDataQuery::plan(official);
    for (int code = 0; code < 4; ++code) {
        const char series = codes[code];
        const QList<int> months = official.value(series);
        const int first = months.isEmpty() ? 0 : *std::min_element(months.begin(), months.end());
        const int last = months.isEmpty() ? 0 : *std::max_element(months.begin(), months.end());
        // Marked month by month, so that each input costs time in the plan and not in this check.
        std::array<bool, span> asked{};
        int open = 0;
        int openFrom = 0;
        for (const FiscalDataRequest &request : plan) {
            if (!request.series.contains(series))
                continue;
            if (request.last == 0) {
                ++open;
                openFrom = request.first;
                continue;
            }
            if (request.first > request.last)
                std::abort();
            // Never a month the series holds, and never a month asked twice.
            for (int m = request.first; m <= request.last; ++m) {
                if (m < origin || m >= origin + span || held[code][m - origin] || asked[m - origin])
                    std::abort();
                asked[m - origin] = true;
            }
        }
        if (open != 1 || (last != 0 && openFrom <= last))
            std::abort();
        // Every month between its first and last that it lacks.
        for (int m = first; first != 0 && m <= last; ++m) {
            if (asked[m - origin] == held[code][m - origin])
                std::abort();
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, static_cast<qsizetype>(size - 1));
    if (data[0] & 1)
        checkPlan(bytes.left(4096));
    else
        checkPage(bytes);
    return 0;
}
