// Which holdings a view shows when people are chosen.
#include "../PeopleFixture.h"
#include "model/HoldingFilter.h"

#include <gtest/gtest.h>

namespace {

class HoldingFilterTest : public ::testing::Test
{
protected:
    HoldingFilterTest()
    {
        bonds[0]->setOwner(ann);
        bonds[1]->setCoOwner(bob);
        bonds[1]->setOwner(cy);
        bonds[2]->setBeneficiary(bob);
    }

    QList<Holding *> shown(const HoldingFilter &filter) const
    {
        QList<Holding *> out;
        for (const HoldingRef &h : filter.shownOf(bonds))
            out << h.get();
        return out;
    }

    PeopleFixture people;
    PersonRef ann = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones"), cy = people.person("Cy", "Young");
    const QList<HoldingRef> bonds{Holding::create(), Holding::create(), Holding::create(), Holding::create()};
};

TEST_F(HoldingFilterTest, ShowsHoldingsNamingAnyChosenPersonInAnyRole)
{
    EXPECT_EQ(shown(HoldingFilter()).size(), 4);
    EXPECT_EQ(shown(HoldingFilter({bob})), (QList<Holding *>{bonds[1].get(), bonds[2].get()}));
    EXPECT_EQ(shown(HoldingFilter({ann, bob})), (QList<Holding *>{bonds[0].get(), bonds[1].get(), bonds[2].get()}));
    // An equal person from elsewhere (another window's copy) chooses the same bonds.
    EXPECT_EQ(shown(HoldingFilter({Person::create(cy->record())})), (QList<Holding *>{bonds[1].get()}));
}

TEST_F(HoldingFilterTest, AKeptHoldingStaysShownUntilTheFilterIsReplaced)
{
    HoldingFilter filter({ann});
    filter.keepShown(bonds[3]);
    EXPECT_EQ(shown(filter), (QList<Holding *>{bonds[0].get(), bonds[3].get()}));
    EXPECT_EQ(shown(HoldingFilter({ann})), (QList<Holding *>{bonds[0].get()}));
}

TEST_F(HoldingFilterTest, APersonLeavingTheListNoLongerNarrowsTheHoldings)
{
    HoldingFilter filter({ann, bob});
    EXPECT_FALSE(filter.keepOnly({ann, bob, cy}));
    EXPECT_TRUE(filter.keepOnly({bob, cy}));
    EXPECT_EQ(filter.people(), (QList<PersonRef>{bob}));
    EXPECT_TRUE(filter.keepOnly({cy}));
    EXPECT_TRUE(filter.isEmpty());
    EXPECT_EQ(shown(filter).size(), 4);
}

} // namespace
