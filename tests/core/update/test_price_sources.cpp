// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSupport.h"

#include "update/sources/FiscalDataCsv.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/PriceSource.h"
#include "update/sources/TreasuryValueFile.h"

#include <QDate>
#include <gtest/gtest.h>

using Values = std::array<qint32, 12>;

// Values, NO PAY (-1), blanks (-2); a blank line gives no record, a short one blank months, any line ending.
TEST(TreasuryValueFile, ReadsValuesMarkersAndBlanks)
{
    const QByteArray crlf = "E2021061980011062011062011062011062011175010997      NO PAY\r\n"
                            "N2016062016NO PAYNO PAY\r\nI2021061997                  \r\n\r\nS2000101967000000015333\r\n";
    QByteArray lf = crlf;
    lf.replace("\r\n", "\n");
    const PriceSourceContents read = TreasuryValueFile::read(crlf, QStringLiteral("sb202106.asc"));
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(TreasuryValueFile::read(lf, QStringLiteral("b.asc")).records, read.records);
    ASSERT_EQ(read.records.size(), 3);
    const PriceRecord &e = read.records.at(0);
    EXPECT_EQ(std::make_tuple(e.series, e.ryr, e.rmo, e.iyr), std::make_tuple('E', quint16(2021), quint8(6), quint16(1980)));
    EXPECT_EQ(e.value, (Values{11062, 11062, 11062, 11062, 11175, 10997, -2, -1, -2, -2, -2, -2}));
    EXPECT_EQ(read.records.at(1).value, (Values{-1, -1, -2, -2, -2, -2, -2, -2, -2, -2, -2, -2}));
    EXPECT_EQ(read.records.at(2).value, (Values{0, 15333, -2, -2, -2, -2, -2, -2, -2, -2, -2, -2}));
}

QByteArray csv(const QByteArray &rows) { return "series,redemption_year,redemption_month,issue_year,issue_month,value\n" + rows; }

TEST(FiscalDataCsv, GroupsCellsIntoRecordsAndFillsMissingMonths)
{
    const QByteArray data = csv("I,2026,10,2010,1,4071\r\nI,2026,10,2010,3,4040\r\nI,2026,10,2011,1,3900\r\n"
                                "I,2026,6,2026,1,-1\r\n\"I\",2026,10,2010,2,4060\r\n");
    const PriceSourceContents read = FiscalDataCsv::read(data, QStringLiteral("values.csv"));
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    ASSERT_EQ(read.records.size(), 3);
    EXPECT_EQ(read.records.at(0).iyr, 2010);
    EXPECT_EQ(read.records.at(0).value, (Values{4071, 4060, 4040, -2, -2, -2, -2, -2, -2, -2, -2, -2}));
    EXPECT_EQ(read.records.at(1).iyr, 2011);
    EXPECT_EQ(read.records.at(2).rmo, 6);
    EXPECT_EQ(read.records.at(2).value[0], -1);
}

// A bad line after a good one, in a Treasury file or a Fiscal Data CSV file.
struct Malformed { bool csv; const char *line, *complaint; };

class SourceRefusal : public testing::TestWithParam<Malformed> {};

TEST_P(SourceRefusal, NamesFileAndLine)
{
    const QByteArray line(GetParam().line);
    const PriceSourceContents read =
        GetParam().csv ? FiscalDataCsv::read(csv("I,2026,10,2010,1,4071\n" + line + "\n"), QStringLiteral("values.csv"))
                       : TreasuryValueFile::read("E2021061980011062011062\r\n" + line + "\r\nE2021061981011062\r\n",
                                                 QStringLiteral("sb202106.asc"));
    EXPECT_TRUE(read.records.isEmpty());
    const QLatin1String where(GetParam().csv ? "values.csv:3: " : "sb202106.asc:2: ");
    EXPECT_TRUE(read.error.startsWith(where)) << read.error.toStdString();
    EXPECT_TRUE(read.error.contains(QLatin1String(GetParam().complaint))) << read.error.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SourceRefusal,
    testing::Values(Malformed{false, "X2021061980011062", "bad series letter 'X'"},
                    Malformed{false, "E2021131980011062", "bad redemption month '13'"},
                    Malformed{false, "E20210619x0011062", "bad issue year"},
                    Malformed{false, "E2021061980011062011O62", "non-numeric value '011O62' for issue month February"},
                    Malformed{false, "E202106", "short line"},
                    Malformed{false, "E2021062022011062", "issue year 2022 is after redemption year 2021"},
                    Malformed{false, "E2021061980000001", "repeats the series, redemption month and issue year of line 1"},
                    Malformed{true, "Q,2026,10,2010,2,4071", "bad series letter 'Q'"},
                    Malformed{true, "I,2026,13,2010,2,4071", "bad redemption_month 13"},
                    Malformed{true, "I,2026,10,2010,0,4071", "bad issue_month 0"},
                    Malformed{true, "I,2026,10,2010,2", "short line"},
                    Malformed{true, "I,2026,10,2010,1,4072", "repeats the value of line 2"}));

TEST(PriceSource, ChoosesTheReaderByNameOrContent)
{
    EXPECT_EQ(PriceSource::kindOf(QStringLiteral("sb202106.asc"), {}), PriceSource::Kind::TreasuryValueFile);
    EXPECT_EQ(PriceSource::kindOf(QStringLiteral("x.CSV"), {}), PriceSource::Kind::FiscalDataCsv);
    EXPECT_EQ(PriceSource::kindOf(QStringLiteral("download"), csv("")), PriceSource::Kind::FiscalDataCsv);
    EXPECT_EQ(PriceSource::kindOf(QStringLiteral("download"), "\r\nE2021061980011062\r\n"), PriceSource::Kind::TreasuryValueFile);
    EXPECT_EQ(PriceSource::kindOf(QStringLiteral("download"), "<html>"), PriceSource::Kind::Unknown);
    EXPECT_FALSE(PriceSource::readData("<html>", QStringLiteral("download")).ok());
    const PriceSourceContents missing = PriceSource::readFile(QStringLiteral("/nonexistent/sb202106.asc"));
    EXPECT_TRUE(missing.error.startsWith(QStringLiteral("/nonexistent/sb202106.asc: cannot be read"))) << missing.error.toStdString();
}
