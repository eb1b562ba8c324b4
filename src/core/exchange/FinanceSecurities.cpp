// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FinanceSecurities.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"

#include <QHash>

namespace FinanceSecurities {

namespace {

// Short series names as the Treasury writes them; the symbol must stay short and plain.
QString seriesAbbreviation(const Series &series)
{
    switch (series.letter()) {
    case 'N': return QStringLiteral("EE");
    case 'S': return QStringLiteral("SN");
    default: return QString(QLatin1Char(series.letter()));
    }
}

// Face values are whole dollars for paper bonds; electronic ones may carry cents.
QString faceText(Pennies face)
{
    return face % 100 == 0 ? QString::number(face / 100) : plainDollars(face);
}

Security securityFor(const BondFacts &bond)
{
    Security security;
    security.issueMonth = bond.issueMonth;
    const QString face = faceText(bond.faceValue);
    security.symbol = QStringLiteral("%1-%2%3-%4%5")
                          .arg(seriesAbbreviation(*bond.series))
                          .arg(bond.issueMonth.year(), 4, 10, QLatin1Char('0'))
                          .arg(bond.issueMonth.month(), 2, 10, QLatin1Char('0'))
                          .arg(face, bond.paper ? QString() : QStringLiteral("E"));
    security.name = QStringLiteral("%1 $%2%3 %4/%5")
                        .arg(bond.series->label(), face, bond.paper ? QString() : QStringLiteral(" electronic"))
                        .arg(bond.issueMonth.month(), 2, 10, QLatin1Char('0'))
                        .arg(bond.issueMonth.year(), 4, 10, QLatin1Char('0'));
    return security;
}

QList<MonthPrice> pricesOf(const BondFacts &bond, const ValuationContext &valuation)
{
    QList<MonthPrice> prices;
    if (valuation.month.isNull())
        return prices;
    const HoldingFigures figures(valuation, bond);
    for (Month month = bond.issueMonth; month <= valuation.month; month = month.addMonths(1)) {
        const Pennies price = figures.absoluteValueAsOfMonth(month);
        if (price > 0)
            prices.append({month, price});
    }
    return prices;
}

} // namespace

QList<Security> securitiesOf(const QList<HoldingRef> &holdings, const ValuationContext &valuation)
{
    QList<Security> securities;
    QHash<QString, qsizetype> indexOfSymbol;
    for (const HoldingRef &holding : holdings) {
        BondFacts bond = holding->facts();
        if (bond.issueMonth.isNull() || bond.countedQuantity() == 0)
            continue;
        const qint64 quantity = bond.countedQuantity();
        Security candidate = securityFor(bond);
        auto found = indexOfSymbol.constFind(candidate.symbol);
        if (found == indexOfSymbol.constEnd()) {
            candidate.prices = pricesOf(bond, valuation);
            found = indexOfSymbol.insert(candidate.symbol, securities.size());
            securities.append(std::move(candidate));
        }
        const Pennies each = bond.issuePrice();
        securities[*found].purchases.append({holding, quantity, each, each * quantity});
    }
    return securities;
}

}
