// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Derived values yield to official ones and reach each new latest month; matured values fill months no file lists.
#include "PriceUpdateTestData.h"
#include "TestSupport.h"
#include "update/sources/MaturedBondCarryForward.h"

#include "base/Series.h"
#include "update/DerivedValues.h"
#include "update/OfficialSourceInstaller.h"
#include "valuation/BondAssessor.h"
#include "valuation/IBondRates.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace PriceUpdateTestData;

// December 2026 for I bonds of 2010: a month past the shipped database's latest.
const PriceRecord NewLatestMonth = record('I', 2026, 12, 2010, 4080);

class DerivedValuesTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(sqlite3_open(m_path.toUtf8().constData(), &m_db), SQLITE_OK); }
    void TearDown() override { sqlite3_close(m_db); }

    qint64 stored(char series, int iyr, int imo, int ryr, int rmo) const
    {
        return queryInt(m_path, QStringLiteral("select value from bond_value where series = '%1' and iyr = %2 and imo = %3"
                                               " and ryr = %4 and rmo = %5").arg(QLatin1Char(series)).arg(iyr).arg(imo).arg(ryr).arg(rmo));
    }
    bool derived(char series, int iyr, int imo, int ryr, int rmo) const
    {
        const BondTerms bond{Series::seriesForCode(QString(QLatin1Char(series))), Month(iyr, imo), 0, 1, {}};
        return BondAssessor(m_path).isDerivedValue(bond, Month(ryr, rmo));
    }
    // 12/2021 as official: carried E 1980 and EE 2005 values as they stand but one a cent higher, EE 01-04/2005 added.
    QList<PriceRecord> december() const
    {
        PriceRecord ee{'N', 12, 2021, 2005, {}};
        PriceRecord e{'E', 12, 2021, 1980, {}};
        for (int imo = 1; imo <= 12; ++imo) {
            ee.value[imo - 1] = imo < 5 ? 2000 : qint32(stored('N', 2005, imo, 2021, 12));
            e.value[imo - 1] = qint32(stored('E', 1980, imo, 2021, 12));
        }
        ee.value[4] += 1;
        return {ee, e};
    }
    void expectDecemberInstalled(const QString &differences) const
    {
        EXPECT_TRUE(differences.contains(QStringLiteral("EE Bond issued 2005-05, redeemed 2021-12: derived $22.20, official $22.21")))
            << differences.toStdString();
        EXPECT_EQ(stored('N', 2005, 5, 2021, 12), 2221);
        EXPECT_EQ(stored('N', 2005, 1, 2021, 12), 2000);
        EXPECT_FALSE(derived('N', 2005, 5, 2021, 12));
        EXPECT_FALSE(derived('E', 1980, 6, 2021, 12));
        EXPECT_TRUE(derived('N', 2005, 5, 2022, 1));
        EXPECT_TRUE(derived('E', 1980, 6, 2022, 1));
    }

    const QString m_path = TestSupport::copyOfShippedDatabase();
    sqlite3 *m_db = nullptr;
};

TEST_F(DerivedValuesTest, TheUpdaterReplacesDerivedValuesAndStillRefusesRepeatedOfficialOnes)
{
    ASSERT_EQ(stored('N', 2005, 5, 2021, 12), EeFixedRates::valueAt(350, 199));
    ASSERT_TRUE(derived('N', 2005, 5, 2021, 12));
    PriceDataInstaller installer(m_db);
    installer.setExtendsDerivedValues(true);
    ASSERT_TRUE(installer.updatePricingDataWithData(PriceDataFile::encode(december()), QStringLiteral("sb202112.bin")))
        << installer.lastError().toStdString();
    ASSERT_EQ(installer.derivedDifferences().size(), 1);
    expectDecemberInstalled(DerivedValues::describe(installer.derivedDifferences().first()));

    EXPECT_FALSE(installer.updatePricingDataWithData(PriceDataFile::encode(december()), QStringLiteral("again.bin")));
    EXPECT_EQ(queryInt(m_path, QStringLiteral("select count(*) from data_file where name = 'again.bin'")), 0);
}

TEST_F(DerivedValuesTest, InstallTreasuryFileReplacesDerivedValuesAndReportsTheDifference)
{
    const OfficialSourceInstaller::Outcome outcome = OfficialSourceInstaller::install(m_db, {QStringLiteral("sb202112.asc"), december()});
    ASSERT_TRUE(outcome.ok()) << outcome.error.toStdString();
    EXPECT_EQ(outcome.replacedDerivedValues, 8 + 6); // E bonds were issued until June 1980
    expectDecemberInstalled(outcome.derivedDifferences);
}

// Every installation carries matured bonds and computes fixed-rate EE bonds into the new months.
TEST_F(DerivedValuesTest, ANewLatestMonthGetsItsDerivedValues)
{
    PriceDataInstaller installer(m_db);
    installer.setExtendsDerivedValues(true);
    ASSERT_TRUE(installer.updatePricingDataWithData(PriceDataFile::encode({NewLatestMonth}), QStringLiteral("sb202612.bin")));
    // 217 EE issue months with a confirmed rate, 88 Series I months past 12/2026 (not 2010's, made up here).
    EXPECT_EQ(installer.derivedExtension().computed, 305);
    // The latest month stays the latest official one: Series I values past it are a forecast.
    ASSERT_TRUE(installer.updateRedemptionDateSummaryTables(nullptr, nullptr, false));
    EXPECT_EQ(queryText(m_path, QStringLiteral("select ryr * 100 + rmo from max_rdate")), QStringLiteral("202612"));
    EXPECT_EQ(stored('N', 2005, 5, 2026, 12), EeFixedRates::valueAt(350, 259));
    EXPECT_EQ(stored('E', 1980, 6, 2026, 12), 11175);
    EXPECT_TRUE(derived('N', 2005, 5, 2026, 12));
    EXPECT_TRUE(derived('E', 1980, 6, 2026, 12));
}

// A blank-cell row of 2090 does not drag derived values along; Series I ones reach the end of their rate period.
TEST_F(DerivedValuesTest, DerivedValuesStopAtTheLatestOfficialMonthButSeriesIGoesOnToItsPeriodsEnd)
{
    ASSERT_EQ(sqlite3_exec(m_db, "insert into bond_value values ('E', 2090, 1, 1980, 1, -2)", nullptr, nullptr, nullptr), SQLITE_OK);
    DerivedValues::Extension added;
    QString error;
    sqlite3_exec(m_db, "begin", nullptr, nullptr, nullptr);
    ASSERT_TRUE(DerivedValues::extend(m_db, EeFixedRates::shipped(), &added, &error)) << error.toStdString();
    sqlite3_exec(m_db, "commit", nullptr, nullptr, nullptr);
    // The shipped Series I values reach 11/2026; the May 2026 rates reach periods starting by 10/2026.
    EXPECT_EQ(queryText(m_path, QStringLiteral("select max(ryr * 100 + rmo) from derived_value where series <> 'I'")),
              QStringLiteral("202611"));
    EXPECT_EQ(queryText(m_path, QStringLiteral("select max(ryr * 100 + rmo) from derived_value")), QStringLiteral("202705"));
    EXPECT_EQ(stored('I', 2020, 10, 2027, 3), *IBondRates::valueAt(2020 * 12 + 9, 2027 * 12 + 2));
    EXPECT_EQ(stored('I', 2020, 12, 2026, 12), *IBondRates::valueAt(2020 * 12 + 11, 2026 * 12 + 11));
    EXPECT_FALSE(derived('I', 2020, 12, 2027, 1)); // its period from 12/2026 needs the November 2026 rate
    EXPECT_EQ(stored('E', 1980, 6, 2026, 11), 11175);
}

// A record without data but for the given issue months.
PriceRecord record(char series, int ryr, int rmo, int iyr, std::initializer_list<std::pair<int, qint32>> values)
{
    PriceRecord r = PriceUpdateTestData::record(series, ryr, rmo, iyr);
    for (auto [month, value] : values)
        r.value[month - 1] = value;
    return r;
}

struct Maturity { char series; int issueYear, issueMonth, months; };

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
    return {{QStringLiteral("early.asc"), {record('E', 1992, 5, 1941, {{5, 9059}, {6, 9000}, {7, 0}})}},
            {QStringLiteral("later.asc"), {record('E', 1992, 8, 1941, {{5, laterValue}, {6, 9000}, {7, 0}})}},
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
        EXPECT_EQ(r.value[6], -2); // a zero is no value to carry forward
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
    QList<int> months;
    for (const PriceRecord &r : result.records) {
        // Only November 1991 is known to have matured; December's final value is unknown.
        EXPECT_EQ(r.value[10], 6000);
        EXPECT_EQ(r.value[11], -2);
        months << r.ryr * 100 + r.rmo;
    }
    EXPECT_EQ(months, (QList<int>{202112, 202201}));
}
