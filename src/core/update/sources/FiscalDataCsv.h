// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reader of the Treasury Fiscal Data savings bond value export: one comma-separated line per
// series, redemption month and issue month, under the header
// series,redemption_year,redemption_month,issue_year,issue_month,value (columns in any order).
#include "update/sources/PriceSourceContents.h"

#include <QByteArray>
#include <QString>

namespace FiscalDataCsv {
// Values are grouped into one record per series, redemption month and issue year, in the order
// the groups first appear; issue months the file does not mention read as no pricing data (-2).
// A value of -1 means not redeemable. Anything malformed refuses the whole file with a message
// naming it (fileName) and the line.
PriceSourceContents read(const QByteArray &data, const QString &fileName);
}
