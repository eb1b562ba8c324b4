// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// A bond as of a month on the shipped database: final maturity, next rise, note, rate, year's interest, computing rule.
#include "TestSupport.h"
#include "document/HoldingPresentation.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/BondOutlook.h"

#include <gtest/gtest.h>

namespace {

const BondAssessor &shipped()
{
    static const BondAssessor assessor(QStringLiteral(QUILLMERE_TEST_DATABASE));
    return assessor;
}

BondFacts bond(const char *code, Month issue, Pennies face = 2500, qint32 quantity = 1, bool paper = true)
{
    return {Series::seriesForCode(QString::fromLatin1(code)), issue, face, paper, quantity};
}

std::string text(Month month) { return month.toString(Month::Style::Iso).toStdString(); }

struct OutlookCase
{
    const char *what, *series;
    Month issue, asOf;
    const char *finalMaturity, *nextIncrease, *note, *rate;
};

class Outlook : public testing::TestWithParam<OutlookCase> {};

TEST_P(Outlook, FinalMaturityNextIncreaseNoteAndRate)
{
    const OutlookCase &c = GetParam();
    const BondOutlook outlook({&shipped(), c.asOf}, bond(c.series, c.issue));
    EXPECT_EQ(text(outlook.finalMaturity()), c.finalMaturity);
    EXPECT_EQ(text(outlook.nextIncrease()), c.nextIncrease);
    EXPECT_EQ(HoldingPresentation::noteText(outlook).toStdString(), c.note);
    EXPECT_EQ(HoldingPresentation::rateText(outlook.rate()).toStdString(), c.rate);
    EXPECT_EQ(outlook.hasStoppedEarning(), outlook.note() == BondNote::Matured);
}

INSTANTIATE_TEST_SUITE_P(
    Bonds, Outlook,
    testing::Values(
        // E bonds to 11/1965 earn 40 years, later 30; this one steps in Feb and Aug, off its issue month, and at maturity.
        OutlookCase{"E40Stepping", "E", Month(1965, 11), Month(2005, 3), "2005-11", "2005-08", "", "2.59% implied"},
        OutlookCase{"E40LastStep", "E", Month(1965, 11), Month(2005, 10), "2005-11", "2005-11", "", "3.31% implied"},
        OutlookCase{"E40Matured", "E", Month(1965, 11), Month(2005, 11), "2005-11", "", "MA matured, no longer earning", "0.00%"},
        OutlookCase{"E30", "E", Month(1965, 12), Month(1995, 11), "1995-12", "1995-12", "", "5.99% implied"},
        // EE bonds issued before 05/1997 step every six months and carry no penalty.
        OutlookCase{"EESemiannual", "N", Month(1990, 1), Month(2019, 3), "2020-01", "2019-07", "", "4.01% implied"},
        OutlookCase{"EEMatured", "N", Month(1990, 1), Month(2020, 1), "2020-01", "", "MA matured, no longer earning", "0.00%"},
        OutlookCase{"EEBeforeMonthly", "N", Month(1997, 4), Month(2000, 1), "2027-04", "2000-04", "", "3.94% implied"},
        OutlookCase{"EEMonthlyPenalty", "N", Month(1997, 5), Month(2000, 1), "2027-05", "2000-02",
                    "P5 includes 3-month interest penalty until 05/2002", "4.34% implied"},
        OutlookCase{"EEFixedYoung", "N", Month(2005, 5), Month(2024, 1), "2035-05", "2024-02", "", "3.50% fixed, doubles at 20 years"},
        OutlookCase{"EEFixedPastTwenty", "N", Month(2005, 5), Month(2025, 6), "2035-05", "2025-07", "", "3.50% fixed"},
        // The holding period: six months for issues before 02/2003, twelve from then on.
        OutlookCase{"IShortHolding", "I", Month(2003, 1), Month(2003, 6), "2033-01", "2003-07", "NE not redeemable until 07/2003", "4.08%"},
        // Past the database's months, a bond not yet cashable first gains value when it can be cashed.
        OutlookCase{"INotCashable", "I", Month(2026, 3), Month(2026, 11), "2056-03", "2027-03", "NE not redeemable until 03/2027", "4.26%"},
        OutlookCase{"IBeforeTheSeries", "I", Month(1997, 1), Month(2026, 11), "", "", "", ""},
        OutlookCase{"ILongHolding", "I", Month(2003, 2), Month(2003, 6), "2033-02", "2004-02", "NE not redeemable until 02/2004", "4.08%"},
        OutlookCase{"IPenalty", "I", Month(2023, 6), Month(2026, 11), "2053-06", "2026-12",
                    "P5 includes 3-month interest penalty until 06/2028", "4.26%"},
        OutlookCase{"IComposite", "I", Month(2010, 1), Month(2026, 10), "2040-01", "2026-11", "", "3.65%"},
        OutlookCase{"INotIssued", "I", Month(2026, 12), Month(2026, 11), "2056-12", "", "NI not yet issued", ""}),
    [](const testing::TestParamInfo<OutlookCase> &info) { return std::string(info.param.what); });

// Year-to-date interest from last December or the price if issued since; yield from the rate if the period end has none.
TEST(OutlookFigures, YearToDateInterestAndYieldFromTheRate)
{
    const ValuationContext october{&shipped(), Month(2026, 10)};
    // $1,000 I bonds of 01/2010: $40.71 - $39.55 a $25 unit, forty units a bond, two bonds.
    EXPECT_EQ(HoldingFigures(october, bond("I", Month(2010, 1), 100000, 2)).ytdInterest(), 9280);
    // Not cashable in December: the year starts from its price.
    const HoldingFigures young({&shipped(), Month(2025, 3)}, bond("I", Month(2024, 2)));
    EXPECT_GT(young.ytdInterest(), 0);
    EXPECT_EQ(young.ytdInterest(), young.value() - 2500);

    const HoldingFigures november({&shipped(), Month(2026, 11)}, bond("I", Month(2010, 1)));
    EXPECT_TRUE(november.hasCurrentYield());
    EXPECT_FLOAT_EQ(november.currentYield(), 3.65f);

    EXPECT_EQ(HoldingPresentation::stoppedEarningText(3, 421055), QStringLiteral("3 bonds no longer earn interest: $4,210.55"));
    EXPECT_EQ(HoldingPresentation::stoppedEarningText(1, 2500), QStringLiteral("1 bond no longer earns interest: $25.00"));
    EXPECT_EQ(HoldingPresentation::stoppedEarningText(0, 0), QString());
}

// A computed value says which rule made it: the shipped database holds all three kinds.
// says: what the note says after "computed by this program, not published by the Treasury".
struct RuleCase { const char *series; Month issued, valuedAsOf; const char *says; };

void PrintTo(const RuleCase &c, std::ostream *out) { *out << c.series << ' ' << text(c.valuedAsOf); }

class DerivedRules : public ::testing::TestWithParam<RuleCase> {};

TEST_P(DerivedRules, TheNoteNamesTheRule)
{
    const RuleCase &c = GetParam();
    const HoldingFigures figures({&shipped(), c.valuedAsOf}, bond(c.series, c.issued, 10000));
    const QString intro = QStringLiteral("computed by this program, not published by the Treasury");
    EXPECT_EQ(HoldingPresentation::derivedValueNote(figures), *c.says ? intro + QStringLiteral(": ") + QLatin1String(c.says)
                                                                       : HoldingPresentation::derivedValueNote());
    EXPECT_EQ(figures.isValueDerived(), *c.says != 0);
}

INSTANTIATE_TEST_SUITE_P(Shipped, DerivedRules, ::testing::Values(
    RuleCase{"N", Month(1990, 1), Month(2001, 9), "the Treasury's files lack 09/2001 to 02/2002; filled between the official "
                                                  "months by the rule of the bond's interest period"},
    RuleCase{"N", Month(1990, 1), Month(2022, 6), "the bond stopped earning at final maturity in 01/2020 and keeps that value"},
    RuleCase{"N", Month(2005, 5), Month(2026, 11), "from the fixed rate this Series EE bond earns for life"},
    RuleCase{"N", Month(1990, 1), Month(2010, 6), ""}));

} // namespace
