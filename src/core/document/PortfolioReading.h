// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading a portfolio file into data: a keyed archive of {"holdings", "titleHolders"} (or the
// older form whose root is the list of holdings), with every holding joined to the portfolio.
#include "model/PeopleStore.h"
#include "model/Portfolio.h"

#include <QByteArray>
#include <QString>

namespace PortfolioReading {

struct Result
{
    bool ok = false;
    QString error; // a sentence, when not ok
    Portfolio portfolio;
    // How many different people the file names whom the people store does not know. They are
    // not in the portfolio, so saving it drops them: callers that save warn first.
    int missingPeople = 0;
};

// Joins a holding to a portfolio with these title holders: its people become the portfolio's own
// equal objects, and an owner the list lacks joins it and leaves this holding's owner role, as
// files and users have long relied on. True when the list grew (it stays unsorted).
bool adopt(QList<PersonRef> &titleHolders, Holding &holding);

// The title holders are the file's; a file of the older form has none, and then those given
// stand (a new document's, or the store's family).
Result fromData(const QByteArray &data, const PeopleStore &people, const QList<PersonRef> &titleHoldersIfNone);
// The same from a file, refusing what cannot be opened and anything far too large to be a portfolio.
Result fromFile(const QString &path, const PeopleStore &people, const QList<PersonRef> &titleHoldersIfNone);

} // namespace PortfolioReading
