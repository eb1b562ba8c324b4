// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QtGlobal>
#include <vector>

// Stored values of one bond, by redemption month. Rows holding no price data (the −2 fillers of
// blank cells) read exactly like missing rows.
class ValueHistory
{
public:
    static constexpr qint32 Missing = -2;

    qint32 at(int redemptionMonth) const
    {
        const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
        return offset >= 0 && offset < qsizetype(m_values.size()) ? m_values[size_t(offset)] : Missing;
    }
    // Whether the month's value was derived by the program rather than published.
    bool isDerived(int redemptionMonth) const
    {
        const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
        return offset >= 0 && offset < qsizetype(m_derived.size()) && m_derived[size_t(offset)] != 0;
    }
    bool isEmpty() const { return m_values.empty(); }
    int firstMonth() const { return m_firstMonth; }
    int lastMonth() const { return m_firstMonth + int(m_values.size()) - 1; }

    void append(int redemptionMonth, qint32 value, bool derived);
    void markDerived(int redemptionMonth);

    // The history as stored whole in one row: values as little-endian 32-bit integers from the
    // first month on, and one byte per month flagging derived values (empty when none is).
    QByteArray packedValues() const;
    QByteArray packedDerived() const;
    static ValueHistory unpacked(int firstMonth, const char *values, qsizetype valueBytes, const char *derived,
                                 qsizetype derivedBytes);

    bool operator==(const ValueHistory &other) const;

private:
    int m_firstMonth = 0;
    std::vector<qint32> m_values;
    std::vector<quint8> m_derived; // may stop before the last value
};
