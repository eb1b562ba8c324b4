// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The export for GnuCash and KMyMoney, beside the Quicken one: a QIF both programs read whole
// (securities, an investment account, one purchase per holding carrying its cost, and the
// monthly prices in the quoted form KMyMoney requires) and a price CSV for GnuCash, whose QIF
// import skips prices. Every date is the last day of its month: day and month can never be
// mistaken for each other. Text is UTF-8, lines end in a line feed.
#include "exchange/ExchangeOutcome.h"
#include "model/Holding.h"

#include <QByteArray>
#include <QList>
#include <QString>

struct ValuationContext;

namespace FinanceExport {
// GnuCash's QIF import files securities it does not know under this namespace; the price CSV
// names it so that its prices land on those securities.
inline constexpr const char *PriceNamespace = "NONCURRENCY";
inline constexpr const char *Currency = "USD";

// The QIF: securities, the account named after the portfolio, purchases, prices.
QByteArray qifRepresentation(const QString &accountName, const ValuationContext &valuation,
                             const QList<HoldingRef> &holdings);
// "Date,Amount,Namespace,Symbol,Currency" then one line per security and month.
QByteArray priceCsvRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings);

struct Paths
{
    QString qif;
    QString priceCsv;
};

// "Bonds.qif" and "BondPrices.csv" in the directory, or the first numbered pair ("Bonds-1.qif",
// "BondPrices-1.csv", ...) of which neither file exists: nothing already there is replaced.
Paths pathsInDirectory(const QString &directory);

struct Outcome : ExchangeOutcome
{
    Paths paths;
    QString directory; // absolute
    int securities = 0;
    int prices = 0; // price lines in each file
};

// Writes both files atomically; the price CSV only after the QIF was written.
Outcome exportToDirectory(const QString &accountName, const QList<HoldingRef> &holdings,
                          const ValuationContext &valuation, const QString &directory);
}
