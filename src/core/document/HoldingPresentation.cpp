// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/HoldingPresentation.h"

#include "base/Month.h"
#include "model/Portfolio.h"
#include "valuation/BondAssessor.h"

#include <QCoreApplication>

namespace HoldingPresentation {

QString issueMonthText(Month month)
{
    return month.isNull() ? QString::fromLatin1(NoIssueMonthText) : month.toString(Month::Style::Slash);
}

QString monthText(Month month)
{
    return month.toString(Month::Style::Slash);
}

namespace {

Remark remarkOnStatus(HoldingStatus status)
{
    if (lacksPricingData(status))
        return Remark::NoPricingData;
    if (status == HoldingStatus::NotYetRedeemable)
        return Remark::NotYetRedeemable;
    return Remark::None;
}

} // namespace

Remark remarkOf(const HoldingFigures &holding)
{
    const Remark remark = remarkOnStatus(holding.status());
    if (remark != Remark::None)
        return remark;
    return holding.isValueDerived() ? Remark::Computed : Remark::None;
}

Remark pricingRemarkOf(const HoldingFigures &holding)
{
    return remarkOnStatus(holding.status());
}

QString derivedValueNote()
{
    return QCoreApplication::translate("HoldingPresentation",
                                       "computed by this program, not published by the Treasury: Series EE bonds "
                                       "issued since May 2005 from their fixed rate, matured bonds from their value at "
                                       "final maturity, and 09/2001 to 02/2002, which the Treasury's files lack, filled "
                                       "between official months");
}

QString derivedValueNote(const HoldingFigures &holding)
{
    const QString intro = QCoreApplication::translate("HoldingPresentation", "computed by this program, not published by the Treasury");
    switch (holding.derivedRule()) {
    case HoldingFigures::DerivedRule::CarriedFromFinalMaturity:
        return intro + QStringLiteral(": ")
               + QCoreApplication::translate("HoldingPresentation", "the bond stopped earning at final maturity in %1 and keeps that value")
                     .arg(holding.bond().series->finalMaturity(holding.bond().issueMonth).toString(Month::Style::Slash));
    case HoldingFigures::DerivedRule::FixedRate:
        return intro + QStringLiteral(": ")
               + QCoreApplication::translate("HoldingPresentation", "from the fixed rate this Series EE bond earns for life");
    case HoldingFigures::DerivedRule::SeriesIRates:
        return intro + QStringLiteral(": ")
               + QCoreApplication::translate("HoldingPresentation", "from the Series I fixed and inflation rates the Treasury announced");
    case HoldingFigures::DerivedRule::FilledBetweenOfficialMonths:
        return intro + QStringLiteral(": ")
               + QCoreApplication::translate("HoldingPresentation", "the Treasury's files lack 09/2001 to 02/2002; filled "
                                                                    "between the official months by the rule of the bond's "
                                                                    "interest period");
    case HoldingFigures::DerivedRule::None:
        break;
    }
    return derivedValueNote();
}

QString percentText(float rate)
{
    return QString::asprintf("%.2f%%", double(rate));
}

QString rateText(const BondRate &rate)
{
    const QString percent = QString::asprintf("%.2f%%", rate.basisPoints / 100.0);
    switch (rate.basis) {
    case RateBasis::Unknown:
        return {};
    case RateBasis::Composite:
    case RateBasis::Matured:
        return percent;
    case RateBasis::Fixed:
        return rate.doublesAtTwentyYears
                   ? QCoreApplication::translate("HoldingPresentation", "%1 fixed, doubles at 20 years").arg(percent)
                   : QCoreApplication::translate("HoldingPresentation", "%1 fixed").arg(percent);
    case RateBasis::Implied:
        return QCoreApplication::translate("HoldingPresentation", "%1 implied").arg(percent);
    }
    return {};
}

QString noteText(BondNote note, Month until)
{
    const QString month = until.toString(Month::Style::Slash);
    switch (note) {
    case BondNote::None:
        break;
    case BondNote::NotIssued:
        return QCoreApplication::translate("HoldingPresentation", "NI not yet issued");
    case BondNote::NotRedeemable:
        return QCoreApplication::translate("HoldingPresentation", "NE not redeemable until %1").arg(month);
    case BondNote::Penalty:
        return QCoreApplication::translate("HoldingPresentation", "P5 includes 3-month interest penalty until %1").arg(month);
    case BondNote::Matured:
        return QCoreApplication::translate("HoldingPresentation", "MA matured, no longer earning");
    }
    return {};
}

QString noteText(const BondOutlook &outlook)
{
    return noteText(outlook.note(), outlook.noteUntil());
}

QString stoppedEarningText(qint64 bonds, Pennies value)
{
    if (bonds == 0)
        return {};
    // Worded per number here: the sentence must read right without a translation loaded.
    return (bonds == 1 ? QCoreApplication::translate("HoldingPresentation", "1 bond no longer earns interest: %1").arg(formatDollars(value))
                       : QCoreApplication::translate("HoldingPresentation", "%1 bonds no longer earn interest: %2")
                             .arg(bonds)
                             .arg(formatDollars(value)));
}

QString taxYearText(const InterestSummaryRow &row)
{
    return row.sinceIssue ? QCoreApplication::translate("HoldingPresentation", "%1 and before").arg(row.taxYear)
                          : QString::number(row.taxYear);
}

QString incompleteYearNote(const InterestSummaryRow &row)
{
    if (row.bondsWithoutValue == 0)
        return {};
    return QCoreApplication::translate("HoldingPresentation",
                                       "incomplete: no value for %n bond(s) in a December this figure needs",
                                       nullptr, row.bondsWithoutValue);
}

} // namespace HoldingPresentation

void HoldingTotals::add(const HoldingFigures &holding)
{
    const qint64 bonds = holding.bond().countedQuantity();
    quantity += bonds;
    if (lacksPricingData(holding.status()))
        withoutPricingData += bonds;
    faceValue += holding.bond().faceValue * bonds;
    issuePrice += holding.issuePrice() * bonds;
    interestEarned += holding.interestEarned();
    value += holding.value();
    ytdInterest += holding.ytdInterest();
    if (BondOutlook(holding.context(), holding.bond()).hasStoppedEarning()) {
        stoppedEarning += bonds;
        stoppedEarningValue += holding.value();
    }
}

HoldingTotals HoldingTotals::of(const ValuationContext &valuation, const QList<HoldingRef> &holdings)
{
    const BondAssessor::ReadBatch batch(*valuation.assessor);
    Portfolio::prefetchValues(*valuation.assessor, holdings);
    HoldingTotals totals;
    for (const HoldingRef &holding : holdings)
        totals.add(HoldingFigures(valuation, holding->facts()));
    return totals;
}
