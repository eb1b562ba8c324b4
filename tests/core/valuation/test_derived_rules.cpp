// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// A computed value says which rule made it: the shipped database holds all three kinds.
#include "TestSupport.h"
#include "document/HoldingPresentation.h"
#include "valuation/BondAssessor.h"

#include <gtest/gtest.h>

struct Case
{
    const char *series;
    Month issued, valuedAsOf;
    const char *says; // what the note says after "computed by this program, not published by the Treasury"
};

void PrintTo(const Case &c, std::ostream *out) { *out << c.series << ' ' << c.valuedAsOf.toString(Month::Style::Iso).toStdString(); }

class DerivedRules : public ::testing::TestWithParam<Case> {};

TEST_P(DerivedRules, TheNoteNamesTheRule)
{
    static const std::unique_ptr<BondAssessor> shipped = std::make_unique<BondAssessor>(TestSupport::copyOfShippedDatabase());
    const Case &c = GetParam();
    const BondFacts bond{Series::seriesForCode(QLatin1String(c.series)), c.issued, 10000, true, 1};
    const HoldingFigures figures({shipped.get(), c.valuedAsOf}, bond);
    const QString intro = QStringLiteral("computed by this program, not published by the Treasury");
    EXPECT_EQ(HoldingPresentation::derivedValueNote(figures), *c.says ? intro + QStringLiteral(": ") + QLatin1String(c.says)
                                                                       : HoldingPresentation::derivedValueNote());
    EXPECT_EQ(figures.isValueDerived(), *c.says != 0);
}

INSTANTIATE_TEST_SUITE_P(Shipped, DerivedRules, ::testing::Values(
    Case{"N", Month(1990, 1), Month(2001, 9), "the Treasury's files lack 09/2001 to 02/2002; filled between the official "
                                              "months by the rule of the bond's interest period"},
    Case{"N", Month(1990, 1), Month(2022, 6), "the bond stopped earning at final maturity in 01/2020 and keeps that value"},
    Case{"N", Month(2005, 5), Month(2026, 11), "from the fixed rate this Series EE bond earns for life"},
    Case{"N", Month(1990, 1), Month(2010, 6), ""}));
