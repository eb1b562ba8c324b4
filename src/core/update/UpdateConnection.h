// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The updater's own read-write connection to the redemption value database. Shared between the
// updater and its worker threads, so a worker still running when the updater goes away keeps it
// open until it is done. One worker uses it at a time (lock()).
#include <QMutex>
#include <QString>
#include <QStringList>

struct sqlite3;

class UpdateConnection
{
public:
    enum class State { Open, Missing, Unopenable };

    explicit UpdateConnection(const QString &databasePath);
    ~UpdateConnection();
    UpdateConnection(const UpdateConnection &) = delete;
    UpdateConnection &operator=(const UpdateConnection &) = delete;

    State state() const { return m_state; }
    QString databasePath() const { return m_path; }
    // Null unless open.
    sqlite3 *handle() const { return m_db; }
    QMutex &mutex() { return m_mutex; }

    // Before the first write: the working copy switched to write-ahead logging, so that open
    // portfolios keep reading while values go in. A check only reads, and leaves the file's
    // journal as it is (the seed the build made keeps its rollback journal).
    void prepareForWriting();

    // The names recorded in data_file, in the order the database returns them.
    QStringList knownDataSets() const;

private:
    QString m_path;
    State m_state = State::Missing;
    sqlite3 *m_db = nullptr;
    bool m_writing = false;
    QMutex m_mutex;
};
