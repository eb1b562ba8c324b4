// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/HoldingQuicken.h"

#include "exchange/ExportText.h"

namespace {

struct IssueMonth
{
    int month = 0;
    int year = 0;
};

// A holding without issue date writes month and year 0.
IssueMonth issueMonthOf(const Holding &holding)
{
    const Month issued = holding.issueDate();
    if (issued.isNull())
        return {};
    return {issued.month(), issued.year()};
}

QString memo(const Holding &holding, const IssueMonth &issued)
{
    const QString label = holding.series()->label();
    const QString purchased = QString::asprintf(" purchased %02d/%4d", issued.month, issued.year);
    // An empty serial (as an import leaves a blank column) counts as none: no empty parentheses.
    QString text = holding.serialNumber().isEmpty()
        ? label + purchased
        : label + QStringLiteral(" (") + holding.serialNumber() + QLatin1Char(')') + purchased;
    const QString registration = holding.registration();
    if (!registration.isNull())
        text += QLatin1Char(' ') + registration;
    return text;
}

} // namespace

namespace HoldingQuicken {

QString security(const Holding &holding)
{
    // The holding builds it itself: the assessor's price lines carry the same symbol.
    return holding.security();
}

QString quickenName(const Holding &holding)
{
    const IssueMonth issued = issueMonthOf(holding);
    return QString::asprintf("%02d/%04d ", issued.month, issued.year) + holding.series()->label();
}

QString asQuickenTransaction(const Holding &holding)
{
    const IssueMonth issued = issueMonthOf(holding);
    const double sharePrice = holding.series()->sharePrice();
    const double total = (static_cast<double>(holding.issuePrice()) / 100.0) * static_cast<double>(holding.quantity());
    const double shares = total / sharePrice;
    return QString::asprintf("D%02d/01/%4d\rNShrsIn\rY", issued.month, issued.year) + quickenName(holding)
        + QStringLiteral("\rI") + ExportText::fixedPoint(sharePrice, 4)
        + QStringLiteral("\rQ") + ExportText::fixedPoint(shares, 4)
        + QStringLiteral("\rT") + ExportText::fixedPoint(total, 4)
        + QStringLiteral("\rM") + memo(holding, issued) + QStringLiteral("\r^\r");
}


} // namespace HoldingQuicken
