// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The object graph of a keyed archive, independent of the program's classes. The keyed archive
// codec turns bytes into such a graph and back; the document maps its holdings and people onto it.
//
// Sharing is by pointer: an ArchiveObject (or array, or dictionary) reached twice through the same
// shared pointer is written once and comes back as one shared pointer.
#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <memory>
#include <utility>
#include <variant>

struct ArchiveObject;
struct ArchiveArray;
struct ArchiveDictionary;

// Reference to an archived object; what encodeObject:forKey: writes (as a UID in the archive).
//  - std::monostate: nil ("$null")
//  - QString: a string object, stored as a plain property-list string
//  - ArchiveDate: an NSDate, stored as a class dictionary with "NS.time"
//  - the three pointer kinds: objects of the program, arrays and dictionaries
//  - ArchiveData: binary data (an NSData, or bytes stored straight under a key), which files of
//    other writers carry where this program reads nothing, e.g. inside a date's time zone
struct ArchiveDate
{
    QDateTime instant;
};
struct ArchiveData
{
    QByteArray bytes;
};
using ArchiveRef = std::variant<std::monostate, QString, ArchiveDate, std::shared_ptr<ArchiveObject>,
                                std::shared_ptr<ArchiveArray>, std::shared_ptr<ArchiveDictionary>, ArchiveData>;

// A value stored under a key of an object: an inline scalar (encodeInt32/encodeInt64/encodeBool/
// encodeDouble write these straight into the object's dictionary) or a reference.
using ArchiveField = std::variant<qint64, bool, double, ArchiveRef>;

struct ArchiveObject
{
    // "$classname" and "$classes" (most derived first, e.g. {"Holding", "NSObject"}).
    QString className;
    QStringList classHierarchy;
    // Keys in the order written; a key appears once.
    QList<std::pair<QString, ArchiveField>> fields;

    const ArchiveField *field(const QString &key) const;
    void set(const QString &key, ArchiveField value);
};

struct ArchiveArray
{
    QString className = QStringLiteral("NSArray"); // or "NSMutableArray"
    QList<ArchiveRef> items;
};

struct ArchiveDictionary
{
    QString className = QStringLiteral("NSDictionary"); // or "NSMutableDictionary"
    // Keys are string objects in every archive this program writes or reads.
    QList<std::pair<QString, ArchiveRef>> entries;

    const ArchiveRef *value(const QString &key) const;
};
