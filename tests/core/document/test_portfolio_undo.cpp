#include "../PeopleFixture.h"
#include "../QtPrinters.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"

#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

class PortfolioUndo : public ::testing::Test
{
protected:
    PortfolioUndo()
        : portfolio(&people.store, ValueTable().finish())
    {
        ann = people.person("Ann", "Smith");
        bob = people.person("Bob", "Jones");
        portfolio.setTitleHolders({ann, bob});
        bond = Holding::create();
        bond->setPortfolio(&portfolio);
        bond->setFaceValue(5000);
        portfolio.setHoldings({bond});
        portfolio.undoStack()->clear();
    }

    QUndoStack &stack() { return *portfolio.undoStack(); }

    PeopleFixture people;
    BondPortfolio portfolio;
    PersonRef ann, bob;
    HoldingRef bond;
};

TEST_F(PortfolioUndo, InstallingAListRecordsNothingButObservesItsHoldings)
{
    const HoldingRef other = Holding::create();
    other->setPortfolio(&portfolio);
    portfolio.setHoldings({other, bond});
    EXPECT_EQ(stack().count(), 0);
    EXPECT_FALSE(portfolio.isEdited());
    other->setQuantity(7);
    EXPECT_EQ(stack().count(), 1) << "an installed holding's edits are recorded";
}

// Each value edit is one "Edit" that undoes to the old value and redoes to the new one.
struct EditCase
{
    const char *key;
    std::function<void(Holding &, PortfolioUndo &)> edit;
};

class ValueEdits : public PortfolioUndo, public ::testing::WithParamInterface<EditCase>
{
public:
    PersonRef annRef() const { return ann; }
    PersonRef bobRef() const { return bob; }
};

TEST_P(ValueEdits, UndoAndRedoThroughTheSameSetter)
{
    const QString key = QString::fromLatin1(GetParam().key);
    const QVariant before = bond->valueForKey(key);
    bool edited = false;
    QObject::connect(&portfolio, &BondPortfolio::editedChanged, [&](bool e) { edited = e; });
    GetParam().edit(*bond, *this);
    const QVariant after = bond->valueForKey(key);
    ASSERT_NE(before, after);
    ASSERT_EQ(stack().count(), 1);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit"));
    EXPECT_TRUE(portfolio.isEdited());
    EXPECT_TRUE(edited);
    stack().undo();
    EXPECT_EQ(bond->valueForKey(key), before);
    EXPECT_EQ(stack().count(), 1) << "undoing records nothing new";
    EXPECT_FALSE(portfolio.isEdited());
    EXPECT_EQ(stack().redoText(), QStringLiteral("Edit"));
    stack().redo();
    EXPECT_EQ(bond->valueForKey(key), after);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ValueEdits,
    ::testing::Values(
        EditCase{"series", [](Holding &h, PortfolioUndo &) { h.setSeries(Series::seriesForCode(QStringLiteral("I"))); }},
        EditCase{"quantity", [](Holding &h, PortfolioUndo &) { h.setQuantity(4); }},
        EditCase{"paper", [](Holding &h, PortfolioUndo &) { h.setPaper(!h.isPaper()); }},
        EditCase{"issueDate", [](Holding &h, PortfolioUndo &) { h.setIssueDate(BondAssessor::monthDate(1995, 3)); }},
        EditCase{"faceValue", [](Holding &h, PortfolioUndo &) { h.setFaceValue(10000); }},
        EditCase{"serialNumber", [](Holding &h, PortfolioUndo &) { h.setSerialNumber(QStringLiteral("Q100")); }},
        EditCase{"owner", [](Holding &h, PortfolioUndo &t) { h.setOwner(static_cast<ValueEdits &>(t).annRef()); }},
        EditCase{"coOwner", [](Holding &h, PortfolioUndo &t) { h.setCoOwner(static_cast<ValueEdits &>(t).bobRef()); }},
        EditCase{"beneficiary", [](Holding &h, PortfolioUndo &t) { h.setBeneficiary(static_cast<ValueEdits &>(t).bobRef()); }}),
    [](const ::testing::TestParamInfo<EditCase> &info) { return std::string(info.param.key); });

TEST_F(PortfolioUndo, RoleSwapIsOneStepAndUndoesWhole)
{
    bond->setOwner(ann);
    bond->setCoOwner(bob);
    stack().clear();
    bond->setOwner(bob); // bob leaves the co-owner role
    ASSERT_EQ(stack().count(), 1);
    EXPECT_EQ(bond->owner(), bob);
    EXPECT_EQ(bond->coOwner(), nullptr);
    stack().undo();
    EXPECT_EQ(bond->owner(), ann);
    EXPECT_EQ(bond->coOwner(), bob);
    EXPECT_EQ(ann->ownerHoldingsCount(), QVariant(1));
    EXPECT_EQ(bob->coOwnerHoldingsCount(), QVariant(1));
    EXPECT_FALSE(bob->ownerHoldingsCount().isValid());
    stack().redo();
    EXPECT_EQ(bond->owner(), bob);
    EXPECT_EQ(bond->coOwner(), nullptr);
}

TEST_F(PortfolioUndo, ClearedOwnerComesBackAsTheSameObject)
{
    bond->setOwner(ann);
    stack().clear();
    bond->setOwner(nullptr);
    stack().undo();
    EXPECT_EQ(bond->owner().get(), ann.get());
    stack().redo();
    EXPECT_EQ(bond->owner(), nullptr);
}

TEST_F(PortfolioUndo, DeletedHoldingReturnsAtItsIndexWithItsRoles)
{
    auto second = Holding::create();
    second->setPortfolio(&portfolio);
    portfolio.appendHolding(second);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Insert Holding"));
    bond->setOwner(ann);
    bond->setBeneficiary(bob);
    stack().clear();

    portfolio.removeHoldingAt(0);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Delete Holding"));
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{second});
    EXPECT_FALSE(ann->ownerHoldingsCount().isValid());
    EXPECT_FALSE(bob->beneficiaryHoldingsCount().isValid());
    bond->setFaceValue(1); // not in the portfolio: not recorded
    EXPECT_EQ(stack().count(), 1);

    stack().undo();
    EXPECT_EQ(portfolio.holdings(), (QList<HoldingRef>{bond, second}));
    EXPECT_EQ(bond->owner(), ann);
    EXPECT_EQ(bond->beneficiary(), bob);
    EXPECT_EQ(ann->ownerHoldingsCount(), QVariant(1));
    EXPECT_EQ(bob->beneficiaryHoldingsCount(), QVariant(1));
    bond->setQuantity(7); // observed again
    EXPECT_EQ(stack().count(), 1) << "the redo of the deletion was dropped by the new edit";
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit"));
}

TEST_F(PortfolioUndo, UndoneInsertionClearsRolesAndRedoRestoresThem)
{
    auto fresh = Holding::create();
    fresh->setPortfolio(&portfolio);
    fresh->setOwner(bob);
    portfolio.insertHolding(fresh, 0);
    EXPECT_EQ(portfolio.holdings().first(), fresh);
    stack().undo();
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{bond});
    EXPECT_EQ(fresh->owner(), nullptr);
    EXPECT_FALSE(bob->ownerHoldingsCount().isValid());
    stack().redo();
    EXPECT_EQ(portfolio.holdings().first(), fresh);
    EXPECT_EQ(fresh->owner(), bob);
}

TEST_F(PortfolioUndo, PeopleEditsAndRemovalFromAllBonds)
{
    bond->setOwner(ann);
    bond->setCoOwner(bob);
    stack().clear();
    const PersonRef cy = people.person("Cy", "Adams");
    QList<PersonRef> more = portfolio.titleHolders();
    more << cy;
    portfolio.setTitleHolders(more);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit People"));
    EXPECT_EQ(portfolio.titleHolders(), (QList<PersonRef>{ann, bob, cy}));
    stack().undo();
    EXPECT_EQ(portfolio.titleHolders(), (QList<PersonRef>{ann, bob}));
    stack().redo();
    EXPECT_EQ(portfolio.titleHolders().size(), 3);

    // An equal object stands for the person; the bond's very object is cleared.
    portfolio.deleteTitleHolderFromAllBonds(Person::create(bob->record()));
    EXPECT_EQ(portfolio.titleHolders(), (QList<PersonRef>{ann, cy}));
    EXPECT_EQ(bond->coOwner(), nullptr);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit People"));
    stack().undo();
    EXPECT_EQ(portfolio.titleHolders(), (QList<PersonRef>{ann, bob, cy}));
    EXPECT_EQ(bond->coOwner(), bob);
}

TEST_F(PortfolioUndo, EveryRecordedChangeRefreshesTheSummary)
{
    int refreshed = 0;
    QObject::connect(&portfolio, &BondPortfolio::interestSummaryChanged, [&] { ++refreshed; });
    bond->setSerialNumber(QStringLiteral("X1"));
    EXPECT_EQ(refreshed, 1);
    stack().undo();
    EXPECT_EQ(refreshed, 2);
    portfolio.setValueOfDate(BondAssessor::monthDate(2001, 1));
    EXPECT_EQ(refreshed, 3);
}

} // namespace
