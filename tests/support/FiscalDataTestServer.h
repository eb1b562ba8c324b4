// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A stand-in for the Fiscal Data service on 127.0.0.1: the query subset the updater uses, and scripted faults.
#include "LocalHttpServer.h"
#include "update/PriceDataFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>
#include <QUrlQuery>
#include <algorithm>

class FiscalDataTestServer
{
public:
    static constexpr const char *Root = "/services/api/fiscal_service";
    static constexpr const char *DataSet = "/services/api/fiscal_service/v2/accounting/od/sb_value";

    struct Faults
    {
        int pageCap = 0;            // the largest page the service sends (0: as asked)
        int failingPage = 0;        // this page number of a full read answers 500
        QByteArray replacedBody;    // sent instead of the failing page, with status 200, when set
        bool ignoreFilter = false;  // a service that answers every query with everything
    };

    FiscalDataTestServer()
    {
        m_server.setHandler([this](const QString &pathAndQuery) { return answer(pathAndQuery); });
    }

    QUrl root() const { return m_server.url(QString::fromLatin1(Root)); }
    LocalHttpServer &http() { return m_server; }
    void setFaults(const Faults &faults)
    {
        QMutexLocker locker(&m_mutex);
        m_faults = faults;
        m_replies.clear();
    }
    // Values: cents per $25, -1 not redeemable (each of the service's forms in turn), -2 not issued ("null").
    void addRecords(const QList<PriceRecord> &records)
    {
        QMutexLocker locker(&m_mutex);
        for (const PriceRecord &r : records)
            m_rows.append(row(r, m_rows.size()));
        m_replies.clear();
    }
    void clear()
    {
        QMutexLocker locker(&m_mutex);
        m_rows.clear();
        m_replies.clear();
    }
    void addRow(const QJsonObject &raw)
    {
        QMutexLocker locker(&m_mutex);
        m_rows.append(raw);
        m_replies.clear();
    }
    static QJsonObject row(const PriceRecord &r, int line)
    {
        static const char *const notRedeemable[3] = {"NO PAY", "0", "0.00"};
        QJsonObject o;
        o.insert("series_cd", QString(QLatin1Char(r.series)));
        o.insert("redemp_period", QStringLiteral("%1-%2").arg(r.ryr).arg(r.rmo, 2, 10, QLatin1Char('0')));
        o.insert("redemption_year", QString::number(r.ryr));
        o.insert("redemption_month", QString::number(r.rmo));
        o.insert("issue_year", QString::number(r.iyr));
        for (int k = 0; k < 12; ++k) {
            const qint32 v = r.value[k];
            const QString text = v == -2 ? QStringLiteral("null")
                : v == -1               ? QString::fromLatin1(notRedeemable[(line + k) % 3])
                                        : QStringLiteral("%1.%2").arg(v / 100).arg(v % 100, 2, 10, QLatin1Char('0'));
            const QString month = QLocale::c().monthName(k + 1, QLocale::ShortFormat).toLower();
            o.insert(QStringLiteral("issue_%1_amt").arg(month), text);
        }
        o.insert("src_line_nbr", QString::number(line + 1));
        return o;
    }

private:
    struct Filter
    {
        QString field, op;
        QStringList values;
        bool matches(const QJsonObject &row) const
        {
            const QString have = row.value(field).toString();
            if (op == QLatin1String("in"))
                return values.contains(have);
            const QString want = values.value(0);
            const int order = QString::compare(have, want);
            return op == QLatin1String("eq") ? order == 0 : op == QLatin1String("lt") ? order < 0
                 : op == QLatin1String("lte") ? order <= 0 : op == QLatin1String("gt") ? order > 0
                 : op == QLatin1String("gte") ? order >= 0 : false;
        }
    };

    // "field:op:value,field:in:(a,b),..."
    static QList<Filter> filters(const QString &text)
    {
        static const QRegularExpression filter(QStringLiteral("(\\w+):(\\w+):(?:\\(([^)]*)\\)|([^,]*))"));
        QList<Filter> result;
        for (const QRegularExpressionMatch &m : filter.globalMatch(text))
            result.append({m.captured(1), m.captured(2), (m.captured(3) + m.captured(4)).split(QLatin1Char(','))});
        return result;
    }

    std::optional<LocalHttpServer::Response> answer(const QString &pathAndQuery)
    {
        const QUrl url(pathAndQuery);
        if (url.path() != QLatin1String(DataSet))
            return std::nullopt;
        QMutexLocker locker(&m_mutex);
        // The same question gets the same answer: kept, so that a benchmark times the client.
        if (const auto kept = m_replies.constFind(pathAndQuery); kept != m_replies.cend())
            return *kept;
        const QUrlQuery query(url);
        const QList<Filter> wanted = filters(query.queryItemValue("filter", QUrl::FullyDecoded));
        QList<QJsonObject> rows;
        for (const QJsonObject &r : m_rows) {
            if (m_faults.ignoreFilter || std::all_of(wanted.begin(), wanted.end(), [&](const Filter &f) { return f.matches(r); }))
                rows.append(r);
        }
        const QStringList sortKeys = query.queryItemValue("sort", QUrl::FullyDecoded).split(',', Qt::SkipEmptyParts);
        std::stable_sort(rows.begin(), rows.end(), [&](const QJsonObject &a, const QJsonObject &b) {
            for (QString key : sortKeys) {
                const bool descending = key.startsWith(QLatin1Char('-'));
                if (descending)
                    key.remove(0, 1);
                const int order = QString::compare(a.value(key).toString(), b.value(key).toString());
                if (order != 0)
                    return descending ? order > 0 : order < 0;
            }
            return false;
        });
        int size = query.queryItemValue("page[size]", QUrl::FullyDecoded).toInt();
        size = size > 0 ? size : 100;
        if (m_faults.pageCap > 0)
            size = std::min(size, m_faults.pageCap);
        const int number = std::max(1, query.queryItemValue("page[number]", QUrl::FullyDecoded).toInt());
        if (size > 1 && number == m_faults.failingPage) {
            if (!m_faults.replacedBody.isEmpty())
                return LocalHttpServer::Response{200, m_faults.replacedBody};
            return LocalHttpServer::Response{500, "failure"};
        }
        const int pages = int((rows.size() + size - 1) / size);
        const QList<QJsonObject> slice = rows.mid(qsizetype(number - 1) * size, size);

        QJsonArray data;
        for (const QJsonObject &r : slice)
            data.append(r);
        QJsonObject meta{{"count", int(slice.size())}, {"total-count", int(rows.size())}, {"total-pages", pages}};
        QJsonObject links{{"self", QStringLiteral("&page%5Bnumber%5D=%1").arg(number)}};
        const QJsonObject top{{"data", data}, {"meta", meta}, {"links", links}};
        const LocalHttpServer::Response response{200, QJsonDocument(top).toJson(QJsonDocument::Compact)};
        m_replies.insert(pathAndQuery, response);
        return response;
    }

    LocalHttpServer m_server;
    mutable QMutex m_mutex;
    Faults m_faults;
    QList<QJsonObject> m_rows;
    QHash<QString, LocalHttpServer::Response> m_replies;
};
