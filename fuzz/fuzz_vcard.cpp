// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a people file: reading must never crash or hang, and whatever was read must
// survive being written and read again unchanged.
#include "model/VCard.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 256 * 1024)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const VCard::ReadResult first = VCard::read(bytes);
    const VCard::ReadResult again = VCard::read(VCard::write(first.records));
    if (again.records != first.records || !again.warnings.isEmpty())
        std::abort();
    return 0;
}
