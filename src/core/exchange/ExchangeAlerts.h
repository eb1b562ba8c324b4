// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The alert that ends an import or export, in the words the window shows and the command line
// prints: the outcomes are values, and their words are chosen here once for both.
#include "exchange/FinanceExport.h"
#include "exchange/PortfolioCsvImport.h"
#include "exchange/PortfolioQuicken.h"

#include <QString>

struct ExchangeAlert
{
    QString title;
    QString message;
    QString informative; // what an import skipped and why; empty when nothing was
};

namespace ExchangeAlerts {
// "Import Complete" with the count of bonds, or "Import file corrupt" naming the program the
// file should have come from.
ExchangeAlert of(const CsvImportOutcome &outcome);
// "Export complete" naming the directory, or "Alert": "Unable to export data".
ExchangeAlert of(const QuickenFileSet::Outcome &outcome);
// "Export complete" naming both files, with how to import them in each program.
ExchangeAlert of(const FinanceExport::Outcome &outcome);
}
