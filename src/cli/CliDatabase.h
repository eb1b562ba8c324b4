// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Opening the redemption value database for a sub-command, with the messages a user needs when
// it is missing or unusable, and the month texts of its redemption months.
#include "valuation/BondAssessor.h"

#include <QString>
#include <memory>

// The working database (QUILLMERE_DATABASE, or the copy in the user's data folder), open and
// holding values; otherwise nullptr and *error says why.
std::unique_ptr<BondAssessor> openRedemptionDatabase(QString *error);

// "YYYY-MM" of a month date.
QString monthText(const QDateTime &date);

enum class MonthSeparators { Dash, DashOrSlash };
// The month date of "YYYY-MM" ("YYYY/MM" too when allowed); invalid for anything else.
QDateTime monthFromText(const QString &text, MonthSeparators separators = MonthSeparators::Dash);
