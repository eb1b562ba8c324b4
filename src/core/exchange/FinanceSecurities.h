// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The securities a personal-finance program (GnuCash, KMyMoney) is given for a portfolio: one per
// kind of bond (series, issue month, face value, paper or electronic), priced as one bond, so
// that price times quantity is the holding's value to the penny, whatever its face value.
#include "base/Money.h"
#include "base/Month.h"
#include "model/Holding.h"

#include <QList>
#include <QString>

struct ValuationContext;

namespace FinanceSecurities {

struct MonthPrice
{
    Month month;
    Pennies price = 0; // one bond
};

struct Purchase
{
    HoldingRef holding;
    qint64 quantity = 0;
    Pennies pricePerBond = 0;
    Pennies cost = 0; // all bonds of the holding
};

struct Security
{
    QString symbol; // "EE-199503-100", "EE-201203-50.37E" for an electronic bond
    QString name;   // "EE Bond $100 03/1995", "EE Bond $50.37 electronic 03/2012"
    Month issueMonth;
    QList<Purchase> purchases;    // the holdings of this kind, in portfolio order
    QList<MonthPrice> prices;     // every month from issue to the valuation month with a value
};

// The securities of the holdings with an issue date and at least one bond, in the order their
// first holding comes; prices run to the valuation month (none without one).
QList<Security> securitiesOf(const QList<HoldingRef> &holdings, const ValuationContext &valuation);

}
