// value and show tell computed figures from published ones, and point bonds without a value to
// the Treasury's newer files.
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

const QStringList &shipped()
{
    static const QStringList environment{QStringLiteral("QUILLMERE_DATABASE=") + TestSupport::copyOfShippedDatabase()};
    return environment;
}

struct Provenance
{
    const char *series;
    const char *issued;
    const char *asOf;
    const char *value;
    const char *remark; // nullptr: none of the two remarks
};

class CliValueProvenance : public testing::TestWithParam<Provenance>
{
};

TEST_P(CliValueProvenance, IsSaid)
{
    const Provenance &c = GetParam();
    const auto result = TestSupport::runCli({"value", "--series", c.series, "--face", "100", "--issued", c.issued, "--as-of", c.asOf},
                                            shipped());
    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    const QByteArray out = result.standardOutput;
    EXPECT_TRUE(out.contains(QByteArray("Value:           ") + c.value + '\n')) << out.toStdString();
    for (const char *remark : {"Computed:        computed by this program", "install-treasury-file"})
        EXPECT_EQ(out.contains(remark), c.remark && QByteArray(remark).startsWith(c.remark)) << remark << '\n' << out.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Bonds, CliValueProvenance,
    testing::Values(Provenance{"EE", "2005-05", "2021-11", "$88.56", nullptr},       // published
                    Provenance{"EE", "2005-05", "2026-11", "$105.36", "Computed"},   // from its fixed rate
                    Provenance{"E", "1980-06", "2026-11", "$447.00", "Computed"},    // matured, carried forward
                    Provenance{"EE", "1995-05", "2026-11", "no pricing data", "install-treasury-file"}));

TEST(CliShowProvenance, MarksComputedHoldingsInTextAndJson)
{
    const QString sample = TestSupport::sourcePath(QStringLiteral("examples/sample.bondportfolio"));
    const auto text = TestSupport::runCli({"show", sample, "--as-of", "2026-11"}, shipped());
    ASSERT_EQ(text.exitCode, 0) << text.standardError.toStdString();
    EXPECT_TRUE(text.standardOutput.contains("[computed] Thomas Whitfield POD Eleanor Whitfield")) << text.standardOutput.toStdString();
    EXPECT_TRUE(text.standardOutput.contains("\n([computed] computed by this program, not published by the Treasury"));

    const auto json = TestSupport::runCli({"show", sample, "--as-of", "2026-11", "--json"}, shipped());
    const QJsonArray holdings = QJsonDocument::fromJson(json.standardOutput).object().value(QStringLiteral("holdings")).toArray();
    QStringList computed;
    for (const QJsonValue &holding : holdings) {
        if (holding.toObject().value(QStringLiteral("computed")).toBool())
            computed << holding.toObject().value(QStringLiteral("issueDate")).toString();
    }
    EXPECT_EQ(computed, QStringList({"1990-01", "2005-05", "1980-06", "1967-05"}));
}

} // namespace
