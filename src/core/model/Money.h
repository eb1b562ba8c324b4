#pragma once
// Money is held as whole pennies; dollars exist only where a figure is shown, typed or exported.
#include <QString>
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
// (a double is truncated toward zero); strings are parsed as doubles and truncated the same way.
QVariant transformedValue(const QVariant &value);

// Dollars to pennies, rounding half up: floor(d * 100 + 0.5). Null gives null.
QVariant reverseTransformedValue(const QVariant &value);
}

// The plain forms the rest of the program uses.
double penniesToDollars(Pennies pennies);
Pennies dollarsToPennies(double dollars);

// Currency text with two decimals and grouping, e.g. "$1,234.56" or "-$0.25".
QString formatDollars(Pennies pennies);
