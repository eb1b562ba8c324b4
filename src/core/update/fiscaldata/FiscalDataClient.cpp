// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/fiscaldata/FiscalDataClient.h"
#include "base/Series.h"

#include "update/fiscaldata/FiscalDataPage.h"
#include "valuation/MonthIndex.h"

#include <QHash>
#include <algorithm>
#include <tuple>
#include <QCoreApplication>

namespace {

int monthOf(const PriceRecord &record)
{
    return MonthIndex::of(record.ryr, record.rmo);
}

QString describe(const FiscalDataRequest &request)
{
    QString months = request.first ? FiscalDataQuery::periodText(request.first) : QCoreApplication::translate("FiscalDataClient", "the start");
    months += QCoreApplication::translate("FiscalDataClient", " to ");
    months += request.last ? FiscalDataQuery::periodText(request.last) : QCoreApplication::translate("FiscalDataClient", "the latest");
    return QCoreApplication::translate("FiscalDataClient", "%1, %2").arg(Series::bondsNamesOfCodes(QString::fromLatin1(request.series)), months);
}

quint64 recordKey(const PriceRecord &record)
{
    return (quint64(quint8(record.series)) << 40) | (quint64(record.ryr) << 24) | (quint64(record.rmo) << 16)
        | record.iyr;
}

} // namespace

FiscalDataClient::FiscalDataClient(const QUrl &serviceRoot, const Limits &limits)
    : m_root(serviceRoot)
    , m_limits(limits)
{
}

std::optional<FiscalDataPage> FiscalDataClient::page(const FiscalDataRequest &request, int number, int pageSize,
                                                     bool ascending)
{
    if (++m_pages > m_limits.maximumPages) {
        m_lastError = QCoreApplication::translate("FiscalDataClient", "the reply runs to more than %1 pages").arg(m_limits.maximumPages);
        return std::nullopt;
    }
    PriceDataDownloader::Limits limits = m_limits.download;
    limits.maximumBytes = std::max<qint64>(0, m_limits.maximumBytes - m_bytes);
    limits.totalTimeoutMs = int(std::max<qint64>(1, m_deadline.remainingTime()));
    PriceDataDownloader downloader(limits);
    const std::optional<QByteArray> body =
        downloader.fetch(FiscalDataQuery::pageUrl(m_root, request, number, pageSize, ascending));
    const QString where = QCoreApplication::translate("FiscalDataClient", "Fiscal Data (%1), page %2").arg(describe(request)).arg(number);
    if (!body) {
        // The service answers a filter that matches nothing with 400 rather than an empty list.
        if (number == 1 && downloader.lastStatus() == 400)
            return FiscalDataPage{};
        // Each page may only use what the earlier ones left of the budget.
        const bool overBudget = downloader.lastWasTooLarge();
        m_lastError = QStringLiteral("%1: %2").arg(
            where, overBudget ? QCoreApplication::translate("FiscalDataClient", "the reply is larger than %1 bytes in all").arg(m_limits.maximumBytes)
                              : downloader.lastError());
        return std::nullopt;
    }
    m_bytes += body->size();
    FiscalDataPage result = FiscalDataPage::parse(*body);
    if (!result.ok()) {
        m_lastError = QStringLiteral("%1: %2").arg(where, result.error);
        return std::nullopt;
    }
    return result;
}

std::optional<FiscalDataClient::Span> FiscalDataClient::available(const QList<FiscalDataRequest> &requests)
{
    m_lastError.clear();
    m_bytes = 0;
    m_pages = 0;
    m_deadline.setRemainingTime(m_limits.download.totalTimeoutMs);
    Span span;
    for (const FiscalDataRequest &request : requests) {
        for (const bool ascending : {true, false}) {
            const std::optional<FiscalDataPage> first = page(request, 1, 1, ascending);
            if (!first)
                return std::nullopt;
            // Only the first record that the request covers counts: a service that ignored the
            // filter must not make months already installed look new.
            for (const PriceRecord &record : first->records) {
                const int month = monthOf(record);
                if (!request.covers(record.series, month))
                    continue;
                span.first = span.first ? std::min(span.first, month) : month;
                span.last = std::max(span.last, month);
                break;
            }
        }
    }
    return span;
}

std::optional<QList<PriceRecord>> FiscalDataClient::fetch(const QList<FiscalDataRequest> &requests,
                                                          const PageProgress &progress)
{
    m_lastError.clear();
    m_bytes = 0;
    m_pages = 0;
    m_deadline.setRemainingTime(m_limits.download.totalTimeoutMs);
    QList<PriceRecord> records;
    QHash<quint64, qsizetype> seen;
    int fetched = 0;
    int needed = int(requests.size());
    for (const FiscalDataRequest &request : requests) {
        int totalPages = 1;
        qint64 totalCount = 0;
        qint64 received = 0;
        for (int number = 1; number <= totalPages; ++number) {
            const std::optional<FiscalDataPage> current = page(request, number, m_limits.pageSize, true);
            if (!current)
                return std::nullopt;
            if (number == 1) {
                totalPages = current->totalPages;
                totalCount = current->totalCount;
                if (totalPages > m_limits.maximumPages) {
                    m_lastError = QCoreApplication::translate("FiscalDataClient", "Fiscal Data (%1): the reply runs to %2 pages, more than %3")
                                      .arg(describe(request)).arg(totalPages).arg(m_limits.maximumPages);
                    return std::nullopt;
                }
                needed += std::max(totalPages, 1) - 1;
            } else if (current->totalPages != totalPages || current->totalCount != totalCount) {
                m_lastError = QCoreApplication::translate("FiscalDataClient", "Fiscal Data (%1), page %2: the data set changed while it was read")
                                  .arg(describe(request)).arg(number);
                return std::nullopt;
            }
            received += current->records.size();
            for (const PriceRecord &record : current->records) {
                if (!request.covers(record.series, monthOf(record)))
                    continue;
                const auto earlier = seen.constFind(recordKey(record));
                if (earlier == seen.cend()) {
                    seen.insert(recordKey(record), records.size());
                    records.append(record);
                } else if (!(records.at(*earlier) == record)) {
                    m_lastError = QCoreApplication::translate("FiscalDataClient", "Fiscal Data lists %1, redemption month %2, issue year %3 "
                                                 "twice with different values")
                                      .arg(Series::bondsNamesOfCodes(QString(QLatin1Char(record.series))))
                                      .arg(FiscalDataQuery::periodText(monthOf(record)))
                                      .arg(record.iyr);
                    return std::nullopt;
                }
            }
            ++fetched;
            if (progress)
                progress(fetched, needed);
        }
        if (received != totalCount) {
            m_lastError = QCoreApplication::translate("FiscalDataClient", "Fiscal Data (%1): %2 records arrived where the service announced %3")
                              .arg(describe(request)).arg(received).arg(totalCount);
            return std::nullopt;
        }
    }
    std::stable_sort(records.begin(), records.end(), [](const PriceRecord &a, const PriceRecord &b) {
        return std::tuple(a.ryr, a.rmo, a.series, a.iyr) < std::tuple(b.ryr, b.rmo, b.series, b.iyr);
    });
    return records;
}
