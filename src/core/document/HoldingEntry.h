// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Typed changes to one holding, checked as entry is: a refused change leaves the holding as it
// was and says why; an accepted one is one undo step. Changing the series or issue month of an
// electronic bond to one never sold electronically makes it paper, in the same step, when its
// face value is a paper denomination or not yet entered; otherwise the change is refused.
#include "base/Month.h"
#include "model/EntryRules.h"

#include <QStringView>

class BondPortfolio;
class Holding;
class Series;

namespace HoldingEntry {
EntryRefusal setQuantity(BondPortfolio &portfolio, Holding &holding, qint64 quantity);
EntryRefusal setFaceValue(BondPortfolio &portfolio, Holding &holding, QStringView text);
EntryRefusal setPaper(BondPortfolio &portfolio, Holding &holding, bool paper);
EntryRefusal setSeries(BondPortfolio &portfolio, Holding &holding, const Series *series);
// The month is checked against the database by the caller (Holding::validateIssueDate).
EntryRefusal setIssueMonth(BondPortfolio &portfolio, Holding &holding, Month month);
}
