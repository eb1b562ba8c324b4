// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Installs one official source (a Treasury value file as the Treasury publishes it, say) straight
// into a user's redemption value database, without an update server, in one transaction under
// the file's name. Records the database holds already with the same values are passed over, and
// issue months it holds without data are filled in, so a file overlapping installed months
// installs what is new; a value that contradicts an installed official one refuses the whole
// file. Values the program derived give way to the file's (a difference is reported, not
// refused), and the derived values then reach the file's months (matured bonds keep their value,
// fixed-rate EE bonds are computed).
#include "update/PriceDataInstaller.h"
#include "update/sources/PriceSourceContents.h"

#include <QDateTime>
#include <QString>

struct sqlite3;

namespace OfficialSourceInstaller {

struct Outcome
{
    QString error; // empty on success
    bool alreadyInstalled = false; // refused because data_file records the name already
    int installedRecords = 0;
    int unchangedRecords = 0; // already in the database with the same values
    int filledRecords = 0;    // already there, with issue months that held no data filled in
    int replacedDerivedValues = 0; // derived values the file's official ones replaced
    QString derivedDifferences;    // those that differed, in words (also logged); empty when none
    int carriedValues = 0;    // issue months of matured bonds given their value at maturity
    int computedValues = 0;   // months of fixed-rate EE bonds computed
    QDateTime minimum;        // the database's range of redemption months afterwards
    QDateTime maximum;
    bool ok() const { return error.isEmpty(); }
};

struct Options
{
    // Status texts and progress of the transaction (new records go in month by month).
    PriceDataInstaller::Feedback feedback;
    // Rebuild the summary tables and post the new range; an updater does both itself, once
    // after everything it installs.
    bool updateSummary = true;
};

// db: an open connection to a database with the schema. The source's name is recorded in
// data_file. The summary tables are rebuilt and the new range announced.
Outcome install(sqlite3 *db, const NamedPriceRecords &source, const Options &options = {});

}
