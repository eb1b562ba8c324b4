// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The people store: person records kept in a vCard file in the user's data directory
// (QUILLMERE_PEOPLE names another file). The user's own record ("me") is kept by identifier
// in the settings, the way desktops keep the self contact outside the cards.
#include "model/PersonRecord.h"

#include <QList>
#include <QString>
#include <memory>

class PeopleStore
{
public:
    static constexpr const char *FileName = "people.vcf";
    static constexpr const char *PathEnvironmentVariable = "QUILLMERE_PEOPLE";
    static constexpr const char *MeIdentifierKey = "peopleMeIdentifier";

    // The default file: $QUILLMERE_PEOPLE, or people.vcf in the user's data directory.
    static QString defaultPath();
    // Which file names the people of the portfolio at portfolioPath, the same for the window and
    // every command: $QUILLMERE_PEOPLE, else a people.vcf beside the portfolio (how examples
    // travel), else the user's own.
    static QString pathForPortfolio(const QString &portfolioPath);
    // The process-wide store on defaultPath(), read on first use.
    static PeopleStore &shared();
    // The process-wide store on that file, read on first use: every open portfolio whose people
    // the same file names edits the same records.
    static PeopleStore &shared(const QString &path);

    // Reads the file at once; a missing file is an empty store.
    explicit PeopleStore(const QString &path);
    PeopleStore(const PeopleStore &) = delete;
    PeopleStore &operator=(const PeopleStore &) = delete;

    QString path() const { return m_path; }
    // Warnings of the last read (skipped cards).
    QStringList warnings() const { return m_warnings; }
    bool reload(QString *error = nullptr);

    QList<std::shared_ptr<PersonRecord>> records() const { return m_records; }
    std::shared_ptr<PersonRecord> recordForUniqueId(const QString &uniqueId) const;
    // Records whose last name begins with the prefix, ignoring case, in store order.
    QList<std::shared_ptr<PersonRecord>> recordsWithLastNamePrefix(const QString &prefix) const;

    // Adds a new record with a fresh identifier (or the record's own, if it has one not yet used).
    // Call save() to keep it.
    std::shared_ptr<PersonRecord> createRecord(const PersonRecord &fields);
    struct ImportSummary
    {
        int added = 0;        // people new to the store
        int alreadyThere = 0; // cards of people the store already held (same UID, or same name and e-mail)
        QStringList skipped;  // why each card that could not be read was skipped
    };
    // Merges the cards of a contacts file exported by another address book and saves the store.
    // A card whose UID is known is skipped, so importing the same export again adds nobody; a
    // card without UID is identified by its content. Returns false, with the store unchanged,
    // when the file cannot be read, holds no card, or the store cannot be saved.
    bool importRecords(const QString &vcfPath, ImportSummary *summary, QString *error = nullptr);

    // Writes every record atomically; the old file stays whole if writing fails.
    bool save(QString *error = nullptr) const;

    std::shared_ptr<PersonRecord> me() const;
    void setMe(const QString &uniqueId);
    // Which settings key holds the me identifier; tests and tools may use their own.
    void setMeIdentifierKey(const QString &key) { m_meKey = key; }

private:
    QString m_path;
    QString m_meKey = QString::fromLatin1(MeIdentifierKey);
    QList<std::shared_ptr<PersonRecord>> m_records;
    QStringList m_warnings;
};
