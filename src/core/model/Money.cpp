#include "model/Money.h"

#include <QLocale>
#include <cmath>

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
    throw DollarConversionError(QStringLiteral("Value (%1) does not respond to -doubleValue.")
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
        return value.toString().trimmed().toDouble(); // unparsable text reads as 0, like a number-less string
    if (value.typeId() == QMetaType::QByteArray)
        return value.toByteArray().trimmed().toDouble();
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

double penniesToDollars(Pennies pennies)
{
    return static_cast<double>(pennies) / 100.0;
}

Pennies dollarsToPennies(double dollars)
{
    return static_cast<Pennies>(std::floor(dollars * 100.0 + 0.5));
}

QString formatDollars(Pennies pennies)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    // The US locale writes negative currency in accounting parentheses; a minus sign reads better
    // in a table of figures.
    const QString magnitude = english.toCurrencyString(std::fabs(penniesToDollars(pennies)), QStringLiteral("$"), 2);
    return pennies < 0 ? QLatin1Char('-') + magnitude : magnitude;
}
