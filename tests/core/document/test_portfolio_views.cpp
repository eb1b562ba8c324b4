// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// What views rely on: filters by person, announcements, refresh on a new range, values installed while open.
#include "../PortfolioFixture.h"
#include "PriceUpdateTestData.h"
#include "model/HoldingFilter.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <gtest/gtest.h>

class PortfolioViews : public ::testing::Test
{
protected:
    PortfolioViews()
        : portfolio(&people.store, ValueTable().finish())
    {
        portfolio.setTitleHolders({ann, bob, cy});
        for (const HoldingRef &bond : bonds)
            portfolio.adopt(*bond);
        bonds[0]->setOwner(ann);
        bonds[1]->setCoOwner(bob);
        bonds[1]->setOwner(cy);
        bonds[2]->setBeneficiary(bob);
        portfolio.setHoldings(bonds);
    }

    QList<Holding *> shown(const HoldingFilter &filter) const
    {
        QList<Holding *> out;
        for (const HoldingRef &h : filter.shownOf(bonds))
            out << h.get();
        return out;
    }

    PeopleFixture people;
    BondPortfolio portfolio;
    PersonRef ann = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones"), cy = people.person("Cy", "Young");
    const QList<HoldingRef> bonds{Holding::create(), Holding::create(), Holding::create(), Holding::create()};
};

TEST_F(PortfolioViews, FilterShowsHoldingsNamingAnyChosenPersonInAnyRole)
{
    EXPECT_EQ(shown(HoldingFilter()).size(), 4);
    EXPECT_EQ(shown(HoldingFilter({bob})), (QList<Holding *>{bonds[1].get(), bonds[2].get()}));
    EXPECT_EQ(shown(HoldingFilter({ann, bob})), (QList<Holding *>{bonds[0].get(), bonds[1].get(), bonds[2].get()}));
    // An equal person from elsewhere (another window's copy) chooses the same bonds.
    EXPECT_EQ(shown(HoldingFilter({Person::create(cy->record())})), (QList<Holding *>{bonds[1].get()}));
    // A kept holding stays shown until the filter is replaced.
    HoldingFilter filter({ann});
    filter.keepShown(bonds[3]);
    EXPECT_EQ(shown(filter), (QList<Holding *>{bonds[0].get(), bonds[3].get()}));
    EXPECT_EQ(shown(HoldingFilter({ann})), (QList<Holding *>{bonds[0].get()}));
}

TEST_F(PortfolioViews, APersonLeavingTheListNoLongerNarrowsTheHoldings)
{
    HoldingFilter filter({ann, bob});
    EXPECT_FALSE(filter.keepOnly({ann, bob, cy}));
    EXPECT_TRUE(filter.keepOnly({bob, cy}));
    EXPECT_EQ(filter.people(), (QList<PersonRef>{bob}));
    EXPECT_TRUE(filter.keepOnly({cy}));
    EXPECT_TRUE(filter.isEmpty());
    EXPECT_EQ(shown(filter).size(), 4);
}

TEST_F(PortfolioViews, ListChangesAreAnnouncedBeforeAndAfter)
{
    QStringList order;
    auto note = [&order](const char *what) { return [&order, what] { order << QLatin1String(what); }; };
    QObject::connect(&portfolio, &BondPortfolio::holdingAboutToBeInserted, note("before insert"));
    QObject::connect(&portfolio, &BondPortfolio::holdingInserted, note("insert"));
    QObject::connect(&portfolio, &BondPortfolio::holdingsAboutToBeReset, note("before reset"));
    QObject::connect(&portfolio, &BondPortfolio::holdingsReset, note("reset"));
    QObject::connect(&portfolio, &BondPortfolio::titleHoldersAboutToChange, note("before people"));
    QObject::connect(&portfolio, &BondPortfolio::titleHoldersChanged, note("people"));
    portfolio.addNewHolding(0);
    portfolio.setHoldings({});
    portfolio.setTitleHolders({ann});
    EXPECT_EQ(order, (QStringList{"before insert", "insert", "before reset", "reset", "before people", "people"}));
}

TEST_F(PortfolioViews, ANewDatabaseRangeRefreshesEveryFigure)
{
    int figures = 0, summaries = 0;
    QObject::connect(&portfolio, &BondPortfolio::figuresChanged, [&] { ++figures; });
    QObject::connect(&portfolio, &BondPortfolio::interestSummaryChanged, [&] { ++summaries; });
    RedemptionDateRangeNotifier::instance()->post(nullptr, BondAssessor::monthDate(2000, 1), BondAssessor::monthDate(2001, 1));
    const QDeadlineTimer deadline(2000);
    while (figures == 0 && !deadline.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_EQ(figures, 1);
    EXPECT_GE(summaries, 1);
}

using namespace PriceUpdateTestData;

// I bonds issued 2001 onwards; stored value = base + (issue year − 2001) × 12 + issue month − 1.
struct OpenPortfolio
{
    QString database = TestSupport::emptyDatabase();
    PeopleStore people{TestSupport::temporaryDirectory() + QStringLiteral("/people.vcf")};
    std::unique_ptr<BondPortfolio> document;
    HoldingRef holding;

    HoldingFigures figures() const { return document->figuresOf(*holding); }

    OpenPortfolio()
    {
        EXPECT_TRUE(install(database, {{QStringLiteral("jan.bin"), priceFile('I', 2030, 1, 2001, 2, 3000)}}));
        document = std::make_unique<BondPortfolio>(&people, database);
        holding = makeHolding(*document, "I", 2001, 3, 5000, 2);
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
