// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A portfolio on a value table of its own, with its own people store, and holdings made for it.
#include "PeopleFixture.h"
#include "ValueTableFixture.h"
#include "document/BondPortfolio.h"

#include <memory>

// A holding adopted by the portfolio but not in its list; year 0: no issue date.
inline HoldingRef makeHolding(BondPortfolio &portfolio, const char *code, int year, int month, Pennies face,
                              int quantity = 1, const QString &serial = {}, bool paper = true)
{
    auto holding = Holding::create();
    holding->setSeries(Series::seriesForCode(QLatin1String(code)));
    if (year)
        holding->setIssueDate(Month(year, month));
    holding->setFaceValue(face);
    holding->setQuantity(quantity);
    holding->setPaper(paper);
    holding->setSerialNumber(serial);
    portfolio.adopt(*holding);
    return holding;
}

class PortfolioFixture
{
public:
    PortfolioFixture(ValueTable &values, const QDateTime &valueOfDate)
        : portfolio(std::make_unique<BondPortfolio>(&people.store, values.finish()))
    {
        portfolio->setValueOfDate(valueOfDate);
    }

    HoldingRef make(const char *code, int year, int month, Pennies face, int quantity = 1, const QString &serial = {},
                    bool paper = true)
    {
        return makeHolding(*portfolio, code, year, month, face, quantity, serial, paper);
    }

    PeopleFixture people;
    std::unique_ptr<BondPortfolio> portfolio;
};
