// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Names and constants of the keyed archive layout, shared by its writer and its reader.
#include <QString>
#include <QStringList>

namespace KeyedArchiveFormat {

inline constexpr char ArchiverKey[] = "$archiver";
inline constexpr char VersionKey[] = "$version";
inline constexpr char TopKey[] = "$top";
inline constexpr char ObjectsKey[] = "$objects";
inline constexpr char RootKey[] = "root";
inline constexpr char ArchiverName[] = "NSKeyedArchiver";
inline constexpr quint64 ArchiverVersion = 100000;
inline constexpr char NullObject[] = "$null";

inline constexpr char ClassKey[] = "$class";
inline constexpr char ClassNameKey[] = "$classname";
inline constexpr char ClassesKey[] = "$classes";
inline constexpr char TimeKey[] = "NS.time";
inline constexpr char ObjectsListKey[] = "NS.objects";
inline constexpr char KeysListKey[] = "NS.keys";
inline constexpr char StringKey[] = "NS.string";
// How references are spelled in the XML form of a property list.
inline constexpr char XmlUidKey[] = "CF$UID";

inline const QString DateClass = QStringLiteral("NSDate");
inline const QString ArrayClass = QStringLiteral("NSArray");
inline const QString MutableArrayClass = QStringLiteral("NSMutableArray");
inline const QString DictionaryClass = QStringLiteral("NSDictionary");
inline const QString MutableDictionaryClass = QStringLiteral("NSMutableDictionary");
inline const QString StringClass = QStringLiteral("NSString");
inline const QString MutableStringClass = QStringLiteral("NSMutableString");

// NSDate counts seconds from 2001-01-01 00:00:00 UTC.
inline constexpr qint64 ReferenceDateMSecsSinceEpoch = 978307200000LL;

inline bool isFoundationClass(const QString &className)
{
    return className == DateClass || className == ArrayClass || className == MutableArrayClass
           || className == DictionaryClass || className == MutableDictionaryClass || className == StringClass
           || className == MutableStringClass;
}

// The "$classes" list Foundation writes for its own classes, most derived first.
inline QStringList hierarchyOf(const QString &className)
{
    if (className == MutableArrayClass)
        return {MutableArrayClass, ArrayClass, QStringLiteral("NSObject")};
    if (className == MutableDictionaryClass)
        return {MutableDictionaryClass, DictionaryClass, QStringLiteral("NSObject")};
    if (className == MutableStringClass)
        return {MutableStringClass, StringClass, QStringLiteral("NSObject")};
    return {className, QStringLiteral("NSObject")};
}

// Keys of an object that begin with "$" are written with one more "$", so that they cannot be
// taken for the archiver's own "$class".
inline QString escapeKey(const QString &key)
{
    return key.startsWith(QLatin1Char('$')) ? QLatin1Char('$') + key : key;
}

} // namespace KeyedArchiveFormat
