// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Readable GoogleTest failure messages for the Qt types the core tests compare.
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <ostream>

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList &list, std::ostream *out)
{
    *out << '{' << (list.isEmpty() ? QString() : u'"' + list.join(QStringLiteral("\", \"")) + u'"').toStdString() << '}';
}
inline void PrintTo(const QDate &date, std::ostream *out) { *out << date.toString(Qt::ISODate).toStdString(); }
inline void PrintTo(const QDateTime &date, std::ostream *out) { *out << date.toString(Qt::ISODateWithMs).toStdString(); }
inline void PrintTo(const QVariant &value, std::ostream *out)
{
    *out << "QVariant(" << value.typeName() << ", " << value.toString().toStdString() << ')';
}
