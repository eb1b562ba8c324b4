// The bond table and its values as the user meets them: the column settings and their keys,
// walking the editable cells, sorting, refused issue and valuation months, how computed and
// missing values explain and colour themselves, the valuation picker's range, and the ovals of
// the people table's counts.
#include "GuiTestMain.h"

#include <QSignalSpy>
#include "BondTableColumns.h"
#include "BondTableView.h"
#include "ColorCircleDelegate.h"
#include "HoldingColumns.h"
#include "HoldingsTableModel.h"
#include "ValuationMonthPicker.h"
#include "base/UserDefaults.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QAction>
#include <QColor>
#include <QElapsedTimer>
#include <QFont>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <sqlite3.h>

class BondTableTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { GuiTest::discardWindows(); }

    void columnSettingsCarryOverToTheNextWindow()
    {
        PortfolioWindow *first = GuiTest::openSample();
        QHeaderView *header = first->bondTable()->horizontalHeader();
        first->columns()->toggleColumnVisibility(HoldingColumns::FaceValue);
        header->resizeSection(HoldingColumns::Value, 151);
        header->moveSection(header->visualIndex(HoldingColumns::Registration), 0);

        PortfolioWindow *second = DocumentManager::instance().newDocument();
        QHeaderView *again = second->bondTable()->horizontalHeader();
        QVERIFY(again->isSectionHidden(HoldingColumns::FaceValue));
        QCOMPARE(again->sectionSize(HoldingColumns::Value), 151);
        QCOMPARE(again->logicalIndex(0), int(HoldingColumns::Registration));
        for (QAction *item : second->columns()->columnMenu()->actions())
            QCOMPARE(item->isChecked(), item->text() != QLatin1String("Face Value"));

        // Shown again, it comes back at the right end, and the settings say so.
        second->columns()->toggleColumnVisibility(HoldingColumns::FaceValue);
        const QVariantList saved = UserDefaults::value(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey)).toList();
        QCOMPARE(saved.size(), int(HoldingColumns::Count));
        QCOMPARE(saved.last().toMap().value("key").toString(), QStringLiteral("faceValue"));
        QCOMPARE(saved.first().toMap().value("key").toString(), QStringLiteral("registration"));
        UserDefaults::remove(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey));
    }

    void anIssueMonthWithoutValuesIsRefused()
    {
        PortfolioWindow *window = GuiTest::openSample();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        BondTableView *table = window->bondTable();
        const QModelIndex cell = table->model()->index(0, HoldingColumns::IssueDate);
        const QString before = cell.data().toString();
        table->setFocus();
        table->setCurrentIndex(cell);
        QTest::keyClick(table, Qt::Key_F2);
        auto *editor = table->findChild<QLineEdit *>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("01/1950"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(GuiTest::alertTexts(window), QStringList{QString::fromLatin1(Holding::NoIssueDataMessage)});
        QCOMPARE(table->model()->index(0, HoldingColumns::IssueDate).data().toString(), before);
        QVERIFY(!window->isWindowModified());
    }

    // How a line explains its value: the sample's 2005 EE bond is valued from its fixed rate past
    // the Treasury's files; an issue month the series was never sold in has no value and never
    // will, nor one valued before its issue; a bond the database has no value for yet points to the
    // updater. A line without value is red, one not redeemable yet blue; a valued line has no
    // colour of its own, so that it reads in the theme's text colour.
    void valuesSayWhy_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QDate>("issued"); // null: as the sample has it
        QTest::addColumn<QDate>("valuedAsOf");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QColor>("colour"); // invalid: the palette's
        const QDate latest(2026, 11, 1);
        const QColor red(Qt::red);
        const QString neverSold = QStringLiteral("no pricing data: %1; no values exist for this issue month.");
        QTest::newRow("computed") << 1 << QDate() << latest
                                  << QStringLiteral("computed: computed by this program, not published by the Treasury")
                                  << QColor();
        QTest::newRow("valued") << 3 << QDate() << latest << QString() << QColor();
        QTest::newRow("I before 09/1998") << 6 << QDate() << latest
                                          << neverSold.arg("Series I bonds were first issued in 09/1998") << red;
        QTest::newRow("EE before 01/1980") << 0 << QDate(1979, 12, 1) << latest
                                           << neverSold.arg("Series EE bonds were first issued in 01/1980") << red;
        QTest::newRow("E after 06/1980") << 2 << QDate(1980, 7, 1) << latest
                                         << neverSold.arg("Series E bonds were last issued in 06/1980") << red;
        QTest::newRow("Savings Note after 10/1970") << 5 << QDate(1970, 11, 1) << latest
                                                    << neverSold.arg("Savings Notes were last issued in 10/1970") << red;
        QTest::newRow("valued before its issue") << 7 << QDate() << QDate(2021, 11, 1)
                                                 << QStringLiteral("no pricing data: this bond was issued in 03/2026, after the "
                                                                   "valuation month; it has no value before then.")
                                                 << red;
        QTest::newRow("not priced yet") << 0 << QDate(1995, 5, 1) << latest
                                        << QStringLiteral("no pricing data: the database has no value for this bond in that "
                                                          "month. Tools ▸ Update Redemption Values… installs newer values")
                                        << red;
        QTest::newRow("not yet redeemable") << 7 << QDate() << latest << QStringLiteral("not yet redeemable")
                                            << QColor(Qt::blue);
    }
    void valuesSayWhy()
    {
        QFETCH(int, row);
        QFETCH(QDate, issued);
        QFETCH(QDate, valuedAsOf);
        QFETCH(QString, tip);
        QFETCH(QColor, colour);
        PortfolioWindow *window = GuiTest::openSample();
        const QAbstractItemModel *model = window->bondTable()->model();
        if (issued.isValid())
            model->index(row, 0).data(HoldingsTableModel::HoldingRole).value<HoldingRef>()->setIssueDate(Month::of(issued));
        window->valuationPicker()->setDate(valuedAsOf);
        const QModelIndex value = model->index(row, HoldingColumns::Value);
        const QString shown = value.data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.isEmpty() ? shown.isEmpty() : shown.startsWith(tip), qPrintable(shown));
        QCOMPARE(value.data(Qt::FontRole).value<QFont>().italic(), tip.startsWith(QLatin1String("computed")));
        for (int column : {int(HoldingColumns::Series), int(HoldingColumns::Value), int(HoldingColumns::Registration)})
            QCOMPARE(model->index(row, column).data(Qt::ForegroundRole).value<QColor>(), colour);
    }

    // Figures, dates and money sort by what they are, not by how they read.
    void sortingFollowsTheFigures_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<Qt::SortOrder>("order");
        QTest::addColumn<QStringList>("shown");
        const QStringList months{"05/1967", "06/1980", "01/1990", "01/1997", "09/1998", "05/2005", "01/2010", "03/2026"};
        QStringList latestFirst = months;
        std::reverse(latestFirst.begin(), latestFirst.end());
        QTest::newRow("issue months") << int(HoldingColumns::IssueDate) << Qt::AscendingOrder << months;
        QTest::newRow("issue months, latest first") << int(HoldingColumns::IssueDate) << Qt::DescendingOrder << latestFirst;
        QTest::newRow("face values") << int(HoldingColumns::FaceValue) << Qt::AscendingOrder
                                     << QStringList{"$25.00", "$25.00", "$50.00", "$50.00", "$50.00", "$100.00",
                                                    "$100.00", "$1,000.00"};
    }
    void sortingFollowsTheFigures()
    {
        QFETCH(int, column);
        QFETCH(Qt::SortOrder, order);
        QFETCH(QStringList, shown);
        PortfolioWindow *window = GuiTest::openSample();
        BondTableView *table = window->bondTable();
        table->sortByColumn(column, order);
        QStringList texts;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            texts << table->model()->index(row, column).data().toString();
        QCOMPARE(texts, shown);
    }

    void aValuationMonthWithoutValuesIsRefused()
    {
        // A copy of the database with one month missing inside its range.
        const QString path = GuiTest::path("gap.bvdb");
        QVERIFY(QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), path));
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        sqlite3 *db = nullptr;
        QCOMPARE(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
        QCOMPARE(sqlite3_exec(db, "delete from bond_value where ryr = 2015 and rmo = 6", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);

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

    // Another program holds the database (installing a file, say): the table still paints at once,
    // with the figures it read before, since painting reads memory only. (The program's own wait
    // for a held database is 10 seconds.)
    void theTablePaintsWhileAnotherProgramHoldsTheDatabase()
    {
        const QString path = GuiTest::path("held.bvdb");
        QVERIFY(QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), path));
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        auto *portfolio = new BondPortfolio(nullptr, path);
        QString error;
        QVERIFY2(portfolio->readFromFile(GuiTest::samplePath(), &error), qPrintable(error));
        PortfolioWindow window(portfolio);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QModelIndex value = window.bondTable()->model()->index(1, HoldingColumns::Value);
        const QString shown = value.data().toString();
        QVERIFY(shown.startsWith(u'$'));

        sqlite3 *db = nullptr;
        QCOMPARE(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
        // The shipped file keeps its rollback journal: an exclusive lock keeps every reader out.
        QCOMPARE(sqlite3_exec(db, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
        QElapsedTimer clock;
        clock.start();
        window.bondTable()->viewport()->grab();
        const qint64 elapsed = clock.elapsed();
        const QString shownMeanwhile = value.data().toString();
        sqlite3_exec(db, "rollback", nullptr, nullptr, nullptr);
        sqlite3_close(db);
        QVERIFY2(elapsed < 2000, qPrintable(QString::number(elapsed)));
        QCOMPARE(shownMeanwhile, shown);
    }

    void everyPickerFollowsANewDatabaseRange()
    {
        PortfolioWindow *first = GuiTest::openSample();
        PortfolioWindow *second = DocumentManager::instance().newDocument();
        RedemptionDateRangeNotifier::instance()->post(nullptr, BondAssessor::monthDate(1993, 1), BondAssessor::monthDate(2030, 4));
        for (PortfolioWindow *window : {first, second}) {
            QTRY_COMPARE(window->valuationPicker()->maximumDate(), QDate(2030, 4, 1));
            QCOMPARE(window->valuationPicker()->minimumDate(), QDate(1993, 1, 1));
        }
    }

    // Another process installs a later month and sends this one no notice: the picker follows
    // within its periodic check, or at once when the application becomes active again.
    void thePickerFollowsAnotherProcessesInstallation_data()
    {
        QTest::addColumn<bool>("activate");
        QTest::newRow("periodic check") << false;
        QTest::newRow("application activated") << true;
    }
    void thePickerFollowsAnotherProcessesInstallation()
    {
        QFETCH(bool, activate);
        const QString path = GuiTest::path(activate ? QStringLiteral("later-a.bvdb") : QStringLiteral("later-b.bvdb"));
        QVERIFY(QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), path));
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        PortfolioWindow window(new BondPortfolio(nullptr, path));
        window.show();
        ValuationMonthPicker *picker = window.valuationPicker();
        const QDate latest = picker->maximumDate(), later = latest.addMonths(1);
        sqlite3 *db = nullptr;
        QCOMPARE(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
        const QByteArray install = QStringLiteral(
            "begin immediate; insert into bond_value select series, %1, %2, iyr, imo, value from bond_value where ryr = %3 "
            "and rmo = %4; delete from max_rdate; insert into max_rdate values (%1, %2); commit;")
            .arg(later.year()).arg(later.month()).arg(latest.year()).arg(latest.month()).toUtf8();
        QCOMPARE(sqlite3_exec(db, install.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
        QCOMPARE(picker->maximumDate(), latest);
        QSignalSpy figures(window.portfolio(), &BondPortfolio::figuresChanged);
        if (activate) {
            emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
            QCOMPARE(picker->maximumDate(), later);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(picker->maximumDate(), later, 3 * ValuationMonthPicker::RangeCheckInterval);
        }
        QVERIFY(!figures.isEmpty()); // the table and the summary read their figures again
        picker->setDate(later);
        QCOMPARE(window.portfolio()->valueOfDate().date(), later);
    }

    // A damaged file's quantity below 1: the row says so, and the totals count it as no bonds.
    void aQuantityBelowOneIsMarkedAndCountsAsNoBonds()
    {
        PortfolioWindow *window = GuiTest::openSample();
        const QAbstractItemModel *model = window->bondTable()->model();
        const HoldingRef odd = model->index(0, 0).data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
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

    void tabWalksTheEditableCells_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<bool>("backwards");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("to");
        QTest::newRow("next") << int(HoldingColumns::Quantity) << false << 0 << int(HoldingColumns::IssueDate);
        QTest::newRow("over the figures") << int(HoldingColumns::FaceValue) << false << 0 << int(HoldingColumns::SerialNumber);
        QTest::newRow("onto the next line") << int(HoldingColumns::Beneficiary) << false << 1 << int(HoldingColumns::Series);
        QTest::newRow("back over the figures") << int(HoldingColumns::SerialNumber) << true << 0 << int(HoldingColumns::FaceValue);
    }
    void tabWalksTheEditableCells()
    {
        QFETCH(int, from);
        QFETCH(bool, backwards);
        QFETCH(int, row);
        QFETCH(int, to);
        PortfolioWindow *window = GuiTest::openSample();
        BondTableView *table = window->bondTable();
        table->setCurrentIndex(table->model()->index(0, from));
        QTest::keyClick(table, backwards ? Qt::Key_Backtab : Qt::Key_Tab, backwards ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(table->currentIndex(), table->model()->index(row, to));
    }

    void countsDrawEqualOvalsUpToTwoDigits()
    {
        const QFontMetricsF metrics(QApplication::font());
        const QRectF cell(0, 0, 60, 20);
        const QRectF seven = ColorCircleDelegate::ovalRect(cell, "7", metrics);
        QCOMPARE(seven, ColorCircleDelegate::ovalRect(cell, "88", metrics));
        QVERIFY(ColorCircleDelegate::ovalRect(cell, "100", metrics).width() > seven.width());
        QCOMPARE(seven.center().x(), 30.0);
    }

    // Settings saved by earlier versions name the columns by these keys; the table still finds
    // every column by them, and saves them again unchanged.
    void savedColumnKeysStayTheSame()
    {
        const QStringList keys{"series", "quantity", "issueDate", "faceValue", "issuePrice", "interestEarned", "value",
                               "currentYield", "growthRate", "serialNumber", "paper", "owner", "co-owner",
                               "beneficiary", "registration"};
        QCOMPARE(keys.size(), int(HoldingColumns::Count));
        QVariantList saved;
        for (auto key = keys.crbegin(); key != keys.crend(); ++key)
            saved << QVariantMap{{"key", *key}, {"width", 77.0}};
        const QString settingsKey = QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey);
        UserDefaults::setValue(settingsKey, saved);
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        QHeaderView *header = window->bondTable()->horizontalHeader();
        for (int column = 0; column < HoldingColumns::Count; ++column) {
            QCOMPARE(header->visualIndex(column), HoldingColumns::Count - 1 - column);
            QCOMPARE(header->sectionSize(column), 77);
        }
        QCOMPARE(window->columns()->currentSettings(), saved);
        UserDefaults::remove(settingsKey);
    }
};

QUILLMERE_GUI_TEST_MAIN(BondTableTest)
#include "tst_bond_table.moc"
