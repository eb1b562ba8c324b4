#include "ExchangeFixture.h"
#include "TestSupport.h"
#include "exchange/HoldingQuicken.h"
#include "exchange/PortfolioQuicken.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

class QifExport : public ::testing::Test, public ExchangeFixture
{
protected:
    QString directory = TestSupport::temporaryDirectory();
    QString in(const char *name) const { return QDir(directory).filePath(QLatin1String(name)); }
};

TEST_F(QifExport, NamesOfTheSecurity)
{
    const HoldingRef ee = make("N", 1995, 3, 5000);
    EXPECT_EQ(HoldingQuicken::security(*ee), QStringLiteral("031995N"));
    EXPECT_EQ(HoldingQuicken::quickenName(*ee), QStringLiteral("03/1995 EE Bond"));
    const HoldingRef note = make("S", 1967, 11, 2500);
    EXPECT_EQ(HoldingQuicken::security(*note), QStringLiteral("111967S"));
    EXPECT_EQ(HoldingQuicken::quickenName(*note), QStringLiteral("11/1967 Savings Note"));
    const HoldingRef undated = make("I", 0, 0, 2500);
    EXPECT_EQ(HoldingQuicken::security(*undated), QStringLiteral("000I"));
    EXPECT_EQ(HoldingQuicken::quickenName(*undated), QStringLiteral("00/0000 I Bond"));
}

TEST_F(QifExport, PurchaseOfTwoHundredDollarEEBonds)
{
    const HoldingRef bonds = make("N", 1995, 3, 10000, 2, QStringLiteral("Q100"));
    ASSERT_EQ(bonds->issuePrice(), 5000);
    EXPECT_EQ(HoldingQuicken::asQuickenTransaction(*bonds),
              QStringLiteral("D03/01/1995\rNShrsIn\rY03/1995 EE Bond\rI12.5000\rQ8.0000\rT100.0000\r"
                             "MEE Bond (Q100) purchased 03/1995\r^\r"));
}

struct MemoCase
{
    const char *name;
    const char *code;
    Pennies face;
    int quantity;
    const char *serial; // nullptr: none
    int people;         // 0 none, 1 owner, 2 owner and co-owner, 3 owner and beneficiary
    const char *expected;
};

class QifTransaction : public QifExport, public ::testing::WithParamInterface<MemoCase>
{
};

TEST_P(QifTransaction, PriceSharesTotalAndMemo)
{
    const MemoCase &c = GetParam();
    const HoldingRef holding = make(c.code, 1999, 7, c.face, c.quantity, c.serial ? QString::fromLatin1(c.serial) : QString());
    if (c.people >= 1)
        holding->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith")));
    if (c.people == 2)
        holding->setCoOwner(people.person(QStringLiteral("Bob"), QStringLiteral("Smith")));
    if (c.people == 3)
        holding->setBeneficiary(people.person(QStringLiteral("Cy"), QStringLiteral("Smith")));
    const QString record = HoldingQuicken::asQuickenTransaction(*holding);
    EXPECT_EQ(record.section(QLatin1Char('\r'), 3), QString::fromLatin1(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Holdings, QifTransaction,
    ::testing::Values(
        MemoCase{"NoSerialNoPeople", "I", 5000, 1, nullptr, 0, "I25.0000\rQ2.0000\rT50.0000\rMI Bond purchased 07/1999\r^\r"},
        // An imported holding keeps an empty serial; it reads as none.
        MemoCase{"EmptySerial", "I", 5000, 1, "", 0, "I25.0000\rQ2.0000\rT50.0000\rMI Bond purchased 07/1999\r^\r"},
        MemoCase{"OwnerAlone", "E", 5000, 1, "E1", 1,
                 "I18.7500\rQ2.0000\rT37.5000\rME Bond (E1) purchased 07/1999 Ann Smith\r^\r"},
        MemoCase{"CoOwner", "S", 2500, 3, nullptr, 2,
                 "I20.2500\rQ3.0000\rT60.7500\rMSavings Note purchased 07/1999 Ann Smith OR Bob Smith\r^\r"},
        MemoCase{"Beneficiary", "N", 5000, 1, "Q7", 3,
                 "I12.5000\rQ2.0000\rT25.0000\rMEE Bond (Q7) purchased 07/1999 Ann Smith POD Cy Smith\r^\r"},
        // Shares are total / price in double precision, rounded only when printed.
        MemoCase{"InexactShares", "I", 1001, 1, nullptr, 0, "I25.0000\rQ0.4004\rT10.0100\rMI Bond purchased 07/1999\r^\r"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(QifExport, PriceLinesComeFromPositiveValuesInMonthOrder)
{
    const HoldingRef ee = make("N", 1995, 3, 10000, 4); // face and quantity do not scale prices
    EXPECT_EQ(HoldingQuicken::valuesSinceIssue(*ee),
              (QStringList{QStringLiteral("031995N,20.04,04/1/1996\r"), QStringLiteral("031995N,29.90,12/1/1999\r"),
                           QStringLiteral("031995N,30.00,01/1/2000\r")}));
    EXPECT_EQ(PortfolioQuicken::quickenPriceListRepresentation({make("I", 1999, 7, 5000), make("E", 1980, 1, 5000)}),
              QByteArray("!Type:Prices\r071999I,26.00,01/1/2000\r^\r")); // nothing for the E bond
}

TEST_F(QifExport, EmptyPortfolioFiles)
{
    const QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(*portfolio, {}, directory);
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_EQ(contents(in("PriceList.qif")), QByteArray("!Type:Prices\r^\r"));
    EXPECT_EQ(contents(in("PriceList.qif")).size(), 15);
    EXPECT_EQ(contents(in("Positions.qif")),
              QByteArray("!Type:Security\r!Account\rNUntitled\rDGenerated with Quillmere\rTPort\r^\r!Type:Invst\r"
                         "!Type:Prices\r^\r"));
}

TEST_F(QifExport, PositionsRecordsInOrder)
{
    portfolio->setFileName(directory + QStringLiteral("/Family Bonds.bondportfolio"));
    const HoldingRef ee = make("N", 1995, 3, 10000, 2, QStringLiteral("Q100"));
    const HoldingRef i = make("I", 1999, 7, 5000);
    const QByteArray expected = "!Type:Security\rN03/1995 EE Bond\rS031995N\rTBond\r^\rN07/1999 I Bond\rS071999I\rTBond\r^\r"
                                "!Account\rNFamily Bonds\rDGenerated with Quillmere\rTPort\r^\r!Type:Invst\r"
                                + HoldingQuicken::asQuickenTransaction(*ee).toLatin1()
                                + HoldingQuicken::asQuickenTransaction(*i).toLatin1()
                                + PortfolioQuicken::quickenPriceListRepresentation({ee, i});
    const QByteArray positions = PortfolioQuicken::quickenPortfolioRepresentation(*portfolio, {ee, i});
    EXPECT_EQ(positions, expected);
    EXPECT_FALSE(positions.contains('\n'));
}

TEST_F(QifExport, PriceListCoversEveryHoldingPositionsOnlyTheChosen)
{
    const HoldingRef ee = make("N", 1995, 3, 5000);
    const HoldingRef i = make("I", 1999, 7, 5000);
    portfolio->setHoldings({ee, i});
    portfolio->markSaved();
    const QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(*portfolio, {i}, directory);
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(contents(in("PriceList.qif")), PortfolioQuicken::quickenPriceListRepresentation({ee, i}));
    const QByteArray positions = contents(in("Positions.qif"));
    EXPECT_EQ(positions, PortfolioQuicken::quickenPortfolioRepresentation(*portfolio, {i}));
    EXPECT_FALSE(positions.contains("031995N"));
    EXPECT_EQ(outcome.title, QStringLiteral("Export complete"));
    EXPECT_EQ(outcome.message, QStringLiteral("You may now import your portfolio positions and pricelist from the files in ")
                                   + QDir(directory).absolutePath());
    EXPECT_FALSE(portfolio->isEdited());
}

TEST_F(QifExport, FileNamesAvoidAnExistingPriceList)
{
    struct Case
    {
        const char *name;
        QStringList present;
        const char *priceList;
        const char *positions;
    };
    const QList<Case> cases{
        {"free directory", {}, "PriceList.qif", "Positions.qif"},
        {"only positions present: replaced", {QStringLiteral("Positions.qif")}, "PriceList.qif", "Positions.qif"},
        {"price list present", {QStringLiteral("PriceList.qif")}, "PriceList-1.qif", "Positions-1.qif"},
        {"two price lists present", {QStringLiteral("PriceList.qif"), QStringLiteral("PriceList-1.qif")}, "PriceList-2.qif",
         "Positions-2.qif"},
        {"numbered positions beside a free price list name",
         {QStringLiteral("PriceList.qif"), QStringLiteral("Positions-1.qif"), QStringLiteral("Positions-2.qif")},
         "PriceList-1.qif", "Positions-1.qif"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        directory = TestSupport::temporaryDirectory();
        for (const QString &name : c.present)
            write(QDir(directory).filePath(name), "older");
        const QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(*portfolio, {}, directory);
        ASSERT_TRUE(outcome.succeeded);
        EXPECT_EQ(outcome.paths.priceList, in(c.priceList));
        EXPECT_EQ(outcome.paths.positions, in(c.positions));
        EXPECT_EQ(contents(in(c.priceList)), QByteArray("!Type:Prices\r^\r"));
        EXPECT_TRUE(contents(in(c.positions)).startsWith("!Type:Security\r"));
        for (const QString &name : c.present) {
            if (name != QLatin1String(c.positions))
                EXPECT_EQ(contents(QDir(directory).filePath(name)), QByteArray("older")) << name.toStdString();
        }
    }
}

TEST_F(QifExport, UnwritableDirectoryGivesTheAlert)
{
    const QString missing = directory + QStringLiteral("/not/there");
    const QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(*portfolio, {}, missing);
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_EQ(outcome.title, QStringLiteral("Alert"));
    EXPECT_EQ(outcome.message, QStringLiteral("Unable to export data"));
    EXPECT_FALSE(outcome.detail.isEmpty());
}

TEST(QifPriceFormat, LinesParseAsQuickenPriceRecords)
{
    // A price record line as GnuCash's QIF importer reads it: a symbol, a decimal price and a
    // month/day/year date, separated by commas; symbol and date may be in double quotes (the
    // importer strips them). Checked here on the unquoted form this export writes.
    static const QRegularExpression priceLine(
        QStringLiteral("^(\"?)[A-Za-z0-9.^-]+\\1,[0-9]+(\\.[0-9]+)?,(\"?)(0[1-9]|1[0-2])/ ?[1-9]/[0-9]{4}\\3$"));
    PeopleFixture people;
    BondPortfolio portfolio(&people.store, TestSupport::shippedDatabasePath());
    QList<HoldingRef> holdings;
    for (const auto &[code, year, month] : {std::tuple{"N", 1995, 3}, {"I", 1998, 9}, {"E", 1970, 1}, {"S", 1967, 5}}) {
        auto holding = Holding::create();
        holding->setSeries(Series::seriesForCode(QLatin1String(code)));
        holding->setIssueDate(BondAssessor::monthDate(year, month));
        holding->setFaceValue(5000);
        holding->setPortfolio(&portfolio);
        holdings << holding;
    }
    const QByteArray list = PortfolioQuicken::quickenPriceListRepresentation(holdings);
    EXPECT_FALSE(list.contains('\n'));
    const QList<QByteArray> lines = list.split('\r');
    ASSERT_GT(lines.size(), 4 * 12);
    EXPECT_EQ(lines.first(), QByteArray("!Type:Prices"));
    EXPECT_EQ(lines.at(lines.size() - 2), QByteArray("^"));
    EXPECT_TRUE(lines.last().isEmpty()); // the file ends in a carriage return
    for (const QByteArray &line : lines.mid(1, lines.size() - 3)) {
        SCOPED_TRACE(line.toStdString());
        EXPECT_TRUE(priceLine.match(QString::fromLatin1(line)).hasMatch());
    }
}

} // namespace
