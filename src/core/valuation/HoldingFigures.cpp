// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/HoldingFigures.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/BondOutlook.h"
#include "valuation/ValueHistory.h"

#include <algorithm>
#include <cmath>

std::pair<Month, Month> ValuationContext::interestPeriod() const
{
    if (month.isNull())
        return {};
    const int year = month.year();
    if (month.month() <= 4)
        return {Month(year - 1, 11), Month(year, 5)};
    if (month.month() <= 10)
        return {Month(year, 5), Month(year, 11)};
    return {Month(year, 11), Month(year + 1, 5)};
}

qint64 HoldingFigures::rawValueAsOfMonth(Month month) const
{
    if (!m_context.assessor)
        return RedemptionMarker::NoPricingData;
    if (m_bond.issueMonth.isNull())
        return RedemptionMarker::NoIssueDate;
    const qint32 stored = m_context.assessor->history(m_bond.series, m_bond.issueMonth.index()).at(month.index());
    return BondAssessor::scaled(BondAssessor::adjusted(stored, m_bond.pricingCorrectionFactor()), m_bond.faceValue);
}

Pennies HoldingFigures::absoluteValueAsOfMonth(Month month) const
{
    if (!m_context.assessor)
        return 0;
    const qint64 value = rawValueAsOfMonth(month);
    return value < 0 ? 0 : value;
}

Pennies HoldingFigures::value() const
{
    return absoluteValueAsOfMonth(m_context.month) * m_bond.countedQuantity();
}

Pennies HoldingFigures::cumulativeInterestEarnedAsOfMonth(Month month) const
{
    const Pennies cost = issuePrice() * m_bond.countedQuantity();
    const Pennies worth = absoluteValueAsOfMonth(month) * m_bond.countedQuantity();
    return cost < worth ? worth - cost : 0;
}

void HoldingFigures::addCumulativeInterestByDecember(int fromYear, int toYear, Pennies *sums, int *unvalued) const
{
    if (!m_context.assessor || m_bond.issueMonth.isNull())
        return;
    // One history and one cost for every year: the same figures as asking year by year.
    const ValueHistory &values = m_context.assessor->history(m_bond.series, m_bond.issueMonth.index());
    const int factor = m_bond.pricingCorrectionFactor();
    const qint64 quantity = m_bond.countedQuantity();
    const Pennies cost = issuePrice() * quantity;
    for (int year = toYear; year >= fromYear; --year) {
        const qint64 perBond =
            BondAssessor::scaled(BondAssessor::adjusted(values.at(Month(year, 12).index()), factor), m_bond.faceValue);
        // Within its first year a bond may not be cashed yet, and files need not list it then.
        if (perBond == RedemptionMarker::NoPricingData && Month(year, 12) >= m_bond.issueMonth.addMonths(12))
            ++unvalued[year - fromYear];
        const Pennies worth = (perBond < 0 ? 0 : perBond) * quantity;
        sums[year - fromYear] += cost < worth ? worth - cost : 0;
    }
}

Pennies HoldingFigures::interestEarned() const
{
    return cumulativeInterestEarnedAsOfMonth(m_context.month);
}

bool HoldingFigures::isValidIssue() const
{
    return rawValueAsOfMonth(m_context.month) != RedemptionMarker::NoPricingData;
}

bool HoldingFigures::isRedeemableIssue() const
{
    return rawValueAsOfMonth(m_context.month) != RedemptionMarker::NotRedeemable;
}

HoldingStatus HoldingFigures::status() const
{
    if (value() != 0)
        return HoldingStatus::Valued;
    if (!isValidIssue()) {
        // The series' dates and the valuation month tell a value no update will ever bring from one
        // not published yet.
        const Month issued = m_bond.issueMonth;
        if (!m_bond.series->wasIssuedIn(issued))
            return issued < m_bond.series->firstIssue() ? HoldingStatus::BeforeSeriesBegan
                                                        : HoldingStatus::AfterSeriesEnded;
        if (!issued.isNull() && !m_context.month.isNull() && issued > m_context.month)
            return HoldingStatus::NotIssuedYet;
        return HoldingStatus::NoPricingData;
    }
    if (!isRedeemableIssue())
        return HoldingStatus::NotYetRedeemable;
    return HoldingStatus::Valued;
}

qint32 HoldingFigures::monthsHeld() const
{
    if (m_bond.issueMonth.isNull() || m_context.month.isNull())
        return 0;
    return std::max(0, m_context.month.index() - m_bond.issueMonth.index());
}

float HoldingFigures::currentYield() const
{
    const auto [first, last] = m_context.interestPeriod();
    const Pennies start = absoluteValueAsOfMonth(first);
    const Pennies end = absoluteValueAsOfMonth(last);
    if (start > 0 && end == 0) {
        if (const std::optional<float> rate = knownRate())
            return *rate;
    }
    if (start == 0 || end == 0)
        return 0.0f;
    const float growth = static_cast<float>(end - start) / static_cast<float>(start);
    const float percent = growth * 100.0f;
    return percent * 2.0f; // a half year's growth, annualised
}

bool HoldingFigures::hasCurrentYield() const
{
    const auto [first, last] = m_context.interestPeriod();
    const Pennies start = absoluteValueAsOfMonth(first);
    return start > 0 && (absoluteValueAsOfMonth(last) > 0 || knownRate());
}

std::optional<float> HoldingFigures::knownRate() const
{
    // Only Series I and EE bonds can have a rate of their own; the others need not read values.
    if (m_bond.series->letter() != 'N' && m_bond.series->letter() != 'I')
        return std::nullopt;
    const BondRate rate = BondOutlook(m_context, m_bond).rate();
    if (rate.basis != RateBasis::Composite && rate.basis != RateBasis::Fixed && rate.basis != RateBasis::Matured)
        return std::nullopt;
    return static_cast<float>(rate.basisPoints) / 100.0f;
}

Pennies HoldingFigures::ytdInterest() const
{
    if (m_bond.issueMonth.isNull() || m_context.month.isNull() || m_context.month < m_bond.issueMonth)
        return 0;
    const Month december(m_context.month.year() - 1, 12);
    const qint64 quantity = m_bond.countedQuantity();
    // A bond not yet cashable in December, or issued after it, started the year at its price.
    const Pennies start = december < m_bond.issueMonth || rawValueAsOfMonth(december) == RedemptionMarker::NotRedeemable
                              ? issuePrice()
                              : rawValueAsOfMonth(december);
    const Pennies now = rawValueAsOfMonth(m_context.month);
    if (start <= 0 || now <= 0)
        return 0;
    return std::max<Pennies>(0, (now - start) * quantity);
}

float HoldingFigures::compoundAnnualGrowthRate() const
{
    if (m_bond.countedQuantity() == 0)
        return 0.0f;
    const Pennies price = issuePrice();
    const Pennies perBond = value() / m_bond.countedQuantity();
    const float years = static_cast<float>(monthsHeld()) / 12.0f;
    if (price <= 0 || perBond <= 0)
        return 0.0f;
    if (!(years > 0.0f))
        return 0.0f;
    const double exponent = static_cast<double>(1.0f / years);
    const double ratio = static_cast<double>(static_cast<float>(perBond) / static_cast<float>(price));
    const float grown = static_cast<float>(std::pow(ratio, exponent));
    return (grown - 1.0f) * 100.0f;
}

bool HoldingFigures::isValueDerived() const
{
    return m_context.assessor && !m_bond.issueMonth.isNull() && rawValueAsOfMonth(m_context.month) > 0
        && m_context.assessor->history(m_bond.series, m_bond.issueMonth.index()).isDerived(m_context.month.index());
}

HoldingFigures::DerivedRule HoldingFigures::derivedRule() const
{
    if (!isValueDerived())
        return DerivedRule::None;
    // The Treasury published no file for these months; the rest of what is derived lies past its
    // files: matured bonds carried, fixed-rate EE bonds computed.
    if (m_context.month >= Month(2001, 9) && m_context.month <= Month(2002, 2))
        return DerivedRule::FilledBetweenOfficialMonths;
    if (m_context.month >= m_bond.series->finalMaturity(m_bond.issueMonth))
        return DerivedRule::CarriedFromFinalMaturity;
    return m_bond.series->letter() == 'I' ? DerivedRule::SeriesIRates : DerivedRule::FixedRate;
}

void HoldingFigures::appendValuesSinceIssue(QByteArray &out) const
{
    if (m_context.assessor && !m_bond.issueMonth.isNull())
        m_context.assessor->appendValuesSinceIssue(out, m_bond.series, m_bond.issueMonth.index(),
                                                   m_bond.security().toLatin1());
}
