// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A portfolio as data: its holdings in table order and its title holders sorted by name. What
// read-only work needs (showing, exporting); the editing document keeps one and adds undo, the
// edited state and the file.
#include "model/Holding.h"
#include "model/Person.h"

#include <QList>
#include <QStringList>

class BondAssessor;

struct Portfolio
{
    // The people outlive the holdings when a portfolio ends: a holding that goes tells its people,
    // whose watchers may still look them up in the list.
    QList<PersonRef> titleHolders;
    QList<HoldingRef> holdings;
    // Bonds cashed and kept for the record and the tax year: no figure of held bonds counts them.
    QList<HoldingRef> redeemed;
    // The people (by identifier) who report their bonds' interest every year instead of deferring
    // it to redemption or final maturity.
    QStringList yearlyInterestReporters;

    // The file's base name without extension, or "Untitled" for none.
    static QString displayNameOf(const QString &fileName);
    // The people without nulls, sorted by name; equal names keep their order.
    static QList<PersonRef> sortedByName(const QList<PersonRef> &people);
    // What valuation needs of each holding, in list order.
    static QList<BondFacts> factsOf(const QList<HoldingRef> &holdings);
    // Readies the database values of these holdings ahead of reading all their figures.
    static void prefetchValues(const BondAssessor &database, const QList<HoldingRef> &holdings);
};
