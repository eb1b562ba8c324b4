// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Money.h"

#include <QLocale>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <QCoreApplication>

DollarConversionError::DollarConversionError(const QString &message)
    : std::logic_error(message.toStdString())
{
}

namespace {

bool isIntegral(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Long: case QMetaType::ULong: case QMetaType::Short: case QMetaType::UShort:
    case QMetaType::Char: case QMetaType::SChar: case QMetaType::UChar: case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

bool isFloating(const QVariant &value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

[[noreturn]] void refuse(const QVariant &value)
{
    const char *name = value.metaType().name();
    throw DollarConversionError(QCoreApplication::translate("Money", "Value (%1) does not respond to -doubleValue.")
                                    .arg(QString::fromLatin1(name ? name : "invalid")));
}

// The double a number-like value answers, or refusal.
double doubleValueOf(const QVariant &value)
{
    if (isIntegral(value))
        return static_cast<double>(value.toLongLong());
    if (isFloating(value))
        return value.toDouble();
    if (value.typeId() == QMetaType::QString)
        return leadingNumber(value.toString());
    if (value.typeId() == QMetaType::QByteArray)
        return leadingNumber(QString::fromLatin1(value.toByteArray()));
    refuse(value);
}

} // namespace

namespace DollarTransformer {

QVariant transformedValue(const QVariant &value)
{
    if (value.isNull())
        return {};
    Pennies pennies = 0;
    if (isIntegral(value))
        pennies = value.toLongLong();
    else
        pennies = static_cast<Pennies>(doubleValueOf(value)); // truncation toward zero
    return QVariant(static_cast<double>(pennies) / 100.0);
}

QVariant reverseTransformedValue(const QVariant &value)
{
    if (value.isNull())
        return {};
    return QVariant::fromValue<qint64>(dollarsToPennies(doubleValueOf(value)));
}

} // namespace DollarTransformer

double leadingNumber(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        negative = text[at++] == u'-';
    // Only digits and a point may start the number: from_chars alone would also take "inf" and "nan".
    auto isDigit = [&](qsizetype i) { return i < text.size() && text[i] >= u'0' && text[i] <= u'9'; };
    if (!isDigit(at) && !(at < text.size() && text[at] == u'.' && isDigit(at + 1)))
        return 0.0;
    // The plain ASCII run from here; from_chars takes the longest number at its start.
    std::string ascii;
    for (qsizetype i = at; i < text.size() && text[i].unicode() < 0x80; ++i)
        ascii.push_back(char(text[i].unicode()));
    double magnitude = 0.0;
    const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), magnitude);
    if (error != std::errc())
        return 0.0;
    return negative ? -magnitude : magnitude;
}

double penniesToDollars(Pennies pennies)
{
    return static_cast<double>(pennies) / 100.0;
}

Pennies dollarsToPennies(double dollars)
{
    const double rounded = std::floor(dollars * 100.0 + 0.5);
    // Converting a double outside the 64-bit range is undefined; such amounts saturate instead.
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (std::isnan(rounded))
        return 0;
    if (rounded >= limit)
        return std::numeric_limits<Pennies>::max();
    if (rounded < -limit)
        return std::numeric_limits<Pennies>::min();
    return static_cast<Pennies>(rounded);
}

QString plainDollars(Pennies pennies)
{
    const Pennies magnitude = pennies < 0 ? -pennies : pennies;
    return QStringLiteral("%1%2.%3")
        .arg(pennies < 0 ? QStringLiteral("-") : QString())
        .arg(magnitude / 100)
        .arg(magnitude % 100, 2, 10, QLatin1Char('0'));
}

QString formatDollars(Pennies pennies)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    // The US locale writes negative currency in accounting parentheses; a minus sign reads better
    // in a table of figures.
    const QString magnitude = english.toCurrencyString(std::fabs(penniesToDollars(pennies)), QStringLiteral("$"), 2);
    return pennies < 0 ? QLatin1Char('-') + magnitude : magnitude;
}
