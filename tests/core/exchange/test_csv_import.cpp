#include "ExchangeFixture.h"
#include "TestSupport.h"
#include "exchange/CsvFieldText.h"
#include "exchange/CsvHoldingReader.h"
#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioCsvImport.h"

#include <gtest/gtest.h>

namespace {

const char *const WizardName = "the Treasury Department's Savings Bond Wizard";

class CsvImport : public ::testing::Test, public ExchangeFixture
{
protected:
    CsvImportOutcome importText(const QByteArray &text, CsvImportFormat format)
    {
        return PortfolioCsvImport::importCSVData(*portfolio, text, format);
    }

    void expectCorrupt(const CsvImportOutcome &outcome, const char *producer)
    {
        EXPECT_FALSE(outcome.succeeded);
        EXPECT_EQ(outcome.title, QStringLiteral("Import file corrupt"));
        EXPECT_EQ(outcome.message, QStringLiteral("The file you selected does not appear to be a CSV file produced by ")
                                       + QLatin1String(producer)
                                       + QStringLiteral(".  Please verify your choice and try again."));
        EXPECT_FALSE(outcome.detail.isEmpty());
    }
};

TEST_F(CsvImport, WizardFileWithCarriageReturns)
{
    const CsvImportOutcome outcome =
        importText("Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q100,03/1995", CsvImportFormat::SavingsBondWizard);
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.title, QStringLiteral("Import Complete"));
    EXPECT_EQ(outcome.message, QStringLiteral("Imported 1 out of 1 bonds. (HH/H bonds not supported)"));
    ASSERT_EQ(portfolio->holdings().size(), 1);
    const Holding &bond = *portfolio->holdings().first();
    EXPECT_EQ(bond.series(), Series::eeBond());
    EXPECT_EQ(bond.quantity(), 1);
    EXPECT_EQ(bond.faceValue(), 10000);
    EXPECT_EQ(bond.issueDate(), QDateTime(QDate(1995, 3, 1), QTime(0, 0)));
    EXPECT_EQ(bond.serialNumber(), QStringLiteral("Q100"));
    EXPECT_EQ(bond.portfolio(), portfolio.get());
    EXPECT_TRUE(portfolio->isEdited());
}

TEST_F(CsvImport, WizardFileWithLineFeedsOnlyIsCorruptAndChangesNothing)
{
    const HoldingRef existing = make("I", 1999, 7, 5000);
    portfolio->setHoldings({existing});
    expectCorrupt(importText("Series,Denomination,Serial Number,Issue Date\nEE,100,Q100,03/1995\n",
                             CsvImportFormat::SavingsBondWizard),
                  WizardName);
    EXPECT_EQ(portfolio->holdings(), QList<HoldingRef>{existing});
    EXPECT_FALSE(portfolio->isEdited());
}

TEST_F(CsvImport, RejectedLinesAreCountedButTheMessageCountsBonds)
{
    const CsvImportOutcome outcome = importText("Series,Denomination,Serial Number,Issue Date\r\n"
                                                "EE,100,Q100,03/1995\r\n"
                                                "HH,500,H1,01/1990\r\n"
                                                "I,50,I1,07/1999,extra\r\n"
                                                "ee,50,lower,01/2000\r\n"
                                                "S,25,N1,5/1967\r\n",
                                                CsvImportFormat::SavingsBondWizard);
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.importedCount, 2);
    // HH, the line with an extra field, the lower-case series and the empty line after the end.
    EXPECT_EQ(outcome.rejectedCount, 4);
    EXPECT_EQ(outcome.message, QStringLiteral("Imported 2 out of 2 bonds. (HH/H bonds not supported)"));
    ASSERT_EQ(portfolio->holdings().size(), 2);
    EXPECT_EQ(portfolio->holdings().at(1)->series(), series("S"));
    EXPECT_EQ(portfolio->holdings().at(1)->issueDate().date(), QDate(1967, 5, 1));
}

TEST_F(CsvImport, AppendsAfterExistingHoldingsInFileOrder)
{
    const QList<HoldingRef> existing{make("N", 1995, 3, 5000), make("E", 1980, 1, 2500)};
    portfolio->setHoldings(existing);
    portfolio->markSaved();
    const CsvImportOutcome outcome = importText("\"Bond Series\",Quantity,Issue Date,Face Value,Serial Number\n"
                                                "\"I Bond\",2,7/1999,50.00,first\n"
                                                "\"EE Bond\",3,12/2001,\"100.00\",second\n",
                                                CsvImportFormat::Own);
    ASSERT_TRUE(outcome.succeeded);
    const QList<HoldingRef> holdings = portfolio->holdings();
    ASSERT_EQ(holdings.size(), 4);
    EXPECT_EQ(holdings.mid(0, 2), existing);
    EXPECT_EQ(holdings.at(2)->serialNumber(), QStringLiteral("first"));
    EXPECT_EQ(holdings.at(2)->quantity(), 2);
    EXPECT_EQ(holdings.at(2)->faceValue(), 5000);
    EXPECT_EQ(holdings.at(3)->serialNumber(), QStringLiteral("second"));
    EXPECT_EQ(holdings.at(3)->series(), Series::eeBond());
    // A quoted amount is not a number: the line stays, worth nothing.
    EXPECT_EQ(holdings.at(3)->faceValue(), 0);
    EXPECT_TRUE(portfolio->isEdited());
}

TEST_F(CsvImport, HeaderWithoutUsableLinesStillCompletesAndMarksEdited)
{
    const CsvImportOutcome outcome = importText("Series,Denomination\r\n", CsvImportFormat::SavingsBondWizard);
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.importedCount, 0);
    EXPECT_EQ(outcome.rejectedCount, 1);
    EXPECT_EQ(outcome.message, QStringLiteral("Imported 0 out of 0 bonds. (HH/H bonds not supported)"));
    EXPECT_TRUE(portfolio->isEdited());

    // Without a series column nothing can be accepted, whatever the lines hold.
    const CsvImportOutcome seriesless = importText("Denomination,Issue Date\r\n100,3/1995\r\n", CsvImportFormat::SavingsBondWizard);
    EXPECT_EQ(seriesless.importedCount, 0);
    EXPECT_TRUE(portfolio->holdings().isEmpty());
}

TEST_F(CsvImport, RepeatedColumnIsAppliedLeftToRight)
{
    importText("Denomination,Series,Denomination\r\n10,EE,20\r\n30,I,x", CsvImportFormat::SavingsBondWizard);
    ASSERT_EQ(portfolio->holdings().size(), 2);
    EXPECT_EQ(portfolio->holdings().at(0)->faceValue(), 2000);
    EXPECT_EQ(portfolio->holdings().at(1)->faceValue(), 0);
}

TEST_F(CsvImport, RefusalsLeaveTheDocumentUntouched)
{
    struct Refusal
    {
        const char *name;
        QByteArray data;
        CsvImportFormat format;
    };
    const QByteArray header = "Series,Denomination,Serial Number,Issue Date\r\n";
    QByteArray huge = header;
    while (huge.size() <= PortfolioCsvImport::MaximumFileSize)
        huge += "EE,100,Q100,03/1995\r\n";
    const QList<Refusal> refusals{
        {"empty file", QByteArray(), CsvImportFormat::SavingsBondWizard},
        {"header only, no separator", "Bond Series,Quantity", CsvImportFormat::Own},
        {"own file read as Wizard", HoldingCsv::csvHeader().toLatin1() + "\"EE Bond\",1,3/1995,25.00,50.00,0.00,0.00,,,,\n",
         CsvImportFormat::SavingsBondWizard},
        {"binary", header + QByteArray("EE,100,\0\1\2,03/1995\r\n", 21), CsvImportFormat::SavingsBondWizard},
        {"too large", huge, CsvImportFormat::SavingsBondWizard},
        {"too many lines", header + QByteArray(PortfolioCsvImport::MaximumLineCount, '\n').replace("\n", "\r\n"),
         CsvImportFormat::SavingsBondWizard},
    };
    for (const Refusal &refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        expectCorrupt(importText(refusal.data, refusal.format),
                      refusal.format == CsvImportFormat::Own ? "Quillmere" : WizardName);
        EXPECT_TRUE(portfolio->holdings().isEmpty());
        EXPECT_FALSE(portfolio->isEdited());
    }
    expectCorrupt(PortfolioCsvImport::importCSVLines(*portfolio, std::nullopt, CsvImportFormat::Own), "Quillmere");
    expectCorrupt(PortfolioCsvImport::importCSVFileAtPath(*portfolio, TestSupport::temporaryDirectory() + QStringLiteral("/none.csv"),
                                                          CsvImportFormat::Own),
                  "Quillmere");
    expectCorrupt(PortfolioCsvImport::importCSVFileAtPath(*portfolio, TestSupport::temporaryDirectory(), CsvImportFormat::Own),
                  "Quillmere");
    EXPECT_FALSE(portfolio->isEdited());
}

TEST_F(CsvImport, TextFileWithDosEndMarkAndTabsIsRead)
{
    const CsvImportOutcome outcome =
        importText("Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q\t100,03/1995\r\n\x1A", CsvImportFormat::SavingsBondWizard);
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.importedCount, 1);
    EXPECT_EQ(portfolio->holdings().first()->serialNumber(), QStringLiteral("Q\t100"));
}

// Exporting and importing back keeps series, quantity, issue month, face value and serial.
void expectRoundTrip(ExchangeFixture &target, const QList<HoldingRef> &original)
{
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/round-trip.csv");
    ASSERT_TRUE(PortfolioCsv::exportToCommaSeparatedValues(path, original).succeeded);
    const CsvImportOutcome outcome = PortfolioCsvImport::importCSVFileAtPath(*target.portfolio, path, CsvImportFormat::Own);
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_EQ(outcome.rejectedCount, 1); // the empty line after the final line feed
    const QList<HoldingRef> imported = target.portfolio->holdings();
    ASSERT_EQ(imported.size(), original.size());
    for (qsizetype i = 0; i < original.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(imported.at(i)->series(), original.at(i)->series());
        EXPECT_EQ(imported.at(i)->quantity(), original.at(i)->quantity());
        EXPECT_EQ(imported.at(i)->issueDate().date().year(), original.at(i)->issueDate().date().year());
        EXPECT_EQ(imported.at(i)->issueDate().date().month(), original.at(i)->issueDate().date().month());
        EXPECT_EQ(imported.at(i)->faceValue(), original.at(i)->faceValue());
        EXPECT_EQ(imported.at(i)->serialNumber(), original.at(i)->serialNumber());
        EXPECT_FALSE(imported.at(i)->owner());
    }
}

TEST_F(CsvImport, OwnExportReadsBack)
{
    const HoldingRef owned = make("S", 1967, 5, 2500, 1, QStringLiteral("S1"));
    owned->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith")));
    ExchangeFixture target;
    expectRoundTrip(target, {make("N", 1995, 3, 5000, 2, QStringLiteral("Q100")), make("I", 1999, 11, 1000000, 12),
                             make("E", 1980, 1, 5005), owned, make("N", 2001, 12, 7550, 1, QStringLiteral("Zo\u00EB"))});
}

TEST_F(CsvImport, SamplePortfolioReadsBack)
{
    const QString sample = TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio"));
    if (!QFile::exists(sample))
        GTEST_SKIP() << "no sample portfolio in examples/";
    QString error;
    ASSERT_TRUE(portfolio->readFromFile(sample, &error)) << error.toStdString();
    ASSERT_FALSE(portfolio->holdings().isEmpty());
    ExchangeFixture target;
    expectRoundTrip(target, portfolio->holdings());
}

TEST(CsvColumns, MapHoldsOnlyTheFormatsColumnsAtTheirPositions)
{
    EXPECT_EQ(CsvHoldingReader::fieldMapForHeader(HoldingCsv::csvHeader().chopped(1), CsvImportFormat::Own),
              (CsvFieldMap{{0, QStringLiteral("Bond Series")}, {1, QStringLiteral("Quantity")},
                           {2, QStringLiteral("Issue Date")}, {4, QStringLiteral("Face Value")},
                           {7, QStringLiteral("Serial Number")}}));
    EXPECT_EQ(CsvHoldingReader::fieldMapForHeader(QStringLiteral("Issue Date,\"Series\",Owner,\"\"Denomination\"\""),
                                                  CsvImportFormat::SavingsBondWizard),
              (CsvFieldMap{{0, QStringLiteral("Issue Date")}, {1, QStringLiteral("Series")}, {3, QStringLiteral("Denomination")}}));
    EXPECT_TRUE(CsvHoldingReader::fieldMapForHeader(QStringLiteral("Bond Series, Quantity"), CsvImportFormat::SavingsBondWizard).isEmpty());
    EXPECT_EQ(CsvImportFormats::fromRow(0), CsvImportFormat::Own);
    EXPECT_EQ(CsvImportFormats::fromRow(7), CsvImportFormat::SavingsBondWizard);
}

} // namespace
