// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Cashing bonds: one undoable step, kept in the file, and each owner's tax year (on the shipped database).
#include "../PeopleFixture.h"
#include "IndependentReaders.h"
#include "TaxYearPortfolio.h"
#include "TestSupport.h"
#include "document/BondPortfolio.h"
#include "document/TaxYearReport.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

class Redemptions : public ::testing::Test
{
protected:
    Redemptions() : portfolio(&people.store, QStringLiteral(QUILLMERE_TEST_DATABASE))
    {
        portfolio.setTitleHolders({alice, bob});
        portfolio.undoStack()->clear();
    }

    HoldingRef bond(const char *code, Month issue, Pennies face, qint32 quantity = 1, const PersonRef &owner = {})
    {
        return TaxYearPortfolio::addBond(portfolio, code, issue, face, quantity, owner);
    }
    bool redeem(const HoldingRef &holding, qint32 quantity, Month month, Pennies amount, QString *why = nullptr)
    {
        ValidationError error;
        const bool done = portfolio.redeem(holding, quantity, month, amount, &error);
        if (why)
            *why = error.message;
        return done;
    }

    PeopleFixture people;
    PersonRef alice = people.person("Alice", "Able"), bob = people.person("Bob", "Baker");
    BondPortfolio portfolio;
};

TEST_F(Redemptions, SomeOrAllBondsInOneUndoableStep)
{
    const HoldingRef held = bond("I", Month(2010, 1), 100000, 3, alice);
    portfolio.undoStack()->clear();
    ASSERT_TRUE(redeem(held, 2, Month(2021, 3), 250000));
    EXPECT_EQ(held->quantity(), 1);
    ASSERT_EQ(portfolio.redeemedHoldings().size(), 1);
    const HoldingRef cashed = portfolio.redeemedHoldings().first();
    EXPECT_EQ(cashed->quantity(), 2);
    EXPECT_EQ(cashed->owner(), alice);
    EXPECT_EQ(cashed->redemptionInterest(), 250000 - 2 * 100000);
    EXPECT_EQ(portfolio.undoStack()->undoText(), QStringLiteral("Redeem"));
    portfolio.undoStack()->undo();
    EXPECT_EQ(held->quantity(), 3);
    EXPECT_TRUE(portfolio.redeemedHoldings().isEmpty());

    // All of them: the holding itself moves, and comes back to its place.
    ASSERT_TRUE(redeem(held, 3, Month(2021, 3), 375000));
    EXPECT_TRUE(portfolio.holdings().isEmpty());
    EXPECT_EQ(portfolio.redeemedHoldings(), QList<HoldingRef>{held});
    EXPECT_EQ(held->owner(), alice);
    portfolio.undoStack()->undo();
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{held});
    EXPECT_FALSE(held->isRedeemed());
    portfolio.undoStack()->redo();

    // Un-redeem and delete, each undoable; an edit of a redeemed bond is an Edit.
    held->setAmountReceived(380000);
    EXPECT_EQ(portfolio.undoStack()->undoText(), QStringLiteral("Edit"));
    portfolio.unredeemAt(0);
    EXPECT_EQ(portfolio.undoStack()->undoText(), QStringLiteral("Un-redeem"));
    EXPECT_EQ(portfolio.holdings(), QList<HoldingRef>{held});
    EXPECT_FALSE(held->isRedeemed());
    portfolio.undoStack()->undo();
    EXPECT_EQ(held->amountReceived(), 380000);
    portfolio.removeRedeemedAt(0);
    EXPECT_TRUE(portfolio.redeemedHoldings().isEmpty());
    portfolio.undoStack()->undo();
    EXPECT_EQ(portfolio.redeemedHoldings(), QList<HoldingRef>{held});
}

TEST_F(Redemptions, RefusedBeforeIssueAndWhileNotCashable)
{
    const HoldingRef young = bond("I", Month(2020, 1), 10000, 2);
    QString why;
    EXPECT_FALSE(redeem(young, 1, Month(2019, 12), 10000, &why));
    EXPECT_EQ(why, QStringLiteral("The redemption month cannot be before the issue month, 01/2020."));
    EXPECT_FALSE(redeem(young, 1, Month(2020, 12), 10000, &why));
    EXPECT_EQ(why, QStringLiteral("These bonds cannot be cashed before 01/2021."));
    EXPECT_FALSE(redeem(young, 3, Month(2021, 6), 10000, &why));
    EXPECT_TRUE(redeem(young, 1, Month(2021, 1), 10000));
    EXPECT_EQ(portfolio.redemptionValue(*young, 2, Month(2021, 8)), 2 * 4 * 2560);
}

TEST_F(Redemptions, RedeemedBondsAndYearlyReportersComeBackFromTheFile)
{
    const HoldingRef held = bond("N", Month(1991, 6), 10000, 2, alice);
    ASSERT_TRUE(redeem(held, 1, Month(2021, 7), 20736));
    portfolio.setReportsInterestYearly(bob, true);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("r.bondportfolio"));
    ASSERT_TRUE(portfolio.saveToFile(path));
    BondPortfolio again(&people.store, QStringLiteral(QUILLMERE_TEST_DATABASE));
    ASSERT_TRUE(again.readFromFile(path));
    ASSERT_EQ(again.holdings().size(), 1);
    ASSERT_EQ(again.redeemedHoldings().size(), 1);
    const HoldingRef cashed = again.redeemedHoldings().first();
    EXPECT_EQ(cashed->redemptionMonth(), Month(2021, 7));
    EXPECT_EQ(cashed->amountReceived(), 20736);
    EXPECT_EQ(cashed->owner()->name(), QStringLiteral("Alice Able"));
    EXPECT_TRUE(again.reportsInterestYearly(bob.get()));
    EXPECT_FALSE(again.reportsInterestYearly(alice.get()));
    // What other programs read (Python's own reader): the older keys as they were, the new beside them.
    SKIP_WITHOUT_PYTHON();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject root = pythonJson(file.readAll())["root"].toObject();
    EXPECT_EQ(root.keys(), (QStringList{"holdings", "redeemedHoldings", "titleHolders", "yearlyInterestReporters"}));
    const QJsonObject kept = root["holdings"].toArray().first().toObject();
    EXPECT_FALSE(kept.contains(QStringLiteral("redemptionDate")));
    expectFields(kept, R"({"$class": "Holding", "quantity": 1, "faceValue": 10000, "paper": true})");
    expectFields(root["redeemedHoldings"].toArray().first().toObject(), R"({"quantity": 1, "amountReceived": 20736})");
}

class TaxYear : public Redemptions
{
protected:
    TaxYear() { EXPECT_TRUE(TaxYearPortfolio::make(portfolio, alice, bob)); }
};

TEST_F(TaxYear, PerOwner)
{
    const TaxYearReport report = TaxYearReport::of(portfolio.data(), portfolio.assessor(), 2021);
    ASSERT_EQ(report.owners.size(), 3);
    EXPECT_EQ(report.owners.at(0).owner, alice);
    EXPECT_EQ(report.owners.at(0).interest(TaxYearItem::Kind::Matured), 31472);
    EXPECT_EQ(report.owners.at(0).interest(TaxYearItem::Kind::Redeemed), 50000);
    EXPECT_EQ(report.owners.at(1).owner, bob);
    EXPECT_TRUE(report.owners.at(1).reportsYearly);
    EXPECT_EQ(report.owners.at(1).interest(TaxYearItem::Kind::Accrued), 3360 + 408);
    EXPECT_EQ(report.owners.at(1).interest(TaxYearItem::Kind::Matured), 0);
    EXPECT_EQ(report.owners.at(2).owner, nullptr);
    EXPECT_EQ(report.owners.at(2).total(), 416);
    EXPECT_EQ(report.householdTotal(), 31472 + 50000 + 3768 + 416);
    ASSERT_EQ(report.nextYear.size(), 1);
    EXPECT_EQ(report.nextYear.first().finalMaturity, Month(2022, 3));
    EXPECT_EQ(report.nextYear.first().interestSoFar, 10164 - 2500);
    // The redemption of 2020 is that year's, and so is what Bob's EE bond earned in it ($203.28 - $195.40).
    EXPECT_EQ(TaxYearReport::of(portfolio.data(), portfolio.assessor(), 2020).householdTotal(), 20000 + 788);
}

// The command line reports the same figures, for scripts in pennies.
TEST_F(TaxYear, OnTheCommandLine)
{
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/tax.bondportfolio");
    ASSERT_TRUE(portfolio.saveToFile(path) && people.store.save());
    const auto result = TestSupport::runCli({"tax-report", path, "--year", "2021", "--json", "--people", people.store.path()},
                                            {QStringLiteral("QUILLMERE_DATABASE=") + QStringLiteral(QUILLMERE_TEST_DATABASE)});
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    const QJsonObject report = QJsonDocument::fromJson(result.standardOutput).object();
    EXPECT_EQ(report["householdTotal"].toInteger(), 85656);
    const QJsonArray owners = report["owners"].toArray();
    ASSERT_EQ(owners.size(), 3);
    expectFields(owners.at(0).toObject(), R"({"owner": "Alice Able", "matured": 31472, "redeemed": 50000, "total": 81472})");
    expectFields(owners.at(1).toObject(), R"({"owner": "Bob Baker", "reportsYearly": true, "accrued": 3768})");
    expectFields(owners.at(2).toObject(), R"({"owner": null, "total": 416})");
    expectFields(report["nextYear"].toArray().first().toObject(), R"({"finalMaturity": "2022-03", "interestSoFar": 7664})");
    EXPECT_EQ(TestSupport::runCli({"tax-report", path, "--year", "21x"}).exitCode, 1);
}

} // namespace
