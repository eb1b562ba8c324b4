// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Installing a Treasury value file from the window: progress without blocking, and a contradicting file refused with its reason.
#include "GuiTestMain.h"
#include "../support/PriceUpdateTestData.h"
#include "TreasuryFileInstall.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QSignalSpy>

using PriceUpdateTestData::queryInt;

class TreasuryFileInstallTest : public QObject
{
    Q_OBJECT

    // The record replaced (none: the file as it is), whether it installs, its text, data files added.
    using InstallCase = std::tuple<QByteArray, bool, QString, int>;

private slots:
    void installsWithoutBlocking_data()
    {
        // The June 2021 file under a new name: as it is, or with one 1979 E value changed by a cent.
        QTest::addColumn<InstallCase>("c");
        QTest::newRow("same values") << InstallCase{{}, true, "Installed sb202106-%1.asc: ", 1};
        QTest::newRow("one value differs")
            << InstallCase{"E2021061979010829", false, "differs from the installed official value", 0};
    }

    void installsWithoutBlocking()
    {
        QFETCH(InstallCase, c);
        const auto &[replaced, installed, text, filesAdded] = c;
        QByteArray contents = GuiTest::readFile(QStringLiteral(QUILLMERE_SOURCE_DIR "/data/treasury/sb202106.asc"));
        const qsizetype at = contents.indexOf("E2021061979010828");
        QVERIFY(at >= 0);
        if (!replaced.isEmpty())
            contents.replace(at, 17, replaced);
        const QString tag = QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'-');
        const QString file = GuiTest::writeFile(QStringLiteral("sb202106-%1.asc").arg(tag), contents);
        QVERIFY(!file.isEmpty());

        const QString database = QString::fromLocal8Bit(qgetenv("QUILLMERE_DATABASE"));
        const QString files = QStringLiteral("select count(*) from data_file");
        const QString value = QStringLiteral("select value from bond_value where series = 'E' and iyr = 1979 and "
                                             "imo = 1 and ryr = 2021 and rmo = 6");
        const qint64 filesBefore = queryInt(database, files), valueBefore = queryInt(database, value);
        QVERIFY(filesBefore > 0 && valueBefore > 0);

        TreasuryFileInstall install(nullptr);
        QSignalSpy finished(&install, &TreasuryFileInstall::finished);
        QElapsedTimer clock;
        clock.start();
        install.start(file);
        const qint64 startTook = clock.elapsed();
        // start() returned with the work under way and the progress showing.
        QCOMPARE(finished.count(), 0);
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        QVERIFY(progress && progress->isVisible());
        QCOMPARE(progress->windowTitle(), QStringLiteral("Install Treasury Value File"));
        QCOMPARE(progress->labelText(), QStringLiteral("Installing %1…").arg(QFileInfo(file).fileName()));
        QTest::keyClick(progress, Qt::Key_Escape); // nothing to cancel: it stays
        QVERIFY(finished.count() == 1 || progress->isVisible());

        QVERIFY(finished.count() == 1 || finished.wait(60000));
        QVERIFY2(startTook < clock.elapsed() / 2, qPrintable(QStringLiteral("%1 of %2 ms").arg(startTook).arg(clock.elapsed())));
        const auto result = finished.constFirst().constFirst().value<TreasuryFileInstall::Result>();
        QCOMPARE(result.installed, installed);
        const QString expected = text.contains(u'%') ? text.arg(tag) : text;
        QVERIFY2(result.text.contains(expected), qPrintable(result.text));
        QVERIFY(!install.isRunning());
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(queryInt(database, files), filesBefore + filesAdded);
        QCOMPARE(queryInt(database, value), valueBefore);
    }

};

QUILLMERE_GUI_TEST_MAIN(TreasuryFileInstallTest)
#include "tst_treasury_file_install.moc"
