// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Bonds on the clipboard: a keyed archive of the list of holdings under the single type
// "QBBondPortfolioHoldings", the people named by their identifiers. Anything whose first type
// is not exactly that is not for pasting here.
#include "model/Holding.h"

#include <QList>

class PeopleStore;
class QMimeData;

namespace BondClipboard {
inline constexpr const char *HoldingsType = "QBBondPortfolioHoldings";

// nullptr when there is nothing to copy or the archive cannot be written.
QMimeData *mimeDataFor(const QList<HoldingRef> &holdings);
// The holdings of the data, not yet attached to any portfolio; empty for foreign content.
QList<HoldingRef> holdingsFrom(const QMimeData *data, const PeopleStore &people);
}
