// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A portfolio on a small hand-made value table, valued January 2000, with its own people store.
#include "../PortfolioFixture.h"

class ExchangeFixture : public PortfolioFixture
{
public:
    ExchangeFixture() // $25 paper EE of March 1995, out of order, with a 0 and a -1 row
        : PortfolioFixture(ValueTable()
                               .add("N", 2000, 1, 1995, 3, 3000).add("N", 1999, 12, 1995, 3, 2990).add("N", 1995, 4, 1995, 3, -1)
                               .add("N", 1995, 5, 1995, 3, 0).add("N", 1996, 4, 1995, 3, 2004).add("I", 2000, 1, 1999, 7, 2600),
                           BondAssessor::monthDate(2000, 1))
    {
    }

    static QByteArray contents(const QString &path) { return TestSupport::readFile(path); }
    static QString write(const QString &path, const QByteArray &bytes) { return TestSupport::writeFile(path, bytes); }
};
