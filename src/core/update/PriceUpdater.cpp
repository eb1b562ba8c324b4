// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/PriceUpdater.h"

#include "update/PriceUpdateRun.h"
#include "valuation/RedemptionDateRangeNotifier.h"
#include "update/UpdateConnection.h"
#include "update/UpdateLocation.h"
#include "valuation/RedemptionDatabase.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QThread>

namespace {

// Hands an announcement to the main thread, never waiting. It is dropped there when the updater
// has gone meanwhile; the worker goes on regardless.
void deliver(const QPointer<PriceUpdater> &target, std::function<void(PriceUpdater *)> announce)
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [target, announce = std::move(announce)] {
            if (target)
                announce(target.data());
        },
        Qt::QueuedConnection);
}

bool grantsWrite(const QFileInfo &info)
{
    const QFile::Permissions anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & anyWrite);
}

} // namespace

PriceUpdater::PriceUpdater(QObject *parent)
    : PriceUpdater(RedemptionDatabase::path(), parent)
{
}

PriceUpdater::PriceUpdater(const QString &databasePath, QObject *parent)
    : QObject(parent)
    , m_connection(std::make_shared<UpdateConnection>(databasePath))
    , m_source(UpdateLocation::source())
    , m_baseUrl(UpdateLocation::baseUrl())
    , m_serviceRoot(UpdateLocation::fiscalDataRoot())
{
}

PriceUpdater::~PriceUpdater() = default;

bool PriceUpdater::canPerformUpdate()
{
    return canPerformUpdate(RedemptionDatabase::path());
}

bool PriceUpdater::canPerformUpdate(const QString &databasePath)
{
    const QFileInfo file(databasePath);
    if (databasePath.isEmpty() || !file.isFile() || !grantsWrite(file))
        return false;
    // The journal is written beside the file.
    return grantsWrite(QFileInfo(file.absolutePath()));
}

bool PriceUpdater::isValid() const
{
    return m_connection->state() != UpdateConnection::State::Unopenable;
}

QString PriceUpdater::databasePath() const
{
    return m_connection->databasePath();
}

void PriceUpdater::setAvailableUpdates(const std::optional<QStringList> &updates)
{
    if (updates == m_availableUpdates)
        return;
    m_availableUpdates = updates;
    emit availableUpdatesChanged();
    // Observers of updateAvailable hear of every change of the list it derives from.
    emit updateAvailableChanged(updateAvailable());
}

void PriceUpdater::setCheckingForUpdates(bool checking)
{
    if (checking == m_checkingForUpdates)
        return;
    m_checkingForUpdates = checking;
    emit checkingForUpdatesChanged(checking);
}

void PriceUpdater::setUpdatingPriceData(bool updating)
{
    if (updating == m_updatingPriceData)
        return;
    m_updatingPriceData = updating;
    emit updatingPriceDataChanged(updating);
}

void PriceUpdater::setStatusText(const QString &status)
{
    m_statusText = status;
    emit statusTextChanged(status);
}

template<typename Work>
void PriceUpdater::startWorker(Work work)
{
    const QPointer<PriceUpdater> target(this);
    PriceUpdateRun::Observer observer;
    observer.status = [target](const QString &status) {
        deliver(target, [status](PriceUpdater *u) { u->setStatusText(status); });
    };
    observer.downloading = [target](bool downloading) {
        deliver(target, [downloading](PriceUpdater *u) { emit u->downloadingChanged(downloading); });
    };
    observer.progress = [target](double value, double maximum) {
        deliver(target, [value, maximum](PriceUpdater *u) { emit u->progressChanged(value, maximum); });
    };
    observer.availableUpdates = [target](const std::optional<QStringList> &available) {
        deliver(target, [available](PriceUpdater *u) { u->setAvailableUpdates(available); });
    };
    observer.availableMonths = [target](int, int last) {
        deliver(target, [last](PriceUpdater *u) { u->m_availableThrough = last; });
    };
    observer.rangeChanged = [target](const QDateTime &minimum, const QDateTime &maximum) {
        // Announced even when the updater has gone: date pickers still need to follow.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [target, minimum, maximum] { RedemptionDateRangeNotifier::instance()->post(target.data(), minimum, maximum); },
            Qt::QueuedConnection);
    };

    const PriceUpdateRun::Settings settings{m_source, m_baseUrl, m_serviceRoot, m_limits};
    auto run = std::make_shared<PriceUpdateRun>(m_connection, settings, std::move(observer));
    QThread *thread = QThread::create([run, target, work = std::move(work)] {
        const bool succeeded = work(*run);
        deliver(target, [succeeded](PriceUpdater *u) {
            u->setCheckingForUpdates(false);
            u->setUpdatingPriceData(false);
            emit u->finished(succeeded);
        });
    });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

bool PriceUpdater::checkForUpdates()
{
    if (isBusy())
        return false;
    setCheckingForUpdates(true);
    startWorker([](PriceUpdateRun &run) { return run.checkForUpdates(); });
    return true;
}

bool PriceUpdater::updatePriceData()
{
    if (isBusy())
        return false;
    setUpdatingPriceData(true);
    // The list is read once, when the installation starts.
    const QStringList files = m_availableUpdates.value_or(QStringList());
    startWorker([files](PriceUpdateRun &run) { return run.updatePriceData(files); });
    return true;
}
