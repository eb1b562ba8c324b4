#include "update/PriceDataFile.h"

#include <QtEndian>

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

} // namespace PriceDataFile
