// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PeopleStore.h"

#include <algorithm>

#include "base/UserDefaults.h"
#include "model/VCard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>
#include <QtDebug>
#include <map>
#include <QCoreApplication>

QString PeopleStore::defaultPath()
{
    const QString overridden = qEnvironmentVariable(PathEnvironmentVariable);
    if (!overridden.isEmpty())
        return overridden;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u'/'
           + QString::fromLatin1(FileName);
}

QString PeopleStore::pathForPortfolio(const QString &portfolioPath)
{
    if (!qEnvironmentVariableIsEmpty(PathEnvironmentVariable))
        return defaultPath();
    const QString beside = QFileInfo(portfolioPath).absoluteDir().filePath(QString::fromLatin1(FileName));
    if (QFileInfo(beside).isFile())
        return beside;
    return defaultPath();
}

PeopleStore &PeopleStore::shared()
{
    return shared(defaultPath());
}

PeopleStore &PeopleStore::shared(const QString &path)
{
    static std::map<QString, std::unique_ptr<PeopleStore>> stores;
    std::unique_ptr<PeopleStore> &store = stores[QFileInfo(path).absoluteFilePath()];
    if (!store)
        store = std::make_unique<PeopleStore>(path);
    return *store;
}

PeopleStore::PeopleStore(const QString &path)
    : m_path(path)
{
    reload();
}

bool PeopleStore::reload(QString *error)
{
    m_records.clear();
    m_warnings.clear();
    QFile file(m_path);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QCoreApplication::translate("PeopleStore", "Could not read the people file %1: %2").arg(m_path, file.errorString());
        qWarning().noquote() << "Could not read the people file" << m_path << ":" << file.errorString();
        return false;
    }
    const VCard::ReadResult read = VCard::read(file.readAll());
    for (const QString &warning : read.warnings)
        qWarning().noquote() << m_path + QStringLiteral(": ") + warning;
    m_warnings = read.warnings;
    for (const PersonRecord &record : read.records)
        m_records << std::make_shared<PersonRecord>(record);
    return true;
}

std::shared_ptr<PersonRecord> PeopleStore::recordForUniqueId(const QString &uniqueId) const
{
    if (uniqueId.isEmpty())
        return nullptr;
    for (const auto &record : m_records) {
        if (record->uniqueId == uniqueId)
            return record;
    }
    return nullptr;
}

QList<std::shared_ptr<PersonRecord>> PeopleStore::recordsWithLastNamePrefix(const QString &prefix) const
{
    QList<std::shared_ptr<PersonRecord>> matches;
    for (const auto &record : m_records) {
        if (record->lastName.startsWith(prefix, Qt::CaseInsensitive))
            matches << record;
    }
    return matches;
}

std::shared_ptr<PersonRecord> PeopleStore::createRecord(const PersonRecord &fields)
{
    auto record = std::make_shared<PersonRecord>(fields);
    if (record->uniqueId.isEmpty() || recordForUniqueId(record->uniqueId))
        record->uniqueId = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    m_records << record;
    return record;
}

bool PeopleStore::importRecords(const QString &vcfPath, ImportSummary *summary, QString *error)
{
    auto fail = [error](const QString &message) {
        if (error)
            *error = message;
        return false;
    };
    QFile file(vcfPath);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QCoreApplication::translate("PeopleStore", "Could not read the contacts file %1: %2").arg(vcfPath, file.errorString()));
    const VCard::ReadResult read = VCard::read(file.readAll());
    if (read.records.isEmpty()) {
        const QString why = read.warnings.isEmpty() ? QCoreApplication::translate("PeopleStore", "it holds no vCard contacts.")
                                                    : read.warnings.constFirst();
        return fail(QCoreApplication::translate("PeopleStore", "Could not import %1: %2").arg(vcfPath, why));
    }
    for (const QString &warning : read.warnings)
        qWarning().noquote() << vcfPath + QStringLiteral(": ") + warning;

    ImportSummary counted;
    counted.skipped = read.warnings;
    const qsizetype before = m_records.size();
    // A card exported without UID gets a new one each time: the same name and e-mail address
    // (or the same name, neither having one) is the same person.
    const auto samePerson = [this](const PersonRecord &card) {
        return std::any_of(m_records.cbegin(), m_records.cend(), [&card](const std::shared_ptr<PersonRecord> &known) {
            if (known->firstName.compare(card.firstName, Qt::CaseInsensitive) != 0
                || known->lastName.compare(card.lastName, Qt::CaseInsensitive) != 0)
                return false;
            if (known->emails.isEmpty() && card.emails.isEmpty())
                return true;
            return std::any_of(card.emails.cbegin(), card.emails.cend(), [&known](const LabelledEmail &email) {
                return std::any_of(known->emails.cbegin(), known->emails.cend(), [&email](const LabelledEmail &mine) {
                    return mine.address.compare(email.address, Qt::CaseInsensitive) == 0;
                });
            });
        });
    };
    for (const PersonRecord &record : read.records) {
        if (recordForUniqueId(record.uniqueId) || samePerson(record)) {
            ++counted.alreadyThere;
            continue;
        }
        createRecord(record);
        ++counted.added;
    }
    if (counted.added > 0 && !save(error)) {
        // The file on disk is untouched; drop the additions so memory agrees with it.
        m_records.resize(before);
        return false;
    }
    if (summary)
        *summary = counted;
    return true;
}

bool PeopleStore::save(QString *error) const
{
    QList<PersonRecord> plain;
    for (const auto &record : m_records)
        plain << *record;
    const QFileInfo info(m_path);
    QDir().mkpath(info.absolutePath());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = QCoreApplication::translate("PeopleStore", "Could not write the people file %1: %2").arg(m_path, file.errorString());
        return false;
    }
    file.write(VCard::write(plain));
    if (!file.commit()) {
        if (error)
            *error = QCoreApplication::translate("PeopleStore", "Could not write the people file %1: %2").arg(m_path, file.errorString());
        return false;
    }
    return true;
}

std::shared_ptr<PersonRecord> PeopleStore::me() const
{
    return recordForUniqueId(UserDefaults::settings().value(m_meKey).toString());
}

void PeopleStore::setMe(const QString &uniqueId)
{
    UserDefaults::settings().setValue(m_meKey, uniqueId);
}
