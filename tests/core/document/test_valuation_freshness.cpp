// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Values installed while a document is open, by this process or another, show at the very next read.
#include "PriceUpdateTestData.h"
#include "TestSupport.h"

#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"

#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace PriceUpdateTestData;

// I bonds issued 2001 onwards; stored value = base + (issue year − 2001) × 12 + issue month − 1.
struct OpenPortfolio
{
    QString database = TestSupport::emptyDatabase();
    PeopleStore people{TestSupport::temporaryDirectory() + QStringLiteral("/people.vcf")};
    std::unique_ptr<BondPortfolio> document;
    HoldingRef holding = Holding::create();

    HoldingFigures figures() const { return document->figuresOf(*holding); }

    OpenPortfolio()
    {
        EXPECT_TRUE(install(database, {{QStringLiteral("jan.bin"), priceFile('I', 2030, 1, 2001, 2, 3000)}}));
        document = std::make_unique<BondPortfolio>(&people, database);
        document->adopt(*holding);
        holding->setSeries(Series::seriesForCode(QStringLiteral("I")));
        holding->setIssueDate(Month(2001, 3));
        holding->setFaceValue(5000);
        holding->setQuantity(2);
        document->setHoldings({holding});
        document->setValueOfDate(BondAssessor::monthDate(2030, 1));
    }
};

enum class Installer { ThisProcess, AnotherProcess };

class ValuesInstalledWhileOpen : public testing::TestWithParam<Installer> {};

TEST_P(ValuesInstalledWhileOpen, ShowAtTheNextRead)
{
    OpenPortfolio open;
    ASSERT_EQ(open.figures().value(), 2 * (3000 + 2) * 2);
    const QDateTime february = BondAssessor::monthDate(2030, 2);
    EXPECT_FALSE(open.document->validateValueOfDate(february));
    EXPECT_EQ(open.figures().absoluteValueAsOfMonth(Month::of(february)), 0); // read once: nothing yet

    if (GetParam() == Installer::ThisProcess) {
        ASSERT_TRUE(install(open.database, {{QStringLiteral("feb.bin"), priceFile('I', 2030, 2, 2001, 2, 4000)}}));
    } else {
        // The sqlite3 shell stands for any other program writing the same working database.
        const QString sql = QStringLiteral(
            "insert into bond_value values ('I', 2030, 2, 2001, 3, 4002);"
            "delete from max_rdate; insert into max_rdate values (2030, 2);");
        QProcess shell;
        shell.start(QStringLiteral("sqlite3"), {open.database, sql});
        ASSERT_TRUE(shell.waitForFinished(60000));
        ASSERT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().constData();
    }

    EXPECT_TRUE(open.document->validateValueOfDate(february));
    EXPECT_EQ(open.document->assessor().maximumRedemptionDate(), february);
    EXPECT_EQ(open.figures().absoluteValueAsOfMonth(Month::of(february)), (4000 + 2) * 2);
    ASSERT_TRUE(open.document->setValueOfDate(february));
    EXPECT_EQ(open.figures().value(), 2 * (4000 + 2) * 2);
}

INSTANTIATE_TEST_SUITE_P(Installers, ValuesInstalledWhileOpen,
                         testing::Values(Installer::ThisProcess, Installer::AnotherProcess));
