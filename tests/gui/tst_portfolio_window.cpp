// The portfolio window as a user meets it: filtering by people, adding, naming and pasting bonds,
// undo, the toolbar and menus, the column settings, refusals, and closing with unsaved changes.
#include "GuiTestMain.h"
#include "BondTableColumns.h"
#include "BondTableView.h"
#include "ColorCircleDelegate.h"
#include "HoldingColumns.h"
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "PortfolioWindow.h"
#include "ValuationMonthPicker.h"
#include "model/UserDefaults.h"
#include "update/RedemptionDateRangeNotifier.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFont>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUndoStack>
#include <sqlite3.h>

using Id = PortfolioWindow::ActionId;

class PortfolioWindowTest : public QObject
{
    Q_OBJECT

    static PortfolioWindow *openSample()
    {
        PortfolioWindow *window = GuiTest::openSample();
        if (window)
            new QAbstractItemModelTester(window->shownHoldingsModel(), window);
        return window;
    }

    static int rowOfPerson(PortfolioWindow *window, const QString &name)
    {
        QAbstractItemModel *model = window->peopleTable()->model();
        const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        return found.isEmpty() ? -1 : found.first().row();
    }

    static void selectRows(QAbstractItemView *view, const QList<int> &rows)
    {
        view->selectionModel()->clearSelection();
        for (int row : rows)
            view->selectionModel()->select(view->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    static void selectPeople(PortfolioWindow *window, const QStringList &names)
    {
        QList<int> rows;
        for (const QString &name : names)
            rows << rowOfPerson(window, name);
        selectRows(window->peopleTable(), rows);
    }

    static QStringList alertTexts(QWidget *window)
    {
        QStringList texts;
        for (QMessageBox *box : window->findChildren<QMessageBox *>())
            texts << box->text();
        return texts;
    }

    // Drags the data onto Rosa Delgado's row of the people table; true if the table takes it.
    static bool dropOnRosa(PortfolioWindow *window, QMimeData *data, Qt::DropAction action)
    {
        QWidget *target = window->peopleTable()->viewport();
        const QModelIndex rosa = window->peopleTable()->model()->index(rowOfPerson(window, "Rosa Delgado"), 0);
        const QPointF at = window->peopleTable()->visualRect(rosa).center();
        QDragEnterEvent enter(at.toPoint(), action, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(at, action, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
        return true;
    }

private slots:
    void cleanup()
    {
        GuiTest::discardWindows();
        QApplication::clipboard()->clear();
    }

    void filtersBondsByPeople_data()
    {
        QTest::addColumn<QStringList>("people");
        QTest::addColumn<int>("rowsShown");
        QTest::newRow("nobody") << QStringList() << 8;
        QTest::newRow("one person") << QStringList{"Margaret Whitfield"} << 4;
        QTest::newRow("two people") << QStringList{"Margaret Whitfield", "Thomas Whitfield"} << 6;
    }
    void filtersBondsByPeople()
    {
        QFETCH(QStringList, people);
        QFETCH(int, rowsShown);
        PortfolioWindow *window = openSample();
        QVERIFY(window);
        new QAbstractItemModelTester(window->peopleTable()->model(), window);
        const QString allTotals = window->totalsText();
        selectPeople(window, people);
        QCOMPARE(window->bondTable()->model()->rowCount(), rowsShown);
        // The summary and the totals line cover exactly the rows shown.
        QCOMPARE(window->portfolio()->shownHoldings().size(), rowsShown);
        QTRY_COMPARE(window->totalsText() == allTotals, people.isEmpty());
    }

    void aNewBondStaysVisibleUnderAFilter()
    {
        PortfolioWindow *window = openSample();
        selectPeople(window, {QStringLiteral("Rosa Delgado")});
        QCOMPARE(window->bondTable()->model()->rowCount(), 1);
        window->action(Id::AddBond)->trigger();
        QCOMPARE(window->bondTable()->model()->rowCount(), 2);
        QCOMPARE(window->bondTable()->currentIndex().data().toString(), QStringLiteral("EE Bond"));
        selectPeople(window, {QStringLiteral("Rosa Delgado")});
        QCOMPARE(window->bondTable()->model()->rowCount(), 1);
    }

    void droppingBondsNamesTheRole_data()
    {
        QTest::addColumn<Qt::DropAction>("action");
        QTest::addColumn<QString>("role");
        QTest::newRow("plain drag: owner") << Qt::MoveAction << HoldingKey::Owner;
        QTest::newRow("link drag: co-owner") << Qt::LinkAction << HoldingKey::CoOwner;
        QTest::newRow("copy drag: beneficiary") << Qt::CopyAction << HoldingKey::Beneficiary;
    }
    void droppingBondsNamesTheRole()
    {
        QFETCH(Qt::DropAction, action);
        QFETCH(QString, role);
        PortfolioWindow *window = openSample();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QUndoStack *undo = window->portfolio()->undoStack();
        const QList<int> rows{0, 2, 5};
        QList<HoldingRef> bonds;
        for (int row : rows)
            bonds << window->bondTable()->model()->index(row, 0).data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
        const int stepsBefore = undo->count();
        std::unique_ptr<QMimeData> data(window->bondTable()->mimeDataForRows(rows));
        QVERIFY(dropOnRosa(window, data.get(), action));

        auto named = [&role](const HoldingRef &bond) {
            const PersonRef person = bond->valueForKey(role).value<PersonRef>();
            return person ? person->name() : QString();
        };
        for (const HoldingRef &bond : bonds)
            QCOMPARE(named(bond), QStringLiteral("Rosa Delgado"));
        QCOMPARE(undo->count(), stepsBefore + 3);
        for (int k = 0; k < 3; ++k)
            undo->undo();
        for (const HoldingRef &bond : bonds)
            QVERIFY(named(bond) != QStringLiteral("Rosa Delgado"));
        QVERIFY(!window->isWindowModified());
    }

    void dropsFromAnotherWindowAreRefused()
    {
        PortfolioWindow *window = openSample();
        std::unique_ptr<QMimeData> data(DocumentManager::instance().newDocument()->bondTable()->mimeDataForRows({0}));
        QVERIFY(!dropOnRosa(window, data.get(), Qt::MoveAction));
    }

    void undoAndRedoCarryTheActionNames_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("name");
        QTest::newRow("edit") << 0 << "Edit";
        QTest::newRow("insert") << 1 << "Insert Holding";
        QTest::newRow("delete") << 2 << "Delete Holding";
        QTest::newRow("people") << 3 << "Edit People";
    }
    void undoAndRedoCarryTheActionNames()
    {
        QFETCH(int, command);
        QFETCH(QString, name);
        PortfolioWindow *window = openSample();
        QVERIFY(!window->isWindowModified());
        QAbstractItemModel *bonds = window->bondTable()->model();
        switch (command) {
        case 0:
            QVERIFY(bonds->setData(bonds->index(0, HoldingColumns::FaceValue), QStringLiteral("200"), Qt::EditRole));
            QCOMPARE(bonds->index(0, HoldingColumns::FaceValue).data().toString(), QStringLiteral("$200.00"));
            break;
        case 1:
            window->action(Id::AddBond)->trigger();
            break;
        case 2:
            selectRows(window->bondTable(), {1});
            window->action(Id::RemoveBond)->trigger();
            break;
        case 3:
            selectPeople(window, {QStringLiteral("Rosa Delgado")});
            window->deleteSelectedPeople();
            QCOMPARE(rowOfPerson(window, "Rosa Delgado"), -1);
            break;
        }
        QCOMPARE(window->action(Id::Undo)->text(), QStringLiteral("Undo ") + name);
        QVERIFY(window->isWindowModified());
        window->action(Id::Undo)->trigger();
        QCOMPARE(window->action(Id::Redo)->text(), QStringLiteral("Redo ") + name);
        QVERIFY(!window->isWindowModified());
        QCOMPARE(bonds->rowCount(), 8);
        QVERIFY(rowOfPerson(window, "Rosa Delgado") >= 0);
    }

    void columnSettingsCarryOverToTheNextWindow()
    {
        PortfolioWindow *first = openSample();
        QHeaderView *header = first->bondTable()->horizontalHeader();
        first->columns()->toggleColumnVisibility(QStringLiteral("Face Value"));
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
        second->columns()->toggleColumnVisibility(QStringLiteral("Face Value"));
        const QVariantList saved = UserDefaults::value(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey)).toList();
        QCOMPARE(saved.size(), int(HoldingColumns::Count));
        QCOMPARE(saved.last().toMap().value("key").toString(), QStringLiteral("faceValue"));
        QCOMPARE(saved.first().toMap().value("key").toString(), QStringLiteral("registration"));
        UserDefaults::remove(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey));
    }

    void toolbarEnabling_data()
    {
        QTest::addColumn<bool>("sample");
        QTest::addColumn<bool>("selection");
        // add bond, remove bond, print, csv, qif, add person, copy, cut, delete, paste
        QTest::addColumn<QList<bool>>("enabled");
        QTest::newRow("empty portfolio") << false << false << QList<bool>{1, 0, 0, 0, 0, 1, 0, 0, 0, 1};
        QTest::newRow("holdings, none selected") << true << false << QList<bool>{1, 0, 1, 1, 1, 1, 0, 0, 0, 1};
        QTest::newRow("holdings, one selected") << true << true << QList<bool>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    }
    void toolbarEnabling()
    {
        QFETCH(bool, sample);
        QFETCH(bool, selection);
        QFETCH(QList<bool>, enabled);
        PortfolioWindow *window = sample ? openSample() : DocumentManager::instance().newDocument();
        if (selection)
            selectRows(window->bondTable(), {0});
        const QList<Id> ids{Id::AddBond, Id::RemoveBond, Id::Print, Id::ExportCsv, Id::ExportQif,
                            Id::AddPerson, Id::Copy, Id::Cut, Id::Delete, Id::Paste};
        for (qsizetype k = 0; k < ids.size(); ++k)
            QVERIFY2(window->action(ids.at(k))->isEnabled() == enabled.at(k), qPrintable(window->action(ids.at(k))->text()));
    }

    void pasteTakesOnlyThisProgramsBonds_data()
    {
        QTest::addColumn<QStringList>("formats");
        QTest::addColumn<int>("added");
        QTest::newRow("bonds") << QStringList{"QBBondPortfolioHoldings"} << 2;
        QTest::newRow("text") << QStringList{"text/plain"} << 0;
        QTest::newRow("bonds second") << QStringList{"text/plain", "QBBondPortfolioHoldings"} << 0;
    }
    void pasteTakesOnlyThisProgramsBonds()
    {
        QFETCH(QStringList, formats);
        QFETCH(int, added);
        PortfolioWindow *source = openSample();
        selectRows(source->bondTable(), {0, 1});
        source->action(Id::Copy)->trigger();
        const QByteArray bonds = QApplication::clipboard()->mimeData()->data("QBBondPortfolioHoldings");
        QVERIFY(!bonds.isEmpty());
        auto *data = new QMimeData;
        for (const QString &format : formats)
            data->setData(format, format == QLatin1String("text/plain") ? QByteArray("EE,100") : bonds);
        QApplication::clipboard()->setMimeData(data);

        PortfolioWindow *target = DocumentManager::instance().newDocument();
        target->action(Id::Paste)->trigger();
        QCOMPARE(target->portfolio()->holdings().size(), added);
        QCOMPARE(target->portfolio()->undoStack()->count() > 0, added > 0);
        if (added) {
            QCOMPARE(target->portfolio()->holdings().at(1)->faceValue(), source->portfolio()->holdings().at(1)->faceValue());
            // An owner the new portfolio did not list joins its title holders.
            QVERIFY(rowOfPerson(target, "Thomas Whitfield") >= 0);
        }
    }

    void anIssueMonthWithoutValuesIsRefused()
    {
        PortfolioWindow *window = openSample();
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
        QTRY_COMPARE(alertTexts(window), QStringList{QString::fromLatin1(Holding::NoIssueDataMessage)});
        QCOMPARE(table->model()->index(0, HoldingColumns::IssueDate).data().toString(), before);
        QVERIFY(!window->isWindowModified());
    }

    // The sample's 2005 EE bond is valued from its fixed rate past the Treasury's files; its 1997
    // I bond (never issued) has no value at all. Both say so.
    void computedAndMissingValuesSayWhy()
    {
        PortfolioWindow *window = openSample();
        const QAbstractItemModel *model = window->bondTable()->model();
        const QModelIndex computed = model->index(1, HoldingColumns::Value);
        const QModelIndex missing = model->index(6, HoldingColumns::Value);
        QCOMPARE(model->index(1, HoldingColumns::IssueDate).data().toString(), QStringLiteral("05/2005"));
        QVERIFY(computed.data(Qt::FontRole).value<QFont>().italic());
        QVERIFY(computed.data(Qt::ToolTipRole).toString().startsWith(QStringLiteral("computed: ")));
        QVERIFY(!missing.data(Qt::FontRole).value<QFont>().italic());
        QVERIFY(missing.data(Qt::ToolTipRole).toString().startsWith(QStringLiteral("no pricing data: ")));
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
        QCOMPARE(alertTexts(&window), QStringList{QString::fromLatin1(BondPortfolio::NoValuationDataMessage)});
        window.valuationPicker()->setDate(QDate(2015, 7, 1));
        QCOMPARE(window.portfolio()->valueOfDate().date(), QDate(2015, 7, 1));
    }

    void everyPickerFollowsANewDatabaseRange()
    {
        PortfolioWindow *first = openSample();
        PortfolioWindow *second = DocumentManager::instance().newDocument();
        RedemptionDateRangeNotifier::instance()->post(nullptr, BondAssessor::monthDate(1993, 1), BondAssessor::monthDate(2030, 4));
        for (PortfolioWindow *window : {first, second}) {
            QTRY_COMPARE(window->valuationPicker()->maximumDate(), QDate(2030, 4, 1));
            QCOMPARE(window->valuationPicker()->minimumDate(), QDate(1993, 1, 1));
        }
    }

    void closingAnEditedWindowAsks_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("closes");
        QTest::newRow("cancel") << "Cancel" << false;
        QTest::newRow("don't save") << "Don't Save" << true;
    }
    void closingAnEditedWindowAsks()
    {
        QFETCH(QString, answer);
        QFETCH(bool, closes);
        PortfolioWindow *window = openSample();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        window->action(Id::AddBond)->trigger();
        QString question;
        QTimer::singleShot(0, window, [&] {
            for (QMessageBox *box : window->findChildren<QMessageBox *>()) {
                question = box->text();
                for (QAbstractButton *button : box->buttons()) {
                    if (button->text() == answer)
                        button->click();
                }
            }
        });
        QPointer<PortfolioWindow> guard(window);
        QCOMPARE(window->close(), closes);
        QCOMPARE(question, QStringLiteral("Do you want to save the changes you made to \"sample\"?"));
        if (closes)
            QTRY_VERIFY(guard.isNull());
        else
            QVERIFY(window->isVisible());
    }

    void filesOpenOnceAndWhatIsNoPortfolioIsRefused()
    {
        PortfolioWindow *window = openSample();
        QCOMPARE(openSample(), window);
        QFile junk(GuiTest::path("junk.bondportfolio"));
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write("this is no portfolio");
        junk.close();
        QVERIFY(!DocumentManager::instance().openFile(junk.fileName(), window));
        QCOMPARE(DocumentManager::instance().windows().size(), 1);
        QCOMPARE(alertTexts(window).size(), 1);
        QCOMPARE(window->windowFilePath(), QFileInfo(GuiTest::samplePath()).absoluteFilePath());
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
        PortfolioWindow *window = openSample();
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

    void columnIdentifiersFollowTheirTitles()
    {
        QCOMPARE(HoldingColumns::identifierForTitle("Face Value"), QStringLiteral("faceValue"));
        QCOMPARE(HoldingColumns::identifierForTitle("Interest Earned Today"), QStringLiteral("interestEarnedToday"));
        QCOMPARE(HoldingColumns::identifierForTitle("SERIES"), QStringLiteral("series"));
        for (int column = 0; column < HoldingColumns::Count; ++column)
            QCOMPARE(HoldingColumns::columnForIdentifier(HoldingColumns::identifier(column)), column);
    }
};

#include "tst_portfolio_window.moc"

QUILLMERE_GUI_TEST_MAIN(PortfolioWindowTest)
