// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Keeps matured bonds priced when values are added to a database one file at a time. A bond earns
// nothing after final maturity, so every later month without data takes its value at maturity,
// up to the latest month any record holds. Unlike deriving the months from all official sources
// at once, this works on what a database holds, where a month without data may be an empty
// derived cell as well as a missing record.
#include "update/PriceDataFile.h"

#include <QHash>

namespace MaturedValueCompletion {

// Series, redemption month and issue year: what one record of twelve values stands for.
quint64 recordKey(char series, int ryr, int rmo, int iyr);
inline quint64 recordKey(const PriceRecord &record)
{
    return recordKey(record.series, record.ryr, record.rmo, record.iyr);
}

// The record of a series, redemption month and issue year; added, every issue month without data,
// when there is none yet.
PriceRecord &recordFor(QHash<quint64, PriceRecord> &records, char series, int ryr, int rmo, int iyr);

// Fills, in place, the issue months without data (-2) from each matured bond's final maturity to
// the latest redemption month, adding records (other months without data) where none exists.
// Values are never changed. Returns the number of issue months filled.
int complete(QHash<quint64, PriceRecord> &records);

}
