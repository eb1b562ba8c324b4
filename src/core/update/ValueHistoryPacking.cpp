// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/ValueHistoryPacking.h"

#include "update/DerivedValues.h"
#include "valuation/PackedValueHistories.h"
#include "valuation/RedemptionDatabase.h"
#include "valuation/ValueHistoryCache.h"

#include <QList>
#include <sqlite3.h>

namespace ValueHistoryPacking {

using namespace PackedValueHistories;

namespace {

using RedemptionDatabase::execute;

// The SQL form of key(); unicode() of a one-letter series code is its character code.
#define QUILLMERE_BOND_KEY(row) \
    "((unicode(" row ".series) << 24) | ((" row ".iyr * 12 + " row ".imo - 1) & 16777215))"
// Delete, then insert: no conflict can arise, so the conflict policy of the statement that fired
// the trigger (INSERT OR IGNORE, say) cannot skip the marking.
#define QUILLMERE_MARK_CHANGED(row)                                                                              \
    "delete from bond_history where bond = " QUILLMERE_BOND_KEY(row) ";"                                        \
    " insert into bond_history (bond, first_month, value_list) values (" QUILLMERE_BOND_KEY(row) ", 0, null);"
#define QUILLMERE_TRIGGERS(table)                                                                                \
    "create trigger if not exists " table "_inserted after insert on " table " begin "                        \
    QUILLMERE_MARK_CHANGED("new") " end;"                                                                      \
    "create trigger if not exists " table "_deleted after delete on " table " begin "                         \
    QUILLMERE_MARK_CHANGED("old") " end;"                                                                      \
    "create trigger if not exists " table "_updated after update on " table " begin "                         \
    QUILLMERE_MARK_CHANGED("old") QUILLMERE_MARK_CHANGED("new") " end;"
constexpr int TriggerCount = 6;

// Also mends a database where some trigger went missing (derived_value dropped and made again, say):
// changes made meanwhile were not marked, so every bond is packed again.
constexpr const char *Schema =
    "create table if not exists bond_history (bond integer primary key, first_month integer not null,"
    " value_list blob, derived_list blob);"
    QUILLMERE_TRIGGERS("bond_value")
    QUILLMERE_TRIGGERS("derived_value")
    "delete from bond_history;"
    "insert into bond_history (bond, first_month, value_list)"
    " select distinct " QUILLMERE_BOND_KEY("bond_value") ", 0, null from bond_value where value >= -1;";

#undef QUILLMERE_TRIGGERS
#undef QUILLMERE_MARK_CHANGED
#undef QUILLMERE_BOND_KEY


QList<quint32> changedBonds(sqlite3 *db)
{
    QList<quint32> bonds;
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, "select bond from bond_history where value_list is null", -1, &stmt, nullptr) == SQLITE_OK) {
        while (sqlite3_step(stmt) == SQLITE_ROW)
            bonds << quint32(sqlite3_column_int64(stmt, 0));
    }
    sqlite3_finalize(stmt);
    return bonds;
}

bool pack(sqlite3 *db, const QList<quint32> &bonds, QString *error)
{
    ValueHistoryCache values(db);
    QList<std::pair<char, int>> wanted;
    for (const quint32 bond : bonds)
        wanted.append({seriesCodeOf(bond), issueMonthOf(bond)});
    values.prefetch(wanted);

    sqlite3_stmt *update = nullptr;
    sqlite3_stmt *remove = nullptr;
    bool ok = sqlite3_prepare_v2(db, "update bond_history set first_month = ?, value_list = ?, derived_list = ? where bond = ?",
                                 -1, &update, nullptr) == SQLITE_OK
              && sqlite3_prepare_v2(db, "delete from bond_history where bond = ?", -1, &remove, nullptr) == SQLITE_OK;
    for (qsizetype i = 0; ok && i < bonds.size(); ++i) {
        const ValueHistory &history = values.history(wanted.at(i).first, wanted.at(i).second);
        sqlite3_stmt *stmt = history.isEmpty() ? remove : update;
        if (!history.isEmpty()) {
            const QByteArray list = history.packedValues();
            const QByteArray derived = history.packedDerived();
            sqlite3_bind_int(update, 1, history.firstMonth());
            sqlite3_bind_blob(update, 2, list.constData(), int(list.size()), SQLITE_TRANSIENT);
            if (derived.isEmpty())
                sqlite3_bind_null(update, 3);
            else
                sqlite3_bind_blob(update, 3, derived.constData(), int(derived.size()), SQLITE_TRANSIENT);
            sqlite3_bind_int64(update, 4, bonds.at(i));
        } else {
            sqlite3_bind_int64(remove, 1, bonds.at(i));
        }
        ok = sqlite3_step(stmt) == SQLITE_DONE;
        sqlite3_reset(stmt);
    }
    if (!ok && error)
        *error = QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(update);
    sqlite3_finalize(remove);
    return ok;
}

bool hasEveryTrigger(sqlite3 *db)
{
    sqlite3_stmt *stmt = nullptr;
    const bool every = sqlite3_prepare_v2(db,
                                          "select count(*) from sqlite_master where type = 'trigger' and name in"
                                          " ('bond_value_inserted', 'bond_value_deleted', 'bond_value_updated',"
                                          " 'derived_value_inserted', 'derived_value_deleted', 'derived_value_updated')",
                                          -1, &stmt, nullptr) == SQLITE_OK
                       && sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_int(stmt, 0) == TriggerCount;
    sqlite3_finalize(stmt);
    return every;
}

} // namespace

bool refresh(sqlite3 *db, QString *error)
{
    // On its own, the write lock is taken first: it reads before it writes, and another writer
    // committing in between would otherwise make it fail instead of wait.
    const bool outermost = sqlite3_get_autocommit(db) != 0;
    if (!execute(db, outermost ? "begin immediate" : "savepoint pack_histories", error))
        return false;
    const bool ok = ((RedemptionDatabase::hasTable(db, TableName) && hasEveryTrigger(db))
                     || (DerivedValues::ensureTable(db, error) && execute(db, Schema, error)))
                    && pack(db, changedBonds(db), error);
    if (outermost)
        return execute(db, ok ? "commit" : "rollback", ok ? error : nullptr) && ok;
    if (!ok)
        execute(db, "rollback to pack_histories", nullptr);
    execute(db, "release pack_histories", nullptr);
    return ok;
}

} // namespace ValueHistoryPacking
