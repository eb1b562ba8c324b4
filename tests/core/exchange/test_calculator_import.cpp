// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// A list saved from the Treasury's Savings Bond Calculator, rebuilt from its documented hidden fields and markup.
#include "../PeopleFixture.h"
#include "TestSupport.h"
#include "document/BondPortfolio.h"
#include "exchange/CalculatorListImport.h"

#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

// EE 01/1990 (585), I 01/2010 (825), Note 05/1967 (313), HH, E 07/1980 (no values), EE without denomination.
const QByteArray SavedPage = R"(<html><body><form name="SBCForm" method="post" action="/BC/SBCPrice">
<INPUT TYPE="hidden" NAME="SeriesList" VALUE="EE;I;SN;HH;E;EE;">
<input type=hidden name='IssueDateList' value='585;825;313;900;471;600;'>
<input type="hidden" value="100;1000;50;500;25; ;" name="DenominationList">
<input type="hidden" name="SerialNumList" value="C123456789EE; ;Q1967&amp;1; ; ; ;">
<input type="hidden" name="RedemptionDate" value="11/2026"><input type="hidden" name="Version" value="2">
</form></body></html>)";

TEST(CalculatorList, MonthNumbersCountFromMay1941)
{
    EXPECT_EQ(CalculatorListImport::monthOfNumber(1), Month(1941, 5));
    EXPECT_EQ(CalculatorListImport::monthOfNumber(947), Month(2020, 3));
    EXPECT_EQ(CalculatorListImport::monthOfNumber(961), Month(2021, 5));
}

TEST(CalculatorList, BondsComeInAsPaperInOneUndoableStep)
{
    PeopleFixture people;
    BondPortfolio portfolio(&people.store, QStringLiteral(QUILLMERE_TEST_DATABASE));
    const CalculatorListImport::Outcome outcome = CalculatorListImport::importInto(portfolio, SavedPage);
    ASSERT_TRUE(outcome.ok()) << outcome.error.toStdString();
    EXPECT_EQ(outcome.imported, 4);
    EXPECT_EQ(outcome.skipped, (QStringList{"bond 4: unknown series \"HH\"", "bond 6: no denomination"}));
    EXPECT_EQ(outcome.withoutValues, QStringList{"Series E bonds of 07/1980: the database has no values for them"});
    ASSERT_EQ(portfolio.holdings().size(), 4);
    QStringList read;
    for (const HoldingRef &h : portfolio.holdings())
        read << QStringLiteral("%1 %2 %3 %4 %5").arg(h->series()->code(), h->issueDate().toString(Month::Style::Iso))
                    .arg(h->faceValue()).arg(h->serialNumber().isNull() ? QStringLiteral("-") : h->serialNumber())
                    .arg(h->isPaper());
    EXPECT_EQ(read, (QStringList{"N 1990-01 10000 C123456789EE 1", "I 2010-01 100000 - 1", "S 1967-05 5000 Q1967&1 1",
                                 "E 1980-07 2500 - 1"}));
    EXPECT_EQ(portfolio.undoStack()->count(), 1);
    portfolio.undoStack()->undo();
    EXPECT_TRUE(portfolio.holdings().isEmpty());
}

TEST(CalculatorList, OtherPagesAreRefusedWithTheReason)
{
    PeopleFixture people;
    BondPortfolio portfolio(&people.store, QStringLiteral(QUILLMERE_TEST_DATABASE));
    const CalculatorListImport::Outcome outcome =
        CalculatorListImport::importInto(portfolio, "<html><input type=hidden name=SeriesList value='EE;'></html>");
    EXPECT_EQ(outcome.error, QStringLiteral("This is not a list saved from the Treasury's Savings Bond Calculator: it has no "
                                            "IssueDateList field."));
    EXPECT_TRUE(portfolio.holdings().isEmpty());
    EXPECT_EQ(portfolio.undoStack()->count(), 0);
}

TEST(CalculatorList, OnTheCommandLine)
{
    const QString dir = TestSupport::temporaryDirectory();
    const QString page = TestSupport::writeFile(dir + QStringLiteral("/inventory.html"), SavedPage);
    const auto result = TestSupport::runCli({"import-calculator", dir + QStringLiteral("/new.bondportfolio"), page},
                                            {QStringLiteral("QUILLMERE_DATABASE=") + QStringLiteral(QUILLMERE_TEST_DATABASE),
                                             QStringLiteral("QUILLMERE_PEOPLE=")});
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    EXPECT_TRUE(result.standardOutput.startsWith("Imported 4 of 6 bonds.\nSkipped bond 4: unknown series \"HH\"\n"))
        << result.standardOutput.toStdString();
}

} // namespace
