#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "model/Holding.h"

#include <gtest/gtest.h>

namespace {

// EE bonds issued March 2000, valued January 2002 (interest period November 2001 to May 2002).
class HoldingValuation : public ::testing::Test, public PortfolioFixture
{
protected:
    HoldingValuation()
        : PortfolioFixture(ValueTable()
                               .add("N", 2002, 1, 2000, 3, 3000)
                               .add("N", 2001, 11, 2000, 3, 2950)
                               .add("N", 2002, 5, 2000, 3, 3041)
                               .add("N", 2002, 1, 2001, 9, -1)
                               .add("I", 2002, 1, 2000, 3, 2400), // below its issue price
                           BondAssessor::monthDate(2002, 1))
    {
    }
};

TEST_F(HoldingValuation, WorkedExamplePaperAndElectronic)
{
    const HoldingRef paper = make("N", 2000, 3, 5000, 2);
    EXPECT_EQ(paper->pricingCorrectionFactor(), 1);
    EXPECT_EQ(paper->issuePrice(), 2500);
    EXPECT_EQ(paper->value(), 12000);
    EXPECT_EQ(paper->interestEarned(), 7000);
    EXPECT_EQ(paper->myColor(), Holding::LineColor::Black);

    const HoldingRef electronic = make("N", 2000, 3, 5000, 2, {}, false);
    EXPECT_EQ(electronic->pricingCorrectionFactor(), 2);
    EXPECT_EQ(electronic->issuePrice(), 5000);
    EXPECT_EQ(electronic->value(), 24000);
    EXPECT_EQ(electronic->interestEarned(), 14000);
}

TEST_F(HoldingValuation, MarkersCountAsZeroAndColourTheLine)
{
    struct Case { const char *name; HoldingRef holding; bool valid, redeemable; Holding::LineColor color; };
    const Case cases[] = {
        {"no row", make("N", 1999, 3, 5000, 1), false, true, Holding::LineColor::Red},
        {"not yet redeemable", make("N", 2001, 9, 5000, 1), true, false, Holding::LineColor::Blue},
        {"electronic reads -1 as -2", make("N", 2001, 9, 5000, 1, {}, false), false, true, Holding::LineColor::Red},
        {"no issue date", make("N", 2000, 3, 5000, 1), true, true, Holding::LineColor::Black},
    };
    cases[3].holding->setIssueDate(QDateTime());
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.holding->value(), 0);
        EXPECT_EQ(c.holding->interestEarned(), 0) << "interest is never negative";
        EXPECT_EQ(c.holding->isValidIssue(), c.valid);
        EXPECT_EQ(c.holding->isRedeemableIssue(), c.redeemable);
        EXPECT_EQ(c.holding->myColor(), c.color);
        EXPECT_EQ(c.holding->compoundAnnualGrowthRate(), 0.0f);
    }
}

TEST_F(HoldingValuation, MonthsHeldCompareInstantsButCountMonths)
{
    struct Case { int year, month, day; int expected; };
    const Case cases[] = {{2000, 3, 1, 22}, {2001, 1, 31, 12}, {2002, 1, 1, 0}, {2002, 1, 20, 0}, {2003, 5, 1, 0}};
    for (const Case &c : cases) {
        SCOPED_TRACE(QStringLiteral("%1-%2-%3").arg(c.year).arg(c.month).arg(c.day).toStdString());
        Holding h;
        h.setPortfolio(portfolio.get());
        h.setIssueDate(QDateTime(QDate(c.year, c.month, c.day), QTime(0, 0, 1)));
        EXPECT_EQ(h.monthsHeld(), c.expected);
    }
}

TEST_F(HoldingValuation, GrowthRateAndCurrentYield)
{
    const HoldingRef ee = make("N", 2000, 3, 5000, 2);
    // 6000 per bond bought for 2500, 22 months: 2.4^(12/22) - 1, with the ratio and the exponent in
    // single precision and the power in double; all in double it would be 61.2085037.
    EXPECT_EQ(ee->compoundAnnualGrowthRate(), 61.2085114f);
    // (3041 - 2950) / 2950 * 100 * 2 in single precision; in double it would be 6.16949129.
    EXPECT_EQ(ee->currentYield(), 6.16949177f);
    const HoldingRef below = make("I", 2000, 3, 2500, 1);
    EXPECT_LT(below->compoundAnnualGrowthRate(), 0.0f);
    EXPECT_EQ(below->interestEarned(), 0);
    EXPECT_EQ(below->currentYield(), 0.0f) << "no data at the period's ends";
    ee->setQuantity(0);
    EXPECT_EQ(ee->compoundAnnualGrowthRate(), 0.0f) << "quantity 0 must not divide by zero";
}

TEST_F(HoldingValuation, InterestPeriodEndsOnDayOneOfMayAndNovember)
{
    struct Case { int year, month, day; QDate start, end; };
    const Case cases[] = {
        {2005, 4, 15, {2004, 11, 1}, {2005, 5, 1}},
        {2005, 5, 1, {2005, 5, 1}, {2005, 11, 1}},
        {2005, 10, 31, {2005, 5, 1}, {2005, 11, 1}},
        {2005, 11, 30, {2005, 11, 1}, {2006, 5, 1}},
        {2005, 1, 31, {2004, 11, 1}, {2005, 5, 1}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(QDate(c.year, c.month, c.day).toString(Qt::ISODate).toStdString());
        ASSERT_TRUE(portfolio->setValueOfDate(QDateTime(QDate(c.year, c.month, c.day), QTime(13, 5))));
        const DateRange period = portfolio->currentInterestPeriod();
        EXPECT_EQ(period.start.date(), c.start);
        EXPECT_EQ(period.end.date(), c.end);
        EXPECT_EQ(period.end.time(), QTime(13, 5));
    }
}

TEST_F(HoldingValuation, PriceHistoryLinesUseTheSecuritySymbol)
{
    const HoldingRef ee = make("N", 2000, 3, 5000, 1);
    EXPECT_EQ(ee->security(), QStringLiteral("032000N"));
    EXPECT_EQ(ee->valuesSinceIssue(),
              (QStringList{"032000N,29.50,11/1/2001\r", "032000N,30.00,01/1/2002\r", "032000N,30.41,05/1/2002\r"}));
}

} // namespace
