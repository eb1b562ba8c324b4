// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The object table of a binary property list: the trailer, where each object starts and how wide
// the references between objects are. Every read is bounds-checked against the bytes.
#include <QByteArray>

class BinaryPlistLayout
{
public:
    static constexpr int HeaderSize = 8;
    static constexpr int TrailerSize = 32;

    explicit BinaryPlistLayout(const QByteArray &data)
        : m_bytes(reinterpret_cast<const uchar *>(data.constData())), m_size(data.size())
    {
    }

    // False when the trailer is damaged or announces more than maximumObjects objects.
    bool readTrailer(qint64 maximumObjects)
    {
        if (m_size < HeaderSize + TrailerSize)
            return false;
        const qint64 trailer = m_size - TrailerSize;
        m_offsetWidth = m_bytes[trailer + 6];
        m_referenceWidth = m_bytes[trailer + 7];
        quint64 count = 0, top = 0, table = 0;
        if (m_offsetWidth < 1 || m_offsetWidth > 8 || m_referenceWidth < 1 || m_referenceWidth > 8
            || !readNumber(trailer + 8, 8, &count) || !readNumber(trailer + 16, 8, &top)
            || !readNumber(trailer + 24, 8, &table))
            return false;
        if (count == 0 || count > quint64(maximumObjects) || top >= count || table < HeaderSize
            || table > quint64(trailer) || count * m_offsetWidth > quint64(trailer) - table)
            return false;
        m_count = count;
        m_top = top;
        m_tableOffset = qint64(table);
        return true;
    }

    quint64 count() const { return m_count; }
    quint64 top() const { return m_top; }
    int referenceWidth() const { return m_referenceWidth; }
    // Objects lie between the header and the offset table.
    qint64 tableOffset() const { return m_tableOffset; }
    uchar byteAt(qint64 position) const { return m_bytes[position]; }
    const char *charsAt(qint64 position) const { return reinterpret_cast<const char *>(m_bytes + position); }

    // Big-endian unsigned number of 1 to 8 bytes, within the file.
    bool readNumber(qint64 position, int width, quint64 *value) const
    {
        if (position < 0 || width < 1 || width > 8 || position + width > m_size)
            return false;
        quint64 result = 0;
        for (int i = 0; i < width; ++i)
            result = (result << 8) | m_bytes[position + i];
        *value = result;
        return true;
    }

    // Where object `index` starts: after the header and before the offset table.
    bool objectOffset(quint64 index, qint64 *offset) const
    {
        quint64 value = 0;
        if (index >= m_count
            || !readNumber(m_tableOffset + qint64(index) * m_offsetWidth, m_offsetWidth, &value)
            || value < HeaderSize || value >= quint64(m_tableOffset))
            return false;
        *offset = qint64(value);
        return true;
    }

    // Where the references of a container object start and how many there are; a leaf has none.
    // For a dictionary, *dictionaryKeys is set and its first half of references are its keys.
    bool containerReferences(quint64 index, qint64 *first, quint64 *count, bool *dictionaryKeys = nullptr) const
    {
        qint64 offset = 0;
        if (!objectOffset(index, &offset))
            return false;
        const uchar marker = m_bytes[offset];
        const int kind = marker >> 4;
        *count = 0;
        *first = offset + 1;
        if (dictionaryKeys)
            *dictionaryKeys = false;
        if (kind != 0xA && kind != 0xC && kind != 0xD)
            return true; // array, set and dictionary are the only containers
        if (dictionaryKeys)
            *dictionaryKeys = kind == 0xD;
        quint64 length = marker & 0x0F;
        if (length == 0x0F) {
            if (*first >= m_tableOffset || (m_bytes[*first] >> 4) != 0x1)
                return false;
            const int width = 1 << (m_bytes[*first] & 0x0F);
            if (width > 8 || !readNumber(*first + 1, width, &length))
                return false;
            *first += 1 + width;
        }
        const quint64 available = quint64(m_tableOffset - *first) / quint64(m_referenceWidth);
        const quint64 references = kind == 0xD ? length * 2 : length;
        if (length > available || references > available)
            return false;
        *count = references;
        return true;
    }

    enum class Text { NotText, Clean, OneByteWithNull, TwoByteWithNull, Broken };

    // Whether the object is a text, and whether it holds a null character.
    Text textAt(quint64 index) const
    {
        qint64 offset = 0;
        if (!objectOffset(index, &offset))
            return Text::Broken;
        const int kind = m_bytes[offset] >> 4;
        if (kind != 0x5 && kind != 0x6)
            return Text::NotText;
        quint64 length = m_bytes[offset] & 0x0F;
        qint64 start = offset + 1;
        if (length == 0x0F) {
            if (start >= m_tableOffset || (m_bytes[start] >> 4) != 0x1)
                return Text::Broken;
            const int width = 1 << (m_bytes[start] & 0x0F);
            if (width > 8 || !readNumber(start + 1, width, &length))
                return Text::Broken;
            start += 1 + width;
        }
        const int unit = kind == 0x6 ? 2 : 1;
        if (length > quint64(m_tableOffset - start) / unit)
            return Text::Broken;
        for (qint64 i = 0; i < qint64(length); ++i) {
            const uchar *character = m_bytes + start + i * unit;
            if (character[0] == 0 && (unit == 1 || character[1] == 0))
                return unit == 1 ? Text::OneByteWithNull : Text::TwoByteWithNull;
        }
        return Text::Clean;
    }

private:
    const uchar *m_bytes;
    qint64 m_size;
    int m_offsetWidth = 0;
    int m_referenceWidth = 0;
    quint64 m_count = 0;
    quint64 m_top = 0;
    qint64 m_tableOffset = 0;
};
