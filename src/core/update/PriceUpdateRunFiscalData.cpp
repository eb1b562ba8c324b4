// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The updater's Fiscal Data source: what the database lacks is asked for by month, read page by
// page, and installed in one transaction through the same installer as every official source.
#include "update/PriceUpdateRun.h"

#include "update/OfficialSourceInstaller.h"
#include "update/UpdateConnection.h"
#include "update/fiscaldata/FiscalDataClient.h"
#include "valuation/MonthIndex.h"

#include <QMutexLocker>
#include <QSet>
#include <QtDebug>
#include <sqlite3.h>
#include <QCoreApplication>

namespace {

// A name not yet in data_file: the months, then a count when values of the same months arrived
// before (a series the service added later, say).
QString freeName(const QString &name, const QStringList &known)
{
    QString candidate = name;
    for (int n = 2; known.contains(candidate); ++n)
        candidate = QStringLiteral("%1#%2").arg(name).arg(n);
    return candidate;
}

} // namespace

QString PriceUpdateRun::fiscalDataName(int first, int last)
{
    return QStringLiteral("fiscaldata:%1..%2").arg(FiscalDataQuery::periodText(first), FiscalDataQuery::periodText(last));
}

bool PriceUpdateRun::checkFiscalData()
{
    setStatus(UpdateStatus::text(UpdateStatus::Checking));
    std::optional<QList<FiscalDataRequest>> requests;
    QString why;
    {
        QMutexLocker locker(&m_connection->mutex());
        if (m_connection->handle())
            requests = FiscalDataQuery::plan(m_connection->handle(), &why);
        else
            why = QCoreApplication::translate("PriceUpdateRunFiscalData", "the redemption value database cannot be opened");
    }
    if (!requests) {
        setStatus(UpdateStatus::failed(UpdateStatus::Unavailable, why));
        return false;
    }
    FiscalDataClient::Limits limits;
    limits.download = m_settings.limits;
    FiscalDataClient client(m_settings.serviceRoot, limits);
    const std::optional<FiscalDataClient::Span> span = client.available(*requests);
    if (!span) {
        qWarning().noquote() << QStringLiteral("Update check failed: %1").arg(client.lastError());
        setStatus(UpdateStatus::failed(UpdateStatus::Unavailable, client.lastError()));
        return false;
    }
    if (span->isEmpty()) {
        setAvailable(QStringList());
        setStatus(UpdateStatus::text(UpdateStatus::UpToDate));
        return true;
    }
    if (m_observer.availableMonths)
        m_observer.availableMonths(span->first, span->last);
    setAvailable(QStringList{fiscalDataName(span->first, span->last)});
    setStatus(QCoreApplication::translate("PriceUpdateRunFiscalData", "Values for %1 are available").arg(UpdateStatus::monthsText(span->first, span->last)));
    return true;
}

bool PriceUpdateRun::installFiscalData()
{
    // Held throughout: the months asked for must still be missing when they are installed.
    QMutexLocker locker(&m_connection->mutex());
    sqlite3 *db = m_connection->handle();
    auto fail = [this](const QString &why) {
        qWarning().noquote() << QStringLiteral("Update failed: %1").arg(why);
        setAvailable(std::nullopt);
        setStatus(UpdateStatus::failed(UpdateStatus::SomeFailed, why));
        return false;
    };
    if (!db)
        return fail(QCoreApplication::translate("PriceUpdateRunFiscalData", "the redemption value database cannot be opened"));
    QString why;
    const std::optional<QList<FiscalDataRequest>> requests = FiscalDataQuery::plan(db, &why);
    if (!requests)
        return fail(why);

    FiscalDataClient::Limits limits;
    limits.download = m_settings.limits;
    FiscalDataClient client(m_settings.serviceRoot, limits);
    setStatus(QCoreApplication::translate("PriceUpdateRunFiscalData", "Downloading values from the Treasury..."));
    const std::optional<QList<PriceRecord>> records = client.fetch(*requests, [this](int fetched, int needed) {
        setStatus(QCoreApplication::translate("PriceUpdateRunFiscalData", "Downloading page %1 of %2").arg(fetched).arg(needed));
        if (m_observer.progress)
            m_observer.progress(fetched, needed);
    });
    if (!records)
        return fail(client.lastError());
    m_connection->prepareForWriting();
    if (records->isEmpty()) {
        setAvailable(QStringList());
        setStatus(UpdateStatus::text(UpdateStatus::UpToDate));
        return true;
    }

    // The records come in month order, as the installer puts them in: progress by month.
    QList<int> monthsDone;
    monthsDone.reserve(records->size());
    int months = 0;
    for (qsizetype i = 0; i < records->size(); ++i) {
        const PriceRecord &r = records->at(i);
        if (i == 0 || MonthIndex::of(r.ryr, r.rmo) != MonthIndex::of(records->at(i - 1).ryr, records->at(i - 1).rmo))
            ++months;
        monthsDone.append(months);
    }
    const int first = MonthIndex::of(records->first().ryr, records->first().rmo);
    const int last = MonthIndex::of(records->last().ryr, records->last().rmo);

    OfficialSourceInstaller::Options options;
    options.feedback.status = m_observer.status;
    options.updateSummary = false;
    int shown = -1;
    options.feedback.records = [&](int done, int count) {
        // Only new records go through here; months already complete pass over unseen.
        const int month = done == count ? months : monthsDone.value(qsizetype(done * qint64(records->size()) / count));
        if (month != shown && m_observer.progress)
            m_observer.progress(month, months);
        shown = month;
    };
    const QString name = freeName(fiscalDataName(first, last), m_connection->knownDataSets());
    const OfficialSourceInstaller::Outcome outcome = OfficialSourceInstaller::install(db, {name, *records}, options);
    if (outcome.alreadyInstalled) {
        // Another updater installed the same months meanwhile.
        setAvailable(QStringList());
        setStatus(UpdateStatus::text(UpdateStatus::UpToDate));
        return true;
    }
    if (!outcome.ok())
        return fail(outcome.error);
    // The installation rebuilt the tables inside its transaction.
    updateSummary(false);
    setAvailable(QStringList());
    setStatus(QCoreApplication::translate("PriceUpdateRunFiscalData", "Installed values for %1").arg(UpdateStatus::monthsText(first, last)));
    return true;
}
