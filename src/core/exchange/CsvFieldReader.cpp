// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/CsvFieldReader.h"

#include "base/Series.h"

#include <QDate>
#include <QRegularExpression>
#include <limits>

namespace CsvFieldReader {

QList<QStringView> fields(QStringView line)
{
    return line.split(QLatin1Char(','));
}

QStringView withoutSurroundingQuotes(QStringView text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text.at(start) == QLatin1Char('"'))
        ++start;
    while (end > start && text.at(end - 1) == QLatin1Char('"'))
        --end;
    return text.mid(start, end - start);
}

qint32 integerValue(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text.at(at).isSpace())
        ++at;
    bool negative = false;
    if (at < text.size() && (text.at(at) == QLatin1Char('-') || text.at(at) == QLatin1Char('+'))) {
        negative = text.at(at) == QLatin1Char('-');
        ++at;
    }
    // Accumulate toward the sign's limit and stop there, so that overflow saturates.
    const qint64 limit = negative ? -qint64(std::numeric_limits<qint32>::min()) : std::numeric_limits<qint32>::max();
    qint64 magnitude = 0;
    for (; at < text.size(); ++at) {
        const char16_t unit = text.at(at).unicode();
        if (unit < u'0' || unit > u'9')
            break;
        magnitude = std::min<qint64>(magnitude * 10 + (unit - u'0'), limit);
    }
    return static_cast<qint32>(negative ? -magnitude : magnitude);
}

Pennies faceValue(QStringView text)
{
    const qsizetype firstPoint = text.indexOf(QLatin1Char('.'));
    // The 32-bit wrap is the format's, kept so that every file reads as it always has; unsigned
    // arithmetic gives it without undefined behaviour.
    const auto wholeDollars = static_cast<quint32>(integerValue(text.left(firstPoint < 0 ? text.size() : firstPoint)));
    Pennies pennies = static_cast<qint32>(wholeDollars * 100u);
    const bool exactlyTwoPieces = firstPoint >= 0 && text.indexOf(QLatin1Char('.'), firstPoint + 1) < 0;
    if (exactlyTwoPieces)
        pennies += integerValue(text.mid(firstPoint + 1));
    return pennies;
}

Month issueMonth(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^ *([0-9]{1,2})/([0-9]{4}) *$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    const int month = match.captured(1).toInt();
    const int year = match.captured(2).toInt();
    if (month < 1 || month > 12 || year < 1)
        return {};
    return Month(year, month);
}

Month isoIssueMonth(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^ *([0-9]{4})-([0-9]{2})-([0-9]{2}) *$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    return Month::of(QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()));
}

const Series *series(QStringView text)
{
    return SeriesCsv::seriesForCSVCode(withoutSurroundingQuotes(text));
}

} // namespace CsvFieldReader

namespace SeriesCsv {

const Series *seriesForCSVCode(QStringView text)
{
    if (text.startsWith(QLatin1String("EE")))
        return Series::eeBond();
    for (const char *code : {"E", "I", "S"}) {
        if (text.startsWith(QLatin1String(code)))
            return Series::seriesForCode(QLatin1String(code));
    }
    return nullptr;
}

} // namespace SeriesCsv
