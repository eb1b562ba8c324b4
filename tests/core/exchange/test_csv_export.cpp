#include "ExchangeFixture.h"
#include "TestSupport.h"
#include "exchange/ExportChoice.h"
#include "exchange/HoldingCsv.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

class CsvExport : public ::testing::Test, public ExchangeFixture
{
};

QStringList fieldsOf(const QString &line)
{
    return line.split(QLatin1Char(','));
}

TEST_F(CsvExport, EmptyPortfolioWritesOnlyTheHeader)
{
    const QByteArray bytes = PortfolioCsv::csvRepresentation({});
    EXPECT_EQ(bytes, QByteArray("Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,"
                                "Serial Number,Owner,Co-owner,Beneficiary\n"));
    EXPECT_EQ(bytes.size(), 118);
}

TEST_F(CsvExport, LineCarriesFiguresOfTheValuationDate)
{
    // $50 paper EE: issue price 2500 per bond; stored 3000 for $25 makes 6000 per bond.
    const HoldingRef single = make("N", 1995, 3, 5000);
    EXPECT_EQ(HoldingCsv::asCSV(*single), QStringLiteral("\"EE Bond\",1,3/1995,25.00,50.00,35.00,60.00,,,,\n"));
    // Face value and issue price stay those of one bond; value and interest cover all three.
    const HoldingRef triple = make("N", 1995, 3, 5000, 3, QStringLiteral("C123456789EE"));
    EXPECT_EQ(HoldingCsv::asCSV(*triple), QStringLiteral("\"EE Bond\",3,3/1995,25.00,50.00,105.00,180.00,C123456789EE,,,\n"));
    // A month without data values the holding at nothing rather than failing.
    portfolio->setValueOfDate(BondAssessor::monthDate(1999, 11));
    EXPECT_EQ(HoldingCsv::asCSV(*single), QStringLiteral("\"EE Bond\",1,3/1995,25.00,50.00,0.00,0.00,,,,\n"));
}

TEST_F(CsvExport, MonthWithoutLeadingZeroAndMissingIssueDateAsZero)
{
    EXPECT_EQ(fieldsOf(HoldingCsv::asCSV(*make("I", 2001, 11, 5000))).at(2), QStringLiteral("11/2001"));
    EXPECT_EQ(fieldsOf(HoldingCsv::asCSV(*make("E", 1980, 7, 5000))).at(2), QStringLiteral("7/1980"));
    const QStringList undated = fieldsOf(HoldingCsv::asCSV(*make("S", 0, 0, 5000)));
    EXPECT_EQ(undated.at(0), QStringLiteral("\"Savings Note\""));
    EXPECT_EQ(undated.at(2), QStringLiteral("0/0"));
}

struct DollarCase
{
    Pennies pennies;
    const char *printed;
};

class CsvDollars : public ::testing::TestWithParam<DollarCase>
{
};

TEST_P(CsvDollars, FaceValueGoesThroughSinglePrecision)
{
    Holding holding;
    holding.setFaceValue(GetParam().pennies);
    EXPECT_EQ(fieldsOf(HoldingCsv::asCSV(holding)).at(4), QLatin1String(GetParam().printed));
}

INSTANTIATE_TEST_SUITE_P(
    Amounts, CsvDollars,
    ::testing::Values(DollarCase{1000000, "10000.00"}, DollarCase{16777217, "167772.16"},
                      DollarCase{99999999, "1000000.00"},
                      // 16,777,212 / 100 is exactly 167772.125 in single precision: printf rounds the
                      // tie to even, a round-half-up formatter would print .13.
                      DollarCase{16777212, "167772.12"}, DollarCase{12345, "123.45"}, DollarCase{1, "0.01"},
                      DollarCase{0, "0.00"}, DollarCase{-250, "-2.50"}, DollarCase{5005, "50.05"}));

TEST_F(CsvExport, PeopleAndSerialsAreWrittenUnescaped)
{
    const HoldingRef holding = make("N", 1995, 3, 5000, 1, QStringLiteral("Q1,2"));
    holding->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith")));
    holding->setCoOwner(people.person(QStringLiteral("Bob"), QStringLiteral("Jones, Jr.")));
    const QStringList fields = fieldsOf(HoldingCsv::asCSV(*holding));
    // 11 columns plus one for each comma inside the serial and the co-owner's name.
    ASSERT_EQ(fields.size(), 13);
    EXPECT_EQ(fields.at(7), QStringLiteral("Q1"));
    EXPECT_EQ(fields.at(9), QStringLiteral("Ann Smith"));
    EXPECT_EQ(fields.at(10), QStringLiteral("Bob Jones"));
    EXPECT_EQ(fields.at(12), QStringLiteral("\n"));

    const HoldingRef willed = make("N", 1995, 3, 5000);
    willed->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith")));
    willed->setBeneficiary(people.person(QStringLiteral("Cy"), QStringLiteral("Smith")));
    EXPECT_TRUE(HoldingCsv::asCSV(*willed).endsWith(QStringLiteral(",Ann Smith,,Cy Smith\n")));
}

struct Latin1Case
{
    const char *name;
    QString serial;
    QByteArray bytes;
};

class CsvLatin1 : public ::testing::TestWithParam<Latin1Case>
{
};

TEST_P(CsvLatin1, SerialIsWrittenInLatin1WithOneQuestionMarkPerForeignCharacter)
{
    Holding holding;
    holding.setSerialNumber(GetParam().serial);
    const QByteArray bytes = PortfolioCsv::csvRepresentation({std::shared_ptr<Holding>(&holding, [](Holding *) {})});
    const QByteArray line = bytes.mid(118);
    EXPECT_EQ(line.split(',').at(7), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Characters, CsvLatin1,
    ::testing::Values(Latin1Case{"Ascii", QStringLiteral("Q100"), QByteArray("Q100")},
                      Latin1Case{"Latin1Letter", QStringLiteral("Zo\u00EB"), QByteArray("Zo\xEB")},
                      Latin1Case{"CombiningAccentIsComposed", QStringLiteral("Jose\u0301"), QByteArray("Jos\xE9")},
                      Latin1Case{"OutsideLatin1", QStringLiteral("\u0141ukasz"), QByteArray("?ukasz")},
                      Latin1Case{"OutsideBasicPlane", QString::fromUcs4(U"A\U0001F600B"), QByteArray("A?B")}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(CsvExport, FileHoldsLineFeedsOnlyAndLeavesDocumentUnedited)
{
    portfolio->setHoldings({make("N", 1995, 3, 5000), make("I", 1999, 7, 10000, 2, QStringLiteral("I9"))});
    portfolio->markSaved();
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/bonds.csv");
    write(path, "an older file that must be replaced entirely");

    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(path, portfolio->holdings());
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_TRUE(outcome.title.isEmpty());
    const QByteArray bytes = contents(path);
    EXPECT_EQ(bytes, PortfolioCsv::csvRepresentation(portfolio->holdings()));
    EXPECT_EQ(bytes.count('\n'), 3);
    EXPECT_FALSE(bytes.contains('\r'));
    EXPECT_TRUE(bytes.endsWith("I9,,,\n"));
    EXPECT_FALSE(portfolio->isEdited());
}

TEST_F(CsvExport, FailedWriteReportsWithoutAlert)
{
    const QString path = TestSupport::temporaryDirectory() + QStringLiteral("/missing/folder/bonds.csv");
    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(path, {});
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_TRUE(outcome.title.isEmpty()); // the window only beeps
    EXPECT_TRUE(outcome.detail.contains(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(CsvExport, ChoiceOfHoldings)
{
    const QList<HoldingRef> all{make("N", 1995, 3, 5000), make("I", 1999, 7, 5000), make("E", 1980, 1, 5000)};
    const QList<HoldingRef> selected{all.at(2), all.at(0)}; // the table's order, not the portfolio's
    EXPECT_EQ(ExportChoice::holdingsToExport(all, selected, ExportChoice::SelectedHoldingsRow), selected);
    EXPECT_EQ(ExportChoice::holdingsToExport(all, selected, ExportChoice::AllHoldingsRow), all);
    EXPECT_EQ(ExportChoice::holdingsToExport(all, {}, ExportChoice::SelectedHoldingsRow), all);
}

// Splits one line of LibreOffice's CSV output, honouring its double quotes.
QStringList spreadsheetFields(const QString &line)
{
    QStringList fields{QString()};
    bool quoted = false;
    for (const QChar c : line) {
        if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (c == QLatin1Char(',') && !quoted)
            fields << QString();
        else
            fields.last() += c;
    }
    return fields;
}

TEST_F(CsvExport, SpreadsheetOpensElevenColumnsPerLine)
{
    const QString office = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
    if (office.isEmpty())
        GTEST_SKIP() << "libreoffice is not installed";
    const HoldingRef named = make("N", 1995, 3, 5000, 2, QStringLiteral("Q100"));
    named->setOwner(people.person(QStringLiteral("Zo\u00EB"), QStringLiteral("Smith")));
    portfolio->setHoldings({named, make("S", 0, 0, 2500), make("I", 1999, 7, 99999999)});
    const QString dir = TestSupport::temporaryDirectory();
    const QString input = dir + QStringLiteral("/export.csv");
    ASSERT_TRUE(PortfolioCsv::exportToCommaSeparatedValues(input, portfolio->holdings()).succeeded);

    QProcess process;
    // A profile of its own keeps LibreOffice away from the user's home.
    process.start(office, {QStringLiteral("-env:UserInstallation=file://") + dir + QStringLiteral("/profile"),
                           QStringLiteral("--headless"), QStringLiteral("--infilter=CSV:44,34,12,1"),
                           QStringLiteral("--convert-to"), QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1"),
                           QStringLiteral("--outdir"), dir + QStringLiteral("/out"), input});
    ASSERT_TRUE(process.waitForFinished(300000));
    const QByteArray converted = contents(dir + QStringLiteral("/out/export.csv"));
    ASSERT_FALSE(converted.isEmpty()) << process.readAllStandardError().toStdString();

    const QStringList lines = QString::fromUtf8(converted).split(QRegularExpression(QStringLiteral("\r?\n")), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4);
    for (const QString &line : lines) {
        SCOPED_TRACE(line.toStdString());
        EXPECT_EQ(spreadsheetFields(line).size(), 11);
    }
    EXPECT_EQ(spreadsheetFields(lines.at(0)).at(10), QStringLiteral("Beneficiary"));
    EXPECT_EQ(spreadsheetFields(lines.at(1)).at(0), QStringLiteral("EE Bond"));
    EXPECT_EQ(spreadsheetFields(lines.at(1)).at(8), QStringLiteral("Zo\u00EB Smith"));
    EXPECT_EQ(spreadsheetFields(lines.at(2)).at(2), QStringLiteral("0/0"));
}

} // namespace
