// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The update catalogue: a property list (XML or binary) whose top level is an array of price data
// file names, in installation order.
#include <QByteArray>
#include <QString>
#include <QStringList>

class UpdateCatalogue
{
public:
    enum class Status {
        Unavailable, // no reply, or an empty one
        Corrupt,     // not a property list, or not an array of non-empty strings
        Valid,
    };

    static UpdateCatalogue parse(const QByteArray &data);
    // The catalogue as published: an XML property list of the names.
    static QByteArray encode(const QStringList &entries);

    Status status() const { return m_status; }
    QStringList entries() const { return m_entries; }
    // Why a corrupt catalogue was refused.
    QString error() const { return m_error; }

    // Why an entry cannot be fetched: anything but a plain file name inside the update directory
    // (a path, "..", a scheme, a host or a query). Empty for a plain name.
    static QString entryProblem(const QString &entry);

    // The entries not yet installed, in catalogue order. An entry listed twice stays twice.
    static QStringList determineUpdateDataDelta(const QStringList &catalogue, const QStringList &known);

private:
    Status m_status = Status::Unavailable;
    QStringList m_entries;
    QString m_error;
};
