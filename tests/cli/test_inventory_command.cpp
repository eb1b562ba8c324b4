// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// inventory read back by poppler: the sample's owners and sums to the cent, several pages numbered on Letter and A4.
#include "TestSupport.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The paper, and how many of the long portfolio's two-line rows fill a page of it (Debian's DejaVu fonts).
struct Paper
{
    const char *name;
    int fullPage;
};

class InventoryCommand : public ::testing::TestWithParam<Paper>
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "poppler-utils (pdfinfo, pdftotext) are not installed";
        for (const QString &name : {QStringLiteral("sample.bondportfolio"), QStringLiteral("people.vcf")})
            QFile::copy(TestSupport::sourcePath(QStringLiteral("examples/") + name), dir + u'/' + name);
    }

    // The inventory as of 11/2026, its pages' text as pdftotext lays it out, ligatures as letters.
    QStringList pagesOf(const QString &portfolio, const QString &paper)
    {
        static const QString database = TestSupport::copyOfShippedDatabase();
        const QString pdf = dir + QStringLiteral("/inventory-%1.pdf").arg(paper);
        const auto result = TestSupport::runCli({"inventory", portfolio, pdf, "--as-of", "2026-11", "--paper", paper},
                                                {QStringLiteral("QUILLMERE_DATABASE=") + database});
        EXPECT_EQ(result.exitCode, 0) << result.standardError.toStdString();
        const QString info = run(QStringLiteral("pdfinfo"), {pdf});
        const QString text = run(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        QStringList pages = text.normalized(QString::NormalizationForm_KC).split(u'\f');
        if (pages.last().trimmed().isEmpty())
            pages.removeLast();
        EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Pages:\\s+%1\\n").arg(pages.size())))) << info.toStdString();
        return pages;
    }

    QString dir = TestSupport::temporaryDirectory();
    QString sample = dir + QStringLiteral("/sample.bondportfolio");
};

// Each page carries the column titles and its own number out of the right count.
void expectNumberedPagesWithTitles(const QStringList &pages)
{
    for (qsizetype page = 0; page < pages.size(); ++page) {
        EXPECT_EQ(pages.at(page).count(QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages.size())), 1) << "page " << page + 1;
        EXPECT_EQ(pages.at(page).count(QRegularExpression(QStringLiteral("Series +Serial[ a-z]* +Issued +Qty"))), 1)
            << "page " << page + 1;
    }
}

TEST_P(InventoryCommand, SampleGroupsOwnersWithSubtotalsAndTotal)
{
    const QStringList pages = pagesOf(sample, QLatin1String(GetParam().name));
    ASSERT_EQ(pages.size(), 1);
    expectNumberedPagesWithTitles(pages);
    const QString text = pages.constFirst();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Savings Bond Inventory: sample\n"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Valued as of 11/2026\nPrinted ")));
    qsizetype previous = -1;
    for (const char *owner : {"Eleanor", "Margaret", "Samuel", "Thomas"}) {
        const qsizetype heading = text.indexOf(QStringLiteral("Owner: %1 Whitfield\n").arg(QLatin1String(owner)));
        EXPECT_GT(heading, previous) << owner;
        previous = heading;
    }
    for (const char *sums : {"Subtotal: Eleanor Whitfield +1 +\\$1,000\\.00 +\\$1,000\\.00 +\\$633\\.20 +\\$1,633\\.20\n",
                             "Subtotal: Margaret Whitfield +4 +\\$275\\.00 +\\$159\\.25 +\\$673\\.88 +\\$833\\.13\n",
                             "Subtotal: Samuel Whitfield +3 +\\$125\\.00 +\\$125\\.00 +\\$429\\.44 +\\$529\\.44\n",
                             "Subtotal: Thomas Whitfield +5 +\\$300\\.00 +\\$300\\.00 +\\$221\\.44 +\\$421\\.44\n",
                             "Household total +13 +\\$1,700\\.00 +\\$1,584\\.25 +\\$1,957\\.96 +\\$3,417\\.21\n"})
        EXPECT_TRUE(text.contains(QRegularExpression(QLatin1String(sums)))) << sums << '\n' << text.toStdString();
    // A bond's line: its figures, facts, people and notes.
    EXPECT_TRUE(text.contains(QRegularExpression(QStringLiteral(
        "EE Bond +Q123456789EE +01/1990 +2 +\\$200\\.00 +\\$100\\.00 +\\$314\\.72 +\\$414\\.72 +0\\.00% +01/2020 +Margaret Whitfield OR +computed; MA"))))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("1 bond without pricing data is not in these totals.")));
}

TEST_P(InventoryCommand, LongPortfolioRunsOverNumberedPages)
{
    QByteArray csv = "Series,Denomination,Serial Number,Issue Date\r\n";
    for (int k = 0; k < 70; ++k)
        csv += QStringLiteral("EE,100,L%1,%2/%3\r\n").arg(k, 4, 10, QLatin1Char('0')).arg(k % 12 + 1).arg(1990 + k / 12).toLatin1();
    TestSupport::writeFile(dir + QStringLiteral("/bonds.csv"), csv);
    const auto imported = TestSupport::runCli({"import-csv", sample, dir + QStringLiteral("/bonds.csv"), "--format", "wizard"},
                                              {QStringLiteral("QUILLMERE_DATABASE=") + TestSupport::copyOfShippedDatabase()});
    ASSERT_EQ(imported.exitCode, 0) << imported.standardError.toStdString();

    const QStringList pages = pagesOf(sample, QLatin1String(GetParam().name));
    ASSERT_GE(pages.size(), 3);
    expectNumberedPagesWithTitles(pages);
    // The bonds without owner go on from page to page under their heading.
    EXPECT_TRUE(pages.at(1).contains(QRegularExpression(QStringLiteral("Qty[^\\n]*\\n[^\\n]*\\nNo owner named \\(continued\\)\\n"))))
        << pages.at(1).toStdString();
    const QString all = pages.join(QString());
    // Every bond's line once: its issue month, quantity and face value; the sample has 8.
    const QRegularExpression bondLine(QStringLiteral(" \\d\\d/\\d{4} +\\d+ +\\$"));
    EXPECT_EQ(all.count(bondLine), 70 + 8);
    EXPECT_EQ(pages.at(1).count(bondLine), GetParam().fullPage);
    EXPECT_TRUE(all.contains(QRegularExpression(QStringLiteral("Subtotal: no owner named +70 +\\$7,000\\.00 +\\$3,500\\.00 "))));
    EXPECT_TRUE(all.contains(QRegularExpression(QStringLiteral("Household total +83 +\\$8,700\\.00 +\\$5,084\\.25 "))));
}

INSTANTIATE_TEST_SUITE_P(Paper, InventoryCommand, testing::Values(Paper{"letter", 21}, Paper{"a4", 20}),
                         [](const testing::TestParamInfo<Paper> &paper) { return std::string(paper.param.name); });

} // namespace
