// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What to ask the Fiscal Data service for: the redemption months each series lacks official
// values for, grouped so that series lacking the same months share one query. A series lacks the
// months after its last official month (open-ended: the service says how far it reaches) and any
// month missing between its first and its last. Values the program derived do not count as
// official: the service's replace them.
#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

struct sqlite3;

struct FiscalDataRequest
{
    QByteArray series; // series codes, e.g. "ENS"
    int first = 0;     // MonthIndex; 0: from the beginning
    int last = 0;      // MonthIndex; 0: open-ended

    bool covers(char code, int month) const;
    bool operator==(const FiscalDataRequest &) const = default;
};

namespace FiscalDataQuery {
// The data set below the service root.
inline constexpr const char *Endpoint = "/v2/accounting/od/sb_value";
// Asked for per page; the service may send fewer.
inline constexpr int PageSize = 10000;

// Months as the service writes them: "2022-08".
QString periodText(int month);

// The requests that would complete the database, or nothing (and *error) when it cannot be read.
std::optional<QList<FiscalDataRequest>> plan(sqlite3 *db, QString *error);
// The same from each series' official months (MonthIndex values, any order). A series with none
// is asked for whole.
QList<FiscalDataRequest> plan(const QHash<char, QList<int>> &officialMonths);

// The address of one page of a request. ascending: in month order (else latest first).
QUrl pageUrl(const QUrl &serviceRoot, const FiscalDataRequest &request, int page, int pageSize,
             bool ascending = true);
}
