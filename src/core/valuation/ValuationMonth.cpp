// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/ValuationMonth.h"

#include "valuation/BondAssessor.h"
#include <QCoreApplication>

namespace ValuationMonth {

bool validate(const BondAssessor &database, const QDateTime &proposed, ValidationError *error)
{
    if (proposed.isValid() && database.isValidValueOfDate(Month::of(proposed)))
        return true;
    if (error)
        *error = {QString::fromLatin1(ErrorDomain), 1, QCoreApplication::translate("ValuationMonth", NoValuationDataMessage)};
    return false;
}

QDateTime initial(const BondAssessor &database)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime latest = database.maximumRedemptionDate();
    if (!latest.isValid())
        return now;
    return latest < now ? latest : now;
}

} // namespace ValuationMonth
