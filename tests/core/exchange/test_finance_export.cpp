// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangeFixture.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/FinanceExport.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

class FinanceExportTest : public ::testing::Test, public ExchangeFixture
{
protected:
    QString dir = TestSupport::temporaryDirectory();
    QString in(const QString &name) const { return QDir(dir).filePath(name); }

    // Two $100 EE holdings of one issue share a security; the E bond has no values; a holding
    // without issue date and one of no bonds are left out.
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
