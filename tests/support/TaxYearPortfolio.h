// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The hand-made portfolio whose 2021 taxes are known. Alice defers; Bob reports every year; one bond has no owner.
// 2021: Alice $314.72 matured (2 × $207.36 − $100) and $500.00 redeemed, Bob $33.60 + $4.08 earned, no owner $4.16;
// household $856.56. Plan for 2022: Alice's EE of 03/1992, $76.64 so far.
#include "document/BondPortfolio.h"
#include "base/Series.h"

namespace TaxYearPortfolio {

inline HoldingRef addBond(BondPortfolio &portfolio, const char *code, Month issue, Pennies face, qint32 quantity = 1,
                          const PersonRef &owner = {})
{
    auto holding = Holding::create();
    holding->setSeries(Series::seriesForCode(QLatin1String(code)));
    holding->setIssueDate(issue);
    holding->setFaceValue(face);
    holding->setQuantity(quantity);
    holding->setPaper(true);
    holding->setOwner(owner);
    portfolio.adopt(*holding);
    portfolio.appendHolding(holding);
    return holding;
}

// False when a redemption was refused.
inline bool make(BondPortfolio &portfolio, const PersonRef &alice, const PersonRef &bob)
{
    bool ok = true;
    const auto redeem = [&](const HoldingRef &holding, Month month, Pennies amount) {
        ok = portfolio.redeem(holding, 1, month, amount) && ok;
    };
    addBond(portfolio, "N", Month(1991, 6), 10000, 2, alice);
    redeem(addBond(portfolio, "I", Month(2010, 1), 100000, 1, alice), Month(2021, 3), 150000);
    redeem(addBond(portfolio, "I", Month(2010, 1), 50000, 1, alice), Month(2020, 7), 70000); // the year before
    // Matured in 01/1996: its interest was that year's, whenever it is cashed.
    redeem(addBond(portfolio, "E", Month(1966, 1), 10000, 1, alice), Month(2021, 5), 60000);
    addBond(portfolio, "I", Month(2020, 1), 100000, 1, bob); // from its price (not cashable in 12/2020) to $1,033.60
    addBond(portfolio, "N", Month(1991, 6), 10000, 1, bob);  // $203.28 in 12/2020 to $207.36 at maturity
    const HoldingRef noOwner = addBond(portfolio, "I", Month(2019, 5), 10000);
    redeem(noOwner, Month(2021, 8), portfolio.redemptionValue(*noOwner, 1, Month(2021, 8))); // $104.16
    addBond(portfolio, "N", Month(1992, 3), 5000, 1, alice);
    portfolio.setReportsInterestYearly(bob, true);
    return ok;
}

}
