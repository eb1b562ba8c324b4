// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/SourceText.h"

#include <QDate>
#include <QString>

namespace SourceText {

QList<QByteArrayView> lines(const QByteArray &data)
{
    QByteArrayView rest(data);
    if (rest.endsWith('\x1a'))
        rest.chop(1);
    QList<QByteArrayView> result;
    while (!rest.isEmpty()) {
        const qsizetype end = rest.indexOf('\n');
        QByteArrayView line = end < 0 ? rest : rest.first(end);
        rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        result.append(line);
    }
    return result;
}

bool isBlank(QByteArrayView text)
{
    for (char c : text) {
        if (c != ' ' && c != '\t')
            return false;
    }
    return true;
}

QByteArrayView trimmed(QByteArrayView text)
{
    while (!text.isEmpty() && (text.front() == ' ' || text.front() == '\t'))
        text = text.sliced(1);
    while (!text.isEmpty() && (text.back() == ' ' || text.back() == '\t'))
        text.chop(1);
    return text;
}

std::optional<qint64> digits(QByteArrayView text)
{
    // Ten digits at most keeps the sum far from overflow; callers check their own ranges.
    if (text.isEmpty() || text.size() > 10)
        return std::nullopt;
    qint64 value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

std::optional<qint64> signedInteger(QByteArrayView text)
{
    if (text.startsWith('-')) {
        const auto magnitude = digits(text.sliced(1));
        return magnitude ? std::optional<qint64>(-*magnitude) : std::nullopt;
    }
    return digits(text);
}

QString quoted(QByteArrayView text)
{
    QString shown;
    for (char c : text.first(qMin<qsizetype>(text.size(), 40)))
        shown += (c >= 0x20 && c < 0x7f) ? QChar::fromLatin1(c) : QChar(u'?');
    if (text.size() > 40)
        shown += QStringLiteral("...");
    return QLatin1Char('\'') + shown + QLatin1Char('\'');
}

bool isSeriesCode(char code)
{
    return code == 'E' || code == 'N' || code == 'I' || code == 'S';
}

int latestRedemptionYear()
{
    return QDate::currentDate().year() + 1;
}

} // namespace SourceText
