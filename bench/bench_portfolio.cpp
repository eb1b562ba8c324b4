// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Valuing, opening, saving and exporting whole portfolios of 1,000 and 10,000 holdings, each
// beside the floor it is measured against in the same run:
// - every figure of every holding and the interest summary, against as many reads from an array;
// - opening and saving, against libplist alone reading and writing the same bytes;
// - the exports, against writing the same bytes to a file.
#include "PortfolioGenerator.h"

#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioQuicken.h"
#include "valuation/BondOutlook.h"
#include "valuation/ValueHistoryCache.h"

#include <QCoreApplication>
#include <QSaveFile>
#include <QStandardPaths>
#include <map>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <plist/plist.h>
#include <vector>

namespace {

BondPortfolio &portfolioOf(int count)
{
    static std::map<int, std::unique_ptr<BondPortfolio>> made;
    auto &slot = made[count];
    if (!slot)
        slot = PortfolioGenerator::make(count);
    return *slot;
}

// What a window shows: every figure of every holding, then the summary over them; with the bond
// facts, also each bond's rate, final maturity, next increase, note and year-to-date interest.
Pennies readEveryFigure(const BondPortfolio &portfolio, bool withFacts = false)
{
    const BondAssessor::ReadBatch batch(portfolio.assessor());
    Pennies sum = 0;
    float rates = 0;
    for (const HoldingRef &h : portfolio.holdings()) {
        const HoldingFigures figures = portfolio.figuresOf(*h);
        sum += figures.value() + figures.interestEarned() + figures.issuePrice() + int(figures.status());
        rates += figures.currentYield() + figures.compoundAnnualGrowthRate();
        if (withFacts) {
            const BondOutlook outlook(figures.context(), figures.bond());
            sum += figures.ytdInterest() + outlook.rate().basisPoints + outlook.finalMaturity().index()
                   + outlook.nextIncrease().index() + int(outlook.note()) + outlook.noteUntil().index();
        }
    }
    for (const InterestSummaryRow &row : portfolio.interestSummary())
        sum += row.interestEarned;
    benchmark::DoNotOptimize(rates);
    return sum;
}

// Value reads the figures above make: value, interest, status (up to three), two for the yield;
// the summary one per holding and year up to the last December.
qint64 lookupsForEveryFigure(const BondPortfolio &portfolio)
{
    const int lastYear = 2020;
    qint64 count = 0;
    for (const HoldingRef &h : portfolio.holdings())
        count += 7 + std::max(0, lastYear - h->issueDate().year() + 1);
    return count;
}

void BM_EveryFigureAndSummary(benchmark::State &state)
{
    BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    readEveryFigure(portfolio); // the first read fills the value histories, as opening a window does
    for (auto _ : state)
        benchmark::DoNotOptimize(readEveryFigure(portfolio));
    state.counters["lookups"] = double(lookupsForEveryFigure(portfolio));
}

void BM_EveryFigureWithBondFacts(benchmark::State &state)
{
    BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    readEveryFigure(portfolio, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(readEveryFigure(portfolio, true));
}

// Floor: the same number of reads from an array of values, with the same money arithmetic.
void BM_EveryFigureAndSummary_Floor(benchmark::State &state)
{
    const BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    const qint64 count = lookupsForEveryFigure(portfolio);
    std::vector<qint32> values(4096);
    std::mt19937 random(7);
    for (qint32 &v : values)
        v = qint32(random() % 20000);
    for (auto _ : state) {
        Pennies sum = 0;
        for (qint64 i = 0; i < count; ++i)
            sum += Pennies(values[size_t(i * 2654435761u) % values.size()]) * 10000 / 2500 * 3;
        benchmark::DoNotOptimize(sum);
    }
    state.counters["lookups"] = double(count);
}

void BM_ChangeValuationMonthAndReadAgain(benchmark::State &state)
{
    BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    const QDateTime months[] = {BondAssessor::monthDate(2021, 11), BondAssessor::monthDate(2015, 6)};
    for (const QDateTime &month : months) { // both months' values have been read once
        portfolio.setValueOfDate(month);
        readEveryFigure(portfolio);
    }
    int k = 0;
    for (auto _ : state) {
        const QDateTime &month = months[++k % 2];
        if (!portfolio.validateValueOfDate(month))
            state.SkipWithError("month refused");
        portfolio.setValueOfDate(month);
        benchmark::DoNotOptimize(readEveryFigure(portfolio));
    }
    portfolio.setValueOfDate(months[0]);
}

QByteArray archiveOf(int count)
{
    static std::map<int, QByteArray> made;
    QByteArray &bytes = made[count];
    if (bytes.isEmpty())
        bytes = portfolioOf(count).dataRepresentation();
    return bytes;
}

void BM_Open(benchmark::State &state)
{
    const QByteArray bytes = archiveOf(int(state.range(0)));
    for (auto _ : state) {
        BondPortfolio opened(&PortfolioGenerator::people(), PortfolioGenerator::databaseCopy());
        if (!opened.loadDataRepresentation(bytes))
            state.SkipWithError("not opened");
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void BM_Open_FloorLibplist(benchmark::State &state)
{
    const QByteArray bytes = archiveOf(int(state.range(0)));
    for (auto _ : state) {
        plist_t root = nullptr;
        plist_from_bin(bytes.constData(), uint32_t(bytes.size()), &root);
        benchmark::DoNotOptimize(root);
        plist_free(root);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

QString scratch(const char *name)
{
    static QTemporaryDir dir;
    return dir.filePath(QString::fromLatin1(name));
}

void BM_Save(benchmark::State &state)
{
    BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    for (auto _ : state) {
        if (!portfolio.saveToFile(scratch("saved.bondportfolio")))
            state.SkipWithError("not saved");
    }
}

void BM_Save_FloorLibplist(benchmark::State &state)
{
    const QByteArray bytes = archiveOf(int(state.range(0)));
    plist_t root = nullptr;
    plist_from_bin(bytes.constData(), uint32_t(bytes.size()), &root);
    for (auto _ : state) {
        char *out = nullptr;
        uint32_t length = 0;
        plist_to_bin(root, &out, &length);
        QSaveFile file(scratch("floor.bondportfolio"));
        file.open(QIODevice::WriteOnly);
        file.write(out, length);
        file.commit();
        free(out);
    }
    plist_free(root);
}

void BM_ExportCsv(benchmark::State &state)
{
    const BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    for (auto _ : state)
        PortfolioCsv::exportToCommaSeparatedValues(scratch("export.csv"), portfolio.valuationContext(), portfolio.holdings());
}

void BM_ExportQif(benchmark::State &state)
{
    const BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    QTemporaryDir dir;
    for (auto _ : state) {
        const auto outcome = QuickenFileSet::exportToQuickenFileSet(portfolio.displayName(), portfolio.holdings(), portfolio.holdings(), portfolio.valuationContext(), dir.path());
        state.PauseTiming();
        QFile::remove(outcome.paths.priceList);
        QFile::remove(outcome.paths.positions);
        state.ResumeTiming();
    }
}

// Floor of both exports: writing their bytes, made beforehand, to files the same way.
void writeFloor(benchmark::State &state, const QList<QByteArray> &files)
{
    qint64 total = 0;
    for (const QByteArray &bytes : files)
        total += bytes.size();
    for (auto _ : state) {
        for (const QByteArray &bytes : files) {
            QSaveFile file(scratch("floor.out"));
            file.open(QIODevice::WriteOnly);
            for (qsizetype at = 0; at < bytes.size(); at += 1 << 16)
                file.write(bytes.constData() + at, std::min<qsizetype>(1 << 16, bytes.size() - at));
            file.commit();
        }
    }
    state.SetBytesProcessed(state.iterations() * total);
}

void BM_ExportCsv_FloorWrite(benchmark::State &state)
{
    const BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    writeFloor(state, {PortfolioCsv::csvRepresentation(portfolio.valuationContext(), portfolio.holdings())});
}

void BM_ExportQif_FloorWrite(benchmark::State &state)
{
    const BondPortfolio &portfolio = portfolioOf(int(state.range(0)));
    writeFloor(state, {PortfolioQuicken::quickenPriceListRepresentation(portfolio.valuationContext(), portfolio.holdings()),
                       PortfolioQuicken::quickenPortfolioRepresentation(portfolio.displayName(), portfolio.valuationContext(), portfolio.holdings())});
}

} // namespace

BENCHMARK(BM_EveryFigureAndSummary)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EveryFigureWithBondFacts)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EveryFigureAndSummary_Floor)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChangeValuationMonthAndReadAgain)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open_FloorLibplist)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Save_FloorLibplist)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportCsv)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportCsv_FloorWrite)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportQif)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportQif_FloorWrite)->Arg(10000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv); // settings and standard paths want an application object
    QStandardPaths::setTestModeEnabled(true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
