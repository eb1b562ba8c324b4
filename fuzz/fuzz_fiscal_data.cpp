// The Fiscal Data source: arbitrary bytes as one page of the service's reply, and as the months a
// database holds. A page is read or refused with a reason; every record it yields passes the
// installer's own screening. A plan asks for exactly the months each series lacks, once each.
#include "update/PriceDataFile.h"
#include "update/fiscaldata/FiscalDataPage.h"
#include "update/fiscaldata/FiscalDataRequest.h"

#include <QByteArray>
#include <QSet>
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
    QSet<std::pair<char, int>> held;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        const char series = codes[quint8(bytes[i]) & 3];
        const int month = 1941 * 12 + ((quint8(bytes[i]) >> 2) * 256 + quint8(bytes[i + 1])) % (90 * 12);
        official[series] << month;
        held.insert({series, month});
    }
    const QList<FiscalDataRequest> plan = FiscalDataQuery::plan(official);
    for (const char series : codes) {
        const QList<int> months = official.value(series);
        const int first = months.isEmpty() ? 0 : *std::min_element(months.begin(), months.end());
        const int last = months.isEmpty() ? 0 : *std::max_element(months.begin(), months.end());
        int open = 0;
        for (const FiscalDataRequest &request : plan) {
            if (!request.series.contains(series))
                continue;
            open += request.last == 0 ? 1 : 0;
            if (request.last != 0 && request.first > request.last)
                std::abort();
            // Never a month the series holds; every month between its first and last that it lacks.
            for (int m = request.first; request.last != 0 && m <= request.last; ++m) {
                if (held.contains({series, m}))
                    std::abort();
            }
        }
        if (open != 1)
            std::abort();
        for (int m = first; first != 0 && m <= last; ++m) {
            const bool asked = std::any_of(plan.begin(), plan.end(), [&](const FiscalDataRequest &r) { return r.covers(series, m); });
            if (asked == held.contains({series, m}))
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
