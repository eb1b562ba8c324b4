// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BondTableFigures.h"

#include "document/BondPortfolio.h"

RowFigures BondTableFigures::read(const Holding &holding) const
{
    const HoldingFigures figures = m_portfolio->figuresOf(holding);
    const BondOutlook outlook(figures.context(), figures.bond());
    return {figures.value(),
            figures.interestEarned(),
            figures.hasCurrentYield() ? std::optional(figures.currentYield()) : std::nullopt,
            figures.compoundAnnualGrowthRate(),
            figures.status(),
            figures.isValueDerived(),
            figures.ytdInterest(),
            outlook.rate(),
            outlook.finalMaturity(),
            outlook.nextIncrease(),
            outlook.note(),
            outlook.noteUntil(),
            outlook.hasStoppedEarning()};
}

void BondTableFigures::refreshAll()
{
    m_rows.clear();
    const QList<HoldingRef> &holdings = m_portfolio->holdings();
    if (holdings.isEmpty())
        return;
    const BondAssessor::ReadBatch batch(m_portfolio->assessor());
    m_portfolio->prefetchValues(holdings);
    m_rows.reserve(holdings.size());
    for (const HoldingRef &holding : holdings)
        m_rows.insert(holding.get(), read(*holding));
}

void BondTableFigures::refresh(const Holding &holding)
{
    const BondAssessor::ReadBatch batch(m_portfolio->assessor());
    m_rows.insert(&holding, read(holding));
}

const RowFigures &BondTableFigures::of(const Holding &holding) const
{
    static const RowFigures none;
    const auto found = m_rows.constFind(&holding);
    return found == m_rows.constEnd() ? none : *found;
}
