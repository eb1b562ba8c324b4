// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a bond is doing as of the valuation month, the facts a household weighs before cashing it:
// the rate it earns, when its value next rises, when it stops earning, and the Treasury's note on
// it (NI, NE, P5, MA). Codes only; the window and the command line word them.
#include "valuation/HoldingFigures.h"

// The Treasury calculator's notes, in its order of precedence.
enum class BondNote {
    None,
    NotIssued,     // NI: valued as of a month before its issue month
    NotRedeemable, // NE: inside the minimum holding period
    Penalty,       // P5: cashed now, the last three months' interest is lost
    Matured,       // MA: past final maturity, earning nothing
};

// Where a bond's rate comes from.
enum class RateBasis {
    Unknown,   // nothing to tell it from
    Composite, // Series I: fixed plus inflation, from the rate tables
    Fixed,     // Series EE issued from May 2005: its fixed rate for life
    Implied,   // any other bond: read from its values over the last six months
    Matured,   // past final maturity: 0.00 %
};

struct BondRate
{
    RateBasis basis = RateBasis::Unknown;
    int basisPoints = 0;               // hundredths of a percent a year
    bool doublesAtTwentyYears = false; // a fixed-rate EE bond younger than twenty years
};

class BondOutlook
{
public:
    BondOutlook(const ValuationContext &context, const BondFacts &bond) : m_context(context), m_bond(bond) {}

    // Null without an issue month.
    Month finalMaturity() const;
    bool hasStoppedEarning() const; // valued as of its final maturity or later
    // The next month the value of one bond rises after the valuation month; null when none will
    // (matured) or nothing tells (no issue month, no valuation month, not issued yet).
    Month nextIncrease() const;
    BondNote note() const;
    // The month the note ends in: the first redeemable month (NE), the first month without the
    // penalty (P5); null for the other notes.
    Month noteUntil() const;
    BondRate rate() const;
    // The first month the bond is cashed without losing three months' interest; null for bonds
    // that never carry that penalty (those that accrue every six months) or without issue month.
    Month penaltyEnds() const;
    // Whether the bond's value grows every month (Series I, EE issued from May 1997) rather than
    // every six months.
    bool accruesMonthly() const;

private:
    int monthsSinceIssue() const { return m_context.month.index() - m_bond.issueMonth.index(); }
    // A bond of an issue month its series was never sold in has no facts to tell.
    bool hasMonths() const;
    qint32 stored(Month month) const; // one $25 paper bond; markers below zero
    Month redeemableFrom() const;

    ValuationContext m_context;
    BondFacts m_bond;
};
