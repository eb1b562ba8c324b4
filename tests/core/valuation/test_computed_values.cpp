// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSupport.h"

#include "valuation/EeFixedRates.h"
#include "update/sources/PriceSource.h"
#include "valuation/IBondRates.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

QString monthText(int index) { return QString::asprintf("%04d-%02d", index / 12, index % 12 + 1); }

// Every official EE value of the fixed-rate issue months (05/2005 to 11/2020) comes out of the rate table to the cent.
TEST(EeFixedRates, ReproduceEveryOfficialValueOfTheFixedRateIssueMonths)
{
    const EeFixedRates::Table &rates = EeFixedRates::shipped();
    ASSERT_TRUE(rates.ok()) << rates.error.toStdString();
    QList<NamedPriceRecords> sources;
    QString error;
    ASSERT_TRUE(PriceSource::readFiles(TestSupport::repositorySources(), &sources, &error)) << error.toStdString();

    const int firstIssue = 2005 * 12 + 4, lastIssue = 2020 * 12 + 10;
    int prices = 0, markers = 0;
    for (const NamedPriceRecords &source : sources) {
        for (const PriceRecord &record : source.records) {
            if (record.series != 'N')
                continue;
            const int redemption = record.ryr * 12 + record.rmo - 1;
            for (int k = 0; k < 12; ++k) {
                const int issue = record.iyr * 12 + k;
                const qint32 official = record.value[k];
                if (issue < firstIssue || issue > lastIssue || official == -2)
                    continue;
                const std::optional<int> rate = rates.basisPointsFor(issue);
                ASSERT_TRUE(rate) << "no rate for " << monthText(issue).toStdString();
                ASSERT_EQ(EeFixedRates::valueAt(*rate, redemption - issue), official)
                    << "EE issued " << monthText(issue).toStdString() << ", redeemed " << monthText(redemption).toStdString()
                    << " (" << source.name.toStdString() << ")";
                official > 0 ? ++prices : ++markers;
            }
        }
    }
    EXPECT_EQ(prices, 17578);
    EXPECT_EQ(markers, 2244);
}

// Not yet in Treasury files: final maturity, and face value at twenty years where 3.20 % (11/2005) did not double it.
TEST(EeFixedRates, FaceValueAtTwentyYearsAndNoGrowthAfterThirty)
{
    EXPECT_EQ(EeFixedRates::valueAt(320, 239), 2352);
    EXPECT_EQ(EeFixedRates::valueAt(320, 240), 2500);
    EXPECT_GT(EeFixedRates::valueAt(370, 240), 2500); // doubled by its rate alone
    EXPECT_EQ(EeFixedRates::valueAt(320, 361), EeFixedRates::valueAt(320, 360));
    EXPECT_GT(EeFixedRates::valueAt(320, 360), EeFixedRates::valueAt(320, 359));
}

struct BadTable { const char *text, *message; };

class EeFixedRateTableRefusal : public testing::TestWithParam<BadTable> {};

TEST_P(EeFixedRateTableRefusal, NamesTheLine)
{
    const QByteArray header = "first_issue_month,last_issue_month,fixed_rate_percent\n2005-05,2005-10,3.50\n";
    const EeFixedRates::Table table = EeFixedRates::read(header + GetParam().text, QStringLiteral("rates.csv"));
    EXPECT_TRUE(table.ranges.isEmpty());
    EXPECT_EQ(table.error, QString::fromLatin1(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, EeFixedRateTableRefusal,
    testing::Values(BadTable{"2005-10,2006-04,3.20\n", "rates.csv:3: each range must begin after the previous one ends"},
                    BadTable{"2005-11,2005-13,3.20\n", "rates.csv:3: months must be YYYY-MM, the first not after the last"},
                    BadTable{"2005-11,2006-04,3.205\n", "rates.csv:3: the rate must be a percentage with at most two decimals"},
                    BadTable{"2005-11,2006-04\n", "rates.csv:3: 3 columns expected"}));


// Every shipped official Series I value comes out of the two rate tables to the cent; a difference names the bond.
TEST(IBondRates, ReproduceEveryOfficialSeriesIValue)
{
    ASSERT_TRUE(IBondRates::fixedRates().ok()) << IBondRates::fixedRates().error.toStdString();
    ASSERT_TRUE(IBondRates::inflationRates().ok()) << IBondRates::inflationRates().error.toStdString();
    QList<NamedPriceRecords> sources;
    QString error;
    ASSERT_TRUE(PriceSource::readFiles(TestSupport::repositorySources(), &sources, &error)) << error.toStdString();
    QSet<quint64> seen;
    int prices = 0, markers = 0;
    for (const NamedPriceRecords &source : sources) {
        for (const PriceRecord &record : source.records) {
            const int redemption = record.ryr * 12 + record.rmo - 1;
            for (int k = 0; k < 12 && record.series == 'I'; ++k) {
                const int issue = record.iyr * 12 + k;
                if (record.value[k] == -2 || seen.contains(quint64(issue) << 32 | quint32(redemption)))
                    continue;
                seen.insert(quint64(issue) << 32 | quint32(redemption));
                const std::optional<qint32> computed = IBondRates::valueAt(issue, redemption);
                ASSERT_EQ(computed.value_or(-3), record.value[k])
                    << "I issued " << monthText(issue).toStdString() << ", redeemed " << monthText(redemption).toStdString()
                    << " (" << source.name.toStdString() << ")";
                record.value[k] > 0 ? ++prices : ++markers;
            }
        }
    }
    EXPECT_EQ(prices, 53946);
    EXPECT_EQ(markers, 3663);
}

struct CompositeCase { int fixed, inflation, composite; };
class CompositeRate : public testing::TestWithParam<CompositeCase> {};

// The published composite rates, including the floor at zero (May 2009 and May 2015 deflation).
TEST_P(CompositeRate, IsTheTreasurysRounding)
{
    EXPECT_EQ(IBondRates::composite(GetParam().fixed, GetParam().inflation), GetParam().composite);
}

INSTANTIATE_TEST_SUITE_P(Announcements, CompositeRate,
                         testing::Values(CompositeCase{340, 62, 466}, CompositeCase{0, 481, 962}, CompositeCase{90, 156, 403},
                                         CompositeCase{0, -278, 0}, CompositeCase{0, -80, 0}, CompositeCase{10, -80, 0},
                                         CompositeCase{120, 124, 369}, CompositeCase{50, 77, 204}));

} // namespace
