// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which months a portfolio can be valued as of: those the database holds values for.
#include "base/ValidationError.h"

#include <QDateTime>

class BondAssessor;

namespace ValuationMonth {
inline constexpr const char *ErrorDomain = "ValueOfDate";
inline constexpr const char *NoValuationDataMessage =
    QT_TRANSLATE_NOOP("ValuationMonth", "No pricing data available for bonds with that valuation date");

// Accepts a month the database holds values for; otherwise the message above.
bool validate(const BondAssessor &database, const QDateTime &proposed, ValidationError *error = nullptr);
// The earlier of now and the database's latest month; now when the database has none.
QDateTime initial(const BondAssessor &database);
}
