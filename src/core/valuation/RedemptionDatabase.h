// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the redemption value database lives and how a new one is laid out.
//
// The shipped file is only a seed: installed system-wide it is read-only, yet the updater must
// write. On first use it is copied into the user's data directory, and every reader and the
// updater use that copy. QUILLMERE_DATABASE names another file instead.
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace RedemptionDatabase {
inline constexpr const char *FileName = "bondvalues.bvdb";
inline constexpr const char *PathEnvironmentVariable = "QUILLMERE_DATABASE";

// The shipped seed database, or an empty string when none can be found. An installed one comes
// first; the build folder's is read only when none is installed.
QString seedPath();
// The working copy every assessor and the updater use. Copies the seed on first use.
// An empty string when neither the working copy nor a seed exists.
QString path();

// Creates the four tables (and nothing else) on an empty database. Returns false with the
// SQLite error text in *error on failure.
bool createSchema(sqlite3 *db, QString *error = nullptr);

// Settings of a reading connection (open it read-only): wait for a writer rather than fail. A
// reader never changes the file, its journal mode included, so that the shipped seed stays one
// self-contained file that opens from a folder nobody may write.
void configureReader(sqlite3 *db);
// Settings of a writing connection (the updater, the installers): as a reader, and the working
// copy switched to write-ahead logging, so that open portfolios keep reading the last committed
// state while a file is installed.
void configureWriter(sqlite3 *db);

// Runs statements; on failure *error (if given) receives SQLite's message.
bool execute(sqlite3 *db, const char *sql, QString *error);

// Whether the database has a table of this name (tables are added as the program grows, so older
// files lack some).
bool hasTable(sqlite3 *db, const char *name);

// Binds one cell of bond_value (series code, redemption year and month, issue year and month) to
// parameters 1 to 5 of a statement, after resetting it.
void bindCell(sqlite3_stmt *stmt, const char *series, int ryr, int rmo, int iyr, int imo);
}
