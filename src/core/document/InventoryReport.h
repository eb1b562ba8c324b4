// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The household's inventory of its held bonds as of a valuation month, the list a family files
// with its papers: every bond's figures and facts, grouped by owner, each group's subtotal and
// the household's total. Figures and codes only; the printed pages word and lay them out.
//
// A bond is listed once, under its owner (the first person its registration names); a co-owner
// or beneficiary is named on the bond's line but has no group for it, so that every bond counts
// once in the household's total. Bonds that name no owner form the last group. Groups follow the
// owners' names; two people of one name keep groups of their own. Lines keep the order the
// holdings come in (the window's table order). Cashed bonds are not held and are not listed.
#include "document/HoldingPresentation.h"

#include <QList>

struct InventoryLine
{
    HoldingRef holding;
    // For all the line's bonds, so that a group's lines add up to its subtotal; a holding whose
    // quantity is below 1 counts as no bonds, as in every total.
    Pennies faceValue = 0;
    Pennies issuePrice = 0;
    Pennies interest = 0;
    Pennies value = 0;
    HoldingPresentation::Remark remark = HoldingPresentation::Remark::None;
    BondNote note = BondNote::None;
    Month noteUntil;     // null unless the note runs until a month
    Month finalMaturity; // null without an issue month
    Month nextIncrease;  // null when the value will not rise again or nothing tells
    BondRate rate;
};

struct InventoryGroup
{
    PersonRef owner; // null: the bonds that name no owner
    QList<InventoryLine> lines;
    HoldingTotals subtotal;
};

struct InventoryReport
{
    Month valuationMonth;
    QList<InventoryGroup> groups;
    HoldingTotals householdTotal;
    // Whether any line's value was computed by this program rather than published.
    bool anyComputed() const;

    static InventoryReport of(const QList<HoldingRef> &holdings, const ValuationContext &valuation);
};
