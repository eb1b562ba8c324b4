#include "../core/PeopleFixture.h"
#include "TestSupport.h"
#include "document/BondPortfolio.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

class ExchangeCommands : public ::testing::Test
{
protected:
    ExchangeCommands()
    {
        // An empty portfolio document to start from.
        BondPortfolio empty(&people.store, TestSupport::shippedDatabasePath());
        EXPECT_TRUE(empty.saveToFile(emptyPortfolio));
    }

    TestSupport::ProcessResult run(const QStringList &arguments) const
    {
        return TestSupport::runCli(arguments, {QStringLiteral("QUILLMERE_DATABASE=") + TestSupport::shippedDatabasePath(),
                                               QStringLiteral("QUILLMERE_PEOPLE=") + people.store.path()});
    }

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static QString writeFile(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return path;
    }

    PeopleFixture people;
    QString dir = TestSupport::temporaryDirectory();
    QString emptyPortfolio = dir + QStringLiteral("/empty.bondportfolio");
};

TEST_F(ExchangeCommands, WizardImportIntoNewPortfolioThenCsvExport)
{
    const QString csv = writeFile(dir + QStringLiteral("/wizard.csv"),
                                  "Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q100,03/1995\r\nHH,500,H1,01/1990\r\n");
    const QString portfolio = dir + QStringLiteral("/bonds.bondportfolio");
    const auto imported = run({QStringLiteral("import-csv"), portfolio, csv, QStringLiteral("--format"), QStringLiteral("wizard")});
    ASSERT_EQ(imported.exitCode, 0) << imported.standardError.toStdString();
    EXPECT_TRUE(imported.standardOutput.startsWith("Import Complete: Imported 1 out of 1 bonds. (HH/H bonds not supported)\n"));
    EXPECT_TRUE(QFile::exists(portfolio));

    const QString out = dir + QStringLiteral("/out.csv");
    const auto exported = run({QStringLiteral("export-csv"), portfolio, out, QStringLiteral("--as-of"), QStringLiteral("2000-01")});
    ASSERT_EQ(exported.exitCode, 0) << exported.standardError.toStdString();
    const QList<QByteArray> lines = contents(out).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.at(1).startsWith("\"EE Bond\",1,3/1995,50.00,100.00,")) << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(1).endsWith(",Q100,,,"));

    // Importing the export back, in the own format, doubles the holding.
    const auto again = run({QStringLiteral("import-csv"), portfolio, out, QStringLiteral("--format"), QStringLiteral("own")});
    ASSERT_EQ(again.exitCode, 0) << again.standardError.toStdString();
    ASSERT_EQ(run({QStringLiteral("export-csv"), portfolio, out}).exitCode, 0);
    EXPECT_EQ(contents(out).count('\n'), 3);
}

TEST_F(ExchangeCommands, EmptyPortfolioExports)
{
    const QString out = dir + QStringLiteral("/empty.csv");
    ASSERT_EQ(run({QStringLiteral("export-csv"), emptyPortfolio, out}).exitCode, 0);
    EXPECT_EQ(contents(out).size(), 118);

    for (const char *expected : {"PriceList.qif", "PriceList-1.qif"}) {
        const auto qif = run({QStringLiteral("export-qif"), emptyPortfolio, dir});
        ASSERT_EQ(qif.exitCode, 0) << qif.standardError.toStdString();
        EXPECT_TRUE(qif.standardOutput.startsWith("Export complete: You may now import"));
        EXPECT_EQ(contents(QDir(dir).filePath(QLatin1String(expected))), QByteArray("!Type:Prices\r^\r"));
    }
    EXPECT_TRUE(contents(QDir(dir).filePath(QStringLiteral("Positions-1.qif"))).contains("\rNempty\rDGenerated with Quillmere\r"));
}

TEST_F(ExchangeCommands, CorruptImportLeavesThePortfolioFileAlone)
{
    const QByteArray before = contents(emptyPortfolio);
    const QString csv = writeFile(dir + QStringLiteral("/lf.csv"), "Series,Denomination,Serial Number,Issue Date\nEE,100,Q100,03/1995\n");
    const auto result = run({QStringLiteral("import-csv"), emptyPortfolio, csv, QStringLiteral("--format"), QStringLiteral("wizard")});
    EXPECT_NE(result.exitCode, 0);
    EXPECT_TRUE(result.standardError.contains("Import file corrupt"));
    EXPECT_TRUE(result.standardError.contains("Savings Bond Wizard"));
    EXPECT_EQ(contents(emptyPortfolio), before);
}

TEST_F(ExchangeCommands, BadArgumentsFailOnStandardError)
{
    const QString csv = writeFile(dir + QStringLiteral("/any.csv"), "Bond Series\n\"EE Bond\"\n");
    const QString missing = dir + QStringLiteral("/missing.bondportfolio");
    const QList<QStringList> invocations{
        {QStringLiteral("export-csv"), emptyPortfolio},
        {QStringLiteral("export-csv"), missing, dir + QStringLiteral("/x.csv")},
        {QStringLiteral("export-csv"), emptyPortfolio, dir + QStringLiteral("/x.csv"), QStringLiteral("--as-of"), QStringLiteral("2000-13")},
        {QStringLiteral("export-csv"), emptyPortfolio, dir + QStringLiteral("/x.csv"), QStringLiteral("--as-of"), QStringLiteral("1900-01")},
        {QStringLiteral("export-csv"), emptyPortfolio, dir + QStringLiteral("/no/such/folder/x.csv")},
        {QStringLiteral("export-qif"), emptyPortfolio, dir + QStringLiteral("/no-such-folder")},
        {QStringLiteral("import-csv"), emptyPortfolio, csv},
        {QStringLiteral("import-csv"), emptyPortfolio, csv, QStringLiteral("--format"), QStringLiteral("excel")},
        {QStringLiteral("import-csv"), emptyPortfolio, dir + QStringLiteral("/none.csv"), QStringLiteral("--format"), QStringLiteral("own")},
        {QStringLiteral("import-csv"), writeFile(dir + QStringLiteral("/junk.bondportfolio"), "not a portfolio"), csv,
         QStringLiteral("--format"), QStringLiteral("own")},
    };
    for (const QStringList &arguments : invocations) {
        SCOPED_TRACE(arguments.join(QLatin1Char(' ')).toStdString());
        const auto result = run(arguments);
        EXPECT_NE(result.exitCode, 0);
        EXPECT_TRUE(result.standardOutput.isEmpty());
        EXPECT_TRUE(result.standardError.startsWith("quillmere-cli: ")) << result.standardError.toStdString();
    }
    EXPECT_FALSE(QFile::exists(dir + QStringLiteral("/x.csv")));
}

} // namespace
