// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingExplanations.h"

#include "base/Month.h"
#include "document/HoldingPresentation.h"
#include "model/Holding.h"

namespace {

QString seriesBonds(const Series *series)
{
    return series->bondsName();
}


// Why the holding has no value and what the user can do; empty when it does not lack one.
QString whyNoValue(const HoldingFigures &holding)
{
    const Series *series = holding.bond().series;
    switch (holding.status()) {
    case HoldingStatus::NoPricingData:
        return HoldingExplanations::tr("the database has no value for this bond in that month. Tools ▸ Update "
                                       "Redemption Values… installs newer values once the Treasury has published them.");
    case HoldingStatus::BeforeSeriesBegan:
        return HoldingExplanations::tr("%1 were first issued in %2; no values exist for this issue month.")
            .arg(seriesBonds(series), series->firstIssue().toString(Month::Style::Slash));
    case HoldingStatus::AfterSeriesEnded:
        return HoldingExplanations::tr("%1 were last issued in %2; no values exist for this issue month.")
            .arg(seriesBonds(series), series->lastIssue().toString(Month::Style::Slash));
    case HoldingStatus::NotIssuedYet:
        return HoldingExplanations::tr("this bond was issued in %1, after the valuation month; it has no value before then.")
            .arg(HoldingPresentation::issueMonthText(holding.bond().issueMonth));
    case HoldingStatus::Valued:
    case HoldingStatus::NotYetRedeemable:
        break;
    }
    return {};
}

} // namespace

QString HoldingExplanations::valueTip(const HoldingFigures &holding)
{
    using HoldingPresentation::Remark;
    const Remark remark = HoldingPresentation::remarkOf(holding);
    switch (remark) {
    case Remark::Computed:
        return tr("computed") + QStringLiteral(": ") + HoldingPresentation::derivedValueNote(holding);
    case Remark::NoPricingData:
        return tr("no pricing data") + QStringLiteral(": ") + whyNoValue(holding);
    case Remark::NotYetRedeemable:
        return tr("not yet redeemable");
    case Remark::None:
        break;
    }
    return {};
}

QString HoldingExplanations::notInTotals(qint64 bonds)
{
    if (bonds <= 0)
        return {};
    // Two texts rather than "bond(s)": without a translation loaded Qt does not make English plurals.
    if (bonds == 1)
        return tr("1 bond without pricing data is not in these totals");
    return tr("%n bonds without pricing data are not in these totals", nullptr, int(bonds));
}
