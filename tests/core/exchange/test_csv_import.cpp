// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangeFixture.h"
#include "exchange/ExchangeAlerts.h"
#include "model/EntryRules.h"
#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioCsvImport.h"
#include "base/UserDefaults.h"

#include <QUndoStack>
#include <gtest/gtest.h>

const QByteArray WizardHeader = "Series,Denomination,Serial Number,Issue Date\r\n";

class CsvImport : public ::testing::Test, public ExchangeFixture
{
protected:
    CsvImportOutcome import(const QByteArray &text, CsvImportFormat format = CsvImportFormat::SavingsBondWizard)
    {
        return PortfolioCsvImport::importCSVData(*portfolio, text, format);
    }
};

// An own-format file plain, for spreadsheets (byte order mark, CR LF), or saved again by one (no mark, date 2005-03-01).
enum class Written { Plain, Marked, Resaved };

// One field of a valid bond line, replaced by the text under the named column, read through a whole import.
struct FieldReading
{
    const char *rule; // the rule of the format the row pins, then the case
    CsvImportFormat format;
    const char *column;
    const char *text; // ISO Latin 1, like the files, but where a spreadsheet form's row says otherwise
    const char *reads; // what the new holding holds for that column, or "rejected"
    Written written = Written::Plain;
};

void PrintTo(const FieldReading &row, std::ostream *out) { *out << row.column << " \"" << row.text << '"'; }

class CsvFieldReading : public ::testing::TestWithParam<FieldReading>, public ExchangeFixture
{
protected:
    // What a holding holds for a column, written as the table writes it.
    static QString reading(const Holding &holding, QLatin1String column)
    {
        if (column == QLatin1String("Bond Series") || column == QLatin1String("Series"))
            return holding.series()->code();
        if (column == QLatin1String("Quantity"))
            return QString::number(holding.quantity());
        if (column == QLatin1String("Face Value") || column == QLatin1String("Denomination"))
            return QString::number(holding.faceValue());
        if (column == QLatin1String("Issue Date"))
            return holding.issueDate().isNull() ? QStringLiteral("none") : holding.issueDate().toString(Month::Style::Iso);
        return holding.serialNumber();
    }
};

TEST_P(CsvFieldReading, SetsTheNewHolding)
{
    const FieldReading &row = GetParam();
    const bool own = row.format == CsvImportFormat::Own;
    QList<QByteArray> columns = own ? QList<QByteArray>{"Bond Series", "Quantity", "Issue Date", "Face Value", "Serial Number"}
                                    : QList<QByteArray>{"Series", "Denomination", "Serial Number", "Issue Date"};
    // An own-format EE bond of 2005 may be electronic, so amounts no paper bond had still come in.
    QList<QByteArray> fields = own ? QList<QByteArray>{"EE Bond", "2", "3/2005", "100.00", "Q1"}
                                   : QList<QByteArray>{"EE", "100", "Q1", "03/1995"};
    if (row.written == Written::Resaved)
        fields[2] = "2005-03-01";
    if (const qsizetype at = columns.indexOf(row.column); at >= 0) {
        fields[at] = row.text;
    } else { // a column the format does not read
        columns << row.column;
        fields << row.text;
    }
    const QByteArray separator = own && row.written != Written::Marked ? "\n" : "\r\n";
    const QByteArray mark = row.written == Written::Marked ? "\xEF\xBB\xBF" : "";
    const CsvImportOutcome outcome =
        PortfolioCsvImport::importCSVData(*portfolio, mark + columns.join(',') + separator + fields.join(','), row.format);
    ASSERT_TRUE(outcome.succeeded);
    const QList<HoldingRef> holdings = portfolio->holdings();
    EXPECT_EQ(holdings.isEmpty() ? QStringLiteral("rejected") : reading(*holdings.first(), QLatin1String(row.column)),
              QString::fromLatin1(row.reads));
}

constexpr CsvImportFormat Own = CsvImportFormat::Own;
constexpr CsvImportFormat Wizard = CsvImportFormat::SavingsBondWizard;

const FieldReading fieldReadings[] = {
    {"ColumnsOfTheOtherFormatIgnored_Quantity", Wizard, "Quantity", "5", "1"},
    {"ColumnsOfTheOtherFormatIgnored_Denomination", Own, "Denomination", "5", "10000"},
    {"EveryCommaSplits_EvenInsideQuotes", Own, "Serial Number", "\"Q,1\"", "rejected"},
    {"TextAsItStands_Blanks", Own, "Serial Number", " Q 1 ", " Q 1 "},
    {"TextIsLatin1_OneCharacterPerByte", Own, "Serial Number", "Zo\xEB", "Zo\xEB"},
    {"SeriesByPrefix_QuotedLabel", Own, "Bond Series", "\"EE Bond\"", "N"},
    {"SeriesByPrefix_SavingsNoteLabel", Own, "Bond Series", "Savings Note", "S"},
    {"SeriesByPrefix_WizardLetters", Wizard, "Series", "EE", "N"},
    {"SeriesByPrefix_WizardSavingsNote", Wizard, "Series", "SN", "S"},
    {"SeriesByPrefix_CodeNIsNoPrefix", Wizard, "Series", "N", "rejected"},
    {"SeriesByPrefix_LeadingBlank", Own, "Bond Series", " EE Bond", "rejected"},
    {"SeriesCaseSensitive", Wizard, "Series", "ee", "rejected"},
    {"SeriesNoneForH", Wizard, "Series", "H", "rejected"},
    {"IntegerSkipsLeadingWhiteSpace", Own, "Quantity", "  \t7", "7"},
    {"QuantityBelowOneRejected_Minus", Own, "Quantity", "-3", "rejected"},
    {"IntegerSigned_Plus", Own, "Quantity", "+4", "4"},
    {"IntegerStopsAtFirstNonDigit", Own, "Quantity", "12abc", "12"},
    {"IntegerNoDigitsIsZeroSoRejected_Letters", Own, "Quantity", "abc", "rejected"},
    {"IntegerSaturates_AtInt32Max", Own, "Quantity", "2147483648", "2147483647"},
    {"FaceValueWholeDollars", Own, "Face Value", "100", "10000"},
    {"FaceValueCentsAsTheyStand_TwoDigits", Own, "Face Value", "50.50", "5050"},
    {"FaceValueCentsNotScaled_50point5Is5005", Own, "Face Value", "50.5", "5005"},
    {"FaceValuePenniesWrapIn32Bits_42949773Is10004", Own, "Face Value", "42949773", "10004"}, // as files always read
    // The Wizard's bonds are paper: $50.05 is no paper denomination.
    {"FaceValueCentsNotScaled_WizardPaperRejected", Wizard, "Denomination", "50.5", "rejected"},
    {"FaceValueThreePiecesAddNothing", Own, "Face Value", "1.2.3", "rejected"}, // $1.00
    {"FaceValueNoCurrencySignStripped", Own, "Face Value", "$50.00", "rejected"}, // $0
    {"FaceValueNoQuotesStripped", Wizard, "Denomination", "\"50\"", "rejected"},
    {"FaceValueAboveAnyBondRejected", Own, "Face Value", "10000.01", "rejected"},
    {"IssueMonthOneDigit", Own, "Issue Date", "3/1995", "1995-03"},
    {"IssueMonthSurroundingBlanks", Own, "Issue Date", " 12/2001 ", "2001-12"},
    {"IssueMonthMalformedIsNone_Month13", Own, "Issue Date", "13/1995", "none"},
    {"IssueMonthMalformedIsNone_TwoDigitYear", Own, "Issue Date", "3/95", "none"},
    {"IssueMonthMalformedIsNone_Quoted", Own, "Issue Date", "\"3/1995\"", "none"},
    {"Spreadsheet_QuotedCommaAndDoubledQuotes", Own, "Serial Number", "\"Q1,\"\"A\"\"\"", "Q1,\"A\"", Written::Marked},
    {"Spreadsheet_QuotedLineBreak", Own, "Serial Number", "\"L1\nL2\"", "L1\nL2", Written::Marked},
    {"Spreadsheet_QuotedLabel", Own, "Bond Series", "\"EE Bond\"", "N", Written::Marked},
    {"Spreadsheet_FieldCountAfterQuoting", Own, "Serial Number", "\"Q,1\",x", "rejected", Written::Marked},
    {"Spreadsheet_IsoDate", Own, "Issue Date", "2001-12-01", "2001-12", Written::Marked},
    {"Spreadsheet_IsoDateNoSuchDay", Own, "Issue Date", "2001-02-30", "none", Written::Marked},
    {"Spreadsheet_PlainMonth", Own, "Issue Date", "12/2001", "2001-12", Written::Marked},
    {"Spreadsheet_ResavedQuoted", Own, "Serial Number", "\"Q,1\"", "Q,1", Written::Resaved},
    {"Spreadsheet_ResavedAnyDayOfTheMonth", Own, "Issue Date", "2001-12-17", "2001-12", Written::Resaved},
    {"Spreadsheet_ResavedUtf8", Own, "Serial Number", "Zo\xC3\xAB", "Zo\xEB", Written::Resaved},
    {"Spreadsheet_ResavedLatin1", Own, "Serial Number", "Zo\xEB", "Zo\xEB", Written::Resaved}};
INSTANTIATE_TEST_SUITE_P(Rules, CsvFieldReading, ::testing::ValuesIn(fieldReadings),
                         [](const ::testing::TestParamInfo<FieldReading> &row) { return std::string(row.param.rule); });

// Exported for spreadsheets, byte for byte, and imported again whole, though texts hold commas, quotes and line breaks.
TEST_F(CsvImport, SpreadsheetFormRoundTrip)
{
    const PersonRef zoe = people.person(QStringLiteral("Zo\u00EB \"Z\""), QStringLiteral("\u0141ukasz"));
    const HoldingRef named = make("N", 1995, 3, 5000, 2, QStringLiteral("Q1,\"A\""));
    named->setOwner(people.person(QStringLiteral("Ann"), QStringLiteral("Smith, Jr.")));
    named->setBeneficiary(zoe);
    const HoldingRef electronic = make("I", 2003, 7, 2512, 1, QStringLiteral("L1\nL2"), false);
    electronic->setCoOwner(zoe);
    const QList<HoldingRef> exported{named, electronic};
    const QByteArray bytes = PortfolioCsv::csvRepresentation(portfolio->valuationContext(), exported, CsvForm::Spreadsheet);
    EXPECT_EQ(bytes, QByteArray("\xEF\xBB\xBF" "Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,"
                                "Serial Number,Owner,Co-owner,Beneficiary\n"
                                "EE Bond,2,1995-03-01,25.00,50.00,70.00,120.00,\"Q1,\"\"A\"\"\",\"Ann Smith, Jr.\",,"
                                "\"Zo\xC3\xAB \"\"Z\"\" \xC5\x81ukasz\"\n"
                                "I Bond,1,2003-07-01,25.12,25.12,0.00,0.00,\"L1\nL2\",,\"Zo\xC3\xAB \"\"Z\"\" \xC5\x81ukasz\",\n"));

    const CsvImportOutcome outcome = import(bytes, CsvImportFormat::Own);
    EXPECT_EQ(std::tuple(outcome.importedCount, outcome.rejectedCount - 1, outcome.unmatchedNames), std::tuple(2, 0, 0));
    auto facts = [](const Holding &bond) {
        auto id = [](const PersonRef &person) { return person ? person->uniqueId() : QString(); };
        return std::tuple(bond.series(), bond.quantity(), bond.issueDate(), bond.faceValue(), bond.serialNumber(), bond.isPaper(),
                          id(bond.owner()), id(bond.coOwner()), id(bond.beneficiary()));
    };
    ASSERT_EQ(portfolio->holdings().size(), 2);
    for (int index = 0; index < 2; ++index)
        EXPECT_EQ(facts(*portfolio->holdings().at(index)), facts(*exported.at(index))) << index;
}

TEST_F(CsvImport, WizardFile)
{
    // The Wizard knew paper bonds only: its 2005 EE bond comes in paper though new bonds default to electronic.
    UserDefaults::setValue(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), false);
    const CsvImportOutcome outcome = import(WizardHeader + "EE,100,Q100,03/1995\r\nHH,500,H1,01/1990\r\nI,50,x,7/1999,extra\r\n"
                                                           "ee,50,lower,01/2000\r\nS,25,,5/1967\r\nEE,50,W2,01/2005\r\n");
    UserDefaults::remove(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
    ASSERT_TRUE(outcome.succeeded);
    const ExchangeAlert alert = ExchangeAlerts::of(outcome);
    EXPECT_EQ(alert.title, QStringLiteral("Import Complete"));
    // Rejected: HH, the extra field, lower case and the empty line after the end; still "3 out of 3".
    EXPECT_EQ(outcome.rejectedCount, 4);
    EXPECT_EQ(alert.message, QStringLiteral("Imported 3 out of 3 bonds. (HH/H bonds not supported)"));
    EXPECT_EQ(alert.informative, QStringLiteral("Skipped 3 line(s):\nline 3: HH bond\nline 4: wrong number of fields (5 where "
                                                "the header has 4)\nline 5: no series this program knows (\"ee\")"));
    ASSERT_EQ(portfolio->holdings().size(), 3);
    const Holding &bond = *portfolio->holdings().first();
    EXPECT_EQ(std::tuple(bond.series(), bond.quantity(), bond.faceValue(), bond.issueDate(), bond.serialNumber()),
              std::tuple(Series::eeBond(), 1, Pennies(10000), Month(1995, 3), QStringLiteral("Q100")));
    EXPECT_TRUE(portfolio->holdings().last()->isPaper());
    EXPECT_TRUE(portfolio->isEdited());
}

// Names in an own-format file stand for a person only when exactly one person of the store has them.
TEST_F(CsvImport, NamesMatchingOnePersonAreKept)
{
    const PersonRef ann = people.person(QStringLiteral("Ann"), QStringLiteral("Smith"));
    people.person(QStringLiteral("Bob"), QStringLiteral("Jones"));
    people.person(QStringLiteral("Bob"), QStringLiteral("Jones"));
    const CsvImportOutcome outcome = import("Bond Series,Quantity,Issue Date,Face Value,Owner,Co-owner,Beneficiary\n"
                                            "EE Bond,1,3/1995,100.00,Ann Smith,Bob Jones,\nEE Bond,1,3/1995,50.00,Ann Smith,,Ann Jones\n",
                                            CsvImportFormat::Own);
    ASSERT_EQ(outcome.importedCount, 2);
    EXPECT_EQ(outcome.unmatchedNames, 2);
    EXPECT_EQ(ExchangeAlerts::of(outcome).informative,
              QStringLiteral("2 name(s) matched no one person in your people and were left off the bonds."));
    for (const HoldingRef &bond : portfolio->holdings()) {
        ASSERT_TRUE(bond->owner());
        EXPECT_EQ(bond->owner()->uniqueId(), ann->uniqueId());
        EXPECT_FALSE(bond->coOwner() || bond->beneficiary());
    }
    EXPECT_EQ(portfolio->holdings().first()->owner(), portfolio->holdings().last()->owner());
    EXPECT_EQ(portfolio->titleHolders().size(), 1);
    portfolio->undoStack()->undo();
    EXPECT_TRUE(portfolio->holdings().isEmpty() && portfolio->titleHolders().isEmpty());
}

// A header of the other format is named as such, not counted as "Imported 0 out of 0 bonds".
TEST_F(CsvImport, AHeaderOfTheOtherFormatSaysSo)
{
    const CsvImportOutcome outcome = import(WizardHeader + "EE,100,Q100,03/1995\n", CsvImportFormat::Own);
    EXPECT_FALSE(outcome.succeeded);
    const ExchangeAlert alert = ExchangeAlerts::of(outcome);
    EXPECT_EQ(alert.title, QStringLiteral("Import file corrupt"));
    EXPECT_EQ(alert.message, QStringLiteral("The file you selected does not appear to be a CSV file produced by Quillmere.  "
                                            "Please verify your choice and try again."));
    EXPECT_EQ(alert.informative, QStringLiteral("Its columns are those of a Savings Bond Wizard file: import it as one."));
    EXPECT_TRUE(portfolio->holdings().isEmpty());
    EXPECT_FALSE(portfolio->isEdited());
}

TEST_F(CsvImport, HeaderWithoutUsableLinesStillCompletes)
{
    const CsvImportOutcome outcome = import("Denomination,Issue Date\r\n100,3/1995\r\n");
    ASSERT_TRUE(outcome.succeeded);
    EXPECT_EQ(ExchangeAlerts::of(outcome).message, QStringLiteral("Imported 0 out of 0 bonds. (HH/H bonds not supported)"));
    EXPECT_TRUE(portfolio->holdings().isEmpty());
    EXPECT_TRUE(portfolio->isEdited());
}
