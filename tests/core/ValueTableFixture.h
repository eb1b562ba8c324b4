#pragma once
// Small redemption value databases for valuation tests: rows are added by hand to an empty
// schema database, then the summary tables are rebuilt as an installation would.
#include "TestSupport.h"
#include "update/PriceDataInstaller.h"

#include <QString>
#include <sqlite3.h>

class ValueTable
{
public:
    ValueTable()
        : m_path(TestSupport::emptyDatabase())
    {
        sqlite3_open(m_path.toUtf8().constData(), &m_db);
    }
    ~ValueTable() { sqlite3_close(m_db); }
    ValueTable(const ValueTable &) = delete;
    ValueTable &operator=(const ValueTable &) = delete;

    // code: "E", "N", "I" or "S"; value in pennies per $25 paper bond, or -1.
    ValueTable &add(const char *code, int ryr, int rmo, int iyr, int imo, int value)
    {
        sqlite3_stmt *stmt = nullptr;
        sqlite3_prepare_v2(m_db, "insert into bond_value (series, ryr, rmo, iyr, imo, value) values (?,?,?,?,?,?)",
                           -1, &stmt, nullptr);
        sqlite3_bind_text(stmt, 1, code, -1, SQLITE_TRANSIENT);
        const int numbers[] = {ryr, rmo, iyr, imo, value};
        for (int k = 0; k < 5; ++k)
            sqlite3_bind_int(stmt, k + 2, numbers[k]);
        sqlite3_step(stmt);
        sqlite3_finalize(stmt);
        return *this;
    }

    // Rebuilds min_rdate and max_rdate; returns the path for a BondPortfolio or BondAssessor.
    QString finish()
    {
        PriceDataInstaller(m_db).updateRedemptionDateSummaryTables(nullptr, nullptr, false);
        return m_path;
    }

private:
    QString m_path;
    sqlite3 *m_db = nullptr;
};
