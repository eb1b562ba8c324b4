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

namespace {

Remark remarkOnStatus(HoldingStatus status)
{
    if (lacksPricingData(status))
        return Remark::NoPricingData;
    if (status == HoldingStatus::NotYetRedeemable)
        return Remark::NotYetRedeemable;
    return Remark::None;
}

} // namespace

Remark remarkOf(const Holding &holding)
{
    const Remark remark = remarkOnStatus(holding.status());
    if (remark != Remark::None)
        return remark;
    return holding.isValueDerived() ? Remark::Computed : Remark::None;
}

Remark pricingRemarkOf(const Holding &holding)
{
    return remarkOnStatus(holding.status());
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
