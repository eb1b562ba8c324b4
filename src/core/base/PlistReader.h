// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reads property lists, binary ("bplist00") or XML, from bytes that may be hostile: sizes and
// nesting are bounded before any value is built, the binary object table is walked without
// recursion, and a value shared by many references is counted once for each of them.
#include "base/PlistValue.h"

#include <QByteArray>
#include <QString>

namespace PlistReader {

enum class Format { Binary, Xml, Unknown };

Format detectFormat(const QByteArray &data);

struct Limits
{
    int maximumDepth;     // nesting of containers
    qint64 maximumNodes;  // values, counting a shared one once for every reference to it
};

struct Result
{
    enum class Outcome {
        Read,
        NotAPropertyList, // neither form
        Refused,          // beyond the limits or unsafe to read; `problem` says why
        Unreadable,       // damaged within the limits
    };
    Outcome outcome = Outcome::NotAPropertyList;
    Format format = Format::Unknown;
    PlistValue root;
    // The end of a sentence ("its values are nested too deeply") when refused.
    QString problem;
};

Result read(const QByteArray &data, const Limits &limits);

// The two forms; read() picks one by the first bytes.
Result readBinary(const QByteArray &data, const Limits &limits);
Result readXml(const QByteArray &data, const Limits &limits);

} // namespace PlistReader
