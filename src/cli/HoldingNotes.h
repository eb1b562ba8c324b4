// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the command line tells a user about bonds without pricing data: why a bond has none, what
// to run for newer values, and how many bonds the totals leave out.
#include <QString>

class HoldingFigures;

namespace HoldingNotes {
// Why the holding has no value and, when an update may bring one, the command that installs it;
// empty for a holding that does not lack pricing data.
QString noPricingData(const HoldingFigures &holding);
// "2 bonds without pricing data are not in these totals"; empty for none.
QString notInTotals(qint64 bonds);
}
