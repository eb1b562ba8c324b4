// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The bond table as the user meets it: saved column keys, sorting, refused months, values that explain themselves, the value chart.
#include "GuiTestMain.h"

#include "BondTableColumns.h"
#include "BondTableView.h"
#include "HoldingColumns.h"
#include "ValuationMonthPicker.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QSignalSpy>
#include "ValueChartDialog.h"
#include "base/UserDefaults.h"

#include <QAction>
#include <QChart>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QDateTimeAxis>
#include <QMenu>
#include <QScrollBar>
#include <QValueAxis>
#include <QScatterSeries>
#include <sqlite3.h>

// The row, its bond's issue month (null: as the sample has it), the valuation month; then what the row shows.
using FactCase = std::tuple<int, QDate, QDate, int, QString>;     // the column and its text
using ValueCase = std::tuple<int, QDate, QDate, QString, QColor>; // the value's tip and colour
using ChartCase = std::tuple<int, QString, QStringList>;      // the row chosen, the chart's title, its series' names
using SortCase = std::tuple<int, Qt::SortOrder, QStringList>; // the column sorted by, the order, its texts as shown
// Valuation month, the filter on, the issue months shown, the totals' last sentence.
using FilterCase = std::tuple<QDate, bool, QStringList, QString>;

class BondTableTest : public QObject
{
    Q_OBJECT

    // Another program's connection to the database, running the SQL; null if that failed.
    static sqlite3 *otherProgram(const QString &database, const char *sql)
    {
        sqlite3 *db = nullptr;
        if (sqlite3_open(database.toUtf8().constData(), &db) == SQLITE_OK && sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
            return db;
        sqlite3_close(db);
        return nullptr;
    }

    // The sample's table valued as of a month, the row's bond issued in another month if given.
    static const QAbstractItemModel *sampleAsOf(int row, const QDate &issued, const QDate &valuedAsOf)
    {
        PortfolioWindow *window = GuiTest::openSample();
        const QAbstractItemModel *model = window->bondTable()->model();
        if (issued.isValid())
            GuiTest::holdingAt(model, row)->setIssueDate(Month::of(issued));
        window->valuationPicker()->setDate(valuedAsOf);
        return model;
    }

private slots:
    void cleanup()
    {
        GuiTest::discardWindows();
        UserDefaults::remove(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey));
    }

    // Without settings the people columns and the growth rate start hidden, so the rest fits 1600 pixels.
    void leastUsedColumnsStartHiddenAndComeBack()
    {
        PortfolioWindow *window = GuiTest::openSample();
        window->resize(1600, 1000);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QHeaderView *header = window->bondTable()->horizontalHeader();
        QStringList hidden;
        for (int column = 0; column < HoldingColumns::Count; ++column) {
            if (header->isSectionHidden(column))
                hidden << HoldingColumns::key(column);
        }
        QCOMPARE(hidden, QStringList({"ytdInterest", "growthRate", "rate", "finalMaturity", "nextIncrease", "note", "owner",
                                      "co-owner", "beneficiary"}));
        QVERIFY(!window->bondTable()->horizontalScrollBar()->isVisible());
        window->columns()->toggleColumnVisibility(HoldingColumns::Owner);
        QVERIFY(!header->isSectionHidden(HoldingColumns::Owner));
    }

    // Earlier versions' column keys are found and saved unchanged; a change in one window carries to the next.
    void columnSettingsKeepTheirKeysAndCarryOver()
    {
        const QStringList keys{"series", "quantity", "issueDate", "faceValue", "issuePrice", "interestEarned", "value",
                               "ytdInterest", "currentYield", "growthRate", "rate", "finalMaturity", "nextIncrease",
                               "note", "serialNumber", "paper", "owner", "co-owner", "beneficiary", "registration"};
        QVariantList saved;
        for (auto key = keys.crbegin(); key != keys.crend(); ++key)
            saved << QVariantMap{{"key", *key}, {"width", 77.0}};
        const QString settingsKey = QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey);
        UserDefaults::setValue(settingsKey, saved);
        PortfolioWindow *first = DocumentManager::instance().newDocument();
        QHeaderView *header = first->bondTable()->horizontalHeader();
        QCOMPARE(first->columns()->currentSettings(), saved); // read back from the header: its order and widths

        first->columns()->toggleColumnVisibility(HoldingColumns::FaceValue);
        header->resizeSection(HoldingColumns::Value, 151);
        header->moveSection(header->visualIndex(HoldingColumns::Series), 0);
        PortfolioWindow *second = DocumentManager::instance().newDocument();
        QHeaderView *again = second->bondTable()->horizontalHeader();
        QVERIFY(again->isSectionHidden(HoldingColumns::FaceValue));
        QCOMPARE(again->sectionSize(HoldingColumns::Value), 151);
        QCOMPARE(again->logicalIndex(0), int(HoldingColumns::Series));
        for (QAction *item : second->columns()->columnMenu()->actions())
            QCOMPARE(item->isChecked(), item->text() != QLatin1String("Face Value"));
        // Shown again, it comes back at the right end, and the settings say so.
        second->columns()->toggleColumnVisibility(HoldingColumns::FaceValue);
        const QVariantList now = UserDefaults::value(settingsKey).toList();
        QCOMPARE(now.last().toMap().value("key").toString(), QStringLiteral("faceValue"));
        QCOMPARE(now.first().toMap().value("key").toString(), QStringLiteral("series"));
    }

    // Why a line has its value; red: no value, blue: not redeemable yet, valued: the theme's text colour.
    void valuesSayWhy_data()
    {
        QTest::addColumn<ValueCase>("c");
        const QDate latest(2026, 11, 1);
        const QColor red(Qt::red);
        QTest::newRow("computed") << ValueCase{1, {}, latest, "computed: computed by this program, not published by the Treasury", {}};
        QTest::newRow("valued") << ValueCase{3, {}, latest, {}, {}};
        QTest::newRow("stopped earning") << ValueCase{0, {}, latest, "computed: computed by this program, not published by the Treasury",
                                                      QColor(Qt::gray)};
        QTest::newRow("never sold") << ValueCase{2, {1980, 7, 1}, latest, "no pricing data: Series E bonds were last issued in 06/1980; "
                                                                          "no values exist for this issue month.", red};
        QTest::newRow("valued before its issue")
            << ValueCase{7, {}, {2021, 11, 1}, "no pricing data: this bond was issued in 03/2026, after the valuation month; it has "
                                               "no value before then.", red};
        QTest::newRow("not priced yet") << ValueCase{0, {1995, 5, 1}, latest, "no pricing data: the database has no value for this "
                                                     "bond in that month. Tools ▸ Update Redemption Values… installs newer values", red};
        QTest::newRow("not yet redeemable") << ValueCase{7, {}, latest, "not yet redeemable", QColor(Qt::blue)};
    }
    void valuesSayWhy()
    {
        QFETCH(ValueCase, c);
        const auto &[row, issued, valuedAsOf, tip, colour] = c;
        const QAbstractItemModel *model = sampleAsOf(row, issued, valuedAsOf);
        const QModelIndex value = model->index(row, HoldingColumns::Value);
        const QString shown = value.data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.isEmpty() ? shown.isEmpty() : shown.startsWith(tip), qPrintable(shown));
        QCOMPARE(value.data(Qt::FontRole).value<QFont>().italic(), tip.startsWith(QLatin1String("computed")));
        for (int column : {int(HoldingColumns::Series), int(HoldingColumns::Value), int(HoldingColumns::Registration)})
            QCOMPARE(model->index(row, column).data(Qt::ForegroundRole).value<QColor>(), colour); // invalid: the palette's
    }

    // Figures, dates and money sort by what they are, not by how they read.
    void sortingFollowsTheFigures_data()
    {
        QTest::addColumn<SortCase>("c");
        using namespace HoldingColumns;
        const Qt::SortOrder up = Qt::AscendingOrder, down = Qt::DescendingOrder;
        const QStringList months{"05/1967", "06/1980", "01/1990", "01/1997", "09/1998", "05/2005", "01/2010", "03/2026"};
        QTest::newRow("issue months") << SortCase{IssueDate, up, months};
        QTest::newRow("issue months, latest first") << SortCase{IssueDate, down, {months.crbegin(), months.crend()}};
        QTest::newRow("face values") << SortCase{
            FaceValue, up, {"$25.00", "$25.00", "$50.00", "$50.00", "$50.00", "$100.00", "$100.00", "$1,000.00"}};
        // By hand: I rate = fixed + 2 × inflation + fixed × inflation; YTD = November's value less December 2025's.
        QTest::newRow("rates, none last") << SortCase{
            Rate, up, {"0.00%", "0.00%", "0.00%", "3.50% fixed", "3.65%", "4.26%", "6.80%", ""}};
        QTest::newRow("final maturities") << SortCase{
            FinalMaturity, up, {"05/1997", "06/2010", "01/2020", "09/2028", "05/2035", "01/2040", "03/2056", ""}};
        QTest::newRow("year-to-date interest, most first") << SortCase{
            YtdInterest, down, {"$51.20", "$30.36", "$13.28", "$0.00", "$0.00", "$0.00", "$0.00", "$0.00"}};
    }
    void sortingFollowsTheFigures()
    {
        QFETCH(SortCase, c);
        const auto &[column, order, shown] = c;
        BondTableView *table = GuiTest::openSample()->bondTable();
        table->sortByColumn(column, order);
        QCOMPARE(GuiTest::columnTexts(table->model(), column), shown);
    }

    // One row per column the other tables leave out; the rules themselves are the core's to pin.
    void theBondFactsColumns_data()
    {
        QTest::addColumn<FactCase>("c");
        using namespace HoldingColumns;
        const QDate latest(2026, 11, 1);
        QTest::newRow("matured: note") << FactCase{0, {}, latest, Note, "MA matured, no longer earning"};
        QTest::newRow("matured: no next increase") << FactCase{0, {}, latest, NextIncrease, ""};
        QTest::newRow("fixed-rate EE under 20 years")
            << FactCase{1, {}, {2021, 11, 1}, Rate, "3.50% fixed, doubles at 20 years"};
        QTest::newRow("I year to date: $1,633.20 − $1,582.00") << FactCase{3, {}, latest, YtdInterest, "$51.20"};
        QTest::newRow("I: next month") << FactCase{4, {}, latest, NextIncrease, "12/2026"};
        QTest::newRow("I under five years: penalty") << FactCase{4, {2023, 1, 1}, latest, Note,
                                                                 "P5 includes 3-month interest penalty until 01/2028"};
    }
    void theBondFactsColumns()
    {
        QFETCH(FactCase, c);
        const auto &[row, issued, valuedAsOf, column, text] = c;
        const QModelIndex cell = sampleAsOf(row, issued, valuedAsOf)->index(row, column);
        QCOMPARE(cell.data().toString(), text);
        if (column == HoldingColumns::Rate || column == HoldingColumns::YtdInterest)
            QVERIFY(cell.data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
    }

    // The filter shows the bonds past final maturity as of the valuation month; the totals always count them.
    void theStoppedEarningFilter_data()
    {
        QTest::addColumn<FilterCase>("c");
        const QStringList matured{"01/1990", "06/1980", "05/1967"};
        const QString four = QStringLiteral("4 bonds no longer earn interest: $833.13");
        QTest::newRow("all, 11/2026") << FilterCase{{2026, 11, 1}, false, {"01/1990", "05/2005", "06/1980", "01/2010",
                                                    "09/1998", "05/1967", "01/1997", "03/2026"}, four};
        QTest::newRow("filtered, 11/2026") << FilterCase{{2026, 11, 1}, true, matured, four};
        QTest::newRow("filtered, 11/2021") << FilterCase{{2021, 11, 1}, true, matured, four};
        QTest::newRow("filtered, 12/2019")
            << FilterCase{{2019, 12, 1}, true, {"06/1980", "05/1967"}, "2 bonds no longer earn interest: $418.41"};
        QTest::newRow("filtered, 06/1997")
            << FilterCase{{1997, 6, 1}, true, {"05/1967"}, "1 bond no longer earns interest: $306.66"};
    }
    void theStoppedEarningFilter()
    {
        QFETCH(FilterCase, c);
        const auto &[valuedAsOf, filtered, issued, sentence] = c;
        PortfolioWindow *window = GuiTest::openSample();
        QAction *filter = window->action(PortfolioWindow::ActionId::StoppedEarning);
        // Set before or after the month, the filter follows it.
        filter->setChecked(filtered);
        window->valuationPicker()->setDate(valuedAsOf);
        QCOMPARE(window->shownHoldingsModel()->isStoppedEarningOnly(), filtered);
        QCOMPARE(GuiTest::columnTexts(window->bondTable()->model(), HoldingColumns::IssueDate), issued);
        QTRY_VERIFY2(window->totalsText().endsWith(u'\n' + sentence), qPrintable(window->totalsText()));
    }

    void aValuationMonthWithoutValuesIsRefused()
    {
        const QString path = GuiTest::copyOfDatabase("gap.bvdb");
        sqlite3_close(otherProgram(path, "delete from bond_value where ryr = 2015 and rmo = 6"));
        PortfolioWindow window(new BondPortfolio(nullptr, path));
        window.show();
        const QDateTime before = window.portfolio()->valueOfDate();
        window.valuationPicker()->setDate(QDate(2015, 6, 1));
        QCOMPARE(window.portfolio()->valueOfDate(), before);
        QCOMPARE(window.valuationPicker()->date().month(), before.date().month());
        QCOMPARE(GuiTest::alertTexts(&window), QStringList{QString::fromLatin1(BondPortfolio::NoValuationDataMessage)});
        window.valuationPicker()->setDate(QDate(2015, 7, 1));
        QCOMPARE(window.portfolio()->valueOfDate().date(), QDate(2015, 7, 1));
    }

    // A new range reaches every picker: by notice, or from another process by the periodic check or activation.
    void thePickerFollowsANewDatabaseRange_data()
    {
        QTest::addColumn<int>("how");
        QTest::newRow("notice") << 0;
        QTest::newRow("periodic check") << 1;
        QTest::newRow("application activated") << 2;
    }
    void thePickerFollowsANewDatabaseRange()
    {
        QFETCH(int, how);
        const QString path = GuiTest::copyOfDatabase(QStringLiteral("later-%1.bvdb").arg(how));
        PortfolioWindow window(new BondPortfolio(nullptr, path));
        window.show();
        ValuationMonthPicker *picker = window.valuationPicker();
        const QDate latest = picker->maximumDate(), later = latest.addMonths(1);
        const QByteArray install = QStringLiteral(
            "begin immediate; insert or ignore into bond_value select series, %1, %2, iyr, imo, value from bond_value where ryr = %3 "
            "and rmo = %4; delete from max_rdate; insert into max_rdate values (%1, %2); commit;")
            .arg(later.year()).arg(later.month()).arg(latest.year()).arg(latest.month()).toUtf8();
        sqlite3_close(otherProgram(path, install.constData()));
        QCOMPARE(picker->maximumDate(), latest);
        QSignalSpy figures(window.portfolio(), &BondPortfolio::figuresChanged);
        if (how == 0) {
            PortfolioWindow *other = GuiTest::openSample();
            RedemptionDateRangeNotifier::instance()->post(nullptr, BondAssessor::monthDate(1993, 1),
                                                          BondAssessor::monthDate(later.year(), later.month()));
            for (ValuationMonthPicker *each : {picker, other->valuationPicker()}) {
                QTRY_COMPARE(each->maximumDate(), later);
                QCOMPARE(each->minimumDate(), QDate(1993, 1, 1));
            }
        } else if (how == 2) {
            emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
            QCOMPARE(picker->maximumDate(), later);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(picker->maximumDate(), later, 3 * ValuationMonthPicker::RangeCheckInterval);
        }
        QVERIFY(!figures.isEmpty()); // the table and the summary read their figures again
        picker->setDate(later);
        QCOMPARE(window.portfolio()->valueOfDate().date(), later);
    }


    // While another program holds the database the table paints at once from memory, with its earlier figures.
    void theTablePaintsWhileAnotherProgramHoldsTheDatabase()
    {
        const QString path = GuiTest::copyOfDatabase("held.bvdb");
        auto *portfolio = new BondPortfolio(nullptr, path);
        QVERIFY(portfolio->readFromFile(GuiTest::samplePath()));
        PortfolioWindow window(portfolio);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QModelIndex value = window.bondTable()->model()->index(1, HoldingColumns::Value);
        const QString shown = value.data().toString();
        QVERIFY(shown.startsWith(u'$'));
        // The shipped file keeps its rollback journal: an exclusive lock keeps every reader out.
        sqlite3 *db = otherProgram(path, "begin exclusive");
        QVERIFY(db);
        QElapsedTimer clock;
        clock.start();
        window.bondTable()->viewport()->grab();
        const qint64 elapsed = clock.elapsed();
        const QString shownMeanwhile = value.data().toString();
        sqlite3_close(db);
        QVERIFY2(elapsed < 2000, qPrintable(QString::number(elapsed)));
        QCOMPARE(shownMeanwhile, shown);
    }

    // A damaged file's quantity below 1: the row says so, and the totals count it as no bonds.
    void aQuantityBelowOneIsMarkedAndCountsAsNoBonds()
    {
        PortfolioWindow *window = GuiTest::openSample();
        const QAbstractItemModel *model = window->bondTable()->model();
        const HoldingRef odd = GuiTest::holdingAt(model, 0);
        qint64 others = 0;
        for (const HoldingRef &holding : window->portfolio()->holdings())
            others += holding == odd ? 0 : holding->quantity();
        odd->setQuantity(-2);
        QCOMPARE(model->index(0, HoldingColumns::Quantity).data(Qt::ToolTipRole).toString(),
                 QStringLiteral("quantity below 1: counts as no bonds"));
        QVERIFY(model->index(1, HoldingColumns::Quantity).data(Qt::ToolTipRole).toString().isEmpty());
        QTRY_VERIFY2(window->totalsText().startsWith(QStringLiteral("Total of %1 bond(s) shown:").arg(others)),
                     qPrintable(window->totalsText()));
        QVERIFY2(!window->totalsText().contains(QLatin1Char('-')), qPrintable(window->totalsText()));
    }

    void tabWalksTheEditableCells()
    {
        BondTableView *table = GuiTest::openSample()->bondTable();
        using C = HoldingColumns::Column;
        // from column, backwards, to row, to column
        const std::tuple<C, bool, int, C> walks[] = {{C::Quantity, false, 0, C::IssueDate},
                                                     {C::FaceValue, false, 0, C::SerialNumber}, // over the figures
                                                     {C::Beneficiary, false, 1, C::Series},     // onto the next line
                                                     {C::SerialNumber, true, 0, C::FaceValue}};
        for (const auto &[from, backwards, row, to] : walks) {
            table->setCurrentIndex(table->model()->index(0, from));
            QTest::keyClick(table, backwards ? Qt::Key_Backtab : Qt::Key_Tab, backwards ? Qt::ShiftModifier : Qt::NoModifier);
            QCOMPARE(table->currentIndex(), table->model()->index(row, to));
        }
    }

    // A point per priced month to the latest, the table's value marked, months computed past it dashed on; the end of
    // the penalty and final maturity marked where reached; titled as the household knows the bond; round axis steps.
    void theValueChartFollowsTheSelectedBond_data()
    {
        QTest::addColumn<ChartCase>("c");
        QTest::newRow("EE of 1990, matured") << ChartCase{0, "$100 EE bond issued 01/1990, 2 bonds",
            {"Redemption value", "Value as of 11/2026", "Final maturity 01/2020"}};
        QTest::newRow("I of 1998, earning") << ChartCase{4, "$50 I bond issued 09/1998, 2 bonds",
            {"Redemption value", "Computed ahead", "Value as of 11/2026", "Penalty ends 09/2003"}};
    }
    void theValueChartFollowsTheSelectedBond()
    {
        QFETCH(ChartCase, c);
        const auto &[row, title, names] = c;
        PortfolioWindow *window = GuiTest::openSample();
        QAction *item = window->action(PortfolioWindow::ActionId::ValueChart);
        QVERIFY(!item->isEnabled());
        GuiTest::selectRows(window->bondTable(), {row});
        QVERIFY(item->isEnabled());
        item->trigger();
        auto *dialog = window->findChild<ValueChartDialog *>();
        QVERIFY(dialog);
        QCOMPARE(dialog->chart()->title(), title);
        const auto series = dialog->chart()->series();
        QStringList shown;
        for (QAbstractSeries *each : series)
            shown << each->name();
        QCOMPARE(shown, names);
        auto *values = qobject_cast<QLineSeries *>(series.at(0));
        auto *marked = qobject_cast<QScatterSeries *>(series.at(names.size() - 2));
        QVERIFY(values && marked);
        const HoldingRef bond = window->selectedHoldings().constFirst();
        const QDate latest = window->portfolio()->assessor().maximumRedemptionDate().date();
        QVERIFY(values->count() > 0 && values->count() <= Month::of(latest).index() - bond->issueDate().index() + 1);
        const qreal last = values->at(values->count() - 1).x();
        QCOMPARE(last, qreal(QDateTime(latest.addDays(1 - latest.day()), QTime(0, 0)).toMSecsSinceEpoch()));
        for (const QPointF &point : values->points())
            QVERIFY(point.y() > 0);
        QCOMPARE(marked->count(), 1);
        QCOMPARE(qRound64(marked->at(0).y() * 100), window->portfolio()->figuresOf(*bond).value());
        if (names.contains("Computed ahead")) {
            auto *ahead = qobject_cast<QLineSeries *>(series.at(1));
            QCOMPARE(ahead->pen().style(), Qt::DashLine);
            QCOMPARE(ahead->at(0), values->at(values->count() - 1));
            QVERIFY(ahead->count() > 1 && ahead->at(ahead->count() - 1).x() > last);
        }
        // A marker stands upright at the first day of its month.
        auto *marker = qobject_cast<QLineSeries *>(series.constLast());
        const QDate month = QDate::fromString(marker->name().right(7), QStringLiteral("MM/yyyy"));
        QCOMPARE(marker->count(), 2);
        QCOMPARE(marker->at(0).x(), qreal(QDateTime(month, QTime(0, 0)).toMSecsSinceEpoch()));
        QCOMPARE(marker->at(1).x(), marker->at(0).x());
        QVERIFY(!dialog->chart()->legend()->markers(marker).constFirst()->isVisible());
        // Years from the issue year's first day, every tick on a year's first day; dollars on round steps.
        auto *years = qobject_cast<QDateTimeAxis *>(dialog->chart()->axes(Qt::Horizontal).constFirst());
        const int first = bond->issueDate().year();
        QVERIFY(years && years->min().date() == QDate(first, 1, 1) && years->max().date().dayOfYear() == 1);
        const int span = years->max().date().year() - first, ticks = years->tickCount() - 1;
        QCOMPARE(span % ticks, 0);
        const qint64 from = years->min().toMSecsSinceEpoch(), to = years->max().toMSecsSinceEpoch();
        for (int k = 0; k <= ticks; ++k) {
            const int year = QDateTime::fromMSecsSinceEpoch(from + (to - from) * k / ticks).date().year();
            QCOMPARE(year, first + span / ticks * k);
        }
        auto *dollars = qobject_cast<QValueAxis *>(dialog->chart()->axes(Qt::Vertical).constFirst());
        const double step = (dollars->max() - dollars->min()) / (dollars->tickCount() - 1);
        QCOMPARE(step, double(qRound64(step)));
    }
};

QUILLMERE_GUI_TEST_MAIN(BondTableTest)
#include "tst_bond_table.moc"
