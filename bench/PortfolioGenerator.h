// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reproducible portfolios of random E, EE, I and Savings Note holdings for the benchmarks, every
// one with an issue month the shipped database prices.
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"

#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <random>

namespace PortfolioGenerator {

// A private copy of the built database, so that nothing the benchmarks do reaches the seed.
inline QString databaseCopy()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString copy = dir.filePath(QStringLiteral("values.bvdb"));
        if (!QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), copy))
            qFatal("no database at %s; build the bondvalues_database target", QUILLMERE_TEST_DATABASE);
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
        return copy;
    }();
    return path;
}

// The sample's people, so that generated holdings can name owners.
inline PeopleStore &people()
{
    static PeopleStore store(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf"));
    return store;
}

inline std::unique_ptr<BondPortfolio> make(int count, unsigned seed = 2026)
{
    auto portfolio = std::make_unique<BondPortfolio>(&people(), databaseCopy());
    QList<PersonRef> titleHolders;
    for (const auto &record : people().records())
        titleHolders << Person::create(record);
    portfolio->setTitleHolders(titleHolders);
    std::mt19937 random(seed);
    auto between = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    struct Kind { const char *code; int firstYear, lastYear; };
    static const Kind kinds[] = {{"E", 1941, 1979}, {"N", 1980, 2021}, {"I", 1999, 2025}, {"S", 1967, 1969}};
    static const Pennies faces[] = {2500, 5000, 7500, 10000, 20000, 50000, 100000, 500000, 1000000};
    QList<HoldingRef> holdings;
    for (int i = 0; i < count; ++i) {
        const Kind &kind = kinds[between(0, 3)];
        HoldingRef holding = Holding::create();
        portfolio->adopt(*holding);
        holding->setSeries(Series::seriesForCode(QString::fromLatin1(kind.code)));
        holding->setQuantity(between(1, 5));
        holding->setFaceValue(faces[between(0, 8)]);
        holding->setPaper(between(0, 1) == 0);
        holding->setIssueDate(Month(between(kind.firstYear, kind.lastYear), between(1, 12)));
        holding->setSerialNumber(QStringLiteral("Q%1EE").arg(i, 8, 10, QLatin1Char('0')));
        if (!titleHolders.isEmpty())
            holding->setOwner(titleHolders.at(between(0, int(titleHolders.size()) - 1)));
        holdings << holding;
    }
    portfolio->setHoldings(holdings);
    portfolio->setValueOfDate(BondAssessor::monthDate(2021, 11));
    return portfolio;
}

} // namespace PortfolioGenerator
