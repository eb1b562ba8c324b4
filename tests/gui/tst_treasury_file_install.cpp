// Installing a Treasury value file from the window: a file that contradicts the database is
// refused with its reason, and nothing of it reaches the database.
#include "GuiTestMain.h"
#include "../support/PriceUpdateTestData.h"
#include "TreasuryFileInstall.h"

using PriceUpdateTestData::queryInt;

class TreasuryFileInstallTest : public QObject
{
    Q_OBJECT

private slots:
    void aContradictingFileInstallsNothing()
    {
        // The June 2021 file, under a name not yet installed, with one value of 1979 E bonds
        // changed by a cent.
        QFile original(QStringLiteral(QUILLMERE_SOURCE_DIR "/data/treasury/sb202106.asc"));
        QVERIFY(original.open(QIODevice::ReadOnly));
        QByteArray text = original.readAll();
        const qsizetype at = text.indexOf("E2021061979010828");
        QVERIFY(at >= 0);
        text.replace(at, 17, "E2021061979010829");
        const QString changed = GuiTest::writeFile(QStringLiteral("sb202106-reissued.asc"), text);
        QVERIFY(!changed.isEmpty());

        const QString database = QString::fromLocal8Bit(qgetenv("QUILLMERE_DATABASE"));
        const QString files = QStringLiteral("select count(*) from data_file");
        const QString value = QStringLiteral("select value from bond_value where series = 'E' and iyr = 1979 and "
                                             "imo = 1 and ryr = 2021 and rmo = 6");
        const qint64 filesBefore = queryInt(database, files), valueBefore = queryInt(database, value);
        QVERIFY(filesBefore > 0 && valueBefore > 0);
        const TreasuryFileInstall::Result result = TreasuryFileInstall::install(nullptr, changed);
        QVERIFY(!result.installed);
        QVERIFY2(result.text.contains(QStringLiteral("differs from the installed official value")), qPrintable(result.text));
        QCOMPARE(queryInt(database, files), filesBefore);
        QCOMPARE(queryInt(database, value), valueBefore);
    }
};

QUILLMERE_GUI_TEST_MAIN(TreasuryFileInstallTest)
#include "tst_treasury_file_install.moc"
