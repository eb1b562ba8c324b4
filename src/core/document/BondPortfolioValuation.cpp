// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The valuation date and the interest summary of a portfolio.
#include "document/BondPortfolio.h"

#include "valuation/ValuationMonth.h"

#include <QtGlobal>

bool BondPortfolio::setValueOfDate(const QDateTime &date)
{
    if (!date.isValid())
        return false;
    if (date == m_valueOfDate && date.timeSpec() == m_valueOfDate.timeSpec())
        return true;
    storeValueOfDate(date);
    emit valueOfDateChanged();
    emit interestSummaryChanged();
    return true;
}

void BondPortfolio::storeValueOfDate(const QDateTime &date)
{
    m_valueOfDate = date.toLocalTime();
    m_valueOfMonth = Month::of(m_valueOfDate);
}

bool BondPortfolio::validateValueOfDate(const QDateTime &proposed, ValidationError *error) const
{
    return ValuationMonth::validate(*m_assessor, proposed, error);
}

QDateTime BondPortfolio::initialValueOfDate() const
{
    return ValuationMonth::initial(*m_assessor);
}

void BondPortfolio::setSummaryMode(SummaryMode mode)
{
    m_summaryMode = mode;
    emit summaryModeChanged();
    emit interestSummaryChanged();
}

void BondPortfolio::prefetchValues(const QList<HoldingRef> &holdings) const
{
    Portfolio::prefetchValues(*m_assessor, holdings);
}

QList<InterestSummaryRow> BondPortfolio::interestSummary(const HoldingFilter &filter) const
{
    return InterestSummary::rows(*m_assessor, Portfolio::factsOf(filter.shownOf(m_data.holdings)), m_summaryMode);
}
