// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Keeps the packed value histories (PackedValueHistories) in step with bond_value.
#include <QString>

struct sqlite3;

namespace ValueHistoryPacking {

// Creates the packed histories and their triggers when the database has none, and packs every
// bond whose values changed since they were last packed, in one transaction of its own. Readers
// are right without it, only slower.
bool refresh(sqlite3 *db, QString *error);

} // namespace ValueHistoryPacking
