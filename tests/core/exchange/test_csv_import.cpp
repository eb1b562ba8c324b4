#include "ExchangeFixture.h"
#include "exchange/CsvFieldText.h"
#include "exchange/CsvHoldingReader.h"
#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioCsvImport.h"

#include <gtest/gtest.h>

namespace {

const QByteArray WizardHeader = "Series,Denomination,Serial Number,Issue Date\r\n";

class CsvImport : public ::testing::Test, public ExchangeFixture
{
protected:
    CsvImportOutcome import(const QByteArray &text, CsvImportFormat format = CsvImportFormat::SavingsBondWizard)
    {
        return PortfolioCsvImport::importCSVData(*portfolio, text, format);
    }
    void expectRefused(const CsvImportOutcome &outcome, const char *producer)
    {
        EXPECT_FALSE(outcome.succeeded);
        EXPECT_EQ(outcome.title, QStringLiteral("Import file corrupt"));
        EXPECT_EQ(outcome.message, QStringLiteral("The file you selected does not appear to be a CSV file produced by %1.  "
                                                  "Please verify your choice and try again.").arg(QLatin1String(producer)));
        EXPECT_TRUE(portfolio->holdings().isEmpty());
        EXPECT_FALSE(portfolio->isEdited());
    }
};

TEST(CsvFields, SeriesIntegersFaceValuesAndMonths)
{
    const Series *ee = Series::eeBond();
    const Series *e = Series::seriesForCode(QStringLiteral("E"));
    const Series *i = Series::seriesForCode(QStringLiteral("I"));
    const Series *s = Series::seriesForCode(QStringLiteral("S"));
    const QList<std::pair<const char *, const Series *>> series{{"EE Bond", ee}, {"EE", ee}, {"E Bond", e}, {"E", e},
        {"I Bond", i}, {"Savings Note", s}, {"SN", s}, {"H", nullptr}, {"HH", nullptr}, {"ee", nullptr}, {"", nullptr},
        {" EE", nullptr}, {"N", nullptr}};
    for (const auto &[text, expected] : series)
        EXPECT_EQ(SeriesCsv::seriesForCSVCode(QLatin1String(text)), expected) << text;

    const QList<std::pair<const char *, qint32>> integers{{"  \t7", 7}, {"-3", -3}, {"+4", 4}, {"12abc", 12}, {"abc", 0},
        {"-", 0}, {"2147483648", 2147483647}, {"-99999999999", -2147483647 - 1}};
    for (const auto &[text, expected] : integers)
        EXPECT_EQ(CsvField::integerValue(QString::fromLatin1(text)), expected) << text;

    // The cents piece is added as it stands; whole dollars are scaled in 32 bits and wrap.
    const QList<std::pair<const char *, Pennies>> faces{{"100", 10000}, {"50.50", 5050}, {"50.5", 5005}, {"100.05", 10005},
        {"1.2.3", 100}, {"$50.00", 0}, {"\"50\"", 0}, {"-5.25", -475}, {"21474836.47", 2147483647},
        {"21474837", -2147483596}, {"42949673", 4}, {"21474836.9999999999", 2147483600LL + 2147483647LL}};
    for (const auto &[text, expected] : faces)
        EXPECT_EQ(CsvField::faceValue(QString::fromLatin1(text)), expected) << text;

    const QList<std::pair<const char *, QDate>> months{{"3/1995", {1995, 3, 1}}, {"03/1995", {1995, 3, 1}},
        {" 12/2001 ", {2001, 12, 1}}, {"13/1995", {}}, {"0/0", {}}, {"3/95", {}}, {"3/1995x", {}}, {"003/1995", {}},
        {"\"3/1995\"", {}}};
    for (const auto &[text, expected] : months) {
        const QDateTime parsed = CsvField::issueMonth(QString::fromLatin1(text));
        EXPECT_EQ(parsed, expected.isValid() ? QDateTime(expected, QTime(0, 0)) : QDateTime()) << text;
    }
}

TEST_F(CsvImport, WizardFile)
{
    const CsvImportOutcome outcome = import(WizardHeader + "EE,100,Q100,03/1995\r\nHH,500,H1,01/1990\r\nI,50,x,7/1999,extra\r\n"
                                                           "ee,50,lower,01/2000\r\nS,25,,5/1967\r\n");
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.title, QStringLiteral("Import Complete"));
    // Rejected: HH, the extra field, lower case and the empty line after the end; still "2 out of 2".
    EXPECT_EQ(outcome.rejectedCount, 4);
    EXPECT_EQ(outcome.message, QStringLiteral("Imported 2 out of 2 bonds. (HH/H bonds not supported)"));
    ASSERT_EQ(portfolio->holdings().size(), 2);
    const Holding &bond = *portfolio->holdings().first();
    EXPECT_EQ(std::tuple(bond.series(), bond.quantity(), bond.faceValue(), bond.issueDate(), bond.serialNumber(), bond.portfolio()),
              std::tuple(Series::eeBond(), 1, Pennies(10000), QDateTime(QDate(1995, 3, 1), QTime(0, 0)), QStringLiteral("Q100"), portfolio.get()));
    EXPECT_TRUE(portfolio->isEdited());
}

TEST_F(CsvImport, AppendsInFileOrderApplyingColumnsLeftToRight)
{
    const QList<HoldingRef> existing{make("N", 1995, 3, 5000), make("E", 1980, 1, 2500)};
    portfolio->setHoldings(existing);
    import("\"Bond Series\",Quantity,Face Value,Face Value\n\"I Bond\",2,50.00,60\n\"EE Bond\",3,1,\"100.00\"\n",
           CsvImportFormat::Own);
    const QList<HoldingRef> holdings = portfolio->holdings();
    ASSERT_EQ(holdings.size(), 4);
    EXPECT_EQ(holdings.mid(0, 2), existing);
    EXPECT_EQ(holdings.at(2)->quantity(), 2);
    EXPECT_EQ(holdings.at(2)->faceValue(), 6000);
    EXPECT_EQ(holdings.at(3)->series(), Series::eeBond());
    EXPECT_EQ(holdings.at(3)->faceValue(), 0); // a quoted amount reads as 0; the line stays
    EXPECT_EQ(CsvHoldingReader::fieldMapForHeader(QStringLiteral("Issue Date,\"Series\",Owner"), CsvImportFormat::SavingsBondWizard),
              (CsvFieldMap{{0, QStringLiteral("Issue Date")}, {1, QStringLiteral("Series")}}));
}

TEST_F(CsvImport, HeaderWithoutUsableLinesStillCompletes)
{
    const CsvImportOutcome outcome = import("Denomination,Issue Date\r\n100,3/1995\r\n");
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.message, QStringLiteral("Imported 0 out of 0 bonds. (HH/H bonds not supported)"));
    EXPECT_TRUE(portfolio->holdings().isEmpty());
    EXPECT_TRUE(portfolio->isEdited());
}

TEST_F(CsvImport, RefusalsChangeNothing)
{
    const char *wizard = "the Treasury Department's Savings Bond Wizard";
    QByteArray huge = WizardHeader;
    while (huge.size() <= PortfolioCsvImport::MaximumFileSize)
        huge += "EE,100,Q100,03/1995\r\n";
    expectRefused(import(WizardHeader + "EE,100,Q100,03/1995\r\n" + QByteArray("\0\1", 2)), wizard);
    expectRefused(import(huge), wizard);
    expectRefused(import(WizardHeader + QByteArray(PortfolioCsvImport::MaximumLineCount * 2, '\r').replace("\r\r", "\r\n")), wizard);
    expectRefused(import("Series,Denomination,Serial Number,Issue Date\nEE,100,Q100,03/1995\n"), wizard);
    expectRefused(import(PortfolioCsv::csvRepresentation({make("N", 1995, 3, 5000)})), wizard);
    expectRefused(import("Bond Series", CsvImportFormat::Own), "Quillmere");
    expectRefused(PortfolioCsvImport::importCSVLines(*portfolio, std::nullopt, CsvImportFormat::Own), "Quillmere");
    expectRefused(PortfolioCsvImport::importCSVFileAtPath(*portfolio, QStringLiteral("/nonexistent/a.csv"), CsvImportFormat::Own),
                  "Quillmere");
    expectRefused(PortfolioCsvImport::importCSVFileAtPath(*portfolio, TestSupport::temporaryDirectory(), CsvImportFormat::Own),
                  "Quillmere");
    // Tabs and a DOS end-of-file mark are text.
    EXPECT_EQ(import(WizardHeader + "EE,100,Q\t1,03/1995\r\n\x1A").importedCount, 1);
}

// Export then import in the own format: series, quantity, issue month, face value and serial come back.
TEST_F(CsvImport, OwnExportOfTheSampleAndOddHoldingsReadsBack)
{
    QString error;
    ASSERT_TRUE(portfolio->readFromFile(TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio")), &error))
        << error.toStdString();
    const HoldingRef owned = make("S", 1967, 5, 2500, 1, QStringLiteral("S1"));
    owned->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith")));
    const QList<HoldingRef> original = portfolio->holdings() + QList<HoldingRef>{make("N", 1995, 3, 5000, 2, QStringLiteral("Q100")),
        make("I", 1999, 11, 1000000, 12), make("E", 1980, 1, 5005), owned, make("N", 2001, 12, 7550, 1, QStringLiteral("Zo\u00EB"))};
    ExchangeFixture target;
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/round-trip.csv");
    ASSERT_TRUE(PortfolioCsv::exportToCommaSeparatedValues(path, original).succeeded);
    const CsvImportOutcome outcome = PortfolioCsvImport::importCSVFileAtPath(*target.portfolio, path, CsvImportFormat::Own);
    ASSERT_EQ(outcome.importedCount, original.size()) << outcome.detail.toStdString();
    auto fields = [](const Holding &h) {
        return std::tuple(h.series()->code(), h.quantity(), h.issueDate().toString(QStringLiteral("yyyy-MM")), h.faceValue(), h.serialNumber());
    };
    for (qsizetype i = 0; i < original.size(); ++i)
        EXPECT_EQ(fields(*target.portfolio->holdings().at(i)), fields(*original.at(i))) << i;
}

} // namespace
