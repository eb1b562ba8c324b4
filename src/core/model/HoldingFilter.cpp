#include "model/HoldingFilter.h"

bool HoldingFilter::keepOnly(const QList<PersonRef> &listed)
{
    return m_people.removeIf([&listed](const PersonRef &person) { return !listed.contains(person); }) > 0;
}

bool HoldingFilter::accepts(const Holding &holding) const
{
    if (m_people.isEmpty() || m_kept.lock().get() == &holding)
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
    if (m_people.isEmpty())
        return holdings;
    QList<HoldingRef> shown;
    for (const HoldingRef &holding : holdings) {
        if (accepts(*holding))
            shown << holding;
    }
    return shown;
}
