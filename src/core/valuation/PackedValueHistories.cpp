#include "valuation/PackedValueHistories.h"

#include <sqlite3.h>

namespace PackedValueHistories {

bool exists(sqlite3 *db)
{
    sqlite3_stmt *probe = nullptr;
    const bool found =
        sqlite3_prepare_v2(db, "select 1 from sqlite_master where type = 'table' and name = 'bond_history'", -1, &probe,
                           nullptr) == SQLITE_OK
        && sqlite3_step(probe) == SQLITE_ROW;
    sqlite3_finalize(probe);
    return found;
}

} // namespace PackedValueHistories
