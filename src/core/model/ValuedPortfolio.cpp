// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ValuedPortfolio.h"

#include "valuation/ValuationMonth.h"

ValuedPortfolio::ValuedPortfolio(Portfolio data, const QString &fileName, const QString &databasePath)
    : m_data(std::move(data))
    , m_fileName(fileName)
    , m_assessor(std::make_unique<BondAssessor>(databasePath))
    , m_valueOfDate(ValuationMonth::initial(*m_assessor).toLocalTime())
{
}

bool ValuedPortfolio::setValueOfDate(const QDateTime &date, ValidationError *error)
{
    if (!ValuationMonth::validate(*m_assessor, date, error))
        return false;
    m_valueOfDate = date.toLocalTime();
    return true;
}

QList<InterestSummaryRow> ValuedPortfolio::interestSummary() const
{
    return InterestSummary::rows(*m_assessor, Portfolio::factsOf(m_data.holdings), m_summaryMode);
}
