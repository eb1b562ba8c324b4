#include "exchange/CsvFieldText.h"
#include "model/Series.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

struct SeriesCase
{
    const char *text;
    const char *code; // nullptr: no series
};

class CsvSeriesText : public ::testing::TestWithParam<SeriesCase>
{
};

TEST_P(CsvSeriesText, PrefixNamesTheSeries)
{
    const Series *expected = GetParam().code ? Series::seriesForCode(QLatin1String(GetParam().code)) : nullptr;
    EXPECT_EQ(SeriesCsv::seriesForCSVCode(QLatin1String(GetParam().text)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvSeriesText,
    ::testing::Values(SeriesCase{"EE Bond", "N"}, SeriesCase{"EE", "N"}, SeriesCase{"E Bond", "E"}, SeriesCase{"E", "E"},
                      SeriesCase{"Ex", "E"}, SeriesCase{"I Bond", "I"}, SeriesCase{"I", "I"}, SeriesCase{"Savings Note", "S"},
                      SeriesCase{"SN", "S"}, SeriesCase{"H", nullptr}, SeriesCase{"HH", nullptr}, SeriesCase{"ee", nullptr},
                      SeriesCase{"e", nullptr}, SeriesCase{"", nullptr}, SeriesCase{" EE", nullptr}, SeriesCase{"N", nullptr},
                      SeriesCase{"\"EE Bond\"", nullptr}));

struct NumberCase
{
    const char *text;
    qint64 expected;
};

class CsvIntegerText : public ::testing::TestWithParam<NumberCase>
{
};

TEST_P(CsvIntegerText, ReadsLeadingDigits)
{
    EXPECT_EQ(CsvField::integerValue(QString::fromLatin1(GetParam().text)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvIntegerText,
    ::testing::Values(NumberCase{"12", 12}, NumberCase{"  \t7", 7}, NumberCase{"-3", -3}, NumberCase{"+4", 4},
                      NumberCase{"12abc", 12}, NumberCase{"abc", 0}, NumberCase{"", 0}, NumberCase{"-", 0},
                      NumberCase{"1 2", 1}, NumberCase{"$5", 0}, NumberCase{"2147483647", 2147483647},
                      NumberCase{"2147483648", 2147483647}, NumberCase{"99999999999999999999", 2147483647},
                      NumberCase{"-2147483648", std::numeric_limits<qint32>::min()},
                      NumberCase{"-99999999999", std::numeric_limits<qint32>::min()}));

class CsvFaceValueText : public ::testing::TestWithParam<NumberCase>
{
};

TEST_P(CsvFaceValueText, DollarsToPennies)
{
    EXPECT_EQ(CsvField::faceValue(QString::fromLatin1(GetParam().text)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvFaceValueText,
    ::testing::Values(NumberCase{"100", 10000}, NumberCase{"50.50", 5050},
                      // The second piece is added as it stands, not scaled by its digits.
                      NumberCase{"50.5", 5005}, NumberCase{"100.05", 10005}, NumberCase{"10.123", 1123},
                      NumberCase{"1.2.3", 100}, NumberCase{".75", 75}, NumberCase{"$50.00", 0}, NumberCase{"\"50\"", 0},
                      NumberCase{"", 0}, NumberCase{"-5.25", -475},
                      NumberCase{"21474836.47", 2147483647},
                      // Whole dollars are scaled in 32 bits: 2,147,483,700 wraps to -2,147,483,596.
                      NumberCase{"21474837", -2147483596}, NumberCase{"21474837.50", -2147483546},
                      NumberCase{"42949673", 4}, NumberCase{"0.2147483647", 2147483647},
                      NumberCase{"21474836.99999999999", 2147483600LL + 2147483647LL}));

struct DateCase
{
    const char *text;
    int year; // 0: no date
    int month;
};

class CsvIssueDateText : public ::testing::TestWithParam<DateCase>
{
};

TEST_P(CsvIssueDateText, MonthSlashYear)
{
    const QDateTime parsed = CsvField::issueMonth(QString::fromLatin1(GetParam().text));
    if (!GetParam().year) {
        EXPECT_FALSE(parsed.isValid());
        return;
    }
    EXPECT_EQ(parsed, QDateTime(QDate(GetParam().year, GetParam().month, 1), QTime(0, 0), Qt::LocalTime));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvIssueDateText,
    ::testing::Values(DateCase{"3/1995", 1995, 3}, DateCase{"03/1995", 1995, 3}, DateCase{"12/2001", 2001, 12},
                      DateCase{" 7/1980 ", 1980, 7}, DateCase{"13/1995", 0, 0}, DateCase{"0/1995", 0, 0},
                      DateCase{"0/0", 0, 0}, DateCase{"3/95", 0, 0}, DateCase{"1995", 0, 0}, DateCase{"3-1995", 0, 0},
                      DateCase{"3/1995x", 0, 0}, DateCase{"003/1995", 0, 0}, DateCase{"3/01/1995", 0, 0},
                      DateCase{"\"3/1995\"", 0, 0}, DateCase{"", 0, 0}));

} // namespace
