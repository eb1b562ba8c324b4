// The announcements item models rely on: before-and-after pairs for list changes, and a refresh
// when the database's range moves.
#include "../PeopleFixture.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

namespace {

class PortfolioAnnouncements : public ::testing::Test
{
protected:
    PortfolioAnnouncements()
        : portfolio(&people.store, ValueTable().finish())
    {
        portfolio.setTitleHolders({ann, bob, cy});
        for (const HoldingRef &bond : bonds)
            portfolio.adopt(*bond);
        bonds[0]->setOwner(ann);
        bonds[1]->setCoOwner(bob);
        bonds[1]->setOwner(cy);
        bonds[2]->setBeneficiary(bob);
        portfolio.setHoldings(bonds);
    }

    PeopleFixture people;
    BondPortfolio portfolio;
    PersonRef ann = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones"), cy = people.person("Cy", "Young");
    const QList<HoldingRef> bonds{Holding::create(), Holding::create(), Holding::create(), Holding::create()};
};

TEST_F(PortfolioAnnouncements, ListChangesAreAnnouncedBeforeAndAfter)
{
    QStringList order;
    auto note = [&order](const char *what) { return [&order, what] { order << QLatin1String(what); }; };
    QObject::connect(&portfolio, &BondPortfolio::holdingAboutToBeInserted, note("before insert"));
    QObject::connect(&portfolio, &BondPortfolio::holdingInserted, note("insert"));
    QObject::connect(&portfolio, &BondPortfolio::holdingsAboutToBeReset, note("before reset"));
    QObject::connect(&portfolio, &BondPortfolio::holdingsReset, note("reset"));
    QObject::connect(&portfolio, &BondPortfolio::titleHoldersAboutToChange, note("before people"));
    QObject::connect(&portfolio, &BondPortfolio::titleHoldersChanged, note("people"));
    portfolio.addNewHolding(0);
    portfolio.setHoldings({});
    portfolio.setTitleHolders({ann});
    EXPECT_EQ(order, (QStringList{"before insert", "insert", "before reset", "reset", "before people", "people"}));
}

TEST_F(PortfolioAnnouncements, ANewDatabaseRangeRefreshesEveryFigure)
{
    int figures = 0, summaries = 0;
    QObject::connect(&portfolio, &BondPortfolio::figuresChanged, [&] { ++figures; });
    QObject::connect(&portfolio, &BondPortfolio::interestSummaryChanged, [&] { ++summaries; });
    RedemptionDateRangeNotifier::instance()->post(nullptr, BondAssessor::monthDate(2000, 1),
                                                  BondAssessor::monthDate(2001, 1));
    const QDeadlineTimer deadline(2000);
    while (figures == 0 && !deadline.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_EQ(figures, 1);
    EXPECT_GE(summaries, 1);
}

} // namespace
