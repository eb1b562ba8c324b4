// The desktop window opens with the program's name and offers Quit and About from its menus.
#include "MainWindow.h"

#include <QAction>
#include <QMenuBar>
#include <QTest>

class MainWindowTest : public QObject
{
    Q_OBJECT

private:
    static QAction *findAction(QMenuBar *bar, const QString &text)
    {
        for (QAction *menuAction : bar->actions()) {
            if (!menuAction->menu())
                continue;
            for (QAction *action : menuAction->menu()->actions()) {
                if (action->text().remove(QLatin1Char('&')).startsWith(text))
                    return action;
            }
        }
        return nullptr;
    }

private slots:
    void opensWithTitleAndMenus()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.windowTitle(), QStringLiteral("Quillmere"));
        QAction *quit = findAction(window.menuBar(), QStringLiteral("Quit"));
        QVERIFY(quit);
        QCOMPARE(quit->shortcut(), QKeySequence(QKeySequence::Quit));
        QVERIFY(findAction(window.menuBar(), QStringLiteral("About")));
    }

    void quitClosesTheWindow()
    {
        auto *window = new MainWindow;
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QPointer<MainWindow> guard(window);
        findAction(window->menuBar(), QStringLiteral("Quit"))->trigger();
        QTRY_VERIFY(guard.isNull());
    }
};

QTEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
