#include "TestSupport.h"

#include "update/sources/FiscalDataCsv.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/PriceSource.h"
#include "update/sources/TreasuryValueFile.h"

#include <QDate>
#include <gtest/gtest.h>

namespace {

using Values = std::array<qint32, 12>;

// Values, "NO PAY" markers (-1) and blank fields (-2); a line of blank fields gives no record, a
// short line leaves the months after it blank, and line endings do not matter.
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

struct Malformed
{
    const char *line;
    const char *complaint;
};

class TreasuryRefusal : public testing::TestWithParam<Malformed> {};

TEST_P(TreasuryRefusal, NamesFileAndLine)
{
    const QByteArray data = "E2021061980011062011062\r\n" + QByteArray(GetParam().line) + "\r\nE2021061981011062\r\n";
    const PriceSourceContents read = TreasuryValueFile::read(data, QStringLiteral("sb202106.asc"));
    EXPECT_TRUE(read.records.isEmpty());
    EXPECT_TRUE(read.error.startsWith(QStringLiteral("sb202106.asc:2: "))) << read.error.toStdString();
    EXPECT_TRUE(read.error.contains(QLatin1String(GetParam().complaint))) << read.error.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Lines, TreasuryRefusal,
    testing::Values(Malformed{"X2021061980011062", "bad series letter 'X'"},
                    Malformed{"e2021061980011062", "bad series letter 'e'"},
                    Malformed{"E2021131980011062", "bad redemption month '13'"},
                    Malformed{"E2021001980011062", "bad redemption month '00'"},
                    Malformed{"E20210619x0011062", "bad issue year"},
                    Malformed{"E2021061980011062011O62", "non-numeric value '011O62' for issue month February"},
                    Malformed{"E2021061980-01106", "non-numeric value '-01106'"},
                    Malformed{"E202106", "short line"},
                    Malformed{"E20210619800110", "cut short"},
                    Malformed{"E2021061980011062011062011062011062011062011062011062011062011062011062011062011062X", "longer than"},
                    Malformed{"E2021062022011062", "issue year 2022 is after redemption year 2021"},
                    Malformed{"E7021061980011062", "redemption year 7021 is beyond next year"},
                    Malformed{"E2021061980000001", "repeats the series, redemption month and issue year of line 1"}));

QByteArray csv(const QByteArray &rows)
{
    return "series,redemption_year,redemption_month,issue_year,issue_month,value\n" + rows;
}

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

TEST(FiscalDataCsv, ColumnsMayComeInAnyOrder)
{
    const QByteArray data = "value,issue_month,issue_year,redemption_month,redemption_year,series\n2529,9,1998,3,1999,I\n";
    const PriceSourceContents read = FiscalDataCsv::read(data, QStringLiteral("v.csv"));
    ASSERT_EQ(read.records.size(), 1) << read.error.toStdString();
    EXPECT_EQ(read.records.at(0).ryr, 1999);
    EXPECT_EQ(read.records.at(0).value[8], 2529);
}

class CsvRefusal : public testing::TestWithParam<Malformed> {};

TEST_P(CsvRefusal, NamesFileAndLine)
{
    const PriceSourceContents read = FiscalDataCsv::read(csv("I,2026,10,2010,1,4071\n" + QByteArray(GetParam().line) + "\n"),
                                                         QStringLiteral("values.csv"));
    EXPECT_TRUE(read.records.isEmpty());
    EXPECT_TRUE(read.error.startsWith(QStringLiteral("values.csv:3: "))) << read.error.toStdString();
    EXPECT_TRUE(read.error.contains(QLatin1String(GetParam().complaint))) << read.error.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Lines, CsvRefusal,
                         testing::Values(Malformed{"Q,2026,10,2010,2,4071", "bad series letter 'Q'"},
                                         Malformed{"I,2026,13,2010,2,4071", "bad redemption_month 13"},
                                         Malformed{"I,2026,10,2010,0,4071", "bad issue_month 0"},
                                         Malformed{"I,2026,10,2010,2,40.71", "non-numeric value '40.71'"},
                                         Malformed{"I,2026,10,2010,2", "short line"},
                                         Malformed{"I,2026,10,2010,1,4072", "repeats the value of line 2"},
                                         Malformed{"I,2026,10,2010,2,-7", "out of range"},
                                         Malformed{"I,7021,10,2010,2,4071", "redemption_year 7021 is beyond next year"}));

// Values are published a few months ahead, so next year is the last a source may reach; a later
// year is damage, and would have the carry-forward fill every month up to it.
TEST(PriceSources, RedemptionYearsReachNextYearAtMost)
{
    const int nextYear = QDate::currentDate().year() + 1;
    for (const int year : {nextYear, nextYear + 1}) {
        SCOPED_TRACE(year);
        const QByteArray asc = QByteArray("I") + QByteArray::number(year) + "012001002900\r\n";
        const QByteArray fiscal = csv("I," + QByteArray::number(year) + ",1,2001,1,2900\n");
        for (const PriceSourceContents &read : {TreasuryValueFile::read(asc, QStringLiteral("a.asc")),
                                                FiscalDataCsv::read(fiscal, QStringLiteral("v.csv"))}) {
            EXPECT_EQ(read.ok(), year == nextYear) << read.error.toStdString();
            EXPECT_EQ(read.records.size(), year == nextYear ? 1 : 0);
        }
    }
}

TEST(FiscalDataCsv, RefusesAHeaderWithoutTheNeededColumns)
{
    const PriceSourceContents read = FiscalDataCsv::read("series,year,month\nI,2026,10\n", QStringLiteral("x.csv"));
    EXPECT_EQ(read.error, QStringLiteral("x.csv:1: the header lacks the column 'redemption_year'"));
}

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

TEST(RepositorySources, HoldTheOfficialValuesCountedInTheirNotes)
{
    QList<NamedPriceRecords> sources;
    QString error;
    ASSERT_TRUE(PriceSource::readFiles(TestSupport::repositorySources(), &sources, &error)) << error.toStdString();
    ASSERT_EQ(sources.size(), 60);
    EXPECT_EQ(sources.first().name, QStringLiteral("sb199205.asc"));
    qint64 values = 0;
    qint64 csvValues = 0;
    for (const NamedPriceRecords &source : sources) {
        for (const PriceRecord &record : source.records) {
            const qint64 count = std::count_if(record.value.begin(), record.value.end(), [](qint32 v) { return v != -2; });
            values += count;
            if (source.name.endsWith(QLatin1String(".csv")))
                csvValues += count;
        }
    }
    EXPECT_EQ(values, 350446);
    EXPECT_EQ(csvValues, 18807);
}

} // namespace
