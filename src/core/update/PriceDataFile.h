// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The price data file: 56-byte big-endian records without header or trailer. Each record holds
// the values of one series for one redemption month and the twelve issue months of one year.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>
#include <array>

struct PriceRecord
{
    char series = 'E';
    quint8 rmo = 1;
    quint16 ryr = 0;
    quint16 iyr = 0;
    std::array<qint32, 12> value{}; // value[k]: issued in month k + 1

    static constexpr int Size = 56;

    // Reads the record at data[offset .. offset + 56). The caller checks the length.
    static PriceRecord decode(const char *bytes);
    void encodeTo(QByteArray &out) const;
    bool operator==(const PriceRecord &) const = default;
};

namespace PriceDataFile {
// The largest value a record can hold, in cents: six digits, as the Treasury's files write them.
inline constexpr qint32 LargestValue = 999999;
// Whole records only; trailing bytes that do not fill a record are ignored.
int recordCount(const QByteArray &data);
QList<PriceRecord> decode(const QByteArray &data);
QByteArray encode(const QList<PriceRecord> &records);

// Why data downloaded as a price data file is none: not a whole number of records, or none at
// all. Empty when it is one.
QString checkLength(const QByteArray &data);
// Why records cannot be installed: a record whose series, months, years or values no official
// source could hold (a damaged download, say, whose years would have derived values computed up to
// them). Empty when every record can be.
QString screen(const QList<PriceRecord> &records);
}
