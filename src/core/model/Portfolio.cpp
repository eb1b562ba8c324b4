// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Portfolio.h"

#include "valuation/BondAssessor.h"

#include <QFileInfo>
#include <algorithm>
#include <QCoreApplication>

QString Portfolio::displayNameOf(const QString &fileName)
{
    if (fileName.isEmpty())
        return QCoreApplication::translate("Portfolio", "Untitled");
    return QFileInfo(fileName).completeBaseName();
}

QList<PersonRef> Portfolio::sortedByName(const QList<PersonRef> &people)
{
    QList<PersonRef> sorted;
    for (const PersonRef &person : people) {
        if (person)
            sorted << person;
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const PersonRef &a, const PersonRef &b) { return a->name() < b->name(); });
    return sorted;
}

QList<BondFacts> Portfolio::factsOf(const QList<HoldingRef> &holdings)
{
    QList<BondFacts> facts;
    facts.reserve(holdings.size());
    for (const HoldingRef &holding : holdings)
        facts.append(holding->facts());
    return facts;
}

void Portfolio::prefetchValues(const BondAssessor &database, const QList<HoldingRef> &holdings)
{
    QList<std::pair<const Series *, int>> bonds;
    bonds.reserve(holdings.size());
    for (const HoldingRef &holding : holdings) {
        if (!holding->issueDate().isNull())
            bonds.append({holding->series(), holding->issueDate().index()});
    }
    database.prefetch(bonds);
}
