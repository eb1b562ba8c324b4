// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A portfolio's data valued on a redemption value database as of a month, in a summary mode:
// what read-only work needs (the command line's show and exports), without undo, an edited state
// or announcements.
#include "model/Portfolio.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"
#include "valuation/InterestSummary.h"

#include <QDateTime>
#include <memory>

class ValuedPortfolio
{
public:
    // Valued as of the initial month (ValuationMonth::initial) on the working database, or on
    // the database at databasePath.
    ValuedPortfolio(Portfolio data, const QString &fileName, const QString &databasePath = QString());

    const Portfolio &data() const { return m_data; }
    const QList<HoldingRef> &holdings() const { return m_data.holdings; }
    const QList<PersonRef> &titleHolders() const { return m_data.titleHolders; }
    QString fileName() const { return m_fileName; }
    QString displayName() const { return Portfolio::displayNameOf(m_fileName); }

    const BondAssessor &assessor() const { return *m_assessor; }
    QDateTime valueOfDate() const { return m_valueOfDate; }
    Month valueOfMonth() const { return Month::of(m_valueOfDate); }
    // Refuses a month without values (ValuationMonth::validate), keeping the one it had.
    bool setValueOfDate(const QDateTime &date, ValidationError *error = nullptr);
    SummaryMode summaryMode() const { return m_summaryMode; }
    void setSummaryMode(SummaryMode mode) { m_summaryMode = mode; }

    ValuationContext valuationContext() const { return {m_assessor.get(), valueOfMonth()}; }
    HoldingFigures figuresOf(const Holding &holding) const { return {valuationContext(), holding.facts()}; }
    QList<InterestSummaryRow> interestSummary() const;

private:
    Portfolio m_data;
    QString m_fileName;
    std::unique_ptr<BondAssessor> m_assessor;
    QDateTime m_valueOfDate;
    SummaryMode m_summaryMode = SummaryMode::Cumulative;
};
