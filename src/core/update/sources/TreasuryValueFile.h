// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reader of the Treasury's savings bond value files (sbYYYYMM.asc): one fixed-width line per
// series, redemption month and issue year, holding the values of the twelve issue months.
#include "update/sources/PriceSourceContents.h"

#include <QByteArray>
#include <QString>

namespace TreasuryValueFile {
// Columns 1, 2-5, 6-7 and 8-11 of a line: series code, redemption year and month, issue year.
inline constexpr int HeaderWidth = 11;
inline constexpr int FieldWidth = 6;
inline constexpr int LineWidth = HeaderWidth + 12 * FieldWidth;

// "NO PAY" reads as not redeemable (-1); a blank field, or one missing because the line ends
// early, as no pricing data (-2). A line of twelve blank fields yields no record. Anything else
// refuses the whole file with a message naming it (fileName) and the line.
PriceSourceContents read(const QByteArray &data, const QString &fileName);
}
