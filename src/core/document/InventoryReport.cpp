// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/InventoryReport.h"

#include "model/Portfolio.h"
#include "valuation/BondAssessor.h"

#include <QHash>
#include <optional>
#include <algorithm>

namespace {

InventoryLine lineOf(const HoldingRef &holding, const HoldingFigures &figures)
{
    const BondOutlook outlook(figures.context(), figures.bond());
    const qint64 bonds = figures.bond().countedQuantity();
    return {holding,
            figures.bond().faceValue * bonds,
            figures.issuePrice() * bonds,
            figures.interestEarned(),
            figures.value(),
            HoldingPresentation::remarkOf(figures),
            outlook.note(),
            outlook.noteUntil(),
            outlook.finalMaturity(),
            outlook.nextIncrease(),
            outlook.rate()};
}

} // namespace

bool InventoryReport::anyComputed() const
{
    for (const InventoryGroup &group : groups) {
        for (const InventoryLine &line : group.lines) {
            if (line.remark == HoldingPresentation::Remark::Computed)
                return true;
        }
    }
    return false;
}

InventoryReport InventoryReport::of(const QList<HoldingRef> &holdings, const ValuationContext &valuation)
{
    InventoryReport report;
    report.valuationMonth = valuation.month;
    std::optional<BondAssessor::ReadBatch> batch;
    if (valuation.assessor) {
        batch.emplace(*valuation.assessor);
        Portfolio::prefetchValues(*valuation.assessor, holdings);
    }
    QHash<const Person *, qsizetype> groupOf; // nullptr: no owner named
    for (const HoldingRef &holding : holdings) {
        const HoldingFigures figures(valuation, holding->facts());
        const PersonRef owner = holding->owner();
        auto found = groupOf.constFind(owner.get());
        if (found == groupOf.cend()) {
            found = groupOf.insert(owner.get(), report.groups.size());
            report.groups.append({owner, {}, {}});
        }
        InventoryGroup &group = report.groups[*found];
        group.lines << lineOf(holding, figures);
        group.subtotal.add(figures);
        report.householdTotal.add(figures);
    }
    std::stable_sort(report.groups.begin(), report.groups.end(), [](const InventoryGroup &a, const InventoryGroup &b) {
        if (!a.owner || !b.owner)
            return a.owner && !b.owner;
        return QString::localeAwareCompare(a.owner->name(), b.owner->name()) < 0;
    });
    return report;
}
