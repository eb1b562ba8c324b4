// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FinanceExport.h"

#include "exchange/ExportText.h"
#include "exchange/FinanceSecurities.h"
#include "exchange/PortfolioQuicken.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>

namespace FinanceExport {

namespace {

// Month first, four-digit year, on the month's last day: "03/31/1995".
QString lastDayOf(Month month)
{
    return QDate(month.year(), month.month(), 1).addMonths(1).addDays(-1).toString(QStringLiteral("MM/dd/yyyy"));
}

// Quotes and line breaks would end a QIF field or CSV cell early; no name of ours needs them.
QString plainText(QString text)
{
    text.replace(QLatin1Char('"'), QLatin1Char('\''));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return text;
}

QString memo(const Holding &holding)
{
    QString text = holding.series()->label();
    if (!holding.serialNumber().isEmpty())
        text += QStringLiteral(" (%1)").arg(holding.serialNumber());
    const QString registration = holding.registration();
    if (!registration.isEmpty())
        text += QLatin1Char(' ') + registration;
    return plainText(text);
}

using Securities = QList<FinanceSecurities::Security>;

QByteArray qifOf(const QString &accountName, const Securities &securities)
{
    // The account comes first: KMyMoney files whatever precedes it under an account it has to ask
    // the user for.
    const QString account = plainText(accountName);
    QString out = QStringLiteral("!Account\nN%1\nTInvst\nD%2\n^\n").arg(account, QLatin1String(PortfolioQuicken::AccountDescription));
    out += QStringLiteral("!Type:Security\n");
    for (const auto &security : securities)
        out += QStringLiteral("N%1\nS%2\nTBond\n^\n").arg(security.name, security.symbol);
    out += QStringLiteral("!Type:Invst\n");
    // The money the purchases take comes in first as the account's opening balance, which both
    // programs book against equity: the account's cash ends at zero and its worth is the bonds'.
    Pennies cost = 0;
    Month firstIssue;
    for (const auto &security : securities) {
        for (const auto &purchase : security.purchases)
            cost += purchase.cost;
        if (firstIssue.isNull() || security.issueMonth < firstIssue)
            firstIssue = security.issueMonth;
    }
    if (cost > 0)
        out += QStringLiteral("D%1\nNXIn\nPOpening Balance\nT%2\nL[%3]\n^\n").arg(lastDayOf(firstIssue), plainDollars(cost), account);
    for (const auto &security : securities) {
        for (const auto &purchase : security.purchases) {
            out += QStringLiteral("D%1\nNBuy\nY%2\nI%3\nQ%4\nT%5\nM%6\n^\n")
                       .arg(lastDayOf(security.issueMonth), security.name, plainDollars(purchase.pricePerBond),
                            QString::number(purchase.quantity), plainDollars(purchase.cost), memo(*purchase.holding));
        }
    }
    out += QStringLiteral("!Type:Prices\n");
    for (const auto &security : securities) {
        for (const auto &price : security.prices)
            out += QStringLiteral("\"%1\",%2,\"%3\"\n^\n").arg(security.symbol, plainDollars(price.price), lastDayOf(price.month));
    }
    return out.toUtf8();
}

QByteArray priceCsvOf(const Securities &securities)
{
    QString out = QStringLiteral("Date,Amount,Namespace,Symbol,Currency\n");
    for (const auto &security : securities) {
        for (const auto &price : security.prices)
            out += QStringLiteral("%1,%2,%3,%4,%5\n")
                       .arg(lastDayOf(price.month), plainDollars(price.price), QLatin1String(PriceNamespace),
                            security.symbol, QLatin1String(Currency));
    }
    return out.toUtf8();
}

} // namespace

QByteArray qifRepresentation(const QString &accountName, const ValuationContext &valuation,
                             const QList<HoldingRef> &holdings)
{
    return qifOf(accountName, FinanceSecurities::securitiesOf(holdings, valuation));
}

QByteArray priceCsvRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings)
{
    return priceCsvOf(FinanceSecurities::securitiesOf(holdings, valuation));
}

Paths pathsInDirectory(const QString &directory)
{
    const QDir dir(directory);
    Paths paths{dir.filePath(QStringLiteral("Bonds.qif")), dir.filePath(QStringLiteral("BondPrices.csv"))};
    for (int number = 1; QFileInfo::exists(paths.qif) || QFileInfo::exists(paths.priceCsv); ++number) {
        paths.qif = dir.filePath(QStringLiteral("Bonds-%1.qif").arg(number));
        paths.priceCsv = dir.filePath(QStringLiteral("BondPrices-%1.csv").arg(number));
    }
    return paths;
}

Outcome exportToDirectory(const QString &accountName, const QList<HoldingRef> &holdings,
                          const ValuationContext &valuation, const QString &directory)
{
    Outcome outcome;
    outcome.paths = pathsInDirectory(directory);
    outcome.directory = QDir(directory).absolutePath();
    const Securities securities = FinanceSecurities::securitiesOf(holdings, valuation);
    outcome.securities = int(securities.size());
    for (const auto &security : securities)
        outcome.prices += int(security.prices.size());
    outcome.succeeded =
        ExportText::writeFileAtomically(outcome.paths.qif, qifOf(accountName, securities), &outcome.detail)
        && ExportText::writeFileAtomically(outcome.paths.priceCsv, priceCsvOf(securities), &outcome.detail);
    return outcome;
}

}
