// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangeFixture.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/HoldingQuicken.h"
#include "exchange/PortfolioQuicken.h"

#include <QDir>
#include <gtest/gtest.h>

class QifExport : public ::testing::Test, public ExchangeFixture
{
protected:
    QString dir = TestSupport::temporaryDirectory();
    QString in(const QString &name) const { return QDir(dir).filePath(name); }
};

TEST_F(QifExport, SecurityNamesAndPurchases)
{
    const HoldingRef ee = make("N", 1995, 3, 10000, 2, QStringLiteral("Q100"));
    EXPECT_EQ(HoldingQuicken::security(*ee), QStringLiteral("031995N"));
    EXPECT_EQ(HoldingQuicken::quickenName(*make("S", 0, 0, 2500)), QStringLiteral("00/0000 Savings Note"));
    EXPECT_EQ(HoldingQuicken::asQuickenTransaction(*ee), QStringLiteral("D03/01/1995\rNShrsIn\rY03/1995 EE Bond\rI12.5000\r"
                                                                        "Q8.0000\rT100.0000\rMEE Bond (Q100) purchased 03/1995\r^\r"));
    const PersonRef ann = people.person(QStringLiteral("Ann"), QStringLiteral("Smith"));
    const PersonRef bob = people.person(QStringLiteral("Bob"), QStringLiteral("Smith"));
    struct Case { HoldingRef holding; PersonRef coOwner, beneficiary; const char *tail; };
    const QList<Case> cases{
        // An empty serial, as an import leaves it, is no serial.
        {make("I", 1999, 7, 1001, 1, QStringLiteral("")), nullptr, nullptr, "I25.0000\rQ0.4004\rT10.0100\rMI Bond purchased 07/1999 Ann Smith"},
        {make("E", 1999, 7, 5000, 1, QStringLiteral("E1")), bob, nullptr, "I18.7500\rQ2.0000\rT37.5000\rME Bond (E1) purchased 07/1999 Ann Smith OR Bob Smith"},
        {make("S", 1999, 7, 2500, 3), nullptr, bob, "I20.2500\rQ3.0000\rT60.7500\rMSavings Note purchased 07/1999 Ann Smith POD Bob Smith"}};
    for (const Case &c : cases) {
        c.holding->setOwner(ann);
        c.holding->setCoOwner(c.coOwner);
        c.holding->setBeneficiary(c.beneficiary);
        EXPECT_EQ(HoldingQuicken::asQuickenTransaction(*c.holding).section(QLatin1Char('\r'), 3),
                  QString::fromLatin1(c.tail) + QStringLiteral("\r^\r"));
    }
}

TEST_F(QifExport, FileSetPricesEverythingAndPositionsTheChoice)
{
    QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(portfolio->displayName(), portfolio->holdings(), {}, portfolio->valuationContext(), dir);
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_EQ(contents(in(QStringLiteral("PriceList.qif"))), QByteArray("!Type:Prices\r^\r"));
    EXPECT_EQ(contents(in(QStringLiteral("Positions.qif"))), QByteArray("!Type:Security\r!Account\rNUntitled\r"
                                                                        "DGenerated with Quillmere\rTPort\r^\r!Type:Invst\r!Type:Prices\r^\r"));
    portfolio->setFileName(dir + QStringLiteral("/Family Bonds.bondportfolio"));
    const HoldingRef ee = make("N", 1995, 3, 10000, 4), e = make("E", 1980, 1, 5000), i = make("I", 1999, 7, 5000);
    portfolio->setHoldings({ee, e, i});
    portfolio->markSaved();
    outcome = QuickenFileSet::exportToQuickenFileSet(portfolio->displayName(), portfolio->holdings(), {ee, e}, portfolio->valuationContext(), dir);
    ASSERT_TRUE(outcome.succeeded);
    // Prices are per $25, whatever face and quantity; the E bond has none.
    const QByteArray eePrices = "031995N,20.04,04/1/1996\r031995N,29.90,12/1/1999\r031995N,30.00,01/1/2000\r";
    EXPECT_EQ(contents(in(QStringLiteral("PriceList-1.qif"))), "!Type:Prices\r" + eePrices + "071999I,26.00,01/1/2000\r^\r");
    EXPECT_EQ(contents(in(QStringLiteral("Positions-1.qif"))),
              "!Type:Security\rN03/1995 EE Bond\rS031995N\rTBond\r^\rN01/1980 E Bond\rS011980E\rTBond\r^\r"
              "!Account\rNFamily Bonds\rDGenerated with Quillmere\rTPort\r^\r!Type:Invst\r"
                  + (HoldingQuicken::asQuickenTransaction(*ee) + HoldingQuicken::asQuickenTransaction(*e)).toLatin1()
                  + "!Type:Prices\r" + eePrices + "^\r");
    EXPECT_EQ(ExchangeAlerts::of(outcome).title, QStringLiteral("Export complete"));
    EXPECT_EQ(ExchangeAlerts::of(outcome).message, QStringLiteral("You may now import your portfolio positions and pricelist from the files in ")
                                   + QDir(dir).absolutePath());
    EXPECT_FALSE(portfolio->isEdited());

    const QuickenFileSet::Outcome failed = QuickenFileSet::exportToQuickenFileSet(portfolio->displayName(), portfolio->holdings(), {}, portfolio->valuationContext(), dir + QStringLiteral("/none"));
    EXPECT_FALSE(failed.succeeded);
    EXPECT_EQ(ExchangeAlerts::of(failed).title, QStringLiteral("Alert"));
    EXPECT_EQ(ExchangeAlerts::of(failed).message, QStringLiteral("Unable to export data"));
}
