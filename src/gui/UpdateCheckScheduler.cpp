// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateCheckScheduler.h"

#include "update/AutomaticUpdateCheck.h"
#include "update/PriceUpdater.h"
#include "valuation/RedemptionDateRangeNotifier.h"
#include "valuation/RedemptionDatabase.h"

#include <QCoreApplication>
#include <QThread>

UpdateCheckScheduler &UpdateCheckScheduler::instance()
{
    static UpdateCheckScheduler scheduler;
    return scheduler;
}

UpdateCheckScheduler::UpdateCheckScheduler()
{
    // Whatever installed values (the updater window, most likely) answers the offer.
    connect(RedemptionDateRangeNotifier::instance(), &RedemptionDateRangeNotifier::redemptionDateRangeDidChange, this,
            [this] { setNewValues(false, 0); });
}

void UpdateCheckScheduler::start()
{
    const QDateTime now = QDateTime::currentDateTime();
    if (m_started || !AutomaticUpdateCheck::isTimeForCheck(now))
        return;
    m_started = true;
    m_checking = true;
    // Reading what the database lacks takes a moment: off the main thread, like the check itself.
    const QString database = RedemptionDatabase::path();
    QThread *thread = QThread::create([this, database, now] {
        const bool lacks = AutomaticUpdateCheck::lacksCurrentValues(database, now);
        QMetaObject::invokeMethod(this, [this, lacks] {
            if (lacks) {
                check();
            } else {
                m_checking = false;
                emit checkFinished();
            }
        }, Qt::QueuedConnection);
    });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void UpdateCheckScheduler::check()
{
    auto *updater = new PriceUpdater(this);
    connect(updater, &PriceUpdater::finished, this, [this, updater] { finish(updater); });
    if (!updater->isValid() || !updater->checkForUpdates()) {
        updater->deleteLater();
        m_checking = false;
        emit checkFinished();
    }
}

void UpdateCheckScheduler::finish(PriceUpdater *updater)
{
    AutomaticUpdateCheck::noteCheck(QDateTime::currentDateTime());
    setNewValues(updater->updateAvailable(), updater->availableThrough());
    updater->deleteLater();
    m_checking = false;
    emit checkFinished();
}

void UpdateCheckScheduler::setNewValues(bool available, int through)
{
    m_through = through;
    if (available == m_newValues)
        return;
    m_newValues = available;
    emit newValuesChanged(available);
}
