// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PeoplePickerDialog.h"

#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "model/Person.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int RecordIdRole = Qt::UserRole;

// Each selected person once, after the title holders already listed.
QList<PersonRef> withoutDuplicates(QList<PersonRef> people, const QList<PersonRef> &added)
{
    for (const PersonRef &person : added) {
        const bool listed = std::any_of(people.cbegin(), people.cend(),
                                        [&person](const PersonRef &p) { return samePerson(p.get(), person.get()); });
        if (!listed)
            people << person;
    }
    return people;
}

} // namespace

PeoplePickerDialog::PeoplePickerDialog(BondPortfolio &portfolio, QWidget *parent)
    : QDialog(parent)
    , m_portfolio(portfolio)
{
    setObjectName(QStringLiteral("PeoplePickerWindow"));
    setWindowTitle(tr("Add People"));
    m_search = new QLineEdit(this);
    m_search->setPlaceholderText(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_list = new QListWidget(this);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setMinimumSize(320, 280);
    m_add = new QPushButton(tr("Add Person"), this);
    m_add->setEnabled(false);
    m_add->setDefault(true);
    m_newPerson = new QPushButton(tr("New Person…"), this);
    m_thisIsMe = new QPushButton(tr("This Is Me"), this);
    m_thisIsMe->setEnabled(false);
    m_import = new QPushButton(tr("Import Contacts…"), this);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(m_import, QDialogButtonBox::ActionRole);
    buttons->addButton(m_thisIsMe, QDialogButtonBox::ActionRole);
    buttons->addButton(m_newPerson, QDialogButtonBox::ActionRole);
    buttons->addButton(m_add, QDialogButtonBox::ActionRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_list);
    layout->addWidget(buttons);

    connect(m_search, &QLineEdit::textChanged, this, &PeoplePickerDialog::filter);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &PeoplePickerDialog::selectionChanged);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &PeoplePickerDialog::addSelectedPeople);
    connect(m_add, &QPushButton::clicked, this, &PeoplePickerDialog::addSelectedPeople);
    connect(m_newPerson, &QPushButton::clicked, this, &PeoplePickerDialog::openCreator);
    connect(m_thisIsMe, &QPushButton::clicked, this, &PeoplePickerDialog::markSelectedAsMe);
    connect(m_import, &QPushButton::clicked, this, &PeoplePickerDialog::chooseContactsFile);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fillList();
}

void PeoplePickerDialog::fillList()
{
    const PeopleStore &store = m_portfolio.peopleStore();
    const auto me = store.me();
    const QStringList selected = [this] {
        QStringList ids;
        for (QListWidgetItem *item : m_list->selectedItems())
            ids << item->data(RecordIdRole).toString();
        return ids;
    }();
    m_list->clear();
    for (const auto &record : store.records()) {
        QString label = Person::create(record)->name();
        if (me && me->uniqueId == record->uniqueId)
            label += tr(" (me)");
        auto *item = new QListWidgetItem(label, m_list);
        item->setData(RecordIdRole, record->uniqueId);
        item->setSelected(selected.contains(record->uniqueId));
    }
    m_list->sortItems();
    filter(m_search->text());
}

void PeoplePickerDialog::filter(const QString &text)
{
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        item->setHidden(!item->text().contains(text, Qt::CaseInsensitive));
        if (item->isHidden())
            item->setSelected(false);
    }
}

void PeoplePickerDialog::selectionChanged()
{
    const qsizetype selected = m_list->selectedItems().size();
    // With nothing selected the button keeps its last title and is only disabled.
    if (selected > 0)
        m_add->setText(selected > 1 ? tr("Add People") : tr("Add Person"));
    m_add->setEnabled(selected > 0);
    m_thisIsMe->setEnabled(selected == 1);
}

void PeoplePickerDialog::markSelectedAsMe()
{
    const QList<QListWidgetItem *> selected = m_list->selectedItems();
    if (selected.size() != 1)
        return;
    m_portfolio.peopleStore().setMe(selected.constFirst()->data(RecordIdRole).toString());
    fillList();
}

void PeoplePickerDialog::chooseContactsFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Import Contacts"), QString(),
                                                      tr("vCard files (*.vcf *.vcard);;All files (*)"));
    if (!path.isEmpty())
        importContacts(path);
}

void PeoplePickerDialog::importContacts(const QString &vcfPath)
{
    PeopleStore::ImportSummary summary;
    QString error;
    auto *box = new QMessageBox(this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(tr("Import Contacts"));
    if (m_portfolio.peopleStore().importRecords(vcfPath, &summary, &error)) {
        box->setIcon(QMessageBox::Information);
        box->setText(tr("Imported %1 %2 (%3 already there).")
                         .arg(summary.added)
                         .arg(summary.added == 1 ? tr("person") : tr("people"))
                         .arg(summary.alreadyThere));
        if (!summary.skipped.isEmpty()) {
            // Say which cards were left out, not only on standard error.
            box->setIcon(QMessageBox::Warning);
            box->setInformativeText(summary.skipped.join(QLatin1Char('\n')));
        }
        fillList();
    } else {
        box->setIcon(QMessageBox::Warning);
        box->setText(error);
    }
    // A sheet on the picker, like the picker on the portfolio: no nested event loop.
    box->setWindowModality(Qt::WindowModal);
    box->open();
}

void PeoplePickerDialog::addSelectedPeople()
{
    QList<PersonRef> chosen;
    for (QListWidgetItem *item : m_list->selectedItems()) {
        if (auto record = m_portfolio.peopleStore().recordForUniqueId(item->data(RecordIdRole).toString()))
            chosen << Person::create(record);
    }
    const QList<PersonRef> people = withoutDuplicates(m_portfolio.titleHolders(), chosen);
    if (people.size() != m_portfolio.titleHolders().size())
        m_portfolio.setTitleHolders(people);
}

void PeoplePickerDialog::openCreator()
{
    // Only one of the two is up at a time: the picker gives way to the creator.
    auto *creator = new PersonCreatorDialog(m_portfolio, parentWidget());
    creator->setAttribute(Qt::WA_DeleteOnClose);
    creator->setWindowModality(Qt::WindowModal);
    close();
    creator->open();
}

PersonCreatorDialog::PersonCreatorDialog(BondPortfolio &portfolio, QWidget *parent)
    : QDialog(parent)
    , m_portfolio(portfolio)
{
    setObjectName(QStringLiteral("PersonCreator"));
    setWindowTitle(tr("New Person"));
    m_first = new QLineEdit(this);
    m_last = new QLineEdit(this);
    m_email = new QLineEdit(this);
    auto *form = new QFormLayout;
    form->addRow(tr("First name:"), m_first);
    form->addRow(tr("Last name:"), m_last);
    form->addRow(tr("E-mail (home):"), m_email);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_add = buttons->addButton(tr("Add Person"), QDialogButtonBox::AcceptRole);
    m_add->setEnabled(false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    auto enable = [this] { m_add->setEnabled(!m_first->text().isEmpty() && !m_last->text().isEmpty()); };
    connect(m_first, &QLineEdit::textChanged, this, enable);
    connect(m_last, &QLineEdit::textChanged, this, enable);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void PersonCreatorDialog::accept()
{
    if (m_first->text().isEmpty() || m_last->text().isEmpty())
        return;
    PersonRecord fields;
    fields.firstName = m_first->text();
    fields.lastName = m_last->text();
    if (!m_email->text().isEmpty())
        fields.emails << LabelledEmail{QStringLiteral("home"), m_email->text()};
    PeopleStore &store = m_portfolio.peopleStore();
    const auto record = store.createRecord(fields);
    QString error;
    if (!store.save(&error))
        QMessageBox::warning(this, tr("The address book could not be saved"),
                             tr("%1 is added to this portfolio, but %2 could not be written: %3")
                                 .arg(Person::create(record)->name(), store.path(), error));
    QList<PersonRef> people = m_portfolio.titleHolders();
    people << Person::create(record);
    m_portfolio.setTitleHolders(people);
    QDialog::accept();
}
