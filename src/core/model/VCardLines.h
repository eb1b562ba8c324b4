// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The lines of a vCard file as text, whatever wrote it: folded lines joined byte by byte (a fold
// may split a multi-byte character), vCard 2.1 quoted-printable values decoded (soft line breaks
// included), and each value read in its CHARSET (UTF-8, ISO-8859-1, Windows-1252); a value that
// is not UTF-8 and names no charset is read as Windows-1252, which most such exports are. The
// encoding parameters go with the decoding, so that a line kept and written again is plain text.
#include <QByteArray>
#include <QList>
#include <QStringList>

namespace VCardLines {
struct Line
{
    QString text;
    int number = 0; // of its first physical line
};
QList<Line> read(const QByteArray &data);
}
