// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Byte-level helpers shared by the CSV and QIF formats: 8-bit text, printf-style fixed-point
// numbers independent of the user's locale, and atomic file writing.
#include "base/Money.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>

class QIODevice;

namespace ExportText {
// ISO Latin 1 bytes. The text is first composed (NFC), so that an accent typed as a separate
// combining mark still becomes its Latin 1 letter; every character Latin 1 cannot hold is then
// written as one '?' (a whole character, even outside the basic plane).
QByteArray latin1Bytes(const QString &text);

// printf "%.Nf" in the C locale: exactly N decimals, rounded as printf rounds.
QString fixedPoint(double value, int decimals);

// Dollars as the CSV export writes them: the pennies rounded to single precision, divided by
// 100 in single precision, widened to double. Above 16,777,216 pennies the cents can be off.
double singlePrecisionDollars(Pennies pennies);

// Writes the whole file or nothing: the old file, if any, stays intact when writing fails.
bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *error = nullptr);
// The same, streamed: the writer appends to the buffer it is given, which is flushed to the file
// whenever it grows past a chunk, so that a large export never sits whole in memory.
using ChunkWriter = std::function<void(QByteArray &buffer, const std::function<void()> &flushIfFull)>;
bool writeFileAtomically(const QString &path, const ChunkWriter &writer, QString *error = nullptr);
}
