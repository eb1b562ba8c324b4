// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The money figures and rates of one holding as of a valuation month, computed from its facts and
// the redemption value database; nothing derived is stored anywhere. All money is 64-bit pennies;
// the two rates keep their single-precision steps so that shown figures agree to the last digit.
#include "valuation/BondFacts.h"

#include <QByteArray>
#include <optional>
#include <utility>

class BondAssessor;

// Why a holding shows no value, for the window and the command line to put in their own words.
// Valued also covers a holding without issue date, which has no month to look up.
enum class HoldingStatus {
    Valued,
    NotYetRedeemable,
    NoPricingData,     // the database lacks the month; a newer update may bring it
    BeforeSeriesBegan, // issued before its series was first sold: no value can ever exist
    AfterSeriesEnded,  // issued after its series was last sold
    NotIssuedYet,      // valued as of a month before its issue month
};
// The statuses of a holding shown at $0.00 in red, whose value no total can include.
constexpr bool lacksPricingData(HoldingStatus status)
{
    return status == HoldingStatus::NoPricingData || status == HoldingStatus::BeforeSeriesBegan
        || status == HoldingStatus::AfterSeriesEnded || status == HoldingStatus::NotIssuedYet;
}

// What every figure is computed against.
struct ValuationContext
{
    const BondAssessor *assessor = nullptr; // null: no database, and every value is 0
    Month month;                            // null: no valuation month

    // The interest period holding the month: from the May or November at or before it to the
    // next November or May. Both null without a month.
    std::pair<Month, Month> interestPeriod() const;
};

class HoldingFigures
{
public:
    HoldingFigures(const ValuationContext &context, const BondFacts &bond) : m_context(context), m_bond(bond) {}

    const BondFacts &bond() const { return m_bond; }
    const ValuationContext &context() const { return m_context; }
    Pennies issuePrice() const { return m_bond.issuePrice(); } // one bond
    Pennies value() const;                                      // all bonds of the holding
    Pennies interestEarned() const;                             // all bonds, never negative
    // Percent per year over the current interest period; where the database lacks the period's
    // end, the rate of a Series I or fixed-rate EE bond.
    float currentYield() const;
    // Whether the database values both ends of the current interest period, or the bond's rate
    // stands in (else the yield reads 0).
    bool hasCurrentYield() const;
    // All bonds: interest earned since the December before the valuation month (since issue for
    // a bond issued after it), never negative.
    Pennies ytdInterest() const;
    float compoundAnnualGrowthRate() const;
    bool isValidIssue() const;      // false when the database has no value
    bool isRedeemableIssue() const; // false for a bond that cannot be cashed yet
    HoldingStatus status() const;
    qint32 monthsHeld() const;
    // True when the value as of the valuation month was computed by the program rather than
    // published by the Treasury.
    bool isValueDerived() const;
    // Which rule made a derived value; None for a published one.
    enum class DerivedRule { None, CarriedFromFinalMaturity, FixedRate, FilledBetweenOfficialMonths, SeriesIRates };
    DerivedRule derivedRule() const;

    // One bond as of any month, markers as 0.
    Pennies absoluteValueAsOfMonth(Month month) const;
    // All bonds, as of any month.
    Pennies cumulativeInterestEarnedAsOfMonth(Month month) const;
    // Adds the cumulative interest as of December of each year from fromYear to toYear into
    // sums[year - fromYear], and counts into unvalued[year - fromYear] each December the database
    // has no value for; nothing for a holding without issue date.
    void addCumulativeInterestByDecember(int fromYear, int toYear, Pennies *sums, int *unvalued) const;
    // "security,dollars,MM/1/YYYY\r" for every month with a value since issue, appended as bytes.
    void appendValuesSinceIssue(QByteArray &out) const;

private:
    qint64 rawValueAsOfMonth(Month month) const;
    // The rate standing in for the yield, in percent; nothing for bonds of unknown rate.
    std::optional<float> knownRate() const;

    ValuationContext m_context;
    BondFacts m_bond;
};
