// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What each owner reports for one tax year: interest on bonds cashed in the year, on bonds that
// reached final maturity in it (reportable even when not cashed), and, for owners who report
// every year instead of deferring, the interest their bonds earned in the year. Bonds without an
// owner are grouped apart. Figures only; the window and the command line word them.
#include "base/Money.h"
#include "base/Month.h"
#include "model/Portfolio.h"

class BondAssessor;

struct TaxYearItem
{
    enum class Kind {
        Redeemed, // cashed in the year: amount received less price
        Matured,  // final maturity in the year, not cashed before it: value then less price
        Accrued,  // a yearly reporter's bond: what it earned in the year
    };
    Kind kind;
    HoldingRef holding;
    Month month;            // redemption, final maturity, or the last month of the year it earned in
    Pennies interest = 0;
    bool estimated = false; // the database lacks the month: the latest value before it stands in
};

struct OwnerTaxYear
{
    PersonRef owner; // null: bonds without an owner
    bool reportsYearly = false;
    QList<TaxYearItem> items;
    Pennies interest(TaxYearItem::Kind kind) const;
    Pennies total() const;
};

struct NextYearMaturity
{
    HoldingRef holding;
    Month finalMaturity;
    Pennies interestSoFar = 0; // as of final maturity or the latest month before it with a value
};

struct TaxYearReport
{
    int year = 0;
    QList<OwnerTaxYear> owners; // by owner's name, "no owner" last; only owners with something to report
    QList<NextYearMaturity> nextYear; // held bonds reaching final maturity in the following year
    Pennies householdTotal() const;

    static TaxYearReport of(const Portfolio &portfolio, const BondAssessor &database, int year);
};
