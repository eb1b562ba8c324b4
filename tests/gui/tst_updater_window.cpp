// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Updates from the window against local stand-ins: the automatic check once per start, the updater window's status, bar and buttons.
#include "GuiTestMain.h"
#include "../support/FiscalDataTestServer.h"
#include "../support/PriceUpdateTestData.h"
#include "UpdateAvailableBar.h"
#include "UpdateCheckScheduler.h"
#include "UpdaterWindow.h"
#include "update/AutomaticUpdateCheck.h"
#include "update/PriceUpdater.h"
#include "update/UpdateCatalogue.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

using PriceUpdateTestData::priceFile;

// Catalogue (empty: the Fiscal Data service), its 12/2021 EE records, its failing page, the status after the check and
// after installing (empty: nothing to install), the bar full.
using InstallCase = std::tuple<QStringList, int, int, QString, QString, bool>;

class UpdaterWindowTest : public QObject
{
    Q_OBJECT

    FiscalDataTestServer m_service;
    QString m_database;

    static bool barShown(PortfolioWindow *window) { return window->updateBar()->isVisibleTo(window); }
    static QString name(int month) { return QStringLiteral("i-2027-%1.bin").arg(month, 2, 10, QLatin1Char('0')); }

private slots:
    void initTestCase()
    {
        qputenv("QUILLMERE_UPDATE_URL", m_service.http().url(QStringLiteral("/updates/")).toString().toUtf8());
        qputenv("QUILLMERE_FISCAL_DATA_URL", m_service.root().toString().toUtf8());
        for (int month = 1; month <= 3; ++month)
            m_service.http().setBody(QStringLiteral("/updates/") + name(month), priceFile('I', 2027, month, 2000, 25));
    }

    // A copy of the database holding 01/2027, newly named so the last test's journal files never meet it.
    void init()
    {
        static int count = 0;
        m_database = GuiTest::copyOfDatabase(QStringLiteral("bondvalues-%1.bvdb").arg(++count));
        QVERIFY(PriceUpdateTestData::install(m_database, {{name(1), priceFile('I', 2027, 1, 2000, 25)}}));
        qputenv("QUILLMERE_DATABASE", m_database.toUtf8());
    }

    void theAutomaticCheckRunsOncePerStartWithABarInEveryWindow()
    {
        m_service.addRecords({PriceUpdateTestData::record('N', 2021, 12, 1995, 3700)});
        AutomaticUpdateCheck::setEnabled(true);
        PortfolioWindow *before = DocumentManager::instance().newDocument();
        QSignalSpy finished(&UpdateCheckScheduler::instance(), &UpdateCheckScheduler::checkFinished);
        UpdateCheckScheduler::instance().start();
        QVERIFY(finished.wait(20000));
        QVERIFY(!m_service.http().requestedPaths().isEmpty());
        QVERIFY(barShown(before));
        QCOMPARE(before->updateBar()->message()->text(), QStringLiteral("New redemption values through 12/2021 are available."));
        QVERIFY(AutomaticUpdateCheck::isEnabled() && !AutomaticUpdateCheck::isTimeForCheck(QDateTime::currentDateTime()));
        // A window opened later offers it too; closing the bar puts away only that window's.
        PortfolioWindow *after = DocumentManager::instance().newDocument();
        QVERIFY(barShown(after));
        QTest::mouseClick(after->updateBar()->closeButton(), Qt::LeftButton);
        QVERIFY(!barShown(after));
        QVERIFY(barShown(before));
        // Once per start: another call asks nothing.
        const qsizetype requests = m_service.http().requestedPaths().size();
        AutomaticUpdateCheck::noteCheck(QDateTime::currentDateTime().addDays(-2));
        UpdateCheckScheduler::instance().start();
        QVERIFY(!UpdateCheckScheduler::instance().isChecking());
        QTest::qWait(200);
        QCOMPARE(m_service.http().requestedPaths().size(), requests);
        // Values installed (by the updater, say): the offer is gone.
        RedemptionDateRangeNotifier::instance()->post(nullptr, QDateTime(), QDateTime());
        QTRY_VERIFY(!barShown(before));
        GuiTest::discardWindows();
    }

    void checkThenInstall_data()
    {
        QTest::addColumn<InstallCase>("c");
        const QString upToDate = QStringLiteral("Your redemption values are up to date");
        const QString available = QStringLiteral("Values for 12/2021 are available");
        QTest::newRow("up to date") << InstallCase{{name(1)}, 0, 0, upToDate, {}, false};
        QTest::newRow("two files installed")
            << InstallCase{{name(1), name(2), name(3)}, 0, 0, "2 update(s) available", "All updates installed", true};
        QTest::newRow("service: a month installed")
            << InstallCase{{}, 5, 0, available, "Installed values for 12/2021", true};
        QTest::newRow("service: a failing page")
            << InstallCase{{}, 5, 1, available, "Some updates could not be performed\nFiscal Data (Series E bonds, Series "
                           "EE bonds, Savings Notes, 2001-09 to 2002-02), page 1: the server answered with status 500", false};
    }
    void checkThenInstall()
    {
        QFETCH(InstallCase, c);
        const auto &[catalogue, serviceRecords, failingPage, checked, installed, progressFull] = c;
        m_service.http().setBody(QStringLiteral("/updates/AvailableBondData.plist"),
                                 UpdateCatalogue::encode(catalogue));
        UpdateLocation::setSource(catalogue.isEmpty() ? UpdateLocation::Source::FiscalData : UpdateLocation::Source::Catalogue);
        m_service.setFaults({.failingPage = failingPage, .replacedBody = {}});
        m_service.clear();
        for (int i = 0; i < serviceRecords; ++i)
            m_service.addRecords({PriceUpdateTestData::record('N', 2021, 12, 1992 + i, 4000 + i)});
        UpdaterWindow window(new PriceUpdater);
        QVERIFY(!window.installButton()->isEnabled()); // nothing to install before a check
        QSignalSpy finished(window.updater(), &PriceUpdater::finished);
        QSignalSpy progress(window.updater(), &PriceUpdater::progressChanged);
        QTest::mouseClick(window.checkButton(), Qt::LeftButton);
        QVERIFY(!window.checkButton()->isEnabled() || !finished.isEmpty());
        QVERIFY(finished.wait(20000));
        QCOMPARE(window.statusLine()->text(), checked);
        QCOMPARE(window.installButton()->isEnabled(), !installed.isEmpty());
        if (installed.isEmpty())
            return;
        QTest::mouseClick(window.installButton(), Qt::LeftButton);
        QVERIFY(!window.installButton()->isEnabled());
        QVERIFY(finished.wait(20000));
        QVERIFY2(window.statusLine()->text().startsWith(installed), qPrintable(window.statusLine()->text()));
        QVERIFY(window.progressBar()->maximum() > 0); // determinate again after the downloads
        QCOMPARE(window.progressBar()->value() == window.progressBar()->maximum(), progressFull);
        QVERIFY(!window.installButton()->isEnabled());
        QVERIFY(window.checkButton()->isEnabled());
        if (catalogue.isEmpty() && progressFull) {
            // Pages first (four requests, one page each), then the one month.
            QCOMPARE(progress.first(), (QVariantList{1.0, 4.0}));
            QCOMPARE(progress.last(), (QVariantList{1.0, 1.0}));
        }
    }

    void oneWindowAtATimeAndItsMenuItemWaits()
    {
        m_service.http().setBody(QStringLiteral("/updates/AvailableBondData.plist"),
                                 UpdateCatalogue::encode({name(1)}));
        PortfolioWindow *portfolio = DocumentManager::instance().newDocument();
        QAction *item = portfolio->action(PortfolioWindow::ActionId::UpdatePrices);
        bool disabledWhileOpen = false;
        QTimer::singleShot(0, this, [&] {
            auto *window = qobject_cast<UpdaterWindow *>(QApplication::activeModalWidget());
            QVERIFY(window);
            disabledWhileOpen = !item->isEnabled();
            // Closing with a check under way ends the session at once.
            window->updater()->checkForUpdates();
            window->close();
        });
        item->trigger();
        QVERIFY(disabledWhileOpen);
        QVERIFY(item->isEnabled());
        QVERIFY(!UpdaterSession::instance().isShowing());
        delete portfolio;
    }

    void aDatabaseThatCannotBeWrittenIsRefused()
    {
        QFile::setPermissions(m_database, QFile::ReadOwner | QFile::ReadGroup);
        QString title, text;
        QStringList buttons;
        QTimer::singleShot(0, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            title = box->windowTitle();
            text = box->text();
            for (QAbstractButton *button : box->buttons())
                buttons << button->text();
            box->reject();
        });
        UpdaterSession::instance().showUpdater(nullptr);
        QFile::setPermissions(m_database, QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(title, QString::fromLatin1(UpdaterSession::NotWritableTitle));
        QVERIFY(text.startsWith(QStringLiteral("Your installation isn't writeable by the updater.  Typically")));
        QCOMPARE(buttons, (QStringList{QStringLiteral("Quit Quillmere"), QStringLiteral("Cancel")}));
        QVERIFY(!UpdaterSession::instance().isShowing());
    }
};

QUILLMERE_GUI_TEST_MAIN(UpdaterWindowTest)
#include "tst_updater_window.moc"
