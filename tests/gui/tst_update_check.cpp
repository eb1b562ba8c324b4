// The check the program makes by itself after start, against a Fiscal Data stand-in on
// 127.0.0.1: never when turned off, once per start when on, and a bar in every portfolio window
// that offers the update until values are installed.
#include "GuiTestMain.h"
#include "../support/FiscalDataTestServer.h"
#include "../support/PriceUpdateTestData.h"
#include "UpdateAvailableBar.h"
#include "UpdateCheckScheduler.h"
#include "update/AutomaticUpdateCheck.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

class UpdateCheckTest : public QObject
{
    Q_OBJECT

    FiscalDataTestServer m_service;

    static bool barShown(PortfolioWindow *window) { return window->updateBar()->isVisibleTo(window); }

private slots:
    void initTestCase()
    {
        qputenv("QUILLMERE_FISCAL_DATA_URL", m_service.root().toString().toUtf8());
        m_service.addRecords({PriceUpdateTestData::record('N', 2021, 12, 1995, 3700)});
    }

    void neverWhenTurnedOff()
    {
        AutomaticUpdateCheck::setEnabled(false);
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        UpdateCheckScheduler::instance().start();
        QVERIFY(!UpdateCheckScheduler::instance().isChecking());
        QTest::qWait(200);
        QVERIFY(m_service.http().requestedPaths().isEmpty());
        QVERIFY(!barShown(window));
        delete window;
    }

    void oncePerStartWithABarInEveryWindow()
    {
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
        const int requests = int(m_service.http().requestedPaths().size());
        AutomaticUpdateCheck::noteCheck(QDateTime::currentDateTime().addDays(-2));
        UpdateCheckScheduler::instance().start();
        QVERIFY(!UpdateCheckScheduler::instance().isChecking());
        QTest::qWait(200);
        QCOMPARE(int(m_service.http().requestedPaths().size()), requests);

        // Values installed (by the updater, say): the offer is gone.
        RedemptionDateRangeNotifier::instance()->post(nullptr, QDateTime(), QDateTime());
        QTRY_VERIFY(!barShown(before));
        delete before;
        delete after;
    }
};

QUILLMERE_GUI_TEST_MAIN(UpdateCheckTest)
#include "tst_update_check.moc"
