// The preferences hold their edits until OK: Cancel keeps the stored defaults, and new bonds
// start from whatever OK stored.
#include "GuiTestMain.h"
#include "PreferencesDialog.h"
#include "model/Holding.h"
#include "model/Series.h"
#include "model/UserDefaults.h"

#include <QComboBox>
#include <QRadioButton>

class PreferencesDialogTest : public QObject
{
    Q_OBJECT

private slots:
    // As the program's main does; the run's settings folder starts empty.
    void initTestCase() { UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), true); }

    void editsWaitForOk_data()
    {
        QTest::addColumn<bool>("confirm");
        QTest::addColumn<QString>("series");
        QTest::addColumn<bool>("paper");
        QTest::newRow("Cancel keeps the old default") << false << "N" << true;
        QTest::newRow("OK stores the choice") << true << "I" << false;
    }
    void editsWaitForOk()
    {
        QFETCH(bool, confirm);
        QFETCH(QString, series);
        QFETCH(bool, paper);
        PreferencesDialog::showPreferences();
        PreferencesDialog &dialog = PreferencesDialog::instance();
        QCOMPARE(dialog.seriesChoice()->currentData().toString(), QStringLiteral("N"));
        dialog.seriesChoice()->setCurrentIndex(dialog.seriesChoice()->findData(QStringLiteral("I")));
        dialog.electronicChoice()->setChecked(true);
        confirm ? dialog.accept() : dialog.reject();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(&PreferencesDialog::instance(), &dialog);
        const Holding fresh;
        QCOMPARE(fresh.series()->code(), series);
        QCOMPARE(fresh.isPaper(), paper);
        QCOMPARE(dialog.seriesChoice()->currentData().toString(), series);
    }
};

QUILLMERE_GUI_TEST_MAIN(PreferencesDialogTest)
#include "tst_preferences_dialog.moc"
