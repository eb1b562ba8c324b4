// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Month.h"

#include <QRegularExpression>

QDateTime Month::toDateTime() const
{
    return isNull() ? QDateTime() : QDateTime(QDate(year(), month(), 1), QTime(0, 0, 1), Qt::LocalTime);
}

QString Month::toString(Style style) const
{
    if (isNull())
        return {};
    const QString mm = QStringLiteral("%1").arg(month(), 2, 10, QLatin1Char('0'));
    const QString yyyy = QStringLiteral("%1").arg(year(), 4, 10, QLatin1Char('0'));
    return style == Style::Slash ? mm + QLatin1Char('/') + yyyy : yyyy + QLatin1Char('-') + mm;
}

Month Month::fromString(QStringView text, Form form)
{
    static const QRegularExpression iso(QStringLiteral("^\\s*(?<year>\\d{4})-(?<month>\\d{1,2})\\s*$"));
    static const QRegularExpression isoOrSlash(QStringLiteral("^\\s*(?<year>\\d{4})[-/](?<month>\\d{1,2})\\s*$"));
    static const QRegularExpression slash(QStringLiteral("^\\s*(?<month>\\d{1,2})\\s*/\\s*(?<year>\\d{4})\\s*$"));
    const QRegularExpression &pattern = form == Form::Iso ? iso : form == Form::IsoOrSlash ? isoOrSlash : slash;
    const QRegularExpressionMatch match = pattern.match(text.toString());
    const int month = match.hasMatch() ? match.captured(u"month").toInt() : 0;
    const int year = match.hasMatch() ? match.captured(u"year").toInt() : 0;
    if (month < 1 || month > 12 || year < 1)
        return {};
    return Month(year, month);
}
