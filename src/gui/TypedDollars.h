// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// An amount the user typed: "1234.5", "1,234.56" or "$1,234.56", with at most two decimals.
#include "base/Money.h"

#include <QRegularExpression>
#include <QString>

// The pennies typed, or -1 for text that is no such amount.
inline Pennies typedDollars(const QString &text)
{
    QString plain = text.trimmed();
    plain.remove(QLatin1Char(',')).remove(QLatin1Char('$'));
    static const QRegularExpression dollars(QStringLiteral("^\\d{1,9}(\\.\\d{0,2})?$"));
    return dollars.match(plain).hasMatch() ? dollarsToPennies(leadingNumber(plain)) : -1;
}
