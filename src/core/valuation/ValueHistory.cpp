// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/ValueHistory.h"

#include <QtEndian>
#include <algorithm>

void ValueHistory::append(int redemptionMonth, qint32 value, bool derived)
{
    if (m_values.empty())
        m_firstMonth = redemptionMonth;
    const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
    if (offset < qsizetype(m_values.size()))
        return; // rows come in ascending order; anything else is not ours to place
    m_values.resize(size_t(offset), Missing); // months the database skips
    m_values.push_back(value);
    if (derived) {
        m_derived.resize(size_t(offset), 0);
        m_derived.push_back(1);
    }
}

void ValueHistory::markDerived(int redemptionMonth)
{
    const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
    // A month without a value (a blank cell's filler may still be listed as derived) has nothing
    // derived to show, as when the rows are read one bond at a time.
    if (offset < 0 || offset >= qsizetype(m_values.size()) || m_values[size_t(offset)] == Missing)
        return;
    if (offset >= qsizetype(m_derived.size()))
        m_derived.resize(size_t(offset) + 1, 0);
    m_derived[size_t(offset)] = 1;
}

QByteArray ValueHistory::packedValues() const
{
    QByteArray bytes(qsizetype(m_values.size() * sizeof(qint32)), Qt::Uninitialized);
    qToLittleEndian<qint32>(m_values.data(), qsizetype(m_values.size()), bytes.data());
    return bytes;
}

QByteArray ValueHistory::packedDerived() const
{
    const auto last = std::find(m_derived.rbegin(), m_derived.rend(), 1);
    const qsizetype used = qsizetype(m_derived.rend() - last);
    return QByteArray(reinterpret_cast<const char *>(m_derived.data()), used);
}

ValueHistory ValueHistory::unpacked(int firstMonth, const char *values, qsizetype valueBytes, const char *derived,
                                    qsizetype derivedBytes)
{
    ValueHistory history;
    const qsizetype count = valueBytes / qsizetype(sizeof(qint32));
    if (count == 0)
        return history;
    history.m_firstMonth = firstMonth;
    history.m_values.resize(size_t(count));
    qFromLittleEndian<qint32>(values, count, history.m_values.data());
    derivedBytes = std::min(derivedBytes, count);
    if (derivedBytes > 0)
        history.m_derived.assign(derived, derived + derivedBytes);
    return history;
}

bool ValueHistory::operator==(const ValueHistory &other) const
{
    return m_values == other.m_values && (m_values.empty() || m_firstMonth == other.m_firstMonth)
           && packedDerived() == other.packedDerived();
}
