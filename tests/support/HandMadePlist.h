// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Binary property lists written byte by byte, for shapes no library would write.
#include <QByteArray>
#include <QList>

namespace HandMadePlist {

inline void appendBigEndian(QByteArray &data, quint64 value, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i)
        data.append(char((value >> (8 * i)) & 0xFF));
}

// Objects as encoded bytes (object 0 is the top), references `referenceWidth` bytes wide.
inline QByteArray binaryOfObjects(const QList<QByteArray> &objects, int referenceWidth = 1)
{
    QByteArray data("bplist00");
    QList<quint32> offsets;
    for (const QByteArray &object : objects) {
        offsets.append(quint32(data.size()));
        data.append(object);
    }
    const quint64 tableOffset = quint64(data.size());
    for (quint32 offset : offsets)
        appendBigEndian(data, offset, 4);
    data.append(QByteArray(6, '\0')).append(char(4)).append(char(referenceWidth));
    appendBigEndian(data, quint64(objects.size()), 8);
    appendBigEndian(data, 0, 8);
    appendBigEndian(data, tableOffset, 8);
    return data;
}

// Object i is the array arrays[i] of four-byte references; object 0 is the top.
inline QByteArray binary(const QList<QList<quint32>> &arrays)
{
    QList<QByteArray> objects;
    for (const auto &references : arrays) {
        QByteArray array(1, char(0xAF));
        array.append(char(0x12)); // length as a four-byte integer
        appendBigEndian(array, quint64(references.size()), 4);
        for (quint32 reference : references)
            appendBigEndian(array, reference, 4);
        objects.append(array);
    }
    return binaryOfObjects(objects, 4);
}

// `length` arrays each referring `referencesEach` times to the next, then an empty one.
inline QList<QList<quint32>> chainOfArrays(int length, int referencesEach)
{
    QList<QList<quint32>> arrays;
    for (int i = 0; i < length; ++i)
        arrays.append(QList<quint32>(referencesEach, quint32(i + 1)));
    arrays.append(QList<quint32>());
    return arrays;
}

} // namespace HandMadePlist
