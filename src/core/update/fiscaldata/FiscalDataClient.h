// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reads what the Fiscal Data service holds for a list of requests, page by page, until the page
// count the service announces; it never assumes that the page size it asked for was honoured.
// Blocking: meant for the updater's worker thread. All or nothing: any failure (an HTTP error, a
// time-out, a malformed page, a record that cannot be read, more pages or bytes than a sane reply
// needs) yields no records at all and one line saying why.
#include "update/PriceDataDownloader.h"
#include "update/PriceDataFile.h"
#include "update/fiscaldata/FiscalDataRequest.h"

#include <QDeadlineTimer>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

struct FiscalDataPage;

class FiscalDataClient
{
public:
    struct Limits
    {
        PriceDataDownloader::Limits download;
        int maximumPages = 200;                    // over all requests of one update
        qint64 maximumBytes = 64LL * 1024 * 1024;  // over all pages of one update
        int pageSize = FiscalDataQuery::PageSize;
    };
    // Pages read so far, and the pages known to be needed (grows as requests announce theirs).
    using PageProgress = std::function<void(int fetched, int needed)>;

    FiscalDataClient(const QUrl &serviceRoot, const Limits &limits);

    // The first and last redemption month (MonthIndex) the service holds for the requests;
    // {0, 0} when it holds none. Reads one record at each end of each request.
    struct Span
    {
        int first = 0;
        int last = 0;
        bool isEmpty() const { return first == 0; }
    };
    std::optional<Span> available(const QList<FiscalDataRequest> &requests);

    // Every record the requests cover, each once, in month order. Records outside the requests
    // (a service that ignored a filter) are left out.
    std::optional<QList<PriceRecord>> fetch(const QList<FiscalDataRequest> &requests,
                                            const PageProgress &progress = {});

    QString lastError() const { return m_lastError; }

private:
    std::optional<FiscalDataPage> page(const FiscalDataRequest &request, int number, int pageSize, bool ascending);

    QUrl m_root;
    Limits m_limits;
    // The download limits' total time bounds all pages of one call together.
    QDeadlineTimer m_deadline;
    qint64 m_bytes = 0;
    int m_pages = 0;
    QString m_lastError;
};
