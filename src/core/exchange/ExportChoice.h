// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which holdings an export covers. The export panels offer two rows when the table has a
// selection: row 0 all holdings, row 1 the selected holdings only.
#include "model/Holding.h"

#include <QList>

namespace ExportChoice {
inline constexpr int AllHoldingsRow = 0;
inline constexpr int SelectedHoldingsRow = 1;

// The selected holdings (in the table's order) when there is a selection and a row other than
// row 0 is chosen; otherwise all holdings in portfolio order.
QList<HoldingRef> holdingsToExport(const QList<HoldingRef> &all, const QList<HoldingRef> &selected, int chosenRow);
}
