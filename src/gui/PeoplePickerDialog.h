// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Adds people of the address book (the people store) to a portfolio's title holders: a
// searchable list of everyone in the store, several at a time, never twice. "New Person…" opens
// the person creator in its place. "This Is Me" marks the user's own record; "Import Contacts…"
// merges another address book's export into the store.
#include <QDialog>

class BondPortfolio;
class QLineEdit;
class QListWidget;
class QPushButton;

class PeoplePickerDialog : public QDialog
{
    Q_OBJECT
public:
    PeoplePickerDialog(BondPortfolio &portfolio, QWidget *parent = nullptr);

    QListWidget *peopleList() const { return m_list; }
    QLineEdit *searchField() const { return m_search; }
    QPushButton *addButton() const { return m_add; }
    QPushButton *newPersonButton() const { return m_newPerson; }
    QPushButton *thisIsMeButton() const { return m_thisIsMe; }
    QPushButton *importButton() const { return m_import; }

    // Adds the selected people who are not title holders yet; the window stays open.
    void addSelectedPeople();
    // Makes the one selected person the store's me record.
    void markSelectedAsMe();
    // Merges the contacts file into the store and tells the outcome in a message box.
    void importContacts(const QString &vcfPath);

private:
    void fillList();
    void chooseContactsFile();
    void selectionChanged();
    void filter(const QString &text);
    void openCreator();

    BondPortfolio &m_portfolio;
    QLineEdit *m_search = nullptr;
    QListWidget *m_list = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_newPerson = nullptr;
    QPushButton *m_thisIsMe = nullptr;
    QPushButton *m_import = nullptr;
};

// Makes a new person in the store (first and last name, an optional e-mail labelled "home") and
// adds them to the portfolio's title holders.
class PersonCreatorDialog : public QDialog
{
    Q_OBJECT
public:
    PersonCreatorDialog(BondPortfolio &portfolio, QWidget *parent = nullptr);

    QLineEdit *firstNameField() const { return m_first; }
    QLineEdit *lastNameField() const { return m_last; }
    QLineEdit *emailField() const { return m_email; }
    QPushButton *addButton() const { return m_add; }

    void accept() override;

private:
    BondPortfolio &m_portfolio;
    QLineEdit *m_first = nullptr;
    QLineEdit *m_last = nullptr;
    QLineEdit *m_email = nullptr;
    QPushButton *m_add = nullptr;
};
