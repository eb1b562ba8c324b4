#include "../QtPrinters.h"
#include "../PeopleFixture.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"

#include <gtest/gtest.h>

namespace {

using Rows = QList<InterestSummaryRow>;

class InterestSummary : public ::testing::Test
{
protected:
    HoldingRef add(BondPortfolio &portfolio, const char *series, int year, int month)
    {
        auto h = Holding::create();
        h->setSeries(Series::seriesForCode(QString::fromLatin1(series)));
        h->setIssueDate(BondAssessor::monthDate(year, month));
        h->setFaceValue(2500);
        h->setPortfolio(&portfolio);
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
    portfolio.setSummaryMode(1);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2001, 25}, {2002, 100}, {2003, 110}, {2004, 290}}));
    EXPECT_EQ(announced, 1);

    portfolio.setHoldingsFilter([&](const Holding &h) { return &h == iBond.get(); });
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2003, 10}, {2004, 90}}));
    EXPECT_EQ(announced, 2);
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
    portfolio.setSummaryMode(1);
    EXPECT_EQ(portfolio.interestSummary(), (Rows{{2000, 25}, {2001, 100}, {2002, -125}, {2003, 325}}));
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

TEST_F(InterestSummary, EmptyDatabaseGivesNoSummaryAndTodayAsValuationDate)
{
    BondPortfolio portfolio(&people.store, ValueTable().finish());
    add(portfolio, "E", 2001, 1);
    EXPECT_TRUE(portfolio.interestSummary().isEmpty());
    EXPECT_EQ(portfolio.valueOfDate().date().month(), QDate::currentDate().month());
    EXPECT_FALSE(portfolio.setValueOfDate(QDateTime())) << "an empty valuation date is refused";
    EXPECT_TRUE(portfolio.valueOfDate().isValid());
}

TEST_F(InterestSummary, ValuationDateIsValidatedAndDefaultsToTheLatestMonth)
{
    ValueTable values;
    values.add("E", 2004, 12, 2001, 1, 2300).add("E", 2004, 11, 2001, 1, 2290);
    BondPortfolio portfolio(&people.store, values.finish());
    EXPECT_EQ(portfolio.valueOfDate(), BondAssessor::monthDate(2004, 12));
    ValidationError error;
    EXPECT_TRUE(portfolio.validateValueOfDate(BondAssessor::monthDate(2004, 11), &error));
    EXPECT_FALSE(portfolio.validateValueOfDate(BondAssessor::monthDate(2004, 10), &error));
    EXPECT_EQ(error.domain, QStringLiteral("ValueOfDate"));
    EXPECT_EQ(error.message, QStringLiteral("No pricing data available for bonds with that valuation date"));
}

} // namespace
