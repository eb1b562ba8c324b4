// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Small value databases: rows added by hand to an empty schema, then the summary tables rebuilt.
#include "TestSupport.h"
#include "update/PriceDataInstaller.h"

#include <QString>
#include <sqlite3.h>

class ValueTable
{
public:
    ValueTable() : m_path(TestSupport::emptyDatabase()) { sqlite3_open(m_path.toUtf8().constData(), &m_db); }
    ~ValueTable() { sqlite3_close(m_db); }
    ValueTable(const ValueTable &) = delete;
    ValueTable &operator=(const ValueTable &) = delete;

    // code: "E", "N", "I" or "S"; value in pennies per $25 paper bond, or -1.
    ValueTable &add(const char *code, int ryr, int rmo, int iyr, int imo, int value)
    {
        char *sql = sqlite3_mprintf("insert into bond_value (series, ryr, rmo, iyr, imo, value) values (%Q, %d, %d, %d, %d, %d)",
                                    code, ryr, rmo, iyr, imo, value);
        sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
        sqlite3_free(sql);
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
