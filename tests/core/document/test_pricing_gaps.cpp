// Bonds without pricing data: why each has none (not priced yet, never sold in its issue month, or
// valued before its issue)
// and how many bonds the totals leave out.
#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "document/HoldingPresentation.h"

#include <gtest/gtest.h>

namespace {

using S = HoldingStatus;
using HoldingPresentation::Remark;

// One EE and one I issue month priced in January 2002, an EE month not yet redeemable.
class PricingGaps : public ::testing::Test, public PortfolioFixture
{
protected:
    PricingGaps()
        : PortfolioFixture(ValueTable().add("N", 2002, 1, 2000, 3, 3000).add("N", 2002, 1, 2001, 9, -1)
                               .add("I", 2002, 1, 2000, 3, 2600),
                           BondAssessor::monthDate(2002, 1))
    {
    }
};

TEST_F(PricingGaps, StatusTellsAMonthNeverSoldFromOneNotPricedYet)
{
    const struct { const char *code; int year, month; S status; Remark remark; } cases[] = {
        {"N", 2000, 3, S::Valued, Remark::None},
        {"N", 2001, 9, S::NotYetRedeemable, Remark::NotYetRedeemable},
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
        SCOPED_TRACE(testing::Message() << c.code << ' ' << c.year << '-' << c.month);
        const HoldingRef holding = make(c.code, c.year, c.month, 5000);
        const HoldingFigures figures = portfolio->figuresOf(*holding);
        EXPECT_EQ(figures.status(), c.status);
        EXPECT_EQ(HoldingPresentation::pricingRemarkOf(figures), c.remark);
    }
}

// Bonds, not holdings, are counted, as the totals count their quantity.
TEST_F(PricingGaps, TotalsCountTheBondsLeftOut)
{
    struct Bond { const char *code; int year, month, quantity; };
    const struct { const char *name; QList<Bond> bonds; qint64 quantity, left; Pennies value; } cases[] = {
        {"all priced", {{"N", 2000, 3, 2}, {"N", 2001, 9, 4}}, 6, 0, 2 * 6000},
        {"one", {{"N", 2000, 3, 2}, {"I", 1997, 1, 1}}, 3, 1, 2 * 6000},
        {"several, with quantities",
         {{"N", 2000, 3, 1}, {"I", 1997, 1, 3}, {"N", 2000, 4, 2}, {"E", 1980, 7, 0}, {"I", 2000, 3, 1},
          {"I", 2002, 6, 4}},
         11, 9, 6000 + 5200},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QList<HoldingRef> holdings;
        for (const Bond &b : c.bonds)
            holdings << make(b.code, b.year, b.month, 5000, b.quantity);
        const HoldingTotals totals = HoldingTotals::of(portfolio->valuationContext(), holdings);
        EXPECT_EQ(std::tuple(totals.quantity, totals.withoutPricingData, totals.value), std::tuple(c.quantity, c.left, c.value));
    }
}

} // namespace
