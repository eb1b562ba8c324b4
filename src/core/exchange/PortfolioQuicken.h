// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The two QIF files of a portfolio: a price list, and the positions (securities, one investment
// account named after the document, purchases and again the prices). Bytes are ISO Latin 1 with
// '?' for what Latin 1 cannot hold; lines end in a bare carriage return.
#include "exchange/ExchangeOutcome.h"
#include "model/Holding.h"

#include <QByteArray>
#include <QList>
#include <QString>

struct ValuationContext;

namespace PortfolioQuicken {
inline constexpr const char *AccountDescription = "Generated with Quillmere";

// "!Type:Prices\r", every price line of each holding in list order, "^\r".
QByteArray quickenPriceListRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings);
// Securities, the account (named after the document), the purchases, then the price list of the
// same holdings.
QByteArray quickenPortfolioRepresentation(const QString &accountName, const ValuationContext &valuation,
                                          const QList<HoldingRef> &holdings);
}

namespace QuickenFileSet {
struct Paths
{
    QString priceList;
    QString positions;
};

// "PriceList.qif" and "Positions.qif" in the directory; while a price list of that name exists,
// the next numbered pair ("PriceList-1.qif" and "Positions-1.qif", then -2, ...). Only the
// price list's name is tested: a positions file beside a free price list name is replaced.
Paths pathsInDirectory(const QString &directory);

struct Outcome : ExchangeOutcome
{
    Paths paths; // the names chosen, whether or not writing succeeded
    QString directory; // the absolute path of the directory written into
};

// Writes the price list of all the portfolio's holdings and the positions of the chosen ones into
// the directory, each file atomically; the positions only after the price list was written.
// Nothing of the portfolio changes.
Outcome exportToQuickenFileSet(const QString &accountName, const QList<HoldingRef> &all, const QList<HoldingRef> &chosen,
                               const ValuationContext &valuation, const QString &directory);
}
