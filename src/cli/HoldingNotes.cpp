// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingNotes.h"

#include "CliCommand.h"

#include "base/Month.h"
#include "document/HoldingPresentation.h"
#include "model/Holding.h"

namespace {

QString seriesBonds(const Series *series)
{
    return series->bondsName();
}


} // namespace

namespace HoldingNotes {

QString noPricingData(const HoldingFigures &holding)
{
    const Series *series = holding.bond().series;
    switch (holding.status()) {
    case HoldingStatus::NoPricingData:
        return CliText::tr("the database has no value for this bond in that month; \"quillmere-cli update\" "
                              "installs newer values once the Treasury has published them");
    case HoldingStatus::BeforeSeriesBegan:
        return CliText::tr("%1 were first issued in %2; no values exist for this issue month")
            .arg(seriesBonds(series), series->firstIssue().toString(Month::Style::Slash));
    case HoldingStatus::AfterSeriesEnded:
        return CliText::tr("%1 were last issued in %2; no values exist for this issue month")
            .arg(seriesBonds(series), series->lastIssue().toString(Month::Style::Slash));
    case HoldingStatus::NotIssuedYet:
        return CliText::tr("this bond was issued in %1, after the valuation month; it has no value before then")
            .arg(HoldingPresentation::issueMonthText(holding.bond().issueMonth));
    case HoldingStatus::Valued:
    case HoldingStatus::NotYetRedeemable:
        break;
    }
    return {};
}

QString notInTotals(qint64 bonds)
{
    if (bonds <= 0)
        return {};
    if (bonds == 1)
        return CliText::tr("1 bond without pricing data is not in these totals");
    return CliText::tr("%1 bonds without pricing data are not in these totals").arg(bonds);
}

} // namespace HoldingNotes
