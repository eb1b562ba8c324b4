// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ExportChoice.h"

namespace ExportChoice {

QList<HoldingRef> holdingsToExport(const QList<HoldingRef> &all, const QList<HoldingRef> &selected, int chosenRow)
{
    if (!selected.isEmpty() && chosenRow != AllHoldingsRow)
        return selected;
    return all;
}

} // namespace ExportChoice
