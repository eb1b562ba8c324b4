// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/RateTable.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>

namespace {

std::optional<int> month(QByteArrayView text)
{
    bool yearOk = false, monthOk = false;
    if (text.size() != 7 || text.at(4) != '-')
        return std::nullopt;
    const int year = text.first(4).toInt(&yearOk);
    const int monthOfYear = text.sliced(5).toInt(&monthOk);
    if (!yearOk || !monthOk || year < 1900 || monthOfYear < 1 || monthOfYear > 12)
        return std::nullopt;
    return year * 12 + monthOfYear - 1;
}

// "-2.78" as -278: at most two decimals, so the rate stays exact.
std::optional<int> basisPoints(QByteArrayView text)
{
    const bool negative = text.startsWith('-');
    if (negative)
        text = text.sliced(1);
    const qsizetype dot = text.indexOf('.');
    const QByteArrayView whole = dot < 0 ? text : text.first(dot);
    const QByteArray decimals = (dot < 0 ? QByteArray() : text.sliced(dot + 1).toByteArray()).leftJustified(2, '0');
    const auto isDigits = [](QByteArrayView digits) {
        return !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    };
    if (decimals.size() > 2 || !isDigits(whole) || !isDigits(decimals) || whole.size() > 3)
        return std::nullopt;
    const int value = whole.toInt() * 100 + decimals.toInt();
    return negative ? -value : value;
}

QString refusal(const QString &fileName, int line, const QString &what)
{
    return line > 0 ? QStringLiteral("%1:%2: %3").arg(fileName).arg(line).arg(what) : QStringLiteral("%1: %2").arg(fileName, what);
}

RateTable read(const QByteArray &data, const QString &fileName, QByteArrayView header, int columns, int lastSpan)
{
    RateTable table;
    const QList<QByteArray> lines = data.split('\n');
    bool headerSeen = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines.at(i).trimmed();
        if (line.isEmpty())
            continue;
        const auto refuse = [&](const QString &what) {
            table.ranges.clear();
            table.error = refusal(fileName, i + 1, what);
            return table;
        };
        if (!headerSeen) {
            headerSeen = true;
            if (!line.startsWith(header))
                return refuse(QCoreApplication::translate("RateTable", "the header must begin %1").arg(QString::fromLatin1(header)));
            continue;
        }
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() < columns)
            return refuse(QCoreApplication::translate("RateTable", "%1 columns expected").arg(columns));
        const auto first = month(cells.at(0).trimmed());
        const auto last = columns == 3 ? month(cells.at(1).trimmed()) : first;
        const auto rate = basisPoints(cells.at(columns - 1).trimmed());
        if (!first || !last || *last < *first)
            return refuse(QCoreApplication::translate("RateTable", "months must be YYYY-MM, the first not after the last"));
        if (!rate)
            return refuse(QCoreApplication::translate("RateTable", "the rate must be a percentage with at most two decimals"));
        if (!table.ranges.isEmpty() && *first <= (columns == 2 ? table.ranges.last().first : table.ranges.last().last))
            return refuse(QCoreApplication::translate("RateTable", "each range must begin after the previous one ends"));
        if (columns == 2 && !table.ranges.isEmpty())
            table.ranges.last().last = *first - 1;
        table.ranges.append({*first, columns == 2 ? *first + lastSpan - 1 : *last, *rate});
    }
    if (table.ranges.isEmpty() && table.ok())
        table.error = refusal(fileName, 0, QCoreApplication::translate("RateTable", "no rates"));
    return table;
}

} // namespace

std::optional<int> RateTable::basisPointsFor(int monthIndex) const
{
    // Ordered and without overlaps: the first range ending at or after the month is the only candidate.
    const auto range = std::lower_bound(ranges.cbegin(), ranges.cend(), monthIndex,
                                        [](const Range &r, int month) { return r.last < month; });
    if (range == ranges.cend() || monthIndex < range->first)
        return std::nullopt;
    return range->basisPoints;
}

RateTable RateTable::readRanges(const QByteArray &data, const QString &fileName, QByteArrayView header)
{
    return read(data, fileName, header, 3, 0);
}

RateTable RateTable::readAnnouncements(const QByteArray &data, const QString &fileName, QByteArrayView header, int lastSpan)
{
    return read(data, fileName, header, 2, lastSpan);
}

RateTable RateTable::resource(const QString &name, bool announcements, QByteArrayView header, int lastSpan)
{
    const QString path = QStringLiteral(":/rates/") + name;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        RateTable missing;
        missing.error = refusal(path, 0, QCoreApplication::translate("RateTable", "missing"));
        return missing;
    }
    return announcements ? readAnnouncements(file.readAll(), path, header, lastSpan) : readRanges(file.readAll(), path, header);
}
