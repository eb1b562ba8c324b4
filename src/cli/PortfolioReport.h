// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The portfolio as the window shows it, for the terminal and for scripts.
#include <QByteArray>
#include <QString>

class ValuedPortfolio;

namespace PortfolioReport {
// A table of holdings with totals, then the interest summary.
QString text(const ValuedPortfolio &portfolio);
// The same figures as JSON; money in pennies, months as "YYYY-MM".
QByteArray json(const ValuedPortfolio &portfolio);
}
