#include "../core/exchange/ExchangeFixture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

class ExchangeCommands : public ::testing::Test, public ExchangeFixture
{
protected:
    ExchangeCommands() { EXPECT_TRUE(portfolio->saveToFile(emptyPortfolio)); }

    TestSupport::ProcessResult run(const QStringList &arguments) const
    {
        static const QString database = TestSupport::copyOfShippedDatabase();
        return TestSupport::runCli(arguments, {QStringLiteral("QUILLMERE_DATABASE=") + database,
                                               QStringLiteral("QUILLMERE_PEOPLE=") + people.store.path()});
    }

    QString dir = TestSupport::temporaryDirectory();
    QString emptyPortfolio = dir + QStringLiteral("/empty.bondportfolio");
};

TEST_F(ExchangeCommands, ImportIntoNewPortfolioThenExport)
{
    const QString csv = write(dir + QStringLiteral("/wizard.csv"), "Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q100,03/1995\r\n");
    const QString bonds = dir + QStringLiteral("/bonds.bondportfolio");
    const auto imported = run({QStringLiteral("import-csv"), bonds, csv, QStringLiteral("--format"), QStringLiteral("wizard")});
    ASSERT_EQ(imported.exitCode, 0) << imported.standardError.toStdString();
    EXPECT_TRUE(imported.standardOutput.startsWith("Import Complete: Imported 1 out of 1 bonds. (HH/H bonds not supported)\n"));

    const QString out = dir + QStringLiteral("/out.csv");
    ASSERT_EQ(run({QStringLiteral("export-csv"), bonds, out, QStringLiteral("--as-of"), QStringLiteral("2000-01")}).exitCode, 0);
    const QList<QByteArray> lines = contents(out).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.at(1).startsWith("\"EE Bond\",1,3/1995,50.00,100.00,")) << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(1).endsWith(",Q100,,,"));
}

TEST_F(ExchangeCommands, FailuresGoToStandardErrorAndChangeNothing)
{
    const QByteArray before = contents(emptyPortfolio);
    const QString lf = write(dir + QStringLiteral("/lf.csv"), "Series,Denomination,Serial Number,Issue Date\nEE,100,Q100,03/1995\n");
    const QString x = dir + QStringLiteral("/x.csv");
    const QList<QStringList> invocations{
        {QStringLiteral("import-csv"), emptyPortfolio, lf, QStringLiteral("--format"), QStringLiteral("wizard")},
        {QStringLiteral("import-csv"), emptyPortfolio, lf},
        {QStringLiteral("import-csv"), emptyPortfolio, lf, QStringLiteral("--format"), QStringLiteral("excel")},
        {QStringLiteral("import-csv"), write(dir + QStringLiteral("/junk.bondportfolio"), "junk"), lf, QStringLiteral("--format"), QStringLiteral("own")},
        {QStringLiteral("export-csv"), emptyPortfolio},
        {QStringLiteral("export-csv"), dir + QStringLiteral("/missing.bondportfolio"), x},
        {QStringLiteral("export-csv"), emptyPortfolio, x, QStringLiteral("--as-of"), QStringLiteral("2000-13")},
        {QStringLiteral("export-csv"), emptyPortfolio, x, QStringLiteral("--as-of"), QStringLiteral("1900-01")},
        {QStringLiteral("export-csv"), emptyPortfolio, dir + QStringLiteral("/no/x.csv")},
        {QStringLiteral("export-qif"), emptyPortfolio, dir + QStringLiteral("/no")}};
    for (const QStringList &arguments : invocations) {
        const auto result = run(arguments);
        EXPECT_NE(result.exitCode, 0) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(result.standardOutput.isEmpty());
        EXPECT_TRUE(result.standardError.startsWith("quillmere-cli: ")) << result.standardError.toStdString();
    }
    EXPECT_EQ(contents(emptyPortfolio), before);
    EXPECT_FALSE(QFile::exists(x));
}

} // namespace

// Every command finds a portfolio's people as show does; a saving command refuses to drop those
// it cannot find. The user's own people file is empty here.
TEST(PortfolioPeople, EveryCommandFindsThemBesideThePortfolioAndNoneAreDroppedUnasked)
{
    const QString database = TestSupport::copyOfShippedDatabase();
    auto run = [&](const QStringList &arguments) {
        return TestSupport::runCli(arguments, {QStringLiteral("QUILLMERE_DATABASE=") + database, QStringLiteral("QUILLMERE_PEOPLE=")});
    };
    const QString withPeople = TestSupport::temporaryDirectory(), alone = TestSupport::temporaryDirectory();
    for (const QString &name : {QStringLiteral("sample.bondportfolio"), QStringLiteral("people.vcf")})
        QFile::copy(TestSupport::sourcePath(QStringLiteral("examples/") + name), withPeople + u'/' + name);
    const QString sample = withPeople + QStringLiteral("/sample.bondportfolio"), lonely = alone + QStringLiteral("/sample.bondportfolio");
    QFile::copy(sample, lonely);
    const QString csv = TestSupport::writeFile(alone + QStringLiteral("/one.csv"), "Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q100,03/1995\r\n");
    const QStringList import{QStringLiteral("import-csv"), QStringLiteral("--format"), QStringLiteral("wizard")};

    ASSERT_EQ(run(import + QStringList{sample, csv}).exitCode, 0);
    EXPECT_TRUE(run({QStringLiteral("show"), sample}).standardOutput.contains("Margaret Whitfield OR Thomas Whitfield"));
    ASSERT_EQ(run({QStringLiteral("export-csv"), sample, alone + QStringLiteral("/out.csv")}).exitCode, 0);
    EXPECT_TRUE(TestSupport::readFile(alone + QStringLiteral("/out.csv")).contains(",Margaret Whitfield,Thomas Whitfield,"));
    ASSERT_EQ(run({QStringLiteral("export-qif"), sample, alone}).exitCode, 0);
    EXPECT_TRUE(TestSupport::readFile(alone + QStringLiteral("/Positions.qif")).contains(" Margaret Whitfield OR Thomas Whitfield\r"));

    const QByteArray before = TestSupport::readFile(lonely);
    const auto refused = run(import + QStringList{lonely, csv});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.standardError.contains(QStringLiteral("5 people named in %1 are not in ").arg(lonely).toUtf8()))
        << refused.standardError.toStdString();
    EXPECT_TRUE(refused.standardError.contains("--people FILE")) << refused.standardError.toStdString();
    EXPECT_EQ(TestSupport::readFile(lonely), before);
    EXPECT_EQ(run(import + QStringList{lonely, csv, QStringLiteral("--people"), withPeople + QStringLiteral("/people.vcf")}).exitCode, 0);
}
