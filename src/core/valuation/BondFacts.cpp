// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/BondFacts.h"

#include "base/Series.h"

int BondFacts::pricingCorrectionFactor() const
{
    return series == Series::eeBond() && !paper ? 2 : 1;
}

Pennies BondFacts::issuePrice() const
{
    if (faceValue == 0)
        return 0;
    return series->issuePriceForFaceValue(faceValue, paper);
}

QString BondFacts::security() const
{
    return QStringLiteral("%1%2").arg(issueMonth.isNull() ? 0 : issueMonth.month(), 2, 10, QLatin1Char('0'))
               .arg(issueMonth.isNull() ? 0 : issueMonth.year())
           + series->code();
}
