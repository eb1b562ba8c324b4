// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The portfolio window on large portfolios (offscreen): opening a file to the first painted
// table, changing the valuation month, and sorting by value. Portfolios are made by a generator
// with a fixed seed, so every run measures the same bonds.
#include "BondTableView.h"
#include "DatabaseLayouts.h"
#include "HoldingColumns.h"
#include "PortfolioGenerator.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QTableView>
#include <benchmark/benchmark.h>
#include <random>

namespace {

using PortfolioGenerator::databaseCopy;
using PortfolioGenerator::people;

// A saved portfolio of the given size, made once.
QString generatedPortfolio(int holdings)
{
    static QHash<int, QString> made;
    if (made.contains(holdings))
        return made.value(holdings);
    const QString path = DatabaseLayouts::scratchFile(QStringLiteral("generated-%1.bondportfolio").arg(holdings));
    if (PortfolioSaveFailure failure; !PortfolioGenerator::make(holdings)->saveToFile(path, &failure))
        qFatal("cannot save %s: %s", qPrintable(path),
               qPrintable(failure.encodeError.isEmpty() ? qt_error_string(failure.file.systemError) : failure.encodeError));
    made.insert(holdings, path);
    return path;
}

std::unique_ptr<PortfolioWindow> openWindow(const QString &path)
{
    auto *portfolio = new BondPortfolio(&people(), databaseCopy());
    QString error;
    if (!portfolio->readFromFile(path, &error))
        qFatal("%s", qPrintable(error));
    auto window = std::make_unique<PortfolioWindow>(portfolio);
    window->show();
    // The deferred work (totals, interest summary) and the first paint of the table.
    QCoreApplication::processEvents();
    window->bondTable()->viewport()->grab();
    return window;
}

void BM_OpenToFirstPaint(benchmark::State &state)
{
    const QString path = generatedPortfolio(int(state.range(0)));
    for (auto _ : state)
        openWindow(path);
}

void BM_ChangeValuationMonth(benchmark::State &state)
{
    auto window = openWindow(generatedPortfolio(int(state.range(0))));
    const QDateTime months[] = {BondAssessor::monthDate(2020, 6), BondAssessor::monthDate(2021, 6)};
    int k = 0;
    for (auto _ : state) {
        window->requestValueOfDate(months[k++ % 2]);
        QCoreApplication::processEvents();
        window->bondTable()->viewport()->grab();
    }
}

void BM_SortByValue(benchmark::State &state)
{
    auto window = openWindow(generatedPortfolio(int(state.range(0))));
    int k = 0;
    for (auto _ : state) {
        window->bondTable()->sortByColumn(HoldingColumns::Value, k++ % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
        window->bondTable()->viewport()->grab();
    }
}

// The core's share of opening and of every month change: the interest summary over all bonds.
void BM_InterestSummaryInCore(benchmark::State &state)
{
    BondPortfolio portfolio(&people(), databaseCopy());
    QString error;
    if (!portfolio.readFromFile(generatedPortfolio(int(state.range(0))), &error))
        qFatal("%s", qPrintable(error));
    for (auto _ : state) {
        BondAssessor::ReadBatch batch(portfolio.assessor());
        benchmark::DoNotOptimize(portfolio.interestSummary());
    }
}

} // namespace

BENCHMARK(BM_InterestSummaryInCore)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenToFirstPaint)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChangeValuationMonth)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortByValue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
