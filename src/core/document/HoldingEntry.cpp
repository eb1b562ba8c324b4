// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/HoldingEntry.h"

#include "document/BondPortfolio.h"
#include "model/Holding.h"

#include <functional>
#include <limits>

namespace {
// A face value of 0 is a new bond's, not yet entered: any kind of bond may have it.
bool faceValueFits(Pennies faceValue, bool paper)
{
    return faceValue == 0 || EntryRules::checkFaceValue(faceValue, paper) == EntryRefusal::None;
}

// Whether the bond may take the series and month, and whether it must turn paper to do so.
EntryRefusal kindAfterChange(const Holding &holding, const Series *series, Month month, bool *turnsPaper)
{
    *turnsPaper = false;
    if (holding.isPaper())
        return EntryRefusal::None;
    const EntryRefusal electronic = EntryRules::checkElectronic(series, month);
    if (electronic == EntryRefusal::None)
        return EntryRefusal::None;
    if (!faceValueFits(holding.faceValue(), true))
        return electronic;
    *turnsPaper = true;
    return EntryRefusal::None;
}
// A change of series or issue month, made with the paper flag it implies, as one undo step.
EntryRefusal changeKind(BondPortfolio &portfolio, Holding &holding, const Series *series, Month month,
                        const std::function<void()> &change)
{
    bool turnsPaper = false;
    if (const EntryRefusal refusal = kindAfterChange(holding, series, month, &turnsPaper); refusal != EntryRefusal::None)
        return refusal;
    UndoStep step(portfolio, UndoActionName::Edit);
    change();
    if (turnsPaper)
        holding.setPaper(true);
    return EntryRefusal::None;
}
} // namespace

namespace HoldingEntry {

EntryRefusal setQuantity(BondPortfolio &portfolio, Holding &holding, qint64 quantity)
{
    if (const EntryRefusal refusal = EntryRules::checkQuantity(quantity); refusal != EntryRefusal::None)
        return refusal;
    if (quantity > std::numeric_limits<int>::max())
        return EntryRefusal::QuantityBelowOne;
    UndoStep step(portfolio, UndoActionName::Edit);
    holding.setQuantity(int(quantity));
    return EntryRefusal::None;
}

EntryRefusal setFaceValue(BondPortfolio &portfolio, Holding &holding, QStringView text)
{
    const std::optional<Pennies> faceValue = EntryRules::readFaceValue(text);
    if (!faceValue)
        return EntryRefusal::NotAnAmount;
    if (const EntryRefusal refusal = EntryRules::checkFaceValue(*faceValue, holding.isPaper()); refusal != EntryRefusal::None)
        return refusal;
    UndoStep step(portfolio, UndoActionName::Edit);
    holding.setFaceValue(*faceValue);
    return EntryRefusal::None;
}

EntryRefusal setPaper(BondPortfolio &portfolio, Holding &holding, bool paper)
{
    if (paper == holding.isPaper())
        return EntryRefusal::None;
    if (!paper) {
        if (const EntryRefusal refusal = EntryRules::checkElectronic(holding.series(), holding.issueDate());
            refusal != EntryRefusal::None)
            return refusal;
    }
    if (!faceValueFits(holding.faceValue(), paper))
        return EntryRules::checkFaceValue(holding.faceValue(), paper);
    UndoStep step(portfolio, UndoActionName::Edit);
    holding.setPaper(paper);
    return EntryRefusal::None;
}

EntryRefusal setSeries(BondPortfolio &portfolio, Holding &holding, const Series *series)
{
    return changeKind(portfolio, holding, series, holding.issueDate(), [&] { holding.setSeries(series); });
}

EntryRefusal setIssueMonth(BondPortfolio &portfolio, Holding &holding, Month month)
{
    if (month.isNull())
        return EntryRefusal::NotAMonth;
    return changeKind(portfolio, holding, holding.series(), month, [&] { holding.setIssueDate(month); });
}

} // namespace HoldingEntry
