// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading and writing vCard text (versions 3.0 and 4.0 are read; 3.0 is written).
#include "model/PersonRecord.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace VCard {

struct ReadResult
{
    QList<PersonRecord> records;
    QStringList warnings; // one sentence per skipped card or ignored line
};

// Never fails as a whole: a malformed card is skipped and described in warnings.
// Cards without UID get one derived from their content, so it stays the same across reads.
ReadResult read(const QByteArray &data);

// Every record as a vCard 3.0 card, CRLF line ends, long lines folded at 75 octets.
QByteArray write(const QList<PersonRecord> &records);

} // namespace VCard
