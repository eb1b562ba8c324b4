// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What reading one redemption value source yields: its price data records, or the reason it was
// refused. A refused source yields no records at all, so nothing of it can be installed.
#include "update/PriceDataFile.h"

#include <QList>
#include <QString>

struct PriceSourceContents
{
    QList<PriceRecord> records;
    QString error; // "file:line: what is wrong"; empty when the source was read

    bool ok() const { return error.isEmpty(); }
    static PriceSourceContents refused(const QString &fileName, int line, const QString &what)
    {
        PriceSourceContents refusal;
        refusal.error = line > 0 ? QStringLiteral("%1:%2: %3").arg(fileName).arg(line).arg(what)
                                 : QStringLiteral("%1: %2").arg(fileName, what);
        return refusal;
    }
};

// A source after reading, under the name it is recorded by in data_file.
struct NamedPriceRecords
{
    QString name;
    QList<PriceRecord> records;
};
