#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "model/Holding.h"
#include "valuation/HoldingFigures.h"

#include <gtest/gtest.h>

namespace {

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
    EXPECT_EQ(figuresOf(paper).status(), HoldingStatus::Valued);
}

TEST_F(HoldingValuation, MarkersCountAsZeroAndGiveTheStatus)
{
    struct Case { const char *name; HoldingRef holding; bool valid, redeemable; HoldingStatus status; };
    const Case cases[] = {
        {"no row", make("N", 1999, 3, 5000, 1), false, true, HoldingStatus::NoPricingData},
        {"not yet redeemable", make("N", 2001, 9, 5000, 1), true, false, HoldingStatus::NotYetRedeemable},
        {"electronic reads -1 as -2", make("N", 2001, 9, 5000, 1, {}, false), false, true, HoldingStatus::NoPricingData},
        {"no issue date", make("N", 2000, 3, 5000, 1), true, true, HoldingStatus::Valued},
    };
    cases[3].holding->setIssueDate(Month());
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const HoldingFigures f = figuresOf(c.holding);
        EXPECT_EQ(f.value(), 0);
        EXPECT_EQ(f.interestEarned(), 0) << "interest is never negative";
        EXPECT_EQ(f.isValidIssue(), c.valid);
        EXPECT_EQ(f.isRedeemableIssue(), c.redeemable);
        EXPECT_EQ(f.status(), c.status);
        EXPECT_EQ(f.compoundAnnualGrowthRate(), 0.0f);
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
    // 6000 per bond bought for 2500, 22 months: 2.4^(12/22) - 1, with the ratio and the exponent in
    // single precision and the power in double; all in double it would be 61.2085037.
    EXPECT_EQ(figuresOf(ee).compoundAnnualGrowthRate(), 61.2085114f);
    // (3041 - 2950) / 2950 * 100 * 2 in single precision; in double it would be 6.16949129.
    EXPECT_EQ(figuresOf(ee).currentYield(), 6.16949177f);
    EXPECT_LT(figuresOf(below).compoundAnnualGrowthRate(), 0.0f);
    EXPECT_EQ(figuresOf(below).interestEarned(), 0);
    EXPECT_EQ(figuresOf(below).currentYield(), 0.0f) << "no data at the period's ends";
    ee->setQuantity(0);
    EXPECT_EQ(figuresOf(ee).compoundAnnualGrowthRate(), 0.0f) << "quantity 0 must not divide by zero";
}

// The current yield grows over the interest period holding the valuation month: November to
// May for November to April, May to November for May to October.
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

} // namespace
