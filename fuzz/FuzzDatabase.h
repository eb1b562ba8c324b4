// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// A fresh in-memory database per input, copied from an image made once: building the schema,
// its triggers and any starting values for every input cost more than the code under test.
#pragma once

#include <sqlite3.h>

#include <cstring>
#include <functional>

class FuzzDatabase
{
public:
    // Runs prepare on an empty in-memory database and keeps the result as the image.
    explicit FuzzDatabase(const std::function<bool(sqlite3 *)> &prepare)
    {
        sqlite3 *db = nullptr;
        if (sqlite3_open(":memory:", &db) == SQLITE_OK && prepare(db))
            m_image = sqlite3_serialize(db, "main", &m_size, 0);
        sqlite3_close(db);
    }
    ~FuzzDatabase() { sqlite3_free(m_image); }
    FuzzDatabase(const FuzzDatabase &) = delete;
    FuzzDatabase &operator=(const FuzzDatabase &) = delete;

    bool valid() const { return m_image != nullptr; }

    // The first column of the first row of a query, -1 when there is none.
    static sqlite3_int64 number(sqlite3 *db, const char *sql)
    {
        sqlite3_stmt *stmt = nullptr;
        sqlite3_int64 result = -1;
        if (sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW)
            result = sqlite3_column_int64(stmt, 0);
        sqlite3_finalize(stmt);
        return result;
    }

    // A connection of its own over a private copy of the image; nullptr if none could be made.
    sqlite3 *open() const
    {
        sqlite3 *db = nullptr;
        if (!m_image || sqlite3_open(":memory:", &db) != SQLITE_OK) {
            sqlite3_close(db);
            return nullptr;
        }
        auto *copy = static_cast<unsigned char *>(sqlite3_malloc64(static_cast<sqlite3_uint64>(m_size)));
        if (!copy) {
            sqlite3_close(db);
            return nullptr;
        }
        std::memcpy(copy, m_image, static_cast<size_t>(m_size));
        if (sqlite3_deserialize(db, "main", copy, m_size, m_size,
                                SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE)
            != SQLITE_OK) {
            sqlite3_close(db);
            return nullptr;
        }
        return db;
    }

private:
    unsigned char *m_image = nullptr;
    sqlite3_int64 m_size = 0;
};
