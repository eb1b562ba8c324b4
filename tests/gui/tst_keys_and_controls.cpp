// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The keys a desktop program answers to, whatever the platform's own table lacks, typing into
// the month picker where its cursor is, and the manual Help opens.
#include "GuiTestMain.h"

#include "ValuationMonthPicker.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QTextBrowser>

class KeysAndControlsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { GuiTest::discardWindows(); }

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
        QVERIFY(!found->shortcut().isEmpty()); // the menu shows one
    }

    // The manual is in the program, and covers what a new user asks about.
    void helpShowsTheManual()
    {
        PortfolioWindow *window = GuiTest::openSample();
        window->action(PortfolioWindow::ActionId::Help)->trigger();
        QTextBrowser *browser = nullptr;
        for (QWidget *top : QApplication::topLevelWidgets()) {
            if (!browser && top->isVisible())
                browser = top->findChild<QTextBrowser *>();
        }
        QVERIFY(browser);
        const QString text = browser->toPlainText();
        for (const char *heading : {"Getting started", "Adding bonds", "Values and updates", "What the columns mean",
                                    "Exports and imports", "Printing", "Where files are kept"})
            QVERIFY2(text.contains(QLatin1String(heading)), heading);
        browser->window()->close();
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
};

QUILLMERE_GUI_TEST_MAIN(KeysAndControlsTest)
#include "tst_keys_and_controls.moc"
