// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Apple-compatible keyed archives ("NSKeyedArchiver", version 100000) in binary property-list
// form: the on-disk format of portfolio documents.
#include "document/ArchiveValue.h"

#include <QByteArray>
#include <QString>

namespace KeyedArchive {

// Encodes the graph under "$top" → "root". Shared pointers reached twice are stored once.
// A cycle in the graph is refused (returns an empty array and sets *error).
QByteArray encode(const ArchiveRef &root, QString *error = nullptr);

struct DecodeResult
{
    bool ok = false;
    ArchiveRef root;
    QString error; // a sentence for the user when !ok
};

// Decodes defensively: anything that is not such an archive, dangling or cyclic references,
// wrong types or absurd sizes give !ok with a message; never crashes, never throws.
DecodeResult decode(const QByteArray &data);

} // namespace KeyedArchive
