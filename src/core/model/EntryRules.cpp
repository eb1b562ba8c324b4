// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/EntryRules.h"

#include "base/Series.h"
#include "model/Holding.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace {
// The denominations the Treasury printed savings bonds in.
constexpr std::array<Pennies, 10> PaperDenominations{1000, 2500, 5000, 7500, 10000, 20000, 50000, 100000, 500000, 1000000};
} // namespace

namespace EntryRules {

std::optional<Pennies> readFaceValue(QStringView text)
{
    static const QRegularExpression amount(QStringLiteral(R"(^\s*\$?\s*(\d{1,3}(?:,\d{3}){1,3}|\d{1,9})(?:\.(\d{1,2}))?\s*$)"));
    const QRegularExpressionMatch match = amount.match(text.toString());
    if (!match.hasMatch())
        return std::nullopt;
    const Pennies dollars = match.captured(1).remove(QLatin1Char(',')).toLongLong();
    const QString cents = match.captured(2);
    return dollars * 100 + (cents.isEmpty() ? 0 : cents.leftJustified(2, QLatin1Char('0')).toLongLong());
}

EntryRefusal checkQuantity(qint64 quantity)
{
    return quantity >= 1 ? EntryRefusal::None : EntryRefusal::QuantityBelowOne;
}

EntryRefusal checkFaceValue(Pennies faceValue, bool paper)
{
    if (paper)
        return std::ranges::find(PaperDenominations, faceValue) != PaperDenominations.end() ? EntryRefusal::None
                                                                                           : EntryRefusal::NotADenomination;
    return faceValue >= MinimumElectronicFaceValue && faceValue <= MaximumElectronicFaceValue
               ? EntryRefusal::None
               : EntryRefusal::ElectronicAmountOutOfRange;
}

Month firstElectronicIssue(const Series *series)
{
    const QString code = series ? series->code() : QString();
    if (code == QLatin1String("N"))
        return Month(2003, 5);
    if (code == QLatin1String("I"))
        return Month(2002, 10);
    return {};
}

EntryRefusal checkElectronic(const Series *series, Month issue)
{
    const Month first = firstElectronicIssue(series);
    if (first.isNull())
        return EntryRefusal::NeverElectronic;
    return issue.isNull() || issue >= first ? EntryRefusal::None : EntryRefusal::NotYetElectronic;
}

EntryRefusal check(const Holding &holding)
{
    if (const EntryRefusal refusal = checkQuantity(holding.quantity()); refusal != EntryRefusal::None)
        return refusal;
    if (const EntryRefusal refusal = checkFaceValue(holding.faceValue(), holding.isPaper()); refusal != EntryRefusal::None)
        return refusal;
    return holding.isPaper() ? EntryRefusal::None : checkElectronic(holding.series(), holding.issueDate());
}

bool startsPaper(bool preferencePaper, const Series *series, Month issue)
{
    return preferencePaper || checkElectronic(series, issue) != EntryRefusal::None;
}

QString describe(EntryRefusal refusal, const Series *series)
{
    switch (refusal) {
    case EntryRefusal::None:
        return {};
    case EntryRefusal::QuantityBelowOne:
        return QCoreApplication::translate("EntryRules", "The quantity must be a whole number from 1.");
    case EntryRefusal::NotAnAmount:
        return QCoreApplication::translate("EntryRules", "The face value must be an amount in dollars, such as 100 or $1,000.00.");
    case EntryRefusal::NotADenomination:
        return QCoreApplication::translate("EntryRules", "A paper bond's face value is one of $10, $25, $50, $75, $100, $200, "
                                                         "$500, $1,000, $5,000 or $10,000.");
    case EntryRefusal::ElectronicAmountOutOfRange:
        return QCoreApplication::translate("EntryRules",
                                           "An electronic bond's face value is from $25.00 to $10,000.00, to the cent.");
    case EntryRefusal::NeverElectronic:
        return QCoreApplication::translate("EntryRules", "E bonds and Savings Notes were sold on paper only.");
    case EntryRefusal::NotYetElectronic: {
        const Month first = firstElectronicIssue(series);
        return QCoreApplication::translate("EntryRules", "%1 bonds were first sold electronically in %2.")
            .arg(series && series->code() == QLatin1String("I") ? QStringLiteral("I") : QStringLiteral("EE"),
                 first.toString(Month::Style::Slash));
    }
    case EntryRefusal::NotAMonth:
        return QCoreApplication::translate("EntryRules", "The issue month must be a month written as MM/YYYY, such as 05/2003.");
    }
    return {};
}

} // namespace EntryRules
