// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/BondOutlook.h"

#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/EeFixedRates.h"
#include "valuation/IBondRates.h"
#include "valuation/ValueHistory.h"

#include <cmath>

namespace {

constexpr Month MonthlyEeFrom(1997, 5);   // EE bonds issued earlier step every six months
constexpr Month LongHoldingFrom(2003, 2); // issues from here wait twelve months, earlier six
constexpr int MonthsWithPenalty = 5 * 12;

bool isSeries(const BondFacts &bond, char code)
{
    return bond.series && bond.series->letter() == code;
}

} // namespace

qint32 BondOutlook::stored(Month month) const
{
    if (!m_context.assessor || m_bond.issueMonth.isNull())
        return ValueHistory::Missing;
    return m_context.assessor->history(m_bond.series, m_bond.issueMonth.index()).at(month.index());
}

bool BondOutlook::hasMonths() const
{
    return !m_bond.issueMonth.isNull() && !m_context.month.isNull() && m_bond.series->wasIssuedIn(m_bond.issueMonth);
}

Month BondOutlook::finalMaturity() const
{
    return m_bond.series && m_bond.series->wasIssuedIn(m_bond.issueMonth) ? m_bond.series->finalMaturity(m_bond.issueMonth) : Month();
}

bool BondOutlook::hasStoppedEarning() const
{
    return hasMonths() && m_context.month >= finalMaturity();
}

bool BondOutlook::accruesMonthly() const
{
    return isSeries(m_bond, 'I') || (isSeries(m_bond, 'N') && m_bond.issueMonth >= MonthlyEeFrom);
}

BondNote BondOutlook::note() const
{
    if (!hasMonths())
        return BondNote::None;
    if (m_context.month < m_bond.issueMonth)
        return BondNote::NotIssued;
    if (hasStoppedEarning())
        return BondNote::Matured;
    const Month until = noteUntil();
    if (until.isNull())
        return BondNote::None;
    return until == redeemableFrom() ? BondNote::NotRedeemable : BondNote::Penalty;
}

Month BondOutlook::redeemableFrom() const
{
    return m_bond.issueMonth.addMonths(m_bond.issueMonth >= LongHoldingFrom ? 12 : 6);
}

Month BondOutlook::noteUntil() const
{
    // Series E and Savings Notes were sold long before either rule.
    if (!hasMonths() || m_context.month < m_bond.issueMonth || hasStoppedEarning() || isSeries(m_bond, 'E')
        || isSeries(m_bond, 'S'))
        return {};
    if (m_context.month < redeemableFrom())
        return redeemableFrom();
    const Month ends = penaltyEnds();
    return !ends.isNull() && m_context.month < ends ? ends : Month();
}

Month BondOutlook::penaltyEnds() const
{
    // The three-month penalty applies to bonds that earn monthly: I bonds, EE bonds from May 1997.
    if (m_bond.issueMonth.isNull() || !accruesMonthly())
        return {};
    return m_bond.issueMonth.addMonths(MonthsWithPenalty);
}

Month BondOutlook::nextIncrease() const
{
    if (!hasMonths() || m_context.month < m_bond.issueMonth || hasStoppedEarning())
        return {};
    const Month maturity = finalMaturity();
    // Where the database holds the months ahead, they say it.
    if (m_context.assessor) {
        const ValueHistory &values = m_context.assessor->history(m_bond.series, m_bond.issueMonth.index());
        const qint32 now = std::max<qint32>(0, values.at(m_context.month.index()));
        for (int month = m_context.month.index() + 1; month <= values.lastMonth() && month <= maturity.index(); ++month) {
            const qint32 later = values.at(month);
            if (later == ValueHistory::Missing)
                break;
            if (later > now)
                return Month::fromIndex(month);
        }
    }
    // Past them, the rule: next month, or the next six-month anniversary of the issue month; a
    // bond that cannot be cashed yet is worth nothing until it can.
    const Month from = m_context.month;
    Month next = accruesMonthly() ? from.addMonths(1) : from.addMonths(6 - monthsSinceIssue() % 6);
    if (note() == BondNote::NotRedeemable)
        next = std::max(next, redeemableFrom());
    return next <= maturity ? next : Month();
}

BondRate BondOutlook::rate() const
{
    BondRate rate;
    if (!hasMonths() || m_context.month < m_bond.issueMonth)
        return rate;
    if (hasStoppedEarning())
        return {RateBasis::Matured, 0, false};
    const int issue = m_bond.issueMonth.index();
    if (isSeries(m_bond, 'I')) {
        if (const std::optional<int> composite = IBondRates::rateAt(issue, m_context.month.index()))
            return {RateBasis::Composite, *composite, false};
    } else if (isSeries(m_bond, 'N')) {
        if (const std::optional<int> fixed = EeFixedRates::shipped().basisPointsFor(issue))
            return {RateBasis::Fixed, *fixed, monthsSinceIssue() < EeFixedRates::MonthsToGuarantee};
    }
    // Otherwise what the values say: half a year's growth, annualised as the bonds compound.
    const qint32 now = stored(m_context.month);
    const qint32 before = stored(m_context.month.addMonths(-6));
    if (now > 0 && before > 0)
        rate = {RateBasis::Implied, int(std::lround(2.0 * (double(now) / before - 1.0) * 10000.0)), false};
    return rate;
}
