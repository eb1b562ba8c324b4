// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Preferences wait for OK: Cancel keeps the defaults, new bonds use what OK stored; unusable addresses refused.
#include "GuiTestMain.h"
#include "PreferencesDialog.h"
#include "base/UserDefaults.h"
#include "update/AutomaticUpdateCheck.h"
#include "update/UpdateLocation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

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

    void updateSourceWaitsForOkAndAUsableAddress_data()
    {
        QTest::addColumn<bool>("confirm");
        QTest::addColumn<QString>("directory");
        QTest::addColumn<bool>("stored"); // else the window stays open with an alert, or was cancelled
        QTest::newRow("Cancel") << false << "https://example.org/bonds/" << false;
        QTest::newRow("no address") << true << "" << false;
        QTest::newRow("not an address") << true << "bonds" << false;
        QTest::newRow("OK with an address") << true << "https://example.org/bonds/" << true;
    }
    void updateSourceWaitsForOkAndAUsableAddress()
    {
        QFETCH(bool, confirm);
        QFETCH(QString, directory);
        QFETCH(bool, stored);
        PreferencesDialog::showPreferences();
        PreferencesDialog &dialog = PreferencesDialog::instance();
        QCOMPARE(dialog.updateSourceChoice()->currentData().toInt(), int(UpdateLocation::Source::FiscalData));
        QVERIFY(dialog.automaticCheckChoice()->isChecked());
        QVERIFY(!dialog.updateDirectoryField()->isEnabled());
        dialog.updateSourceChoice()->setCurrentIndex(dialog.updateSourceChoice()->findData(int(UpdateLocation::Source::Catalogue)));
        QVERIFY(dialog.updateDirectoryField()->isEnabled());
        dialog.updateDirectoryField()->setText(directory);
        dialog.automaticCheckChoice()->setChecked(false);
        QTimer::singleShot(0, [] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                box->accept();
        });
        confirm ? dialog.accept() : dialog.reject();
        QCOMPARE(UpdateLocation::source() == UpdateLocation::Source::Catalogue, stored);
        QCOMPARE(AutomaticUpdateCheck::isEnabled(), !stored);
        QCOMPARE(dialog.isVisible(), confirm && !stored);
        if (stored) {
            QCOMPARE(UserDefaults::settings().value(QString::fromLatin1(UpdateLocation::BaseUrlSettingsKey)).toString(), directory);
            // Back as it was, for the next case.
            UpdateLocation::setSource(UpdateLocation::Source::FiscalData);
            AutomaticUpdateCheck::setEnabled(true);
        }
        dialog.reject();
    }
};

QUILLMERE_GUI_TEST_MAIN(PreferencesDialogTest)
#include "tst_preferences_dialog.moc"
