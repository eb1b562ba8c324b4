// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a Treasury value file and as a Fiscal Data CSV: each reader must either
// refuse with a message naming the file or return records that keep its promises, never crash.
#include "update/sources/FiscalDataCsv.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "update/sources/TreasuryValueFile.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

namespace {

void check(const PriceSourceContents &contents, const QString &name)
{
    if (!contents.ok()) {
        if (!contents.records.isEmpty() || !contents.error.startsWith(name))
            std::abort();
        return;
    }
    for (const PriceRecord &record : contents.records) {
        if (record.rmo < 1 || record.rmo > 12 || record.iyr > record.ryr)
            std::abort();
        for (qint32 value : record.value) {
            if (value < -2)
                std::abort();
        }
    }
    // Whatever was read can be handed to the carry-forward.
    MaturedBondCarryForward::compute({{name, contents.records}});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    check(TreasuryValueFile::read(bytes, QStringLiteral("sb202106.asc")), QStringLiteral("sb202106.asc"));
    check(FiscalDataCsv::read(bytes, QStringLiteral("values.csv")), QStringLiteral("values.csv"));
    return 0;
}
