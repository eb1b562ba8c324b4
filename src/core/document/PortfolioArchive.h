// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Maps holdings and people onto the object graph of a keyed archive and back.
//
// Holding: class "Holding" with "series" (a "Series" object with "code"), "quantity" (32-bit),
// "faceValue" (64-bit pennies), "issueDate" (date), "serialNumber" (string), "owner", "coOwner",
// "beneficiary" ("Person" objects with "uid") and "paper" (boolean). A person reached from the
// list and from holdings is one shared object in the graph, so it comes back as one object.
#include "document/ArchiveValue.h"
#include "model/Holding.h"
#include "model/Person.h"
#include "model/Portfolio.h"

#include <QList>
#include <QString>

class PeopleStore;

namespace PortfolioArchive {

// The keys this program adds to the root; other programs pass over keys they do not know.
inline constexpr const char *RedeemedHoldingsKey = "redeemedHoldings";
inline constexpr const char *YearlyInterestReportersKey = "yearlyInterestReporters";
// The root dictionary {"holdings": [...], "titleHolders": [...]}, with "redeemedHoldings" (holdings
// with "redemptionDate" and "amountReceived") and "yearlyInterestReporters" (person identifiers)
// when the portfolio has any.
ArchiveRef encodePortfolio(const Portfolio &portfolio);
// A plain list of holdings (what copy and paste carry).
ArchiveRef encodeHoldings(const QList<HoldingRef> &holdings);

struct Decoded
{
    bool ok = false;
    QString error;
    QList<HoldingRef> holdings;
    bool hasTitleHolders = false; // false for the older root form, a bare list of holdings
    QList<PersonRef> titleHolders;
    QList<HoldingRef> redeemed;
    QStringList yearlyInterestReporters;
    // How many different people the archive names whom the store does not know.
    int missingPeople = 0;
};

// People whose identifiers the store does not know are left out (and counted), and the roles
// that named them come back empty. Anything of the wrong shape is refused with a sentence in error.
Decoded decodePortfolio(const ArchiveRef &root, const PeopleStore &people);

} // namespace PortfolioArchive
