// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Matured bonds keep their final value: carried into months no official file lists, never over one.
#include "PriceUpdateTestData.h"
#include "update/sources/MaturedBondCarryForward.h"

#include <gtest/gtest.h>

// A record without data but for the given issue months.
PriceRecord record(char series, int ryr, int rmo, int iyr, std::initializer_list<std::pair<int, qint32>> values)
{
    PriceRecord r = PriceUpdateTestData::record(series, ryr, rmo, iyr);
    for (auto [month, value] : values)
        r.value[month - 1] = value;
    return r;
}

struct Maturity
{
    char series;
    int issueYear, issueMonth, months;
};

class FinalMaturity : public testing::TestWithParam<Maturity> {};

TEST_P(FinalMaturity, DependsOnSeriesAndIssueMonth)
{
    const Maturity m = GetParam();
    EXPECT_EQ(MaturedBondCarryForward::monthsToFinalMaturity(m.series, m.issueYear, m.issueMonth), m.months);
}

INSTANTIATE_TEST_SUITE_P(Rules, FinalMaturity,
                         testing::Values(Maturity{'E', 1941, 5, 480}, Maturity{'E', 1965, 11, 480}, Maturity{'E', 1965, 12, 360},
                                         Maturity{'E', 1980, 6, 360}, Maturity{'N', 1990, 1, 360}, Maturity{'S', 1967, 5, 360}));

// An E bond of 05/1941 (matured 05/1981) in two months with a gap; another source reaches two months further.
QList<NamedPriceRecords> eBondSources(qint32 laterValue = 9059)
{
    return {{QStringLiteral("early.asc"), {record('E', 1992, 5, 1941, {{5, 9059}, {6, 9000}})}},
            {QStringLiteral("later.asc"), {record('E', 1992, 8, 1941, {{5, laterValue}, {6, 9000}})}},
            {QStringLiteral("i.csv"), {record('I', 1992, 10, 1992, {{1, -1}})}}};
}

// Months 5 and 8 have official records and must not be derived again.
TEST(MaturedBondCarryForward, FillsGapsAndMonthsAfterTheLastOfficialOne)
{
    const MaturedBondCarryForward::Result result = MaturedBondCarryForward::compute(eBondSources());
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
    QList<int> months;
    for (const PriceRecord &r : result.records) {
        EXPECT_EQ(r.series, 'E');
        EXPECT_EQ(r.iyr, 1941);
        EXPECT_EQ(r.value[4], 9059);
        EXPECT_EQ(r.value[5], 9000);
        EXPECT_EQ(r.value[0], -2); // never issued: stays without data
        months << r.ryr * 100 + r.rmo;
    }
    EXPECT_EQ(months, (QList<int>{199206, 199207, 199209, 199210}));
}

TEST(MaturedBondCarryForward, CarriesOnlyBondsThatMatureWithinTheData)
{
    // EE of 11 and 12/1991 mature in 11 and 12/2021; EE data ends 11/2021, I data goes on to 01/2022.
    const QList<NamedPriceRecords> sources = {
        {QStringLiteral("sb202111.asc"), {record('N', 2021, 11, 1991, {{11, 6000}, {12, 5900}})}},
        {QStringLiteral("i.csv"), {record('I', 2022, 1, 2021, {{1, 2600}})}}};
    const MaturedBondCarryForward::Result result = MaturedBondCarryForward::compute(sources);
    ASSERT_TRUE(result.ok());
    ASSERT_EQ(result.records.size(), 2);
    EXPECT_EQ(result.records.at(0).ryr * 100 + result.records.at(0).rmo, 202112);
    EXPECT_EQ(result.records.at(1).ryr * 100 + result.records.at(1).rmo, 202201);
    for (const PriceRecord &r : result.records) {
        // Only November 1991 is known to have matured; December's final value is unknown.
        EXPECT_EQ(r.value[10], 6000);
        EXPECT_EQ(r.value[11], -2);
    }
}
