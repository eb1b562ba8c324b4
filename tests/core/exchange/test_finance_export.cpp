// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Exports for finance programs: Quicken's file set, and the QIF and price CSV for GnuCash and KMyMoney.
#include "ExchangeFixture.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/FinanceExport.h"
#include "exchange/HoldingQuicken.h"
#include "exchange/PortfolioQuicken.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

class FinanceExportTest : public ::testing::Test, public ExchangeFixture
{
protected:
    QString dir = TestSupport::temporaryDirectory();
    QString in(const QString &name) const { return QDir(dir).filePath(name); }

    // Two $100 EE holdings share a security; the E bond has no values; no issue date or no bonds: left out.
    void makeHoldings()
    {
        portfolio->setHoldings({make("N", 1995, 3, 10000, 4, QStringLiteral("Q1")), make("E", 1980, 1, 5000, 1),
                                make("N", 1995, 3, 10000, 1), make("I", 1999, 7, 5000, 1), make("I", 0, 0, 5000, 1),
                                make("I", 1999, 7, 10000, 0)});
        portfolio->markSaved();
    }
};

TEST_F(FinanceExportTest, QifHasOpeningBalancePurchasesAndQuotedMonthEndPrices)
{
    makeHoldings();
    EXPECT_EQ(QString::fromUtf8(FinanceExport::qifRepresentation(QStringLiteral("Family \"A\""), portfolio->valuationContext(),
                                                                 portfolio->holdings())),
              QStringLiteral("!Account\nNFamily 'A'\nTInvst\nDGenerated with Quillmere\n^\n"
                             "!Type:Security\n"
                             "NEE Bond $100 03/1995\nSEE-199503-100\nTBond\n^\n"
                             "NE Bond $50 01/1980\nSE-198001-50\nTBond\n^\n"
                             "NI Bond $50 07/1999\nSI-199907-50\nTBond\n^\n"
                             "!Type:Invst\n"
                             "D01/31/1980\nNXIn\nPOpening Balance\nT337.50\nL[Family 'A']\n^\n"
                             "D03/31/1995\nNBuy\nYEE Bond $100 03/1995\nI50.00\nQ4\nT200.00\nMEE Bond (Q1)\n^\n"
                             "D03/31/1995\nNBuy\nYEE Bond $100 03/1995\nI50.00\nQ1\nT50.00\nMEE Bond\n^\n"
                             "D01/31/1980\nNBuy\nYE Bond $50 01/1980\nI37.50\nQ1\nT37.50\nME Bond\n^\n"
                             "D07/31/1999\nNBuy\nYI Bond $50 07/1999\nI50.00\nQ1\nT50.00\nMI Bond\n^\n"
                             "!Type:Prices\n"
                             "\"EE-199503-100\",80.16,\"04/30/1996\"\n^\n"
                             "\"EE-199503-100\",119.60,\"12/31/1999\"\n^\n"
                             "\"EE-199503-100\",120.00,\"01/31/2000\"\n^\n"
                             "\"I-199907-50\",52.00,\"01/31/2000\"\n^\n"));
}

TEST_F(FinanceExportTest, PriceCsvNamesNamespaceSymbolAndCurrency)
{
    makeHoldings();
    EXPECT_EQ(FinanceExport::priceCsvRepresentation(portfolio->valuationContext(), portfolio->holdings()),
              QByteArray("Date,Amount,Namespace,Symbol,Currency\n"
                         "04/30/1996,80.16,NONCURRENCY,EE-199503-100,USD\n"
                         "12/31/1999,119.60,NONCURRENCY,EE-199503-100,USD\n"
                         "01/31/2000,120.00,NONCURRENCY,EE-199503-100,USD\n"
                         "01/31/2000,52.00,NONCURRENCY,I-199907-50,USD\n"));
    // Prices stop at the valuation month.
    ValuationContext december = portfolio->valuationContext();
    december.month = Month(1999, 12);
    EXPECT_FALSE(FinanceExport::priceCsvRepresentation(december, portfolio->holdings()).contains("01/31/2000"));
}

TEST_F(FinanceExportTest, ElectronicBondsAreTheirOwnSecurityWithCents)
{
    portfolio->setHoldings({make("N", 1995, 3, 5037, 1, {}, false)});
    const QString qif = QString::fromUtf8(FinanceExport::qifRepresentation(QStringLiteral("x"), portfolio->valuationContext(),
                                                                          portfolio->holdings()));
    EXPECT_TRUE(qif.contains(QStringLiteral("NEE Bond $50.37 electronic 03/1995\nSEE-199503-50.37E\n"))) << qif.toStdString();
    EXPECT_TRUE(qif.contains(QStringLiteral("I50.37\nQ1\nT50.37\n"))) << qif.toStdString();
}

TEST_F(FinanceExportTest, WritesBothFilesBesideOnesAlreadyThere)
{
    makeHoldings();
    TestSupport::writeFile(in(QStringLiteral("BondPrices.csv")), "mine");
    const FinanceExport::Outcome outcome =
        FinanceExport::exportToDirectory(QStringLiteral("x"), portfolio->holdings(), portfolio->valuationContext(), dir);
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_EQ(contents(in(QStringLiteral("BondPrices.csv"))), QByteArray("mine"));
    EXPECT_FALSE(QFile::exists(in(QStringLiteral("Bonds.qif"))));
    EXPECT_EQ(contents(in(QStringLiteral("BondPrices-1.csv"))),
              FinanceExport::priceCsvRepresentation(portfolio->valuationContext(), portfolio->holdings()));
    EXPECT_TRUE(contents(in(QStringLiteral("Bonds-1.qif"))).startsWith("!Account\nNx\n"));
    EXPECT_EQ(outcome.securities, 3);
    EXPECT_EQ(outcome.prices, 4);
    EXPECT_EQ(ExchangeAlerts::of(outcome).message,
              QStringLiteral("Wrote Bonds-1.qif and BondPrices-1.csv in %1.").arg(QDir(dir).absolutePath()));
    EXPECT_FALSE(portfolio->isEdited());

    const FinanceExport::Outcome failed = FinanceExport::exportToDirectory(
        QStringLiteral("x"), portfolio->holdings(), portfolio->valuationContext(), in(QStringLiteral("none")));
    EXPECT_FALSE(failed.succeeded);
    EXPECT_EQ(ExchangeAlerts::of(failed).message, QStringLiteral("Unable to export data"));
}

using QifExport = FinanceExportTest;

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
