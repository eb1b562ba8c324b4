// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/TreasuryFileInstallation.h"

#include "update/PriceUpdater.h"
#include "update/UpdateConnection.h"
#include "update/sources/PriceSource.h"

#include <QFileInfo>

TreasuryFileInstallation::TreasuryFileInstallation(const QString &databasePath)
    : m_databasePath(databasePath)
{
}

TreasuryFileInstallation::~TreasuryFileInstallation() = default;

TreasuryFileInstallation::Failure TreasuryFileInstallation::check() const
{
    if (m_databasePath.isEmpty())
        return Failure::NoDatabase;
    if (!PriceUpdater::canPerformUpdate(m_databasePath))
        return Failure::NotWritable;
    return Failure::None;
}

TreasuryFileInstallation::Failure TreasuryFileInstallation::open()
{
    if (!m_connection) {
        m_connection = std::make_unique<UpdateConnection>(m_databasePath);
        m_connection->prepareForWriting();
    }
    return m_connection->handle() ? Failure::None : Failure::NotOpenable;
}

TreasuryFileInstallation::FileResult TreasuryFileInstallation::install(const QString &path)
{
    FileResult result;
    result.fileName = QFileInfo(path).fileName();
    // The file is read before the database is touched, so that an unreadable one leaves it as it was.
    const PriceSourceContents contents = PriceSource::readFile(path);
    if (!contents.ok()) {
        result.failure = Failure::FileRefused;
        result.detail = contents.error;
        return result;
    }
    if ((result.failure = open()) != Failure::None)
        return result;
    result.outcome = OfficialSourceInstaller::install(m_connection->handle(), {result.fileName, contents.records});
    if (!result.outcome.ok()) {
        result.failure = Failure::FileRefused;
        result.detail = result.outcome.error;
    }
    return result;
}
