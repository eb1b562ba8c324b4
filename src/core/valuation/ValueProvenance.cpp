// Whether a stored value was derived by the program rather than published by the Treasury.
#include "valuation/BondAssessor.h"

#include "model/Series.h"

#include <sqlite3.h>

bool BondAssessor::isDerivedValue(const BondTerms &bond, const QDateTime &asOf) const
{
    if (!m_db || !bond.series || !bond.issueDate.isValid() || !asOf.isValid())
        return false;
    // A database made before derived values were recorded has no such table: nothing is derived.
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(m_db,
                           "select count(*) from derived_value where series = ? and iyr = ? and imo = ? and ryr = ? and rmo = ?",
                           -1, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return false;
    }
    const QByteArray code = bond.series->code().toUtf8();
    sqlite3_bind_text(stmt, 1, code.constData(), static_cast<int>(code.size()), SQLITE_TRANSIENT);
    sqlite3_bind_int(stmt, 2, bond.issueDate.date().year());
    sqlite3_bind_int(stmt, 3, bond.issueDate.date().month());
    sqlite3_bind_int(stmt, 4, asOf.date().year());
    sqlite3_bind_int(stmt, 5, asOf.date().month());
    const bool derived = sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_int(stmt, 0) > 0;
    sqlite3_finalize(stmt);
    return derived;
}
