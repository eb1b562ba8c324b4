#include "document/HoldingPresentation.h"

#include "base/Month.h"
#include "document/BondPortfolio.h"

namespace HoldingPresentation {

QString issueMonthText(const QDateTime &month)
{
    return month.isValid() ? Month::of(month).toString(Month::Style::Slash) : QString::fromLatin1(NoIssueMonthText);
}

QString monthText(const QDateTime &month)
{
    return Month::of(month).toString(Month::Style::Slash);
}

QString statusText(const Holding &holding)
{
    const HoldingStatus status = holding.status();
    if (lacksPricingData(status))
        return QStringLiteral("no pricing data");
    if (status == HoldingStatus::NotYetRedeemable)
        return QStringLiteral("not yet redeemable");
    return {};
}

QString remarkText(const Holding &holding)
{
    const QString status = statusText(holding);
    if (!status.isEmpty())
        return status;
    return holding.isValueDerived() ? QString::fromLatin1(ComputedRemark) : QString();
}

QString percentText(float rate)
{
    return QString::asprintf("%.2f%%", double(rate));
}

} // namespace HoldingPresentation

void HoldingTotals::add(const Holding &holding)
{
    const qint64 bonds = holding.countedQuantity();
    quantity += bonds;
    if (lacksPricingData(holding.status()))
        withoutPricingData += bonds;
    faceValue += holding.faceValue() * bonds;
    issuePrice += holding.issuePrice() * bonds;
    interestEarned += holding.interestEarned();
    value += holding.value();
}

HoldingTotals HoldingTotals::of(const BondPortfolio &portfolio, const QList<HoldingRef> &holdings)
{
    BondAssessor::ReadBatch batch(portfolio.assessor());
    portfolio.prefetchValues(holdings);
    HoldingTotals totals;
    for (const HoldingRef &holding : holdings)
        totals.add(*holding);
    return totals;
}
