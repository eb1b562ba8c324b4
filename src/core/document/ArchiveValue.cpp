// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/ArchiveValue.h"

const ArchiveField *ArchiveObject::field(const QString &key) const
{
    for (const auto &entry : fields) {
        if (entry.first == key)
            return &entry.second;
    }
    return nullptr;
}

void ArchiveObject::set(const QString &key, ArchiveField value)
{
    for (auto &entry : fields) {
        if (entry.first == key) {
            entry.second = std::move(value);
            return;
        }
    }
    fields.append({key, std::move(value)});
}

const ArchiveRef *ArchiveDictionary::value(const QString &key) const
{
    for (const auto &entry : entries) {
        if (entry.first == key)
            return &entry.second;
    }
    return nullptr;
}
