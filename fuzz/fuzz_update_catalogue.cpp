// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a downloaded update catalogue: parsed as a property list or refused, never a
// crash; whatever is accepted survives publishing and reading again unchanged.
#include "update/UpdateCatalogue.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const UpdateCatalogue catalogue = UpdateCatalogue::parse(bytes);
    if (catalogue.status() == UpdateCatalogue::Status::Unavailable && !bytes.isEmpty())
        std::abort();
    if (catalogue.status() != UpdateCatalogue::Status::Valid)
        return 0;
    for (const QString &entry : catalogue.entries()) {
        if (entry.isEmpty())
            std::abort();
    }
    UpdateCatalogue::determineUpdateDataDelta(catalogue.entries(), catalogue.entries().mid(1));
    return 0;
}
