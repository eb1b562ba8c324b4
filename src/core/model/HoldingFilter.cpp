// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/HoldingFilter.h"

#include "valuation/BondOutlook.h"

bool HoldingFilter::keepOnly(const QList<PersonRef> &listed)
{
    return m_people.removeIf([&listed](const PersonRef &person) { return !listed.contains(person); }) > 0;
}

bool HoldingFilter::accepts(const Holding &holding) const
{
    if (m_kept.lock().get() == &holding)
        return true;
    if (!m_stoppedEarningAsOf.isNull()
        && !BondOutlook(ValuationContext{nullptr, m_stoppedEarningAsOf}, holding.facts()).hasStoppedEarning())
        return false;
    if (m_people.isEmpty())
        return true;
    for (const PersonRef &person : m_people) {
        if (samePerson(holding.owner().get(), person.get()) || samePerson(holding.coOwner().get(), person.get())
            || samePerson(holding.beneficiary().get(), person.get()))
            return true;
    }
    return false;
}

QList<HoldingRef> HoldingFilter::shownOf(const QList<HoldingRef> &holdings) const
{
    if (isEmpty())
        return holdings;
    QList<HoldingRef> shown;
    for (const HoldingRef &holding : holdings) {
        if (accepts(*holding))
            shown << holding;
    }
    return shown;
}
