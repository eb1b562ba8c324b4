// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Money is held as whole pennies; dollars exist only where a figure is shown, typed or exported.
#include <QString>
#include <QStringView>
#include <QVariant>
#include <QtGlobal>
#include <stdexcept>

using Pennies = qint64;

// Raised for a value that is neither null nor number-like: a programming error, not user input.
class DollarConversionError : public std::logic_error
{
public:
    explicit DollarConversionError(const QString &message);
};

namespace DollarTransformer {
inline constexpr const char *Name = "DollarTransformer";

// Pennies to dollars. Null gives null. Numbers are taken as their 64-bit integer value
// (a double is truncated toward zero); strings are read as leadingNumber() and truncated the same way.
QVariant transformedValue(const QVariant &value);

// Dollars to pennies, rounding half up: floor(d * 100 + 0.5). Null gives null; text is read as
// leadingNumber(), so "12.5x" is 1250 pennies and "abc" is 0.
QVariant reverseTransformedValue(const QVariant &value);
}

// The number a text begins with, the way Cocoa's -[NSString doubleValue] reads it: leading white
// space, an optional sign, digits with an optional decimal point and an optional exponent; whatever
// follows is ignored. No grouping, no currency sign, no locale: "1,234" is 1, "$5" is 0. Text
// without such a number, or with one beyond the range of a double, reads as 0.
double leadingNumber(QStringView text);

// The plain forms the rest of the program uses.
double penniesToDollars(Pennies pennies);
// Amounts beyond what pennies can hold saturate; not-a-number is 0.
Pennies dollarsToPennies(double dollars);

// Currency text with two decimals and grouping, e.g. "$1,234.56" or "-$0.25".
QString formatDollars(Pennies pennies);
// Dollars, a point and two cents, no sign but a minus and no grouping: "1234.05", "-0.50"; exact
// for every amount, for files and for text the user types over.
QString plainDollars(Pennies pennies);
