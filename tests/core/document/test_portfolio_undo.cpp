// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// What the portfolio records for undo, under the action names the Edit menu shows.
#include "../PortfolioFixture.h"
#include "../QtPrinters.h"

#include <QUndoStack>
#include <gtest/gtest.h>

class PortfolioUndo : public ::testing::Test
{
protected:
    PortfolioUndo()
        : portfolio(&people.store, ValueTable().finish())
    {
        portfolio.setTitleHolders({ann, bob});
        portfolio.adopt(*bond);
        bond->setFaceValue(5000);
        portfolio.setHoldings({bond});
        portfolio.undoStack()->clear();
    }

    QUndoStack &stack() { return *portfolio.undoStack(); }

    PeopleFixture people;
    BondPortfolio portfolio;
    PersonRef ann = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones");
    HoldingRef bond = Holding::create();
};

// Each value edit is one "Edit" that undoes and redoes; the same edit again records nothing.
struct EditCase { HoldingProperty property; void (*edit)(Holding &, const PersonRef &ann, const PersonRef &bob); };

void PrintTo(const EditCase &c, std::ostream *out) { *out << HoldingKey::of(c.property); }

class ValueEdits : public PortfolioUndo, public ::testing::WithParamInterface<EditCase> {};

TEST_P(ValueEdits, UndoAndRedoThroughTheSameSetter)
{
    const HoldingProperty property = GetParam().property;
    const QVariant before = bond->value(property);
    bool edited = false;
    QObject context; // disconnects before `edited` goes: the portfolio announces again when destroyed
    QObject::connect(&portfolio, &BondPortfolio::editedChanged, &context, [&](bool e) { edited = e; });
    GetParam().edit(*bond, ann, bob);
    const QVariant after = bond->value(property);
    ASSERT_NE(before, after);
    ASSERT_EQ(stack().count(), 1);
    GetParam().edit(*bond, ann, bob);
    EXPECT_EQ(stack().count(), 1) << "a value the holding already has is no edit";
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit"));
    EXPECT_TRUE(portfolio.isEdited());
    EXPECT_TRUE(edited);
    stack().undo();
    EXPECT_EQ(bond->value(property), before);
    EXPECT_EQ(stack().count(), 1) << "undoing records nothing new";
    EXPECT_FALSE(portfolio.isEdited());
    EXPECT_EQ(stack().redoText(), QStringLiteral("Edit"));
    stack().redo();
    EXPECT_EQ(bond->value(property), after);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ValueEdits,
    ::testing::Values(EditCase{HoldingProperty::Series, [](Holding &h, auto &, auto &) { h.setSeries(Series::seriesForCode("I")); }},
                      EditCase{HoldingProperty::Quantity, [](Holding &h, auto &, auto &) { h.setQuantity(4); }},
                      EditCase{HoldingProperty::Paper, [](Holding &h, auto &, auto &) { h.setPaper(false); }},
                      EditCase{HoldingProperty::IssueDate, [](Holding &h, auto &, auto &) { h.setIssueDate(Month(1995, 3)); }},
                      EditCase{HoldingProperty::FaceValue, [](Holding &h, auto &, auto &) { h.setFaceValue(10000); }},
                      EditCase{HoldingProperty::SerialNumber, [](Holding &h, auto &, auto &) { h.setSerialNumber("Q100"); }},
                      EditCase{HoldingProperty::Owner, [](Holding &h, auto &ann, auto &) { h.setOwner(ann); }},
                      EditCase{HoldingProperty::CoOwner, [](Holding &h, auto &, auto &bob) { h.setCoOwner(bob); }},
                      EditCase{HoldingProperty::Beneficiary, [](Holding &h, auto &, auto &bob) { h.setBeneficiary(bob); }}),
    [](const auto &info) { return std::string(HoldingKey::of(info.param.property)); });

TEST_F(PortfolioUndo, DeletedHoldingReturnsAtItsIndexWithItsRoles)
{
    auto second = Holding::create();
    portfolio.adopt(*second);
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

TEST_F(PortfolioUndo, PeopleEditsAndRemovalFromAllBonds)
{
    bond->setOwner(ann);
    bond->setCoOwner(bob);
    stack().clear();
    const PersonRef cy = people.person("Cy", "Adams");
    portfolio.setTitleHolders({ann, bob, cy});
    EXPECT_EQ(stack().undoText(), QStringLiteral("Edit People"));
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

// An action on many bonds is one step under its own name; a step that changed nothing leaves no undo.
TEST_F(PortfolioUndo, ActionsOnManyBondsAreOneStep)
{
    QList<HoldingRef> twenty;
    for (int k = 0; k < 20; ++k)
        twenty << makeHolding(portfolio, "N", 0, 0, 5000, k + 1);
    portfolio.setHoldings(QList<HoldingRef>{bond} + twenty);
    {
        UndoStep step(portfolio, UndoActionName::DeleteHolding);
        for (const HoldingRef &holding : twenty)
            portfolio.removeHoldingAt(portfolio.indexOfHolding(holding.get()));
    }
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{bond});
    ASSERT_EQ(stack().count(), 1);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Delete Holding"));
    stack().undo();
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{bond} + twenty);
    EXPECT_FALSE(portfolio.isEdited());

    {
        UndoStep step(portfolio, UndoActionName::Edit);
        for (const HoldingRef &holding : twenty)
            holding->setFaceValue(holding->faceValue());
    }
    EXPECT_EQ(stack().count(), 1) << "nothing changed";
    EXPECT_TRUE(stack().canRedo());
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
