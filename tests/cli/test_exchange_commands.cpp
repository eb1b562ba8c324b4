// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "../core/exchange/ExchangeFixture.h"

#include "ScratchMount.h"

#include <gtest/gtest.h>

const QByteArray WizardCsv = "Series,Denomination,Serial Number,Issue Date\r\nEE,100,Q100,03/1995\r\n";

class ExchangeCommands : public ::testing::Test, public ExchangeFixture
{
protected:
    ExchangeCommands() { EXPECT_TRUE(portfolio->saveToFile(emptyPortfolio)); }

    // The user's own people file is empty here: a portfolio's people are found beside it.
    static TestSupport::ProcessResult run(const QStringList &arguments)
    {
        static const QString database = TestSupport::copyOfShippedDatabase();
        return TestSupport::runCli(arguments, {QStringLiteral("QUILLMERE_DATABASE=") + database, QStringLiteral("QUILLMERE_PEOPLE=")});
    }

    QString dir = TestSupport::temporaryDirectory();
    QString emptyPortfolio = dir + QStringLiteral("/empty.bondportfolio");
};

TEST_F(ExchangeCommands, ImportIntoNewPortfolioThenExport)
{
    const QString csv = write(dir + QStringLiteral("/wizard.csv"), WizardCsv);
    const QString bonds = dir + QStringLiteral("/bonds.bondportfolio");
    const auto imported = run({"import-csv", bonds, csv, "--format", "wizard"});
    ASSERT_EQ(imported.exitCode, 0) << imported.standardError.toStdString();
    EXPECT_TRUE(imported.standardOutput.startsWith("Import Complete: Imported 1 out of 1 bonds. (HH/H bonds not supported)\n"));

    const QString out = dir + QStringLiteral("/out.csv");
    ASSERT_EQ(run({"export-csv", bonds, out, "--as-of", "2000-01"}).exitCode, 0);
    const QList<QByteArray> lines = contents(out).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.at(1).startsWith("\"EE Bond\",1,3/1995,50.00,100.00,")) << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(1).endsWith(",Q100,,,"));

    ASSERT_EQ(run({"export-csv", bonds, out, "--as-of", "2000-01", "--spreadsheet"}).exitCode, 0);
    EXPECT_TRUE(contents(out).startsWith("\xEF\xBB\xBF" "Bond Series,"));
    EXPECT_TRUE(contents(out).contains("\nEE Bond,1,1995-03-01,50.00,100.00,")) << contents(out).toStdString();
}

TEST_F(ExchangeCommands, FailuresGoToStandardErrorAndChangeNothing)
{
    const QByteArray before = contents(emptyPortfolio);
    const QString lf = write(dir + QStringLiteral("/lf.csv"), QByteArray(WizardCsv).replace("\r\n", "\n"));
    const QString x = dir + QStringLiteral("/x.csv");
    const QList<QStringList> invocations{
        {"import-csv", emptyPortfolio, lf, "--format", "wizard"},
        {"import-csv", write(dir + QStringLiteral("/junk.bondportfolio"), "junk"), lf, "--format", "own"},
        {"export-csv", emptyPortfolio},
        {"export-csv", emptyPortfolio, x, "--as-of", "2000-13"},
        {"export-csv", emptyPortfolio, dir + QStringLiteral("/no/x.csv")},
        {"export-qif", emptyPortfolio, dir + QStringLiteral("/no")},
        {"export-finance", emptyPortfolio, dir + QStringLiteral("/no")}};
    for (const QStringList &arguments : invocations) {
        const auto result = run(arguments);
        EXPECT_NE(result.exitCode, 0) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(result.standardOutput.isEmpty());
        EXPECT_TRUE(result.standardError.startsWith("quillmere-cli: ")) << result.standardError.toStdString();
    }
    EXPECT_EQ(contents(emptyPortfolio), before);
    EXPECT_FALSE(QFile::exists(x));
}

// A full disk and a read-only one, for real: the system's reason in words, the old file kept.
TEST_F(ExchangeCommands, ImportThatCannotSaveSaysWhy)
{
    ScratchMount disk(dir + QStringLiteral("/disk"), 64);
    if (!disk.mounted())
        GTEST_SKIP() << disk.reason();
    const QString csv = write(dir + QStringLiteral("/wizard.csv"), WizardCsv);
    const QString onDisk = disk.path(QStringLiteral("bonds.bondportfolio"));
    ASSERT_TRUE(portfolio->saveToFile(onDisk));
    const QByteArray before = contents(onDisk);
    disk.fill();
    const auto full = run({"import-csv", onDisk, csv, "--format", "wizard"});
    EXPECT_NE(full.exitCode, 0);
    EXPECT_TRUE(full.standardError.contains(": cannot save the portfolio: the disk is full; the file is unchanged\n"))
        << full.standardError.toStdString();
    ASSERT_TRUE(disk.makeReadOnly());
    const auto frozen = run({"import-csv", onDisk, csv, "--format", "wizard"});
    EXPECT_TRUE(frozen.standardError.contains(": cannot save the portfolio: read-only file system"))
        << frozen.standardError.toStdString();
    EXPECT_EQ(contents(onDisk), before);
}

// Every command finds a portfolio's people as show does; a saving command refuses to drop unknown ones.
TEST_F(ExchangeCommands, EveryCommandFindsThePeopleBesideThePortfolioAndNoneAreDroppedUnasked)
{
    const QString withPeople = TestSupport::temporaryDirectory();
    for (const QString &name : {QStringLiteral("sample.bondportfolio"), QStringLiteral("people.vcf")})
        QFile::copy(TestSupport::sourcePath(QStringLiteral("examples/") + name), withPeople + u'/' + name);
    const QString sample = withPeople + QStringLiteral("/sample.bondportfolio"), lonely = dir + QStringLiteral("/sample.bondportfolio");
    QFile::copy(sample, lonely);
    const QString csv = write(dir + QStringLiteral("/one.csv"), WizardCsv);
    const QStringList import{"import-csv", "--format", "wizard"};

    ASSERT_EQ(run(import + QStringList{sample, csv}).exitCode, 0);
    EXPECT_TRUE(run({"show", sample}).standardOutput.contains("Margaret Whitfield OR Thomas Whitfield"));
    ASSERT_EQ(run({"export-csv", sample, dir + QStringLiteral("/out.csv")}).exitCode, 0);
    EXPECT_TRUE(contents(dir + QStringLiteral("/out.csv")).contains(",Margaret Whitfield,Thomas Whitfield,"));
    ASSERT_EQ(run({"export-qif", sample, dir}).exitCode, 0);
    EXPECT_TRUE(contents(dir + QStringLiteral("/Positions.qif")).contains(" Margaret Whitfield OR Thomas Whitfield\r"));
    const auto finance = run({"export-finance", sample, dir, "--as-of", "2025-12"});
    EXPECT_TRUE(finance.standardOutput.contains("Securities: 9; prices in each file: 2259\n")) << finance.standardOutput.toStdString();
    EXPECT_TRUE(contents(dir + QStringLiteral("/BondPrices.csv")).contains("12/31/2025,1582.00,NONCURRENCY,I-201001-1000E,USD\n"));

    const QByteArray before = contents(lonely);
    const auto refused = run(import + QStringList{lonely, csv});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.standardError.contains(QStringLiteral("5 people named in %1 are not in ").arg(lonely).toUtf8()))
        << refused.standardError.toStdString();
    EXPECT_TRUE(refused.standardError.contains("--people FILE")) << refused.standardError.toStdString();
    EXPECT_EQ(contents(lonely), before);
    EXPECT_EQ(run(import + QStringList{lonely, csv, "--people", withPeople + QStringLiteral("/people.vcf")}).exitCode, 0);

    // One person short: the warning speaks of one person.
    QByteArray people = contents(withPeople + QStringLiteral("/people.vcf"));
    people.remove(0, people.indexOf("END:VCARD") + 9);
    const QString fourPeople = write(dir + QStringLiteral("/four.vcf"), people);
    const auto warned = run({"show", sample, "--people", fourPeople});
    EXPECT_TRUE(warned.standardError.contains(QStringLiteral("warning: 1 person named in %1 is not in %2; ").arg(sample, fourPeople).toUtf8()))
        << warned.standardError.toStdString();
}
