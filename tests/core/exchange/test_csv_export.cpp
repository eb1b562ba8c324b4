// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangeFixture.h"
#include "exchange/HoldingCsv.h"

#include <QProcess>
#include <QXmlStreamReader>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

class CsvExport : public ::testing::Test, public ExchangeFixture {};

QString field(const QString &line, int index) { return line.split(QLatin1Char(',')).value(index); }

TEST_F(CsvExport, HeaderAndLines)
{
    EXPECT_EQ(PortfolioCsv::csvRepresentation(portfolio->valuationContext(), {}), QByteArray("Bond Series,Quantity,Issue Date,Issue Price,Face Value,"
                                                              "Interest Earned,Value,Serial Number,Owner,Co-owner,Beneficiary\n"));
    EXPECT_EQ(PortfolioCsv::csvRepresentation(portfolio->valuationContext(), {}).size(), 118);
    // Stored 3000 for $25 makes 6000 per $50 bond; face value and issue price stay per bond.
    EXPECT_EQ(HoldingCsv::asCSV(*make("N", 1995, 3, 5000), portfolio->valuationContext()), QStringLiteral("\"EE Bond\",1,3/1995,25.00,50.00,35.00,60.00,,,,\n"));
    EXPECT_EQ(HoldingCsv::asCSV(*make("N", 1995, 3, 5000, 3, QStringLiteral("C1")), portfolio->valuationContext()),
              QStringLiteral("\"EE Bond\",3,3/1995,25.00,50.00,105.00,180.00,C1,,,\n"));
    EXPECT_EQ(field(HoldingCsv::asCSV(*make("I", 2001, 11, 5000), portfolio->valuationContext()), 2), QStringLiteral("11/2001"));
    EXPECT_EQ(HoldingCsv::asCSV(*make("S", 0, 0, 2500), portfolio->valuationContext()).left(24), QStringLiteral("\"Savings Note\",1,0/0,20."));
}

TEST_F(CsvExport, DollarsGoThroughSinglePrecision)
{
    // 16,777,212 / 100 is exactly 167772.125 in single precision: printf rounds the tie to even.
    const QList<std::pair<Pennies, const char *>> cases{{1000000, "10000.00"}, {16777217, "167772.16"},
        {99999999, "1000000.00"}, {16777212, "167772.12"}, {12345, "123.45"}, {1, "0.01"}, {-250, "-2.50"}};
    for (const auto &[pennies, printed] : cases) {
        Holding holding;
        holding.setFaceValue(pennies);
        EXPECT_EQ(field(HoldingCsv::asCSV(holding, portfolio->valuationContext()), 4), QLatin1String(printed)) << pennies;
    }
}

TEST_F(CsvExport, FieldsAreUnescapedLatin1)
{
    const HoldingRef holding = make("N", 1995, 3, 5000, 1, QStringLiteral("Q1,Zo\u00EB Jose\u0301 \u0141 \U0001F600"));
    holding->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith, Jr.")));
    holding->setBeneficiary(people.person(QStringLiteral("Cy"), QStringLiteral("Smith")));
    const QByteArray line = PortfolioCsv::csvRepresentation(portfolio->valuationContext(), {holding}).mid(118);
    // Composed accents become their Latin 1 letter; anything else one '?' per character.
    EXPECT_TRUE(line.endsWith(",Q1,Zo\xEB Jos\xE9 ? ?,Ann Smith, Jr.,,Cy Smith\n")) << line.toStdString();
    EXPECT_EQ(line.count(','), 12); // the comma in the serial and in the name each add a field
}

TEST_F(CsvExport, WritesAtomicallyWithoutTouchingTheDocument)
{
    portfolio->setHoldings({make("N", 1995, 3, 5000), make("I", 1999, 7, 10000, 2, QStringLiteral("I9"))});
    portfolio->markSaved();
    const QString path = write(TestSupport::temporaryDirectory() + QStringLiteral("/bonds.csv"), "an older, longer file");
    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(path, portfolio->valuationContext(), portfolio->holdings());
    ASSERT_TRUE(outcome.succeeded) << outcome.detail.toStdString();
    EXPECT_EQ(contents(path), PortfolioCsv::csvRepresentation(portfolio->valuationContext(), portfolio->holdings()));
    EXPECT_FALSE(contents(path).contains('\r'));
    EXPECT_FALSE(portfolio->isEdited());

    const QString unwritable = TestSupport::temporaryDirectory() + QStringLiteral("/missing/bonds.csv");
    const ExchangeOutcome failed = PortfolioCsv::exportToCommaSeparatedValues(unwritable, portfolio->valuationContext(), {});
    EXPECT_FALSE(failed.succeeded);
    EXPECT_TRUE(failed.detail.contains(unwritable));
}

TEST_F(CsvExport, SpreadsheetFormQuotesWhatNeedsItAndWritesDates)
{
    const HoldingRef named = make("N", 1995, 3, 5000, 1, QStringLiteral("Q1,\"A\""));
    named->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith, Jr.")));
    named->setBeneficiary(people.person(QStringLiteral("Zo\u00EB"), QStringLiteral("\u0141ukasz")));
    EXPECT_EQ(PortfolioCsv::csvRepresentation(portfolio->valuationContext(), {named}, CsvForm::Spreadsheet),
              QByteArray("\xEF\xBB\xBF" "Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,"
                         "Serial Number,Owner,Co-owner,Beneficiary\n"
                         "EE Bond,1,1995-03-01,25.00,50.00,35.00,60.00,\"Q1,\"\"A\"\"\",\"Ann Smith, Jr.\",,Zo\xC3\xAB \xC5\x81ukasz\n"));
    // No issue date is an empty cell, not a date; a line break is quoted too.
    const QString undated = HoldingCsv::asCSV(*make("S", 0, 0, 2500, 1, QStringLiteral("L1\nL2")), portfolio->valuationContext(),
                                              CsvForm::Spreadsheet);
    EXPECT_TRUE(undated.startsWith(QStringLiteral("Savings Note,1,,"))) << undated.toStdString();
    EXPECT_TRUE(undated.endsWith(QStringLiteral(",\"L1\nL2\",,,\n"))) << undated.toStdString();
}

// The cells of a flat OpenDocument spreadsheet, row by row, without trailing empty cells: a date
// cell reads as "date:" and its date, any other as its text.
QList<QStringList> sheetRows(const QByteArray &fods)
{
    QList<QStringList> rows;
    QXmlStreamReader xml(fods);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.qualifiedName() == QLatin1String("table:table-row")) {
            rows.append(QStringList());
        } else if (xml.qualifiedName() == QLatin1String("table:table-cell") && !rows.isEmpty()) {
            const QXmlStreamAttributes attributes = xml.attributes();
            const QString date = attributes.value(QLatin1String("office:date-value")).toString();
            const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            const int repeated = std::clamp(attributes.value(QLatin1String("table:number-columns-repeated")).toInt(), 1, 20);
            for (int copy = 0; copy < repeated; ++copy)
                rows.last() << (date.isEmpty() ? text : QStringLiteral("date:") + date);
        }
    }
    for (QStringList &row : rows) {
        while (!row.isEmpty() && row.last().isEmpty())
            row.removeLast();
    }
    rows.removeAll(QStringList());
    return rows;
}

// An independent reader: LibreOffice Calc, left to find the character set itself, must see the
// issue dates as dates and never more than eleven cells on a line.
TEST_F(CsvExport, SpreadsheetFormOpensInLibreOfficeWithDates)
{
    const QString office = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
    if (office.isEmpty())
        GTEST_SKIP() << "libreoffice is not installed";
    const HoldingRef named = make("N", 1995, 3, 5000, 2, QStringLiteral("Q1,\"A\""));
    named->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith, Jr.")));
    named->setBeneficiary(people.person(QStringLiteral("Zo\u00EB"), QStringLiteral("Smith")));
    const QString dir = TestSupport::temporaryDirectory();
    ASSERT_TRUE(PortfolioCsv::exportToCommaSeparatedValues(dir + QStringLiteral("/export.csv"), portfolio->valuationContext(),
                                                           {named, make("S", 0, 0, 2500), make("I", 1999, 7, 10000)},
                                                           CsvForm::Spreadsheet).succeeded);
    QProcess process;
    // A profile of its own keeps LibreOffice out of the user's home.
    process.start(office, {QStringLiteral("-env:UserInstallation=file://%1/profile").arg(dir), QStringLiteral("--headless"),
                           QStringLiteral("--infilter=CSV:44,34,,1"), QStringLiteral("--convert-to"), QStringLiteral("fods"),
                           QStringLiteral("--outdir"), dir + QStringLiteral("/out"), dir + QStringLiteral("/export.csv")});
    ASSERT_TRUE(process.waitForFinished(300000));
    const QList<QStringList> rows = sheetRows(contents(dir + QStringLiteral("/out/export.fods")));
    ASSERT_EQ(rows.size(), 4) << process.readAllStandardError().toStdString();
    EXPECT_EQ(rows.at(0).first(), QStringLiteral("Bond Series")); // the byte order mark is not text
    for (const QStringList &row : rows)
        EXPECT_LE(row.size(), 11) << row.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(rows.at(1), (QStringList{QStringLiteral("EE Bond"), QStringLiteral("2"), QStringLiteral("date:1995-03-01"),
                                       QStringLiteral("25"), QStringLiteral("50"), QStringLiteral("70"), QStringLiteral("120"),
                                       QStringLiteral("Q1,\"A\""), QStringLiteral("Ann Smith, Jr."), QString(),
                                       QStringLiteral("Zo\u00EB Smith")}));
    EXPECT_EQ(rows.at(2).value(2), QString());
    EXPECT_EQ(rows.at(3).value(2), QStringLiteral("date:1999-07-01"));
}
