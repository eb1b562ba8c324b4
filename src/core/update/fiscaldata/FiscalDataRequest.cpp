// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/fiscaldata/FiscalDataRequest.h"

#include "base/Month.h"
#include "update/DerivedValues.h"
#include "valuation/MonthIndex.h"
#include "valuation/RedemptionDatabase.h"

#include <QHash>
#include <QMap>
#include <QUrlQuery>
#include <algorithm>
#include <sqlite3.h>

bool FiscalDataRequest::covers(char code, int month) const
{
    return series.contains(code) && (first == 0 || month >= first) && (last == 0 || month <= last);
}

namespace FiscalDataQuery {

QString periodText(int month)
{
    return Month::fromIndex(month).toString(Month::Style::Iso);
}

QList<FiscalDataRequest> plan(const QHash<char, QList<int>> &officialMonths)
{
    // Spans of missing months, and which series lack each.
    QMap<std::pair<int, int>, QByteArray> spans;
    for (const char code : {'E', 'N', 'I', 'S'}) {
        QList<int> months = officialMonths.value(code);
        std::sort(months.begin(), months.end());
        months.erase(std::unique(months.begin(), months.end()), months.end());
        if (months.isEmpty()) {
            spans[{0, 0}] += code;
            continue;
        }
        for (qsizetype i = 1; i < months.size(); ++i) {
            if (months.at(i) > months.at(i - 1) + 1)
                spans[{months.at(i - 1) + 1, months.at(i) - 1}] += code;
        }
        spans[{months.last() + 1, 0}] += code;
    }
    QList<FiscalDataRequest> requests;
    for (auto it = spans.cbegin(); it != spans.cend(); ++it)
        requests.append({it.value(), it.key().first, it.key().second});
    return requests;
}

std::optional<QList<FiscalDataRequest>> plan(sqlite3 *db, QString *error)
{
    // A month is official for a series when one of its rows holds a value (or the not-redeemable
    // mark) that the program did not derive.
    const bool hasDerived = RedemptionDatabase::hasTable(db, "derived_value");
    const QByteArray sql = QByteArray("select series, ryr * 12 + rmo - 1 from bond_value b where value >= -1")
        + (hasDerived ? " and not exists (select 1 from derived_value d where d.series = b.series and d.iyr = b.iyr"
                        " and d.imo = b.imo and d.ryr = b.ryr and d.rmo = b.rmo)"
                      : "")
        + " group by 1, 2";
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr) != SQLITE_OK) {
        *error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        return std::nullopt;
    }
    QHash<char, QList<int>> months;
    int status;
    while ((status = sqlite3_step(stmt)) == SQLITE_ROW) {
        const auto *code = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        if (code && code[0])
            months[code[0]].append(sqlite3_column_int(stmt, 1));
    }
    if (status != SQLITE_DONE) {
        *error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        return std::nullopt;
    }
    sqlite3_finalize(stmt);
    return plan(months);
}

QUrl pageUrl(const QUrl &serviceRoot, const FiscalDataRequest &request, int page, int pageSize, bool ascending)
{
    QUrl url = serviceRoot;
    QString path = url.path();
    while (path.endsWith(QLatin1Char('/')))
        path.chop(1);
    url.setPath(path + QLatin1String(Endpoint));

    QStringList filters;
    QStringList codes;
    for (const char code : request.series)
        codes << QString(QLatin1Char(code));
    filters << (codes.size() == 1 ? QStringLiteral("series_cd:eq:%1").arg(codes.first())
                                  : QStringLiteral("series_cd:in:(%1)").arg(codes.join(QLatin1Char(','))));
    if (request.first)
        filters << QStringLiteral("redemp_period:gte:%1").arg(periodText(request.first));
    if (request.last)
        filters << QStringLiteral("redemp_period:lte:%1").arg(periodText(request.last));

    QUrlQuery query;
    query.addQueryItem(QStringLiteral("filter"), filters.join(QLatin1Char(',')));
    query.addQueryItem(QStringLiteral("sort"), ascending ? QStringLiteral("redemp_period,series_cd,issue_year")
                                                         : QStringLiteral("-redemp_period,series_cd,issue_year"));
    query.addQueryItem(QStringLiteral("format"), QStringLiteral("json"));
    query.addQueryItem(QStringLiteral("page[number]"), QString::number(page));
    query.addQueryItem(QStringLiteral("page[size]"), QString::number(pageSize));
    url.setQuery(query);
    return url;
}

} // namespace FiscalDataQuery
