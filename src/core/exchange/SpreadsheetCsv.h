// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The CSV form written for spreadsheets (LibreOffice, Excel) and read back by the import: UTF-8
// after a byte order mark, dates as YYYY-MM-01, and a field that holds a comma, a double quote or
// a line break put in double quotes with its quotes doubled (RFC 4180). Lines still end in a
// bare line feed, as in the plain export; the reader takes carriage returns as well.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

enum class CsvForm { Plain, Spreadsheet };

namespace SpreadsheetCsv {
// Excel takes a file for UTF-8 only with it; LibreOffice recognises it too.
inline constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

// The bytes after the byte order mark, or all of them when there is none.
inline QByteArray withoutByteOrderMark(const QByteArray &data)
{
    return data.startsWith(ByteOrderMark) ? data.mid(qsizetype(sizeof ByteOrderMark) - 1) : data;
}

// The text as it stands, or in double quotes with every quote doubled when it needs them.
QString quotedField(const QString &text);

// The records of a whole text: a quoted field may hold commas, doubled quotes and line breaks;
// a record ends at a line feed outside quotes, a carriage return before it dropped. A quote
// inside an unquoted field is kept as text, and an unclosed quote runs to the end of the text.
QList<QStringList> records(QStringView text);
}
