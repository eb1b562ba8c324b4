// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PriceUpdateTestData.h"
#include "TestSupport.h"

#include "update/sources/SeedDatabaseBuilder.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"

#include <QDir>
#include <gtest/gtest.h>

using PriceUpdateTestData::queryText;

QString writeFile(const QString &dir, const QString &name, const QByteArray &content)
{
    return TestSupport::writeFile(dir + QLatin1Char('/') + name, content);
}

// Two months of one matured E bond, with March missing between them, and a later I month.
struct SmallSources
{
    QString dir = TestSupport::temporaryDirectory();
    QString february = writeFile(dir, QStringLiteral("sb199502.asc"), "E1995021941      009059\r\n");
    QString april = writeFile(dir, QStringLiteral("sb199504.asc"), "E1995041941      009059\r\n");
    QString csv = writeFile(dir, QStringLiteral("values.csv"),
                            "series,redemption_year,redemption_month,issue_year,issue_month,value\nI,1995,6,1995,1,-1\n");
};

TEST(SeedDatabaseBuilder, InstallsEachSourceThenTheCarryForward)
{
    const SmallSources sources;
    const QString out = sources.dir + QStringLiteral("/out/bondvalues.bvdb");
    QString error;
    SeedDatabaseBuilder::Summary summary;
    ASSERT_TRUE(SeedDatabaseBuilder::build(out, {sources.february, sources.april, sources.csv}, &error, &summary)) << error.toStdString();
    EXPECT_EQ(summary.values, 6 * 12); // three official records; March, May and June carried
    EXPECT_EQ(summary.firstMonth, QStringLiteral("1995-02"));
    EXPECT_EQ(summary.lastMonth, QStringLiteral("1995-06"));
    EXPECT_EQ(queryText(out, QStringLiteral("pragma journal_mode")), QStringLiteral("delete"));
    EXPECT_EQ(QDir(sources.dir + QStringLiteral("/out")).entryList(QDir::Files), QStringList{QStringLiteral("bondvalues.bvdb")});

    const BondAssessor assessor(out);
    EXPECT_EQ(assessor.installedFiles(), QStringList({QStringLiteral("sb199502.asc"), QStringLiteral("sb199504.asc"),
                                                      QStringLiteral("values.csv"), QStringLiteral("matured-carry-forward")}));
    const BondTerms bond{Series::seriesForCode(QStringLiteral("E")), Month(1941, 2), 2500, 1, {}};
    for (int month = 2; month <= 6; ++month)
        EXPECT_EQ(assessor.valueOf(bond, Month(1995, month)), 9059) << month;
}
