// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Alternative layouts of the bond_value table, measured against the one the program creates.
#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <sqlite3.h>

namespace DatabaseLayouts {

struct Layout
{
    const char *name;
    const char *bondValueTable; // nullptr: the program's own schema
};

inline const Layout All[] = {
    {"program schema", nullptr},
    {"rowid table + unique key",
     "create table bond_value (series text not null, ryr integer not null, rmo integer not null,"
     " iyr integer not null, imo integer not null, value integer not null,"
     " primary key (series, iyr, imo, ryr, rmo))"},
    {"without rowid, untyped columns",
     "create table bond_value (series, ryr, rmo, iyr, imo, value, primary key (series, iyr, imo, ryr, rmo))"
     " without rowid"},
    {"without rowid + redemption month index",
     "create table bond_value (series text not null, ryr integer not null, rmo integer not null,"
     " iyr integer not null, imo integer not null, value integer not null,"
     " primary key (series, iyr, imo, ryr, rmo)) without rowid;"
     "create index bond_value_redemption on bond_value (ryr, rmo)"},
};
inline constexpr int Count = sizeof All / sizeof All[0];

inline QStringList sourcePaths()
{
    const QDir data(QStringLiteral(QUILLMERE_SOURCE_DIR "/data"));
    QStringList paths;
    for (const QFileInfo &file : QDir(data.filePath(QStringLiteral("treasury"))).entryInfoList({QStringLiteral("sb*.asc")}, QDir::Files, QDir::Name))
        paths << file.absoluteFilePath();
    paths << data.filePath(QStringLiteral("fiscaldata/i-bond-values.csv"));
    return paths;
}

inline QString scratchFile(const QString &name)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(name);
    QFile::remove(path);
    return path;
}

inline qint64 fileSize(const QString &path)
{
    return QFileInfo(path).size();
}

} // namespace DatabaseLayouts
