// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a portfolio file: refused with a message or decoded, never a crash, a hang
// or runaway memory. Whatever is decoded must survive writing and reading again.
#include "document/KeyedArchive.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const KeyedArchive::DecodeResult result = KeyedArchive::decode(bytes);
    if (result.ok != result.error.isEmpty())
        std::abort();
    if (!result.ok)
        return 0;
    QString error;
    const QByteArray written = KeyedArchive::encode(result.root, &error);
    if (written.isEmpty() != !error.isEmpty())
        std::abort();
    if (!written.isEmpty() && !KeyedArchive::decode(written).ok)
        std::abort();
    return 0;
}
