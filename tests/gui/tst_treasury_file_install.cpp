// Installing a Treasury value file from the window: a file that contradicts the database is
// refused with its reason, and nothing of it reaches the database.
#include "GuiTestMain.h"
#include "../support/PriceUpdateTestData.h"
#include "TreasuryFileInstall.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TreasuryFileInstallTest : public QObject
{
    Q_OBJECT

private slots:
    void aContradictingFileInstallsNothing()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString database = dir.filePath(QStringLiteral("bondvalues.bvdb"));
        QVERIFY(QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), database));
        QFile::setPermissions(database, QFile::ReadOwner | QFile::WriteOwner);
        qputenv("QUILLMERE_DATABASE", database.toUtf8());

        // The June 2021 file, under a name not yet installed, with one value of 1979 E bonds
        // changed by a cent.
        QFile original(QStringLiteral(QUILLMERE_SOURCE_DIR "/data/treasury/sb202106.asc"));
        QVERIFY(original.open(QIODevice::ReadOnly));
        QByteArray text = original.readAll();
        const qsizetype at = text.indexOf("E2021061979010828");
        QVERIFY(at >= 0);
        text.replace(at, 17, "E2021061979010829");
        const QString path = dir.filePath(QStringLiteral("sb202106-reissued.asc"));
        QFile changed(path);
        QVERIFY(changed.open(QIODevice::WriteOnly));
        changed.write(text);
        changed.close();

        const QString files = QStringLiteral("select count(*) from data_file");
        const QString value = QStringLiteral("select value from bond_value where series = 'E' and iyr = 1979 and "
                                             "imo = 1 and ryr = 2021 and rmo = 6");
        const qint64 filesBefore = PriceUpdateTestData::queryInt(database, files);
        const qint64 valueBefore = PriceUpdateTestData::queryInt(database, value);
        const TreasuryFileInstall::Result result = TreasuryFileInstall::install(nullptr, path);
        QVERIFY(!result.installed);
        QVERIFY2(result.text.contains(QStringLiteral("differ from those installed")), qPrintable(result.text));
        QCOMPARE(PriceUpdateTestData::queryInt(database, files), filesBefore);
        QCOMPARE(PriceUpdateTestData::queryInt(database, value), valueBefore);
    }
};

QUILLMERE_GUI_TEST_MAIN(TreasuryFileInstallTest)
#include "tst_treasury_file_install.moc"
