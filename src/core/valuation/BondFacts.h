// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What valuation needs to know of a holding: which bonds, how many, when issued. Who holds them
// and how they are edited is the portfolio's business; a figure needs only these.
#include "base/Money.h"
#include "base/Month.h"

#include <QString>

class Series;

struct BondFacts
{
    const Series *series = nullptr; // never null in facts taken from a holding
    Month issueMonth;               // null: no issue date
    Pennies faceValue = 0;
    bool paper = true;
    qint32 quantity = 1;

    // A damaged file, or another program, may carry a quantity below 1; such a holding counts as
    // no bonds in every figure and total, so that none goes negative.
    qint64 countedQuantity() const { return quantity < 1 ? 0 : quantity; }
    // The database prices paper bonds; an electronic EE bond costs its full face value.
    int pricingCorrectionFactor() const;
    // The price of one bond.
    Pennies issuePrice() const;
    // Security symbol of the price history: issue month, issue year, series code ("031995N").
    QString security() const;
};
