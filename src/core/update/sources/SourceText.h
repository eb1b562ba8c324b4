// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Line and field handling shared by the text source readers.
#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <optional>

namespace SourceText {
// Lines without their terminators; CR LF and LF endings are both accepted. A final terminator
// does not start another line. A DOS end-of-file mark (Ctrl-Z) at the very end is dropped.
QList<QByteArrayView> lines(const QByteArray &data);
bool isBlank(QByteArrayView text);
QByteArrayView trimmed(QByteArrayView text);
// A whole non-negative decimal number of digits only, or nothing.
std::optional<qint64> digits(QByteArrayView text);
// Like digits() but with an optional leading minus sign.
std::optional<qint64> signedInteger(QByteArrayView text);
// The text for a message: printable ASCII kept, everything else shown as '?'.
QString quoted(QByteArrayView text);
bool isSeriesCode(char code);
// The last redemption year a source can hold values for: values are published at most a few
// months ahead. A later year is a damaged file, and would have the matured-bond carry-forward
// fill every month up to it.
int latestRedemptionYear();
}
