// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Values the program derives rather than reads from an official file: the value of matured bonds
// carried forward, Series EE bonds of a fixed rate computed from it, and the months the official
// files skip filled from the months around them (GapMonthFill). They sit in bond_value
// like every other value, so every lookup sees them; the table derived_value lists their cells,
// so that an official file covering them later replaces them instead of being refused, and so
// that a figure can say it was computed. A database without that table has nothing derived.
#include "valuation/EeFixedRates.h"

#include <QHash>
#include <QList>
#include <QString>

struct sqlite3;

namespace DerivedValues {

inline constexpr const char *CreateTable =
    "create table if not exists derived_value (series text not null, iyr integer not null, imo integer not null,"
    " ryr integer not null, rmo integer not null, primary key (series, iyr, imo, ryr, rmo)) without rowid;";

// Creates derived_value when the database has none.
bool ensureTable(sqlite3 *db, QString *error);

quint64 cellKey(char series, int iyr, int imo, int ryr, int rmo);

// The stored value of every derived cell, by cellKey. Empty when the table is missing.
QHash<quint64, qint32> load(sqlite3 *db, QString *error);

// An official value that replaced a derived one and differs from it.
struct Difference
{
    char series;
    int iyr, imo, ryr, rmo;
    qint32 derived;
    qint32 official;
};
QString describe(const Difference &difference);
// One text for all differences one file brought ("" when none), for the log and the outcome.
QString report(const QString &fileName, const QList<Difference> &differences);

struct Extension
{
    int carried = 0;  // months of matured bonds given their value at maturity
    int computed = 0; // months of fixed-rate EE bonds computed (the not-redeemable markers included)
    int filled = 0;   // months without official values filled from the official months around them
};

// Derives every value the database lacks, up to its latest redemption month: matured bonds keep
// their value at maturity, and EE bonds of the issue months the rate table covers get their
// computed values (only in a database that holds EE values at all, and never before its
// earliest month). Only cells without a value (no row, or -2) are written, each recorded in
// derived_value. Runs inside the caller's transaction. A caller that has just carried matured
// bonds forward itself (the build) may leave that part out, which spares reading every value, and
// fill the months the official files skip with fillGaps.
enum class Scope { Everything, FixedRateEeOnly };
bool extend(sqlite3 *db, const EeFixedRates::Table &rates, Extension *added, QString *error,
            Scope scope = Scope::Everything);

// Computes Series I values from the rate tables for the months after the latest official one, up
// to the end of each bond's rate period (at most six months), each cell recorded in
// derived_value; extend() does this last. Runs inside the caller's transaction.
bool forecastSeriesI(sqlite3 *db, int *computed, QString *error);

// Fills the short runs of months without official values of Series E, EE and Savings Notes where
// the months around them determine the values (GapMonthFill), each cell recorded in
// derived_value. Runs inside the caller's transaction.
bool fillGaps(sqlite3 *db, int *filled, QString *error);

}
