// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/PriceDataFile.h"

#include "update/sources/SourceText.h"

#include <QtEndian>
#include <QCoreApplication>

PriceRecord PriceRecord::decode(const char *bytes)
{
    const auto *b = reinterpret_cast<const uchar *>(bytes);
    PriceRecord r;
    r.series = static_cast<char>(b[0]);
    r.rmo = b[1];
    r.ryr = qFromBigEndian<quint16>(b + 2);
    r.iyr = qFromBigEndian<quint16>(b + 4);
    for (int k = 0; k < 12; ++k)
        r.value[k] = qFromBigEndian<qint32>(b + 8 + 4 * k);
    return r;
}

void PriceRecord::encodeTo(QByteArray &out) const
{
    uchar b[Size] = {};
    b[0] = static_cast<uchar>(series);
    b[1] = rmo;
    qToBigEndian<quint16>(ryr, b + 2);
    qToBigEndian<quint16>(iyr, b + 4);
    for (int k = 0; k < 12; ++k)
        qToBigEndian<qint32>(value[k], b + 8 + 4 * k);
    out.append(reinterpret_cast<const char *>(b), Size);
}

namespace PriceDataFile {

int recordCount(const QByteArray &data)
{
    return static_cast<int>(data.size() / PriceRecord::Size);
}

QList<PriceRecord> decode(const QByteArray &data)
{
    QList<PriceRecord> records;
    const int count = recordCount(data);
    records.reserve(count);
    for (int i = 0; i < count; ++i)
        records.append(PriceRecord::decode(data.constData() + i * PriceRecord::Size));
    return records;
}

QByteArray encode(const QList<PriceRecord> &records)
{
    QByteArray out;
    out.reserve(records.size() * PriceRecord::Size);
    for (const PriceRecord &record : records)
        record.encodeTo(out);
    return out;
}

QString checkLength(const QByteArray &data)
{
    if (data.size() % PriceRecord::Size != 0)
        return QCoreApplication::translate("PriceDataFile", "%1 bytes are not a whole number of %2-byte records").arg(data.size()).arg(PriceRecord::Size);
    if (data.isEmpty())
        return QCoreApplication::translate("PriceDataFile", "it holds no record");
    return {};
}

QString screen(const QList<PriceRecord> &records)
{
    // The first month any bond was sold, and the last a source can hold values for.
    constexpr int FirstYear = 1941;
    const int lastYear = SourceText::latestRedemptionYear();
    // Below -2 nothing is a marker.
    constexpr qint32 SmallestMarker = -2;
    for (qsizetype i = 0; i < records.size(); ++i) {
        const PriceRecord &r = records.at(i);
        auto refuse = [&](const QString &what) { return QCoreApplication::translate("PriceDataFile", "record %1: %2").arg(i + 1).arg(what); };
        if (!SourceText::isSeriesCode(r.series))
            return refuse(QCoreApplication::translate("PriceDataFile", "series code %1 is not E, N, I or S").arg(int(quint8(r.series))));
        if (r.rmo < 1 || r.rmo > 12 || r.ryr < FirstYear || r.ryr > lastYear)
            return refuse(QCoreApplication::translate("PriceDataFile", "redemption month %1-%2 is out of range").arg(r.ryr).arg(r.rmo));
        if (r.iyr < FirstYear || r.iyr > r.ryr)
            return refuse(QCoreApplication::translate("PriceDataFile", "issue year %1 is out of range for redemption year %2").arg(r.iyr).arg(r.ryr));
        for (int k = 0; k < 12; ++k) {
            if (r.value[k] < SmallestMarker || r.value[k] > LargestValue)
                return refuse(QCoreApplication::translate("PriceDataFile", "the value %1 of issue month %2 is out of range").arg(r.value[k]).arg(k + 1));
        }
    }
    return {};
}

} // namespace PriceDataFile
