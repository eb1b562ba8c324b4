#include "../core/QtPrinters.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

QStringList environment()
{
    static const QString database = TestSupport::copyOfShippedDatabase();
    return {QStringLiteral("QUILLMERE_DATABASE=") + database,
            QStringLiteral("QUILLMERE_PEOPLE=") + TestSupport::sourcePath(QStringLiteral("examples/people.vcf"))};
}

QString sample() { return TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio")); }

TEST(CliShow, SampleShowsItsPeopleFiguresAndSummary)
{
    const auto result = TestSupport::runCli({"show", sample(), "--as-of", "2021-11"}, environment());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.constData();
    const QString out = QString::fromUtf8(result.standardOutput);
    EXPECT_TRUE(out.contains(QStringLiteral("Margaret Whitfield OR Thomas Whitfield")));
    EXPECT_TRUE(out.contains(QStringLiteral("Thomas Whitfield POD Eleanor Whitfield")));
    // EE issued January 1990, $100 face, two bonds: $51.84 per $25 in November 2021.
    EXPECT_TRUE(out.contains(QStringLiteral("$414.72")));
    EXPECT_TRUE(out.contains(QStringLiteral("[no pricing data]")));
}

TEST(CliShow, JsonHasTheOfficialValuesInPennies)
{
    const auto result = TestSupport::runCli({"show", sample(), "--as-of", "2021-11", "--yearly", "--json"}, environment());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.constData();
    const QJsonObject root = QJsonDocument::fromJson(result.standardOutput).object();
    EXPECT_EQ(root.value("valueOfDate").toString(), QStringLiteral("2021-11"));
    EXPECT_EQ(root.value("summaryMode").toString(), QStringLiteral("yearly"));
    // The official November 2021 values per $25: EE 1990-01 $51.84 (two $100 bonds), EE 2005-05
    // $22.14 (four $50 electronic bonds, worth twice), E 1980-06 $111.75, I 2010-01 $32.26 (one
    // $1000 bond), I 1998-09 $89.63 (two $50 bonds), Savings Note 1967-05 $153.33 ($50); then an I
    // bond of a month before the series and one not issued yet, worth nothing.
    const QList<qint64> values{5184 * 4 * 2, 2214 * 2 * 2 * 4, 11175, 3226 * 40, 8963 * 2 * 2, 15333 * 2, 0, 0};
    const QJsonArray holdings = root.value("holdings").toArray();
    ASSERT_EQ(holdings.size(), values.size());
    for (qsizetype i = 0; i < values.size(); ++i)
        EXPECT_EQ(holdings.at(i).toObject().value("value").toInteger(), values.at(i)) << "holding " << i;
    EXPECT_EQ(holdings.at(0).toObject().value("interestEarned").toInteger(), 41472 - 2 * 5000);
    EXPECT_EQ(root.value("totals").toObject().value("value").toInteger(), 283629);
}

TEST(CliShow, RefusesWhatItCannotShow)
{
    const QString junk = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/junk.bondportfolio"),
                                                "not a portfolio at all");
    struct Case { QStringList arguments; const char *message; };
    const Case cases[] = {
        {{"show", junk}, "portfolio"},
        {{"show", sample(), "--as-of", "1850-01"}, "No pricing data available for bonds with that valuation date"},
        {{"show", sample(), "--as-of", "2021-13"}, "YYYY-MM"},
        {{"show"}, "portfolio"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const auto result = TestSupport::runCli(c.arguments, environment());
        EXPECT_NE(result.exitCode, 0);
        EXPECT_TRUE(QString::fromUtf8(result.standardError).contains(QString::fromLatin1(c.message)))
            << result.standardError.constData();
    }
}

TEST(CliMakeSample, WritesTheCommittedExampleAgain)
{
    const QString folder = TestSupport::temporaryDirectory();
    const auto result = TestSupport::runCli({"make-sample", folder}, environment());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.constData();
    for (const char *name : {"people.vcf", "sample.bondportfolio"}) {
        SCOPED_TRACE(name);
        const QByteArray made = TestSupport::readFile(folder + u'/' + QString::fromLatin1(name));
        EXPECT_FALSE(made.isEmpty());
        EXPECT_EQ(made, TestSupport::readFile(TestSupport::sourcePath(QStringLiteral("examples/") + QString::fromLatin1(name))));
    }
}

} // namespace
