// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The people picker and person creator: titles, enabled buttons, people added once, new people kept, the me record.
#include "GuiTestMain.h"
#include "PeoplePickerDialog.h"
#include "model/PeopleStore.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

class PeoplePickerTest : public QObject
{
    Q_OBJECT

    PortfolioWindow *m_window = nullptr;

private slots:
    void init() { QVERIFY((m_window = GuiTest::openSample())); }
    void cleanup() { GuiTest::discardWindows(); }

    // As the command-line program does: with no file named, the people.vcf beside the portfolio.
    void theWindowReadsThePeopleBesideThePortfolio()
    {
        GuiTest::discardWindows();
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
        PeoplePickerDialog picker(*m_window->portfolio());
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
        BondPortfolio &portfolio = *m_window->portfolio();
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
};

QUILLMERE_GUI_TEST_MAIN(PeoplePickerTest)
#include "tst_people_picker.moc"
