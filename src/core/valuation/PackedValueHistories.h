// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Each bond's values (series and issue month) kept whole in one row of "bond_history", beside
// the rows of bond_value they are made from, so that reading every bond's values costs a row per
// bond instead of one per value.
//
// The packed rows can never be believed when stale: triggers on bond_value and derived_value mark
// a bond's row as changed (no values) in the same statement that changes its values, whichever
// program makes the change. Readers read such a bond from bond_value; the installers pack it again
// (ValueHistoryPacking).
// A bond with values always has a row; no row means no values.
#include <QtGlobal>

namespace PackedValueHistories {

constexpr quint32 key(char seriesCode, int issueMonth)
{
    return (quint32(quint8(seriesCode)) << 24) | (quint32(issueMonth) & 0xffffffu);
}
constexpr char seriesCodeOf(quint32 key) { return char(key >> 24); }
constexpr int issueMonthOf(quint32 key) { return int(key & 0xffffffu); }

inline constexpr const char *TableName = "bond_history";

} // namespace PackedValueHistories
