#include "PeoplePickerDialog.h"

#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"
#include "model/Person.h"

#include <QDialogButtonBox>
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
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
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
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fillList();
}

void PeoplePickerDialog::fillList()
{
    for (const auto &record : m_portfolio.peopleStore().records()) {
        auto *item = new QListWidgetItem(Person::create(record)->name(), m_list);
        item->setData(RecordIdRole, record->uniqueId);
    }
    m_list->sortItems();
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
