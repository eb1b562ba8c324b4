// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the window tells a user about a value it cannot show or did not take from the Treasury:
// the value cells' tooltips and the note under the totals.
#include <QCoreApplication>
#include <QString>

class HoldingFigures;

class HoldingExplanations
{
    Q_DECLARE_TR_FUNCTIONS(HoldingExplanations)
public:
    // The holding's remark with what it means ("no pricing data: ..."); empty without a remark.
    static QString valueTip(const HoldingFigures &holding);
    // "2 bonds without pricing data are not in these totals"; empty for none.
    static QString notInTotals(qint64 bonds);
};
