// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PlistValue.h"

#include <bit>

PlistValue PlistValue::boolean(bool value)
{
    PlistValue result(Type::Boolean);
    result.m_flag = value;
    return result;
}

PlistValue PlistValue::integer(quint64 value, bool sixteenBytes)
{
    PlistValue result(Type::Integer);
    result.m_number.integer = value;
    result.m_flag = sixteenBytes;
    return result;
}

PlistValue PlistValue::real(double value)
{
    PlistValue result(Type::Real);
    result.m_number.real = value;
    return result;
}

PlistValue PlistValue::date(double secondsSince2001)
{
    PlistValue result(Type::Date);
    result.m_number.real = secondsSince2001;
    return result;
}

PlistValue PlistValue::data(QByteArray bytes)
{
    PlistValue result(Type::Data);
    result.m_bytes = std::move(bytes);
    return result;
}

PlistValue PlistValue::string(QString text)
{
    PlistValue result(Type::String);
    result.m_text = std::move(text);
    return result;
}

PlistValue PlistValue::uid(quint64 value)
{
    PlistValue result(Type::Uid);
    result.m_number.integer = value;
    return result;
}

PlistValue PlistValue::array(std::vector<PlistValue> items)
{
    PlistValue result(Type::Array);
    result.m_items = std::move(items);
    return result;
}

PlistValue PlistValue::dictionary(Entries entries)
{
    PlistValue result(Type::Dictionary);
    result.m_entries = std::move(entries);
    return result;
}

const PlistValue *PlistValue::value(QLatin1StringView key) const
{
    for (const auto &[name, value] : m_entries) {
        if (name == key)
            return &value;
    }
    return nullptr;
}

PlistValue *PlistValue::value(QLatin1StringView key)
{
    return const_cast<PlistValue *>(std::as_const(*this).value(key));
}

void PlistValue::insert(const QString &key, PlistValue value)
{
    for (auto &entry : m_entries) {
        if (entry.first == key) {
            entry.second = std::move(value);
            return;
        }
    }
    m_entries.emplace_back(key, std::move(value));
}

bool operator==(const PlistValue &a, const PlistValue &b)
{
    if (a.m_type != b.m_type || a.m_flag != b.m_flag)
        return false;
    switch (a.m_type) {
    case PlistValue::Type::Boolean:
        return true;
    case PlistValue::Type::Integer:
    case PlistValue::Type::Uid:
        return a.m_number.integer == b.m_number.integer;
    case PlistValue::Type::Real:
    case PlistValue::Type::Date: // bit for bit, so that -0.0 and NaN compare as written
        return std::bit_cast<quint64>(a.m_number.real) == std::bit_cast<quint64>(b.m_number.real);
    case PlistValue::Type::Data:
        return a.m_bytes == b.m_bytes;
    case PlistValue::Type::String:
        return a.m_text == b.m_text;
    case PlistValue::Type::Array:
        return a.m_items == b.m_items;
    case PlistValue::Type::Dictionary:
        return a.m_entries == b.m_entries;
    }
    return false;
}
