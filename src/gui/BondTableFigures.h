// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The figures the bond table shows for each holding, read from the database when the holdings or
// their figures change (in one batch for the whole table), so that painting and sorting only read
// memory: a paint never waits for the database or opens a transaction on it.
#include "model/Holding.h"
#include "valuation/BondOutlook.h"
#include "valuation/HoldingFigures.h"

#include <QHash>
#include <optional>

class BondPortfolio;

struct RowFigures
{
    Pennies value = 0;
    Pennies interestEarned = 0;
    std::optional<float> currentYield; // none when the database lacks an end of the interest period
    float growthRate = 0.0f;
    HoldingStatus status = HoldingStatus::Valued;
    bool valueDerived = false;
    Pennies ytdInterest = 0;
    BondRate rate;
    Month finalMaturity;
    Month nextIncrease;
    BondNote note = BondNote::None;
    Month noteUntil;
    bool stoppedEarning = false;
};

class BondTableFigures
{
public:
    explicit BondTableFigures(const BondPortfolio *portfolio) : m_portfolio(portfolio) {}

    // Reads every holding's figures again, forgetting holdings the portfolio no longer has.
    void refreshAll();
    // Reads one holding's figures again (it was added, or one of its fields changed).
    void refresh(const Holding &holding);
    void forget(const Holding *holding) { m_rows.remove(holding); }

    // The figures last read for the holding; zeros for one never read.
    const RowFigures &of(const Holding &holding) const;

private:
    RowFigures read(const Holding &holding) const;

    const BondPortfolio *m_portfolio;
    QHash<const Holding *, RowFigures> m_rows;
};
