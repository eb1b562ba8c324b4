// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Cashing bonds in the window: the redemption dialog, the redeemed view, the tax report with its exports, the notice of
// bonds reaching final maturity; on the hand-made portfolio whose 2021 figures the document's own tests know.
#include "GuiTestMain.h"
#include "../support/TaxYearPortfolio.h"
#include "BondTableView.h"
#include "InterestSummaryModel.h"
#include "MaturityNoticeBar.h"
#include "RedeemDialog.h"
#include "RedeemedBondsPanel.h"
#include "RedeemedTableModel.h"
#include "TaxYearDialog.h"
#include "TaxYearTableModel.h"
#include "base/Series.h"
#include "model/PeopleStore.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableView>
#include <QToolButton>
#include <QUndoStack>

using TaxYearPortfolio::addBond;

// Bonds held, month typed, bonds redeemed, amount typed (empty: as offered), amount offered, the refusal, amount kept.
using RedeemCase = std::tuple<int, QString, int, QString, qint64, QString, qint64>;

class RedemptionsTest : public QObject
{
    Q_OBJECT

    PortfolioWindow *window = nullptr;
    BondPortfolio *portfolio = nullptr;
    PersonRef alice, bob;

    void valueAsOf(int year, int month) { QVERIFY(portfolio->setValueOfDate(Month(year, month).toDateTime())); }
    void makeTaxYearPortfolio() { QVERIFY(TaxYearPortfolio::make(*portfolio, alice, bob)); }

private slots:
    void init()
    {
        window = DocumentManager::instance().newDocument();
        portfolio = window->portfolio();
        alice = Person::create(PeopleStore::shared().createRecord({.firstName = "Alice", .lastName = "Able"}));
        bob = Person::create(PeopleStore::shared().createRecord({.firstName = "Bob", .lastName = "Baker"}));
        portfolio->setTitleHolders({alice, bob});
    }
    void cleanup()
    {
        GuiTest::discardWindows();
    }

    // Month and amount start as valued; a refusal says why and keeps OK off; some bonds of a holding leave the rest held.
    void redeemThroughTheDialog_data()
    {
        QTest::addColumn<RedeemCase>("c");
        QTest::newRow("as offered") << RedeemCase{1, "", 1, "", 10416, "", 10416};
        QTest::newRow("two of three") << RedeemCase{3, "", 2, "", 3 * 10416, "", 2 * 10416};
        QTest::newRow("one of three, as paid") << RedeemCase{3, "", 1, "$110.00", 3 * 10416, "", 11000};
        QTest::newRow("before issue")
            << RedeemCase{1, "04/2019", 1, "", 10416, "The redemption month cannot be before the issue month, 05/2019.",
                          0};
        QTest::newRow("within the first year")
            << RedeemCase{1, "04/2020", 1, "", 10416, "These bonds cannot be cashed before 05/2020.", 0};
        QTest::newRow("no amount")
            << RedeemCase{1, "", 1, "a lot", 10416, "Type the amount received in dollars, such as 1,234.56.", 0};
    }
    void redeemThroughTheDialog()
    {
        QFETCH(RedeemCase, c);
        const auto &[quantity, typedMonth, redeemed, typedAmount, defaultAmount, refusal, received] = c;
        valueAsOf(2021, 8);
        const HoldingRef held = addBond(*portfolio, "I", Month(2019, 5), 10000, quantity, alice);
        portfolio->undoStack()->clear();
        GuiTest::selectRows(window->bondTable(), {int(window->arrangedHoldings().indexOf(held))});
        window->action(PortfolioWindow::ActionId::Redeem)->trigger();
        RedeemDialog *dialog = window->findChild<RedeemDialog *>();
        QVERIFY(dialog);
        QCOMPARE(dialog->month(), Month(2021, 8));
        QCOMPARE(dialog->amount(), defaultAmount);
        if (!typedMonth.isEmpty())
            dialog->setMonth(Month::fromString(typedMonth, Month::Form::Slash));
        dialog->setQuantity(redeemed);
        if (!typedAmount.isEmpty())
            dialog->setAmountText(typedAmount);
        QCOMPARE(dialog->refusal(), refusal);
        QCOMPARE(dialog->okButton()->isEnabled(), refusal.isEmpty());
        dialog->okButton()->click();
        if (!refusal.isEmpty()) {
            QVERIFY(portfolio->redeemedHoldings().isEmpty());
            QCOMPARE(portfolio->undoStack()->count(), 0);
            return;
        }
        QCOMPARE(portfolio->redeemedHoldings().size(), 1);
        const HoldingRef cashed = portfolio->redeemedHoldings().first();
        QCOMPARE(cashed->quantity(), redeemed);
        QCOMPARE(cashed->amountReceived(), received);
        QCOMPARE(cashed->redemptionMonth(), Month(2021, 8));
        QCOMPARE(portfolio->holdings().size(), quantity > redeemed ? 1 : 0);
        QCOMPARE(portfolio->undoStack()->count(), 1);
        QCOMPARE(window->action(PortfolioWindow::ActionId::Undo)->text(), QStringLiteral("Undo Redeem"));
        portfolio->undoStack()->undo();
        QVERIFY(portfolio->redeemedHoldings().isEmpty());
        QCOMPARE(held->quantity(), quantity);
        QCOMPARE(window->action(PortfolioWindow::ActionId::Redo)->text(), QStringLiteral("Redo Redeem"));
    }

    // Several holdings at once: each is cashed whole at its own value, in one step.
    void redeemSeveralHoldings()
    {
        valueAsOf(2021, 8);
        const HoldingRef first = addBond(*portfolio, "I", Month(2019, 5), 10000, 2);
        const HoldingRef second = addBond(*portfolio, "I", Month(2019, 5), 10000);
        portfolio->undoStack()->clear();
        GuiTest::selectRows(window->bondTable(), {0, 1});
        window->redeemSelectedBonds();
        RedeemDialog *dialog = window->findChild<RedeemDialog *>();
        QCOMPARE(dialog->amount(), 3 * 10416);
        QVERIFY(dialog->redeem());
        QCOMPARE(portfolio->redeemedHoldings(), (QList<HoldingRef>{first, second}));
        QCOMPARE(second->amountReceived(), 10416);
        QCOMPARE(portfolio->undoStack()->count(), 1);
    }

    // The redeemed view lists the cashed bonds; the held bonds' totals and summary count them only once put back.
    void redeemedViewAndHeldFigures_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QStringList>("cells");
        QTest::addColumn<int>("aliceHoldsAfterUnredeem"); // holdings she is owner of
        // Series, quantity, face, issue, redeemed, amount, interest, tax year, serial, people.
        QTest::newRow("cashed in 2021") << 0 << QStringList{"I Bond", "1", "$1,000.00", "01/2010", "03/2021", "$1,500.00", "$500.00",
                                                            "2021", "", "Alice Able"} << 3;
        QTest::newRow("matured long before") << 2 << QStringList{"E Bond", "1", "$100.00", "01/1966", "05/2021", "$600.00", "$525.00",
                                                                 "1996", "", "Alice Able"} << 3;
        QTest::newRow("no owner") << 3 << QStringList{"I Bond", "1", "$100.00", "05/2019", "08/2021", "$104.16", "$4.16", "2021", "", ""} << 2;
    }
    void redeemedViewAndHeldFigures()
    {
        QFETCH(int, row);
        QFETCH(QStringList, cells);
        QFETCH(int, aliceHoldsAfterUnredeem);
        auto summaryText = [this] { return GuiTest::columnTexts(window->summaryModel(), 1).join(u' '); };
        makeTaxYearPortfolio();
        valueAsOf(2021, 12);
        // The held bonds' commands wait while the redeemed ones are shown.
        GuiTest::selectRows(window->bondTable(), {0});
        window->showRedeemed(true);
        QVERIFY(!window->action(PortfolioWindow::ActionId::Redeem)->isEnabled());
        QAbstractItemModel *shown = window->redeemedPanel()->table()->model();
        QCOMPARE(shown->rowCount(), 4);
        QStringList read;
        for (int column = 0; column < RedeemedTableModel::Count; ++column)
            read << shown->index(row, column).data().toString();
        QCOMPARE(read, cells);
        QCoreApplication::processEvents();
        // Held: 2 + 1 + 1 + 1 Savings Notes and I bonds, $1,350.00 of face.
        QVERIFY2(window->totalsText().startsWith("Total of 5 bond(s) shown: face value $1,350.00"), qPrintable(window->totalsText()));
        const QString summaryBefore = summaryText();
        const QModelIndex aliceOwns = window->peopleTable()->model()->index(0, 1);
        QCOMPARE(aliceOwns.data().toInt(), 2);
        GuiTest::selectRows(window->redeemedPanel()->table(), {row});
        window->redeemedPanel()->unredeemButton()->click();
        QCOMPARE(portfolio->undoStack()->undoText(), QStringLiteral("Un-redeem"));
        QCoreApplication::processEvents();
        QVERIFY2(window->totalsText().startsWith("Total of 6 bond(s) shown"), qPrintable(window->totalsText()));
        QVERIFY2(summaryText() != summaryBefore, qPrintable(summaryBefore));
        QCOMPARE(aliceOwns.data().toInt(), aliceHoldsAfterUnredeem);
        portfolio->undoStack()->undo();
        // As a click on the table leaves it.
        window->show();
        window->redeemedPanel()->table()->setFocus();
        GuiTest::selectRows(window->redeemedPanel()->table(), {row});
        window->action(PortfolioWindow::ActionId::Delete)->trigger();
        QCOMPARE(portfolio->undoStack()->undoText(), QStringLiteral("Delete Holding"));
        QCOMPARE(shown->rowCount(), 3);
        QCOMPARE(portfolio->holdings().size(), 4);
    }

    // Edits of a redeemed bond are undoable "Edit"s; a month the bonds could not be cashed in is refused.
    void redeemedBondsAreEdited()
    {
        makeTaxYearPortfolio();
        RedeemedTableModel *model = window->redeemedPanel()->model();
        QSignalSpy refused(model, &RedeemedTableModel::editRefused);
        QVERIFY(model->setData(model->index(0, RedeemedTableModel::AmountReceived), "1,600.00", Qt::EditRole));
        QCOMPARE(model->index(0, RedeemedTableModel::Interest).data().toString(), QStringLiteral("$600.00"));
        QCOMPARE(portfolio->undoStack()->undoText(), QStringLiteral("Edit"));
        QVERIFY(model->setData(model->index(0, RedeemedTableModel::RedemptionMonth), "02/2022", Qt::EditRole));
        QCOMPARE(model->index(0, RedeemedTableModel::TaxYear).data().toString(), QStringLiteral("2022"));
        QVERIFY(!model->setData(model->index(0, RedeemedTableModel::RedemptionMonth), "12/2009", Qt::EditRole));
        QCOMPARE(refused.size(), 1);
        QCOMPARE(refused.first().at(1).toString(), QStringLiteral("The redemption month cannot be before the issue month, 01/2010."));
        QCOMPARE(model->index(0, RedeemedTableModel::RedemptionMonth).data().toString(), QStringLiteral("02/2022"));
        portfolio->setReportsInterestYearly(alice, true);
        QCOMPARE(model->index(0, RedeemedTableModel::TaxYear).data().toString(), QStringLiteral("every year"));
        // The people chosen narrow the redeemed bonds as they narrow the held ones.
        GuiTest::selectRows(window->peopleTable(), {0});
        QCOMPARE(window->redeemedPanel()->table()->model()->rowCount(), 3);
        QCOMPARE(window->redeemedPanel()->totalsText(), QStringLiteral("3 bonds redeemed: received $2,900.00 · interest $1,325.00"));
        window->peopleTable()->clearSelection();
        // Two rows at once, one step.
        const QList<HoldingRef> before = portfolio->redeemedHoldings();
        GuiTest::selectRows(window->redeemedPanel()->table(), {1, 2});
        window->redeemedPanel()->deleteButton()->click();
        QCOMPARE(portfolio->redeemedHoldings(), (QList<HoldingRef>{before.at(0), before.at(3)}));
        portfolio->undoStack()->undo();
        QCOMPARE(portfolio->redeemedHoldings(), before);
    }

    // Each owner's total and the household's, the document's known answers, in the CSV under its titles with the items,
    // next year's plan and the state tax note; who reports yearly is chosen in the dialog, undoably.
    void taxReport_data()
    {
        QTest::addColumn<bool>("bobYearly");
        QTest::addColumn<QStringList>("totals");
        const QString alice = "Alice Able,,Total for Alice Able,814.72,", noOwner = "No owner,,Total without an owner,4.16,";
        QTest::newRow("Bob reports yearly") << true << QStringList{alice, "Bob Baker (reports interest every year),,Total for "
                                                                   "Bob Baker,37.68,", noOwner, "Household,,Total for 2021,856.56,"};
        // Deferring, Bob reports his Savings Note's maturity instead: $207.36 - $50.00.
        QTest::newRow("Bob defers") << false << QStringList{alice, "Bob Baker,,Total for Bob Baker,157.36,", noOwner,
                                                            "Household,,Total for 2021,976.24,"};
    }
    void taxReport()
    {
        QFETCH(bool, bobYearly);
        QFETCH(QStringList, totals);
        makeTaxYearPortfolio();
        valueAsOf(2021, 12);
        TaxYearDialog *dialog = window->showTaxReport();
        QCOMPARE(dialog->year(), 2021);
        QListWidgetItem *bobsBox = dialog->yearlyReporters()->item(1);
        QCOMPARE(bobsBox->text(), QStringLiteral("Bob Baker"));
        QCOMPARE(bobsBox->checkState(), Qt::Checked);
        if (!bobYearly) {
            bobsBox->setCheckState(Qt::Unchecked);
            QCOMPARE(portfolio->undoStack()->undoText(), QStringLiteral("Edit People"));
            QVERIFY(!portfolio->reportsInterestYearly(bob.get()));
        }
        dialog->refresh();
        QCOMPARE(dialog->nextYearHeading()->text(), QStringLiteral("Plan for next year: 1 holding reaches final maturity in 2022"));
        QCOMPARE(dialog->nextYearList()->count(), 1);
        const QString path = GuiTest::path(QStringLiteral("tax.csv"));
        QVERIFY(dialog->exportCsv(path));
        const QStringList lines = QString::fromUtf8(GuiTest::readFile(path)).split('\n');
        QCOMPARE(lines.first(), QStringLiteral("Owner,Bonds,Event,Interest,Note"));
        QCOMPARE(lines.filter(QStringLiteral(",,Total ")), totals);
        for (const char *line : {
                 "Alice Able,\"Series EE bonds, 2 × $100.00, issued 06/1991\",\"Final maturity 06/2021, reportable even if not "
                 "cashed\",314.72,",
                 "Alice Able,\"Series I bonds, 1 × $1,000.00, issued 01/2010\",Redeemed 03/2021,500.00,",
                 "Plan for next year: 1 holding reaches final maturity in 2022",
                 ",\"Series EE bonds, 1 × $50.00, issued 03/1992\",\"Final maturity 03/2022, interest so far $76.64\",76.64,",
                 "Savings bond interest is exempt from state and local income tax."})
            QVERIFY2(lines.contains(QString::fromUtf8(line)), qPrintable(QString::fromUtf8(line) + "\nnot in\n" + lines.join('\n')));
    }

    // The PDF: title, portfolio, year and the figures, and "Page n of N" on every page.
    void taxReportPdf_data()
    {
        QTest::addColumn<int>("extraBonds");
        QTest::newRow("one page") << 0;
        QTest::newRow("several pages") << 60;
    }
    void taxReportPdf()
    {
        QFETCH(int, extraBonds);
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("poppler-utils (pdfinfo, pdftotext) are not installed");
        makeTaxYearPortfolio();
        for (int k = 0; k < extraBonds; ++k)
            QVERIFY(portfolio->redeem(addBond(*portfolio, "I", Month(2010, 1), 10000, 1, alice), 1, Month(2021, 4), 15000));
        TaxYearDialog *dialog = window->showTaxReport();
        dialog->setYear(2021);
        const QString pdf = GuiTest::path(QStringLiteral("tax.pdf"));
        QVERIFY(dialog->exportPdf(pdf));
        const int pages = GuiTest::pdfPages(pdf);
        QVERIFY2(extraBonds ? pages > 1 : pages == 1, qPrintable(QString::number(pages)));
        const QString text = GuiTest::pdfText(pdf);
        for (const char *expected : {"Savings Bond Interest for Tax Year 2021", "Portfolio: Untitled", "Owner",
                                     "Total for Alice Able", "Savings bond interest is exempt", "Plan for next year"})
            QVERIFY2(text.contains(QLatin1String(expected)), expected);
        QVERIFY(text.contains(extraBonds ? "$3,856.56" : "$856.56"));
        for (int page = 1; page <= pages; ++page)
            QVERIFY2(text.contains(QStringLiteral("Page %1 of %2").arg(page).arg(pages)), qPrintable(text));
    }

    // The notice says how many held bonds mature this year and what becomes reportable; its link opens the tax report.
    void maturityNotice_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("2021") << 2021
                              << "3 bonds reach final maturity in 2021 and stop earning interest; $314.72 of interest becomes "
                                 "reportable for 2021, even if not cashed.";
        QTest::newRow("2023") << 2023 << "";
    }
    void maturityNotice()
    {
        QFETCH(int, year);
        QFETCH(QString, sentence);
        makeTaxYearPortfolio();
        valueAsOf(year, 8);
        window->show();
        MaturityNoticeBar *bar = window->maturityBar();
        bar->follow();
        QCOMPARE(bar->isVisible(), !sentence.isEmpty());
        if (sentence.isEmpty())
            return;
        QVERIFY2(bar->message()->text().startsWith(sentence), qPrintable(bar->message()->text()));
        window->showTaxReport()->setYear(2000);
        emit bar->message()->linkActivated(QStringLiteral("tax"));
        QVERIFY(window->findChild<TaxYearDialog *>()->isVisible());
        QCOMPARE(window->findChild<TaxYearDialog *>()->year(), year);
        bar->closeButton()->click();
        bar->follow();
        QVERIFY(!bar->isVisible());
    }
};

QUILLMERE_GUI_TEST_MAIN(RedemptionsTest)
#include "tst_redemptions.moc"
