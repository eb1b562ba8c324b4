// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The people picker and creator, installing a Treasury value file with its progress, the manual, preferences.
#include "GuiTestMain.h"
#include "../support/PriceUpdateTestData.h"
#include "PeoplePickerDialog.h"
#include "PreferencesDialog.h"
#include "TreasuryFileInstall.h"
#include "base/UserDefaults.h"
#include "model/PeopleStore.h"
#include "update/AutomaticUpdateCheck.h"
#include "update/UpdateLocation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTimer>

using PriceUpdateTestData::queryInt;

class DialogsTest : public QObject
{
    Q_OBJECT

    // The record replaced (none: the file as it is), whether it installs, its text, data files added.
    using InstallCase = std::tuple<QByteArray, bool, QString, int>;

private slots:
    // As the program's main does; the run's settings folder starts empty.
    void initTestCase() { UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), true); }
    void cleanup() { GuiTest::discardWindows(); }

    // As the command-line program does: with no file named, the people.vcf beside the portfolio.
    void theWindowReadsThePeopleBesideThePortfolio()
    {
        const QByteArray named = qgetenv(PeopleStore::PathEnvironmentVariable);
        qunsetenv(PeopleStore::PathEnvironmentVariable);
        PortfolioWindow *window = GuiTest::openSample();
        qputenv(PeopleStore::PathEnvironmentVariable, named);
        QVERIFY(window);
        const BondPortfolio &portfolio = *window->portfolio();
        QCOMPARE(QFileInfo(portfolio.peopleStore().path()).canonicalFilePath(),
                 QFileInfo(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf")).canonicalFilePath());
        QCOMPARE(portfolio.missingPeopleCount(), 0);
        QAbstractItemModel *people = window->peopleTable()->model();
        QCOMPARE(people->match(people->index(0, 0), Qt::DisplayRole, QStringLiteral("Rosa Delgado")).size(), 1);
    }

    void addButtonFollowsTheSelection()
    {
        PeoplePickerDialog picker(*GuiTest::openSample()->portfolio());
        QListWidget *list = picker.peopleList();
        QVERIFY(list->count() >= 2);
        QVERIFY(!picker.addButton()->isEnabled());
        list->item(0)->setSelected(true);
        QCOMPARE(picker.addButton()->text(), QStringLiteral("Add Person"));
        QVERIFY(picker.addButton()->isEnabled());
        QVERIFY(picker.thisIsMeButton()->isEnabled());
        list->item(1)->setSelected(true);
        QCOMPARE(picker.addButton()->text(), QStringLiteral("Add People"));
        QVERIFY(!picker.thisIsMeButton()->isEnabled()); // one person only
        list->clearSelection();
        QVERIFY(!picker.addButton()->isEnabled());
        QCOMPARE(picker.addButton()->text(), QStringLiteral("Add People")); // title left as it was
    }

    void creatorNeedsBothNamesAndKeepsThePerson()
    {
        BondPortfolio &portfolio = *GuiTest::openSample()->portfolio();
        const qsizetype holders = portfolio.titleHolders().size();
        PersonCreatorDialog creator(portfolio);
        creator.firstNameField()->setText(QStringLiteral("Ada"));
        QVERIFY(!creator.addButton()->isEnabled());
        creator.lastNameField()->setText(QStringLiteral("Quill"));
        QVERIFY(creator.addButton()->isEnabled());
        QTest::mouseClick(creator.addButton(), Qt::LeftButton);
        QCOMPARE(portfolio.titleHolders().size(), holders + 1);
        PeopleStore reread(portfolio.peopleStore().path());
        const auto found = reread.recordsWithLastNamePrefix(QStringLiteral("Quill"));
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.constFirst()->firstName, QStringLiteral("Ada"));
        QVERIFY(found.constFirst()->emails.isEmpty());
    }

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

    // Nothing is stored before OK, nor while the update directory is no usable address; then the defaults hold.
    void preferencesWaitForOkAndAUsableAddress_data()
    {
        QTest::addColumn<bool>("confirm");
        QTest::addColumn<QString>("directory");
        QTest::addColumn<bool>("stored"); // else the window stays open with an alert, or was cancelled
        QTest::newRow("Cancel") << false << "https://example.org/bonds/" << false;
        QTest::newRow("no address") << true << "" << false;
        QTest::newRow("not an address") << true << "bonds" << false;
        QTest::newRow("OK with an address") << true << "https://example.org/bonds/" << true;
    }
    void preferencesWaitForOkAndAUsableAddress()
    {
        QFETCH(bool, confirm);
        QFETCH(QString, directory);
        QFETCH(bool, stored);
        PreferencesDialog::showPreferences();
        PreferencesDialog &dialog = PreferencesDialog::instance();
        QCOMPARE(dialog.seriesChoice()->currentData().toString(), QStringLiteral("N"));
        QCOMPARE(dialog.updateSourceChoice()->currentData().toInt(), int(UpdateLocation::Source::FiscalData));
        QVERIFY(dialog.automaticCheckChoice()->isChecked());
        QVERIFY(!dialog.updateDirectoryField()->isEnabled());
        dialog.seriesChoice()->setCurrentIndex(dialog.seriesChoice()->findData(QStringLiteral("I")));
        dialog.electronicChoice()->setChecked(true);
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
        const Holding fresh;
        QCOMPARE(fresh.series()->code(), QString::fromLatin1(stored ? "I" : "N"));
        QCOMPARE(fresh.isPaper(), !stored);
        if (stored) {
            QCOMPARE(UserDefaults::settings().value(QString::fromLatin1(UpdateLocation::BaseUrlSettingsKey)).toString(), directory);
            // Back as it was, for the next case.
            UpdateLocation::setSource(UpdateLocation::Source::FiscalData);
            AutomaticUpdateCheck::setEnabled(true);
        }
        dialog.reject();
        QCOMPARE(&PreferencesDialog::instance(), &dialog);
        QCOMPARE(dialog.seriesChoice()->currentData().toString(), QString::fromLatin1(stored ? "I" : "N"));
    }
};

QUILLMERE_GUI_TEST_MAIN(DialogsTest)
#include "tst_dialogs.moc"
