// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "document/HoldingPresentation.h"

#include <gtest/gtest.h>

namespace { // the fixture shares its name with the code under test

using Rows = QList<InterestSummaryRow>;

class InterestSummary : public ::testing::Test
{
protected:
    HoldingRef add(BondPortfolio &portfolio, const char *series, int year, int month)
    {
        const HoldingRef h = makeHolding(portfolio, series, year, month, 2500);
        portfolio.appendHolding(h);
        return h;
    }

    PeopleFixture people;
};

// An E bond of 2001 (cost 1875) and an I bond of 2003 (cost 2500), database ending December 2004.
TEST_F(InterestSummary, CumulativeAndYearlyOverTheHoldingsShown)
{
    ValueTable values;
    values.add("E", 2001, 12, 2001, 1, 1900).add("E", 2002, 12, 2001, 1, 2000)
        .add("E", 2003, 12, 2001, 1, 2100).add("E", 2004, 12, 2001, 1, 2300)
        .add("I", 2003, 12, 2003, 6, 2510).add("I", 2004, 12, 2003, 6, 2600);
    BondPortfolio portfolio(&people.store, values.finish());
    add(portfolio, "E", 2001, 1);
    const HoldingRef iBond = add(portfolio, "I", 2003, 6);

    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2001, 25}, {2002, 125}, {2003, 235}, {2004, 525}}));
    int announced = 0;
    QObject::connect(&portfolio, &BondPortfolio::interestSummaryChanged, [&] { ++announced; });
    portfolio.setSummaryMode(SummaryMode::Yearly);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2001, 25}, {2002, 100}, {2003, 110}, {2004, 290}}));
    EXPECT_EQ(announced, 1);

    const PersonRef owner = people.person("Ann", "Smith");
    iBond->setOwner(owner);
    EXPECT_EQ(portfolio.interestSummary(HoldingFilter({owner})), (Rows{{2003, 10}, {2004, 90}}));
}

TEST_F(InterestSummary, SkipsLeadingZeroYearsButKeepsLaterOnes)
{
    ValueTable values;
    // No December 2002 value: that year counts as zero, and the next year's growth is whole.
    values.add("E", 1999, 12, 1999, 1, 1800).add("E", 2000, 12, 1999, 1, 1900)
        .add("E", 2001, 12, 1999, 1, 2000).add("E", 2003, 12, 1999, 1, 2200);
    BondPortfolio portfolio(&people.store, values.finish());
    add(portfolio, "E", 1999, 1);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2000, 25}, {2001, 125}, {2002, 0}, {2003, 325}}));
    portfolio.setSummaryMode(SummaryMode::Yearly);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2000, 25}, {2001, 100}, {2002, -125}, {2003, 325}}));
}

// EE 1990 bond, no 12/1998: first row since issue, later years incomplete; a bond in its first year makes none so.
TEST_F(InterestSummary, MissingDecembersAreNeverSilentlyLowerFigures)
{
    ValueTable values;
    values.add("N", 1996, 12, 1990, 1, 3000).add("N", 1997, 12, 1990, 1, 3100).add("N", 1999, 12, 1990, 1, 3300);
    BondPortfolio portfolio(&people.store, values.finish());
    add(portfolio, "N", 1990, 1);
    add(portfolio, "N", 1999, 6);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{1996, 1750, 0, true}, {1997, 1850}, {1998, 0, 1}, {1999, 2050}}));
    EXPECT_EQ(HoldingPresentation::taxYearText(portfolio.interestSummary().first()), QStringLiteral("1996 and before"));
    EXPECT_EQ(HoldingPresentation::incompleteYearNote(portfolio.interestSummary().at(2)),
              QStringLiteral("incomplete: no value for 1 bond(s) in a December this figure needs"));
    portfolio.setSummaryMode(SummaryMode::Yearly);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{1996, 1750, 0, true}, {1997, 100}, {1998, -1850, 1}, {1999, 2050, 1}}));
}

TEST_F(InterestSummary, LastTaxYearIsTheLastDecemberInTheDatabase)
{
    for (const int lastMonth : {6, 12}) {
        SCOPED_TRACE(lastMonth);
        ValueTable values;
        values.add("E", 2004, 12, 2004, 1, 1900).add("E", 2005, 12, 2004, 1, 1950)
            .add("E", 2006, lastMonth, 2004, 1, 2000);
        BondPortfolio portfolio(&people.store, values.finish());
        add(portfolio, "E", 2004, 1);
        const Rows rows = portfolio.interestSummary();
        ASSERT_FALSE(rows.isEmpty());
        EXPECT_EQ(rows.last().taxYear, lastMonth == 12 ? 2006 : 2005);
    }
}

// A damaged quantity below 1 counts as no bonds: totals are the other holdings', never negative.
class QuantityBelowOne : public InterestSummary, public ::testing::WithParamInterface<qint32> {};

TEST_P(QuantityBelowOne, CountsAsNoBondsInEveryTotal)
{
    ValueTable values;
    values.add("E", 2001, 12, 2001, 1, 1900).add("E", 2002, 12, 2001, 1, 2000);
    const QString database = values.finish();
    BondPortfolio portfolio(&people.store, database);
    portfolio.setValueOfDate(BondAssessor::monthDate(2002, 12));
    const HoldingRef sound = add(portfolio, "E", 2001, 1);
    const Rows summary = portfolio.interestSummary();
    const HoldingTotals alone = HoldingTotals::of(portfolio.valuationContext(), portfolio.holdings());

    const HoldingRef odd = add(portfolio, "E", 2001, 1);
    odd->setQuantity(GetParam());
    BondPortfolio opened(&people.store, database);
    ASSERT_TRUE(opened.loadDataRepresentation(portfolio.dataRepresentation()));
    opened.setValueOfDate(BondAssessor::monthDate(2002, 12));
    for (BondPortfolio *each : {&portfolio, &opened}) {
        const Holding &h = *each->holdings().at(1);
        EXPECT_EQ(h.quantity(), GetParam());
        EXPECT_TRUE(h.hasQuantityBelowOne());
        const HoldingFigures figures = each->figuresOf(h);
        EXPECT_EQ(figures.value(), 0);
        EXPECT_EQ(figures.interestEarned(), 0);
        EXPECT_EQ(figures.compoundAnnualGrowthRate(), 0.0f);
        EXPECT_EQ(each->interestSummary(), summary);
        const HoldingTotals totals = HoldingTotals::of(each->valuationContext(), each->holdings());
        EXPECT_EQ(std::tuple(totals.quantity, totals.faceValue, totals.issuePrice, totals.interestEarned, totals.value),
                  std::tuple(alone.quantity, alone.faceValue, alone.issuePrice, alone.interestEarned, alone.value));
    }
    EXPECT_EQ(alone.quantity, 1);
    EXPECT_GT(alone.value, 0);
    EXPECT_FALSE(sound->hasQuantityBelowOne());
}

INSTANTIATE_TEST_SUITE_P(Quantities, QuantityBelowOne, ::testing::Values(0, -1, -3, std::numeric_limits<qint32>::min()));

} // namespace
