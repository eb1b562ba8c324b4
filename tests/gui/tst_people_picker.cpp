// The people picker and the person creator: the add button's title and enabling, people added
// once only, a new person kept in the store and added to the portfolio, the me record, and
// contacts imported from another address book.
#include "GuiTestMain.h"
#include "DocumentManager.h"
#include "PeoplePickerDialog.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "model/Person.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

class PeoplePickerTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    PortfolioWindow *m_window = nullptr;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(GuiTest::useSampleFiles(m_dir));
    }

    void init()
    {
        m_window = DocumentManager::instance().openFile(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/sample.bondportfolio"));
        QVERIFY(m_window);
    }

    void cleanup()
    {
        m_window->portfolio()->markSaved();
        delete m_window;
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
        list->item(1)->setSelected(true);
        QCOMPARE(picker.addButton()->text(), QStringLiteral("Add People"));
        list->clearSelection();
        QVERIFY(!picker.addButton()->isEnabled());
        QCOMPARE(picker.addButton()->text(), QStringLiteral("Add People")); // title left as it was
    }

    void everyoneIsAddedOnce()
    {
        BondPortfolio &portfolio = *m_window->portfolio();
        PeoplePickerDialog picker(portfolio);
        picker.peopleList()->selectAll();
        picker.addSelectedPeople();
        picker.addSelectedPeople();
        const QList<PersonRef> people = portfolio.titleHolders();
        QCOMPARE(people.size(), portfolio.peopleStore().records().size());
        for (qsizetype i = 0; i < people.size(); ++i)
            for (qsizetype j = i + 1; j < people.size(); ++j)
                QVERIFY(!samePerson(people.at(i).get(), people.at(j).get()));
    }

    void thisIsMeNeedsExactlyOnePersonAndMarksThem()
    {
        PeoplePickerDialog picker(*m_window->portfolio());
        QListWidget *list = picker.peopleList();
        QVERIFY(!picker.thisIsMeButton()->isEnabled());
        list->item(0)->setSelected(true);
        list->item(1)->setSelected(true);
        QVERIFY(!picker.thisIsMeButton()->isEnabled());
        list->item(0)->setSelected(false);
        QVERIFY(picker.thisIsMeButton()->isEnabled());
        const QString chosen = list->item(1)->text();
        QTest::mouseClick(picker.thisIsMeButton(), Qt::LeftButton);
        const auto me = m_window->portfolio()->peopleStore().me();
        QVERIFY(me);
        QCOMPARE(Person::create(me)->name(), chosen);
        const QList<QListWidgetItem *> marked = list->findItems(QStringLiteral(" (me)"), Qt::MatchEndsWith);
        QCOMPARE(marked.size(), 1);
        QCOMPARE(marked.constFirst()->text(), chosen + QStringLiteral(" (me)"));
    }

    void importedContactsAreListedAndCounted()
    {
        BondPortfolio &portfolio = *m_window->portfolio();
        PeoplePickerDialog picker(portfolio);
        const QString known = portfolio.peopleStore().records().constFirst()->uniqueId;
        QFile vcf(m_dir.filePath(QStringLiteral("phone.vcf")));
        QVERIFY(vcf.open(QIODevice::WriteOnly));
        vcf.write("BEGIN:VCARD\nVERSION:3.0\nUID:" + known.toUtf8() + "\nN:X;Y;;;\nEND:VCARD\n"
                  "BEGIN:VCARD\nVERSION:3.0\nN:Inkwell;Ida;;;\nEND:VCARD\n");
        vcf.close();
        const int before = picker.peopleList()->count();
        picker.importContacts(vcf.fileName());
        auto *box = picker.findChild<QMessageBox *>();
        QVERIFY(box);
        QCOMPARE(box->text(), QStringLiteral("Imported 1 people (1 already there)."));
        QCOMPARE(picker.peopleList()->count(), before + 1);
        QCOMPARE(picker.peopleList()->findItems(QStringLiteral("Ida Inkwell"), Qt::MatchExactly).size(), 1);
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
