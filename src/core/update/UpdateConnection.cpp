// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateConnection.h"

#include "valuation/RedemptionDatabase.h"

#include <QFileInfo>
#include <QtDebug>
#include <sqlite3.h>

UpdateConnection::UpdateConnection(const QString &databasePath)
    : m_path(databasePath)
{
    if (m_path.isEmpty() || !QFileInfo(m_path).isFile())
        return;
    const QByteArray native = QFileInfo(m_path).absoluteFilePath().toUtf8();
    if (sqlite3_open_v2(native.constData(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr)
        != SQLITE_OK) {
        qWarning().noquote() << m_path;
        sqlite3_close(m_db);
        m_db = nullptr;
        m_state = State::Unopenable;
        return;
    }
    RedemptionDatabase::configureReader(m_db);
    m_state = State::Open;
}

void UpdateConnection::prepareForWriting()
{
    if (m_db && !m_writing)
        RedemptionDatabase::configureWriter(m_db);
    m_writing = true;
}

UpdateConnection::~UpdateConnection()
{
    sqlite3_close(m_db);
}

QStringList UpdateConnection::knownDataSets() const
{
    QStringList names;
    sqlite3_stmt *stmt = nullptr;
    if (!m_db || sqlite3_prepare_v2(m_db, "select name from data_file", -1, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return names;
    }
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        names << QString::fromUtf8(text ? text : "");
    }
    sqlite3_finalize(stmt);
    return names;
}
