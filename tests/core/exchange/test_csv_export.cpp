// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangeFixture.h"
#include "exchange/HoldingCsv.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

class CsvExport : public ::testing::Test, public ExchangeFixture {};

QString field(const QString &line, int index) { return line.split(QLatin1Char(',')).value(index); }

TEST_F(CsvExport, HeaderAndLines)
{
    EXPECT_EQ(PortfolioCsv::csvRepresentation(portfolio->valuationContext(), {}), QByteArray("Bond Series,Quantity,Issue Date,Issue Price,Face Value,"
                                                              "Interest Earned,Value,Serial Number,Owner,Co-owner,Beneficiary\n"));
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

// LibreOffice Calc, guessing the character set, sees dates as dates, serial and name with commas whole, columns in place.
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
    const QString sheet = QString::fromUtf8(contents(dir + QStringLiteral("/out/export.fods")));
    const auto row = [&](int index) { return sheet.section(QStringLiteral("<table:table-row"), index, index); };
    const auto cellsBefore = [](const QString &row, const QString &text) {
        return row.contains(text) ? row.left(row.indexOf(text)).count(QStringLiteral("<table:table-cell")) : -1;
    };
    ASSERT_TRUE(row(1).contains(QStringLiteral("<text:p>Bond Series</text:p>"))) << process.readAllStandardError().toStdString();
    EXPECT_EQ(cellsBefore(row(2), QStringLiteral("office:date-value=\"1995-03-01\"")), 3);
    EXPECT_EQ(cellsBefore(row(2), QStringLiteral("<text:p>Q1,&quot;A&quot;</text:p>")), 8);
    EXPECT_EQ(cellsBefore(row(2), QStringLiteral("<text:p>Ann Smith, Jr.</text:p>")), 9);
    EXPECT_EQ(cellsBefore(row(2), QStringLiteral("<text:p>Zo\u00EB Smith</text:p>")), 11);
    EXPECT_FALSE(row(3).contains(QStringLiteral("office:date-value"))); // no issue date, no date
    EXPECT_EQ(cellsBefore(row(4), QStringLiteral("office:date-value=\"1999-07-01\"")), 3);
}
