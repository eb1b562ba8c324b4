// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A property list held in memory: what the property-list reader gives and the binary writer takes.
#include <QByteArray>
#include <QLatin1StringView>
#include <QString>

#include <utility>
#include <vector>

class PlistValue
{
public:
    enum class Type : quint8 { Boolean, Integer, Real, Date, Data, String, Uid, Array, Dictionary };
    using Entries = std::vector<std::pair<QString, PlistValue>>;

    PlistValue() = default; // an empty array

    static PlistValue boolean(bool value);
    // The form stores integers in up to eight bytes as signed; a sixteen-byte integer is how it
    // tells unsigned values above INT64_MAX from negative ones, so that form is kept on reading.
    static PlistValue integer(quint64 value, bool sixteenBytes = false);
    static PlistValue real(double value);
    static PlistValue date(double secondsSince2001);
    static PlistValue data(QByteArray bytes);
    static PlistValue string(QString text);
    static PlistValue uid(quint64 value);
    static PlistValue array(std::vector<PlistValue> items = {});
    static PlistValue dictionary(Entries entries = {});

    Type type() const { return m_type; }
    bool is(Type type) const { return m_type == type; }

    bool toBool() const { return m_flag; }
    quint64 toInteger() const { return m_number.integer; } // an integer's or a UID's value
    bool isSixteenByteInteger() const { return m_type == Type::Integer && m_flag; }
    double toReal() const { return m_number.real; } // a real's value, or a date's seconds
    const QString &text() const { return m_text; }
    const QByteArray &bytes() const { return m_bytes; }

    const std::vector<PlistValue> &items() const { return m_items; }
    std::vector<PlistValue> &items() { return m_items; }
    // In stored order; a key read from a file may appear twice.
    const Entries &entries() const { return m_entries; }
    Entries &entries() { return m_entries; }

    // A dictionary's first value under the key, or null.
    const PlistValue *value(QLatin1StringView key) const;
    PlistValue *value(QLatin1StringView key);
    // Replaces the value under the key, or adds the entry at the end.
    void insert(const QString &key, PlistValue value);

    friend bool operator==(const PlistValue &a, const PlistValue &b);

private:
    explicit PlistValue(Type type) : m_type(type) {}

    Type m_type = Type::Array;
    bool m_flag = false;
    union {
        quint64 integer;
        double real;
    } m_number{0};
    QString m_text;
    QByteArray m_bytes;
    std::vector<PlistValue> m_items;
    Entries m_entries;
};
