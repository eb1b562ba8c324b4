// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of one holding and the totals of several, and why a bond without pricing data has none.
#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "document/HoldingPresentation.h"
#include "valuation/HoldingFigures.h"

#include <gtest/gtest.h>

using S = HoldingStatus;
using HoldingPresentation::Remark;

// EE bonds issued March 2000, valued January 2002 (interest period November 2001 to May 2002).
class HoldingValuation : public ::testing::Test, public PortfolioFixture
{
protected:
    HoldingValuation()
        : PortfolioFixture(ValueTable()
                               .add("N", 2002, 1, 2000, 3, 3000).add("N", 2001, 11, 2000, 3, 2950).add("N", 2002, 5, 2000, 3, 3041)
                               .add("N", 2002, 1, 2001, 9, -1)
                               .add("I", 2002, 1, 2000, 3, 2400) // below its issue price
                               // An EE month priced at the ends of three interest periods.
                               .add("N", 2004, 11, 1998, 6, 2000).add("N", 2005, 5, 1998, 6, 2020)
                               .add("N", 2005, 11, 1998, 6, 2070).add("N", 2006, 5, 1998, 6, 2100),
                           BondAssessor::monthDate(2002, 1))
    {
    }
    HoldingFigures figuresOf(const HoldingRef &holding) const { return portfolio->figuresOf(*holding); }
};

// Correction factor, issue price, value and interest: an electronic EE bond is worth twice.
TEST_F(HoldingValuation, WorkedExamplePaperAndElectronic)
{
    const HoldingRef paper = make("N", 2000, 3, 5000, 2), electronic = make("N", 2000, 3, 5000, 2, {}, false);
    auto figures = [this](const HoldingRef &h) {
        const HoldingFigures f = figuresOf(h);
        return std::tuple<int, Pennies, Pennies, Pennies>(f.bond().pricingCorrectionFactor(), f.issuePrice(), f.value(),
                                                          f.interestEarned());
    };
    EXPECT_EQ(figures(paper), std::tuple(1, 2500, 12000, 7000));
    EXPECT_EQ(figures(electronic), std::tuple(2, 5000, 24000, 14000));
}

// A bond without a value counts as zero; its status tells a month never sold from one not priced yet.
TEST_F(HoldingValuation, StatusOfEveryBondWithoutAValue)
{
    const struct { const char *code; int year, month; S status; Remark remark; bool paper = true; } cases[] = {
        {"N", 2000, 3, S::Valued, Remark::None},
        {"N", 2001, 9, S::NotYetRedeemable, Remark::NotYetRedeemable},
        {"N", 2001, 9, S::NoPricingData, Remark::NoPricingData, false}, // an electronic bond reads -1 as -2
        {"N", 2000, 4, S::NoPricingData, Remark::NoPricingData},
        {"N", 1980, 1, S::NoPricingData, Remark::NoPricingData},
        {"N", 1979, 12, S::BeforeSeriesBegan, Remark::NoPricingData},
        {"I", 1998, 9, S::NoPricingData, Remark::NoPricingData},
        {"I", 1998, 8, S::BeforeSeriesBegan, Remark::NoPricingData},
        {"E", 1941, 5, S::NoPricingData, Remark::NoPricingData},
        {"E", 1941, 4, S::BeforeSeriesBegan, Remark::NoPricingData},
        {"E", 1980, 6, S::NoPricingData, Remark::NoPricingData},
        {"E", 1980, 7, S::AfterSeriesEnded, Remark::NoPricingData},
        {"S", 1967, 5, S::NoPricingData, Remark::NoPricingData},
        {"S", 1967, 4, S::BeforeSeriesBegan, Remark::NoPricingData},
        {"S", 1970, 10, S::NoPricingData, Remark::NoPricingData},
        {"S", 1970, 11, S::AfterSeriesEnded, Remark::NoPricingData},
        {"N", 2002, 1, S::NoPricingData, Remark::NoPricingData},
        {"N", 2002, 2, S::NotIssuedYet, Remark::NoPricingData}, // after the valuation month
        {"I", 0, 0, S::Valued, Remark::None}, // no issue date: nothing to look up
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.code << ' ' << c.year << '-' << c.month << (c.paper ? "" : " electronic"));
        const HoldingFigures figures = figuresOf(make(c.code, c.year, c.month, 5000, 1, {}, c.paper));
        EXPECT_EQ(figures.status(), c.status);
        EXPECT_EQ(HoldingPresentation::pricingRemarkOf(figures), c.remark);
        EXPECT_EQ(figures.isValidIssue(), !lacksPricingData(c.status));
        EXPECT_EQ(figures.isRedeemableIssue(), c.status != S::NotYetRedeemable);
        if (c.status == S::Valued && c.year)
            continue;
        EXPECT_EQ(figures.value(), 0);
        EXPECT_EQ(figures.interestEarned(), 0) << "interest is never negative";
        EXPECT_EQ(figures.compoundAnnualGrowthRate(), 0.0f);
    }
}

// Bonds, not holdings, are counted, as the totals count their quantity.
TEST_F(HoldingValuation, TotalsCountBondsAndTheBondsLeftOut)
{
    struct Bond { const char *code; int year, month, quantity; };
    const struct { const char *name; QList<Bond> bonds; qint64 quantity, left; Pennies face, price, value; } cases[] = {
        {"all priced", {{"N", 2000, 3, 2}, {"N", 2001, 9, 4}}, 6, 0, 6 * 5000, 6 * 2500, 2 * 6000},
        {"one", {{"N", 2000, 3, 2}, {"I", 1997, 1, 1}}, 3, 1, 3 * 5000, 4 * 2500, 2 * 6000},
        {"several, with quantities",
         {{"N", 2000, 3, 1}, {"I", 1997, 1, 3}, {"N", 2000, 4, 2}, {"E", 1980, 7, 0}, {"I", 2000, 3, 1}, {"I", 2002, 6, 4}},
         11, 9, 11 * 5000, 1 * 2500 + 8 * 5000 + 2 * 2500, 6000 + 4800},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QList<HoldingRef> holdings;
        for (const Bond &b : c.bonds)
            holdings << make(b.code, b.year, b.month, 5000, b.quantity);
        const HoldingTotals totals = HoldingTotals::of(portfolio->valuationContext(), holdings);
        EXPECT_EQ(std::tuple(totals.quantity, totals.withoutPricingData, totals.faceValue, totals.issuePrice, totals.value),
                  std::tuple(c.quantity, c.left, c.face, c.price, c.value));
    }
}

TEST_F(HoldingValuation, MonthsHeldCountMonthsAndNeverGoBelowZero)
{
    const std::pair<Month, int> cases[] = {{{2000, 3}, 22}, {{2001, 1}, 12}, {{2002, 1}, 0}, {{2003, 5}, 0}, {{}, 0}};
    for (const auto &[issued, months] : cases) {
        Holding h;
        h.setIssueDate(issued);
        EXPECT_EQ(portfolio->figuresOf(h).monthsHeld(), months) << issued.toString(Month::Style::Iso).toStdString();
    }
}

TEST_F(HoldingValuation, GrowthRateAndCurrentYield)
{
    const HoldingRef ee = make("N", 2000, 3, 5000, 2);
    const HoldingRef below = make("I", 2000, 3, 2500, 1);
    // 2.4^(12/22) - 1: ratio and exponent in float, power in double (all in double it would be 61.2085037).
    EXPECT_EQ(figuresOf(ee).compoundAnnualGrowthRate(), 61.2085114f);
    // (3041 - 2950) / 2950 * 100 * 2 in single precision; in double it would be 6.16949129.
    EXPECT_EQ(figuresOf(ee).currentYield(), 6.16949177f);
    EXPECT_LT(figuresOf(below).compoundAnnualGrowthRate(), 0.0f);
    EXPECT_EQ(figuresOf(below).interestEarned(), 0);
    EXPECT_EQ(figuresOf(below).currentYield(), 0.0f) << "no data at the period's ends";
    ee->setQuantity(0);
    EXPECT_EQ(figuresOf(ee).compoundAnnualGrowthRate(), 0.0f) << "quantity 0 must not divide by zero";
}

// Current yield over the interest period of the valuation month: Nov-May for Nov-Apr, May-Nov for May-Oct.
TEST_F(HoldingValuation, CurrentYieldIsOfTheInterestPeriodOfTheValuationMonth)
{
    const float winter04 = 20.0f / 2000 * 200, summer05 = 50.0f / 2020 * 200, winter05 = 30.0f / 2070 * 200;
    const struct { int year, month; float yield; } cases[] = {
        {2005, 1, winter04}, {2005, 4, winter04}, {2005, 5, summer05}, {2005, 10, summer05},
        {2005, 11, winter05}, {2005, 12, winter05}, {2006, 4, winter05}};
    const HoldingRef bond = make("N", 1998, 6, 5000, 3);
    for (const auto &c : cases) {
        SCOPED_TRACE(QStringLiteral("%1-%2").arg(c.year).arg(c.month).toStdString());
        ASSERT_TRUE(portfolio->setValueOfDate(BondAssessor::monthDate(c.year, c.month)));
        EXPECT_NEAR(figuresOf(bond).currentYield(), c.yield, 1e-4);
    }
}
