// The portfolio window on large portfolios (offscreen): opening a file to the first painted
// table, changing the valuation month, and sorting by value. Portfolios are made by a generator
// with a fixed seed, so every run measures the same bonds.
#include "BondTableView.h"
#include "DatabaseLayouts.h"
#include "HoldingColumns.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "model/Series.h"
#include "valuation/BondAssessor.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QTableView>
#include <benchmark/benchmark.h>
#include <random>

namespace {

QString databaseCopy()
{
    static const QString path = [] {
        const QString copy = DatabaseLayouts::scratchFile(QStringLiteral("window.bvdb"));
        if (!QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), copy))
            qFatal("no database at %s; build the bondvalues_database target", QUILLMERE_TEST_DATABASE);
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
        return copy;
    }();
    return path;
}

PeopleStore &people()
{
    static PeopleStore store(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf"));
    return store;
}

// A saved portfolio of the given size: series, issue months with values, face values, paper or
// electronic and owners drawn with a fixed seed.
QString generatedPortfolio(int holdings)
{
    static QHash<int, QString> made;
    if (made.contains(holdings))
        return made.value(holdings);
    const QString path = DatabaseLayouts::scratchFile(QStringLiteral("generated-%1.bondportfolio").arg(holdings));
    BondPortfolio portfolio(&people(), databaseCopy());
    QList<PersonRef> titleHolders;
    for (const auto &record : people().records())
        titleHolders << Person::create(record);
    portfolio.setTitleHolders(titleHolders);
    std::mt19937 random(20261123);
    const QList<const Series *> series = Series::allSeries();
    const Pennies faces[] = {2500, 5000, 10000, 50000, 100000};
    QList<HoldingRef> list;
    while (list.size() < holdings) {
        auto holding = Holding::create();
        holding->setSeries(series.at(int(random() % series.size())));
        const QDateTime issued = BondAssessor::monthDate(1960 + int(random() % 66), 1 + int(random() % 12));
        if (!portfolio.assessor().isValidIssueDate(issued, holding->series()))
            continue;
        holding->setIssueDate(issued);
        holding->setFaceValue(faces[random() % 5]);
        holding->setQuantity(1 + int(random() % 4));
        holding->setPaper(random() % 3 != 0);
        holding->setSerialNumber(QStringLiteral("G%1").arg(list.size(), 9, 10, QLatin1Char('0')));
        holding->setPortfolio(&portfolio);
        holding->setOwner(titleHolders.at(int(random() % titleHolders.size())));
        list << holding;
    }
    portfolio.setHoldings(list);
    QString error;
    if (!portfolio.saveToFile(path, &error))
        qFatal("%s", qPrintable(error));
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
