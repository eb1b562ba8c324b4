// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The portfolio window: people filter, naming by drops, undo names, toolbar, keys, typed months, yields, summaries, closing.
#include "GuiTestMain.h"
#include "../support/TaxYearPortfolio.h"
#include "BondTableView.h"
#include "HoldingColumns.h"
#include "InterestSummaryModel.h"
#include "ValuationMonthPicker.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>
#include <QTimer>
#include <QUndoStack>

using Id = PortfolioWindow::ActionId;

struct TotalsCase
{
    QStringList people;
    int rowsShown, quantityOf1997Bond;
    QDate valuedAsOf;
    int bondsShown;
    QString sums, note;
    QString stopped = QStringLiteral("4 bonds no longer earn interest: $833.13"); // the sample's three matured holdings
};

// The command, its name in Undo and Redo; for a drop on a person, how it drags and the column it names.
using UndoCase = std::tuple<int, QString, Qt::DropAction, int>;

class PortfolioWindowTest : public QObject
{
    Q_OBJECT

    static int rowOfPerson(PortfolioWindow *window, const QString &name)
    {
        QAbstractItemModel *model = window->peopleTable()->model();
        const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        return found.isEmpty() ? -1 : found.first().row();
    }

    static void selectPeople(PortfolioWindow *window, const QStringList &names)
    {
        QList<int> rows;
        for (const QString &name : names)
            rows << rowOfPerson(window, name);
        GuiTest::selectRows(window->peopleTable(), rows);
    }

    static QStringList everyCell(const QAbstractItemModel *model)
    {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells << GuiTest::columnTexts(model, column);
        return cells;
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

    // Table, summary and totals cover the people chosen; the totals leave out and count the never sold 1997 I bond and
    // the 2026 one valued before its issue.
    void filtersAndTotalsFollowThePeopleChosen_data()
    {
        QTest::addColumn<TotalsCase>("c");
        const QDate latest(2026, 11, 1);
        QTest::newRow("nobody") << TotalsCase{{}, 8, 1, latest, 13, "face value $1,700.00 · issue price $1,584.25",
                                              "1 bond without pricing data is not in these totals"};
        QTest::newRow("one person, none left out") << TotalsCase{{"Margaret Whitfield"}, 4, 1, latest, 6,
                                                                 "face value $375.00 · issue price $259.25", {}};
        QTest::newRow("none stopped earning") << TotalsCase{{"Eleanor Whitfield"}, 2, 1, latest, 5,
                                                            "face value $1,200.00 · issue price $1,200.00", {}, {}};
        QTest::newRow("two people") << TotalsCase{{"Margaret Whitfield", "Thomas Whitfield"}, 6, 1, latest, 11,
                                                  "face value $675.00 · issue price $559.25",
                                                  "1 bond without pricing data is not in these totals"};
        QTest::newRow("one holding of three") << TotalsCase{{}, 8, 3, latest, 15, "face value $1,900.00 · issue price $1,784.25",
                                                            "3 bonds without pricing data are not in these totals"};
        QTest::newRow("two holdings") << TotalsCase{{}, 8, 3, {2021, 11, 1}, 15, "face value $1,900.00 · issue price $1,784.25",
                                                    "4 bonds without pricing data are not in these totals"};
    }
    void filtersAndTotalsFollowThePeopleChosen()
    {
        QFETCH(TotalsCase, c);
        PortfolioWindow *window = GuiTest::openSample();
        new QAbstractItemModelTester(window->peopleTable()->model(), window);
        auto summaryText = [window] { return GuiTest::columnTexts(window->summaryTable()->model(), 1).join(u' '); };
        window->portfolio()->holdings().at(6)->setQuantity(c.quantityOf1997Bond);
        window->valuationPicker()->setDate(c.valuedAsOf);
        const QString allSummary = summaryText();
        selectPeople(window, c.people);
        QCOMPARE(window->bondTable()->model()->rowCount(), c.rowsShown);
        QCOMPARE(window->shownHoldingsModel()->shownHoldings().size(), c.rowsShown);
        QTRY_COMPARE(summaryText() == allSummary, c.people.isEmpty());
        QTRY_VERIFY2(window->totalsText().startsWith(QStringLiteral("Total of %1 bond(s) shown:").arg(c.bondsShown)),
                     qPrintable(window->totalsText()));
        const QStringList lines = window->totalsText().split(u'\n');
        QVERIFY2(lines.first().contains(c.sums), qPrintable(lines.first()));
        QCOMPARE(lines.mid(1), (QStringList{c.note, c.stopped}.filter(QRegularExpression(QStringLiteral(".")))));
    }

    // Every command is one step, however many bonds or people it takes, and Undo puts every cell back.
    void undoAndRedoCarryTheActionNames_data()
    {
        QTest::addColumn<UndoCase>("c");
        QTest::newRow("edit") << UndoCase{0, "Edit", {}, 0};
        QTest::newRow("insert") << UndoCase{1, "Insert Holding", {}, 0};
        QTest::newRow("paste") << UndoCase{2, "Insert Holding", {}, 0};
        QTest::newRow("delete") << UndoCase{3, "Delete Holding", {}, 0};
        QTest::newRow("people") << UndoCase{4, "Edit People", {}, 0};
        QTest::newRow("plain drag: owner") << UndoCase{5, "Edit", Qt::MoveAction, HoldingColumns::Owner};
        QTest::newRow("link drag: co-owner") << UndoCase{5, "Edit", Qt::LinkAction, HoldingColumns::CoOwner};
        QTest::newRow("copy drag: beneficiary") << UndoCase{5, "Edit", Qt::CopyAction, HoldingColumns::Beneficiary};
    }
    void undoAndRedoCarryTheActionNames()
    {
        QFETCH(UndoCase, c);
        const auto &[command, name, drag, role] = c;
        PortfolioWindow *window = GuiTest::openSample();
        for (int k = 0; k < 12; ++k)
            window->portfolio()->addNewHolding(8);
        window->portfolio()->undoStack()->clear();
        QVERIFY(!window->isWindowModified());
        QAbstractItemModel *bonds = window->bondTable()->model();
        const QStringList cells = everyCell(bonds), people = GuiTest::columnTexts(window->peopleTable()->model(), 0);
        switch (command) {
        case 0:
            QVERIFY(bonds->setData(bonds->index(0, HoldingColumns::FaceValue), QStringLiteral("200"), Qt::EditRole));
            QCOMPARE(bonds->index(0, HoldingColumns::FaceValue).data().toString(), QStringLiteral("$200.00"));
            break;
        case 1:
            window->action(Id::AddBond)->trigger();
            break;
        case 2:
            GuiTest::selectRows(window->bondTable(), {0, 1, 2});
            window->action(Id::Copy)->trigger();
            window->action(Id::Paste)->trigger();
            QCOMPARE(bonds->rowCount(), 23);
            break;
        case 3:
            window->bondTable()->selectAll();
            window->action(Id::RemoveBond)->trigger();
            QCOMPARE(bonds->rowCount(), 0);
            break;
        case 4:
            selectPeople(window, {QStringLiteral("Rosa Delgado"), QStringLiteral("Samuel Whitfield")});
            window->deleteSelectedPeople();
            QCOMPARE(rowOfPerson(window, "Rosa Delgado"), -1);
            QCOMPARE(rowOfPerson(window, "Samuel Whitfield"), -1);
            break;
        case 5:
            QVERIFY(QTest::qWaitForWindowExposed(window));
            std::unique_ptr<QMimeData> data(window->bondTable()->mimeDataForRows({0, 2, 5}));
            QVERIFY(dropOnRosa(window, data.get(), drag));
            for (int row : {0, 2, 5})
                QCOMPARE(bonds->index(row, role).data().toString(), QStringLiteral("Rosa Delgado"));
            break;
        }
        QCOMPARE(window->portfolio()->undoStack()->count(), 1);
        QCOMPARE(window->action(Id::Undo)->text(), QStringLiteral("Undo ") + name);
        QVERIFY(window->isWindowModified());
        window->action(Id::Undo)->trigger();
        QCOMPARE(window->action(Id::Redo)->text(), QStringLiteral("Redo ") + name);
        QVERIFY(!window->isWindowModified());
        QCOMPARE(everyCell(bonds), cells);
        QCOMPARE(GuiTest::columnTexts(window->peopleTable()->model(), 0), people);
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
        PortfolioWindow *window = sample ? GuiTest::openSample() : DocumentManager::instance().newDocument();
        if (selection)
            GuiTest::selectRows(window->bondTable(), {0});
        const QList<Id> ids{Id::AddBond, Id::RemoveBond, Id::Print, Id::ExportCsv, Id::ExportQif,
                            Id::AddPerson, Id::Copy, Id::Cut, Id::Delete, Id::Paste};
        for (qsizetype k = 0; k < ids.size(); ++k)
            QVERIFY2(window->action(ids.at(k))->isEnabled() == enabled.at(k), qPrintable(window->action(ids.at(k))->text()));
    }

    void commandsHaveTheirKeys_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QKeySequence>("key");
        QTest::newRow("Save As") << "Save As…" << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
        QTest::newRow("Redo") << "Redo" << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
        QTest::newRow("Redo, the other key") << "Redo" << QKeySequence(Qt::CTRL | Qt::Key_Y);
        QTest::newRow("Undo") << "Undo" << QKeySequence(Qt::CTRL | Qt::Key_Z);
        QTest::newRow("Save") << "Save" << QKeySequence(Qt::CTRL | Qt::Key_S);
        QTest::newRow("Help") << "Quillmere Help" << QKeySequence(Qt::Key_F1);
    }

    void commandsHaveTheirKeys()
    {
        QFETCH(QString, command);
        QFETCH(QKeySequence, key);
        PortfolioWindow *window = GuiTest::openSample();
        QAction *found = nullptr;
        for (QAction *menu : window->menuBar()->actions()) {
            for (QAction *item : menu->menu()->actions()) {
                if (item->text().remove(QLatin1Char('&')) == command)
                    found = item;
            }
        }
        QVERIFY2(found, qPrintable(command));
        QVERIFY2(found->shortcuts().contains(key), qPrintable(found->shortcut().toString()));
    }

    void typingAMonthIntoThePickerSetsIt()
    {
        PortfolioWindow *window = GuiTest::openSample();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        ValuationMonthPicker *picker = window->valuationPicker();
        picker->setFocus();
        QTRY_VERIFY(picker->hasFocus());
        QTest::keyClicks(picker, QStringLiteral("05"));
        QTRY_COMPARE(window->portfolio()->valueOfMonth(), Month(2026, 5));
    }

    // At 10/2026 (period 05-11/2026) the 03/2026 I bond lacked a start value; the 01/1997 I bond has none at all.
    void aYieldWithoutDataIsBlankAndSortsLast_data()
    {
        QTest::addColumn<Qt::SortOrder>("order");
        QTest::newRow("ascending") << Qt::AscendingOrder;
        QTest::newRow("descending") << Qt::DescendingOrder;
    }

    void aYieldWithoutDataIsBlankAndSortsLast()
    {
        QFETCH(Qt::SortOrder, order);
        PortfolioWindow *window = GuiTest::openSample();
        QVERIFY(window->portfolio()->setValueOfDate(Month(2026, 10).toDateTime()));
        window->bondTable()->sortByColumn(HoldingColumns::CurrentYield, order);
        const QStringList yields = GuiTest::columnTexts(window->shownHoldingsModel(), HoldingColumns::CurrentYield);
        QCOMPARE(yields.count(QString()), 2);
        QCOMPARE(yields.mid(yields.size() - 2), QStringList({QString(), QString()}));
        QVERIFY(yields.first().endsWith(QLatin1Char('%')));
        const double first = yields.first().chopped(1).toDouble(), next = yields.at(1).chopped(1).toDouble();
        QVERIFY(order == Qt::AscendingOrder ? first <= next : first >= next);
    }

    void summaryRowsSayWhatTheyCover()
    {
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        // An E bond whose six-month period 09/2001 to 02/2002 has no official value at all.
        TaxYearPortfolio::addBond(*window->portfolio(), "E", Month(1975, 9), 10000);
        InterestSummaryModel *summary = window->summaryModel();
        QTRY_VERIFY(summary->rowCount() > 0);
        QCOMPARE(summary->index(0, InterestSummaryModel::TaxYear).data().toString(), QStringLiteral("1992 and before"));
        QStringList incomplete;
        for (int row = 0; row < summary->rowCount(); ++row) {
            const QModelIndex interest = summary->index(row, InterestSummaryModel::Interest);
            if (interest.data().toString().endsWith(QLatin1String(" (incomplete)")))
                incomplete << summary->index(row, InterestSummaryModel::TaxYear).data().toString();
            QCOMPARE(interest.data(Qt::ToolTipRole).isValid(), interest.data().toString().endsWith(QLatin1String(" (incomplete)")));
        }
        QCOMPARE(incomplete, QStringList{QStringLiteral("2001")});
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
        PortfolioWindow *window = GuiTest::openSample();
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

    // The save alert gives the system's reason, and the file on disk stays as it was.
    void aFailedSaveSaysWhy()
    {
        PortfolioWindow *window = GuiTest::openSample();
        const QString path = GuiTest::path(QStringLiteral("failing.bondportfolio"));
        QVERIFY(window->saveAs(path));
        const QByteArray before = GuiTest::readFile(path);
        window->portfolio()->holdings().at(0)->setQuantity(5);
        const std::pair<int, const char *> failures[] = {
            {ENOSPC, "the disk is full"}, {EACCES, "permission denied"}, {EROFS, "read-only file system"}};
        for (const auto &[error, why] : failures) {
            DocumentFileWriter::failWritesForTesting(error);
            const bool saved = window->save();
            DocumentFileWriter::failWritesForTesting(0);
            QVERIFY(!saved);
            QCOMPARE(GuiTest::alertTexts(window).constLast(),
                     QStringLiteral("Could not save the portfolio to %1: %2. The file on disk is unchanged.").arg(path, why));
        }
        QCOMPARE(GuiTest::readFile(path), before);
        QVERIFY(window->portfolio()->isEdited());
    }
};

#include "tst_portfolio_window.moc"

QUILLMERE_GUI_TEST_MAIN(PortfolioWindowTest)
