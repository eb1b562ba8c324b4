// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The bundled sample's inventory as of 11/2026: owners' groups by name, lines and subtotals to the cent, no owner last.
#include "../QtPrinters.h"
#include "TestSupport.h"
#include "../PortfolioFixture.h"
#include "document/InventoryReport.h"
#include "model/PeopleStore.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

// Owner ("" for none), serial numbers of its lines, then its subtotal: bonds, face, price, interest, value.
using GroupFigures = std::tuple<QString, QStringList, qint64, Pennies, Pennies, Pennies, Pennies>;

GroupFigures figuresOf(const InventoryGroup &group)
{
    QStringList serials;
    for (const InventoryLine &line : group.lines)
        serials << line.holding->serialNumber();
    const HoldingTotals &sum = group.subtotal;
    return {group.owner ? group.owner->name() : QString(), serials, sum.quantity, sum.faceValue, sum.issuePrice,
            sum.interestEarned, sum.value};
}

class SampleInventory : public ::testing::Test
{
protected:
    SampleInventory()
    {
        const QString dir = TestSupport::temporaryDirectory();
        QFile::copy(TestSupport::sourcePath(QStringLiteral("examples/people.vcf")), dir + QStringLiteral("/people.vcf"));
        people = std::make_unique<PeopleStore>(dir + QStringLiteral("/people.vcf"));
        portfolio = std::make_unique<BondPortfolio>(people.get(), TestSupport::copyOfShippedDatabase());
        EXPECT_TRUE(portfolio->readFromFile(TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio"))));
        EXPECT_TRUE(portfolio->setValueOfDate(QDateTime(QDate(2026, 11, 1), QTime(0, 0, 1))));
        // A bond that names a beneficiary but no owner: listed once, in the last group.
        const HoldingRef unowned = makeHolding(*portfolio, "N", 1990, 1, 10000, 1, QStringLiteral("UNOWNED"));
        unowned->setBeneficiary(portfolio->holdings().constFirst()->owner());
        portfolio->appendHolding(unowned);
    }

    std::unique_ptr<PeopleStore> people;
    std::unique_ptr<BondPortfolio> portfolio;
};

TEST_F(SampleInventory, GroupsByOwnerWithSubtotalsToTheCent)
{
    const InventoryReport report = InventoryReport::of(portfolio->holdings(), portfolio->valuationContext());
    EXPECT_EQ(report.valuationMonth, Month(2026, 11));
    QList<GroupFigures> groups;
    for (const InventoryGroup &group : report.groups)
        groups << figuresOf(group);
    const QList<GroupFigures> expected{
        {"Eleanor Whitfield", {""}, 1, 100000, 100000, 63320, 163320},
        {"Margaret Whitfield", {"Q123456789EE", "L987654321E", "S1967051234"}, 4, 27500, 15925, 67388, 83313},
        {"Samuel Whitfield", {"I000042424I", ""}, 3, 12500, 12500, 42944, 52944},
        // The EE bond without pricing data counts in face and price, not in interest and value.
        {"Thomas Whitfield", {"", "I199701000X"}, 5, 30000, 30000, 22144, 42144},
        // $100 EE of 01/1990: $207.36 as the Treasury's table has it.
        {"", {"UNOWNED"}, 1, 10000, 5000, 15736, 20736},
    };
    EXPECT_EQ(groups, expected);

    const HoldingTotals &total = report.householdTotal;
    EXPECT_EQ(std::tie(total.quantity, total.faceValue, total.issuePrice, total.interestEarned, total.value),
              std::tuple(14, 180000, 163425, 211532, 362457));
    EXPECT_EQ(total.withoutPricingData, 1);
    EXPECT_TRUE(report.anyComputed());
    // Every line's figures are for all its bonds, so each group's lines add up to its subtotal.
    for (const InventoryGroup &group : report.groups) {
        Pennies face = 0, price = 0, interest = 0, value = 0;
        for (const InventoryLine &line : group.lines)
            face += line.faceValue, price += line.issuePrice, interest += line.interest, value += line.value;
        EXPECT_EQ(std::tie(face, price, interest, value),
                  std::tie(group.subtotal.faceValue, group.subtotal.issuePrice, group.subtotal.interestEarned, group.subtotal.value))
            << std::get<0>(figuresOf(group)).toStdString();
    }
}

} // namespace
