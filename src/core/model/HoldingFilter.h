// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which holdings a view shows: those naming any of the chosen people in any role, or every
// holding when no one is chosen; optionally only the bonds that have stopped earning. The bond table's proxy owns one and hands it to the interest
// summary and the totals, so that the table and its figures always cover the same bonds.
#include "base/Month.h"
#include "model/Holding.h"

#include <QList>
#include <memory>

class HoldingFilter
{
public:
    HoldingFilter() = default; // shows every holding
    explicit HoldingFilter(QList<PersonRef> people) : m_people(std::move(people)) {}

    const QList<PersonRef> &people() const { return m_people; }
    bool isEmpty() const { return m_people.isEmpty() && m_stoppedEarningAsOf.isNull(); }
    // Narrows to the bonds past final maturity as of the month; a null month lifts it.
    void showOnlyStoppedEarningAsOf(Month month) { m_stoppedEarningAsOf = month; }
    Month stoppedEarningAsOf() const { return m_stoppedEarningAsOf; }

    // A holding the user has just added stays shown, whoever it names, until the filter is
    // replaced: otherwise it would vanish before its owner could be set.
    void keepShown(const HoldingRef &holding) { m_kept = holding; }
    // Drops the people no longer listed: someone who left the list narrows nothing.
    // Returns whether the filter changed.
    bool keepOnly(const QList<PersonRef> &listed);

    bool accepts(const Holding &holding) const;
    QList<HoldingRef> shownOf(const QList<HoldingRef> &holdings) const;

private:
    QList<PersonRef> m_people;
    std::weak_ptr<Holding> m_kept;
    Month m_stoppedEarningAsOf;
};
