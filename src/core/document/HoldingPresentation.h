// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How holdings and months read as text, and the totals of a set of holdings: the window, the
// command line and reports all show the same words and sums from here.
#include "model/Holding.h"
#include "base/Money.h"
#include "base/Month.h"
#include "valuation/BondOutlook.h"
#include "valuation/HoldingFigures.h"
#include "valuation/InterestSummary.h"

#include <QList>
#include <QString>

class BondPortfolio;

namespace HoldingPresentation {
// What an issue-month cell shows when the holding has no issue date.
inline constexpr const char *NoIssueMonthText = "mm/yyyy";

// "MM/yyyy", or "mm/yyyy" for no month.
QString issueMonthText(Month month);
// "MM/yyyy" of a valuation month; empty for no month.
QString monthText(Month month);
// The remark a holding's line carries: why it shows no value, else that its value was computed
// rather than published. Every status lacking pricing data is one remark; the window and the
// command line word it, and say why.
enum class Remark { None, NoPricingData, NotYetRedeemable, Computed };
Remark remarkOf(const HoldingFigures &holding);
// The remark when it says why there is no value; None otherwise (a computed value included).
Remark pricingRemarkOf(const HoldingFigures &holding);
// What a computed value is, in the words the window's tip and the command line's note share:
// every rule, or the one that made a value.
QString derivedValueNote();
QString derivedValueNote(const HoldingFigures &holding);
// A rate as "3.94%".
QString percentText(float rate);
// A bond's rate: "4.03%", "2.70% fixed, doubles at 20 years", "3.94% implied"; "" when unknown.
QString rateText(const BondRate &rate);
// The Treasury's code and what it means: "MA matured, no longer earning", "P5 includes 3-month
// interest penalty until 05/2028", "NE not redeemable until 03/2027", "NI not yet issued"; "" for none.
QString noteText(BondNote note, Month until);
QString noteText(const BondOutlook &outlook);
// "3 bonds no longer earn interest: $4,210.55"; "" when no bond has stopped earning.
QString stoppedEarningText(qint64 bonds, Pennies value);
// A summary row's year: "2001", or "1992 and before" for a first row that is interest since issue.
QString taxYearText(const InterestSummaryRow &row);
// Why a summary row's figure is incomplete ("" when it is not).
QString incompleteYearNote(const InterestSummaryRow &row);
}

// Sums over holdings: face value and issue price are per bond on a holding, so their totals
// count every bond; interest and value are already for the whole holding.
struct HoldingTotals
{
    qint64 quantity = 0;
    // Bonds (not holdings) that lack pricing data: their value counts as $0 in the sums.
    qint64 withoutPricingData = 0;
    Pennies faceValue = 0;
    Pennies issuePrice = 0;
    Pennies interestEarned = 0;
    Pennies value = 0;
    Pennies ytdInterest = 0;
    // Bonds past final maturity, earning nothing, and what they are worth.
    qint64 stoppedEarning = 0;
    Pennies stoppedEarningValue = 0;

    void add(const HoldingFigures &holding);
    // Reads every figure in one batch of the portfolio's database reader.
    static HoldingTotals of(const ValuationContext &valuation, const QList<HoldingRef> &holdings);
};
