// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/PriceUpdateRun.h"

#include "base/Month.h"
#include "update/OfficialSourceInstaller.h"
#include "update/PriceDataInstaller.h"
#include "update/UpdateCatalogue.h"
#include "update/UpdateConnection.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "valuation/MonthIndex.h"

#include <QMutexLocker>
#include <QtDebug>
#include <QCoreApplication>

namespace UpdateStatus {

QString text(const char *status)
{
    return QCoreApplication::translate("UpdateStatus", status);
}

QString failed(const char *status, const QString &why)
{
    const QString words = text(status);
    return why.isEmpty() ? words : words + QLatin1Char('\n') + why;
}

QString monthsText(int first, int last)
{
    auto month = [](int index) { return Month::fromIndex(index).toString(Month::Style::Slash); };
    return first == last ? month(first) : QCoreApplication::translate("PriceUpdateRun", "%1 to %2").arg(month(first), month(last));
}

} // namespace UpdateStatus

PriceUpdateRun::PriceUpdateRun(std::shared_ptr<UpdateConnection> connection, const Settings &settings,
                               Observer observer)
    : m_connection(std::move(connection))
    , m_settings(settings)
    , m_observer(std::move(observer))
{
}

void PriceUpdateRun::setStatus(const QString &status)
{
    if (m_observer.status)
        m_observer.status(status);
}

void PriceUpdateRun::setAvailable(const std::optional<QStringList> &available)
{
    if (m_observer.availableUpdates)
        m_observer.availableUpdates(available);
}

void PriceUpdateRun::updateSummary(bool rebuild)
{
    PriceDataInstaller installer(m_connection->handle(), {m_observer.status, {}, {}});
    QDateTime minimum;
    QDateTime maximum;
    if (installer.updateRedemptionDateSummaryTables(&minimum, &maximum, false, rebuild) && m_observer.rangeChanged)
        m_observer.rangeChanged(minimum, maximum);
}

bool PriceUpdateRun::checkForUpdates()
{
    m_deadline.setRemainingTime(m_settings.limits.totalTimeoutMs);
    return m_settings.source == UpdateLocation::Source::Catalogue ? checkCatalogue() : checkFiscalData();
}

bool PriceUpdateRun::updatePriceData(const QStringList &files)
{
    m_deadline.setRemainingTime(m_settings.limits.totalTimeoutMs);
    return m_settings.source == UpdateLocation::Source::Catalogue ? installCatalogueFiles(files) : installFiscalData();
}

std::optional<QByteArray> PriceUpdateRun::downloadUrl(const QUrl &url, const QString &label, QString *error)
{
    setStatus(label);
    if (m_observer.downloading)
        m_observer.downloading(true);
    PriceDataDownloader::Limits limits = m_settings.limits;
    limits.totalTimeoutMs = int(std::max<qint64>(1, m_deadline.remainingTime()));
    PriceDataDownloader downloader(limits);
    std::optional<QByteArray> data = downloader.fetch(url);
    if (!data) {
        *error = downloader.lastError();
        qWarning().noquote() << QStringLiteral("Download failed: %1").arg(*error);
    }
    if (m_observer.downloading)
        m_observer.downloading(false);
    return data;
}

bool PriceUpdateRun::checkCatalogue()
{
    QString why;
    const std::optional<QByteArray> data = downloadUrl(UpdateLocation::catalogueUrl(m_settings.baseUrl),
                                                       UpdateStatus::text(UpdateStatus::Checking), &why);
    if (data && data->isEmpty())
        why = QCoreApplication::translate("PriceUpdateRun", "the catalogue is empty");
    const UpdateCatalogue catalogue = UpdateCatalogue::parse(data.value_or(QByteArray()));
    switch (catalogue.status()) {
    case UpdateCatalogue::Status::Unavailable:
        setStatus(UpdateStatus::failed(UpdateStatus::Unavailable, why));
        return false;
    case UpdateCatalogue::Status::Corrupt:
        qWarning().noquote() << QStringLiteral("Error loading plist: %1").arg(catalogue.error());
        setStatus(UpdateStatus::failed(UpdateStatus::Corrupt, catalogue.error()));
        return false;
    case UpdateCatalogue::Status::Valid:
        break;
    }
    for (const QString &entry : catalogue.entries()) {
        if (const QString problem = UpdateCatalogue::entryProblem(entry); !problem.isEmpty()) {
            qWarning().noquote() << QStringLiteral("Refused catalogue: %1").arg(problem);
            setStatus(UpdateStatus::failed(UpdateStatus::Corrupt, problem));
            return false;
        }
    }

    QStringList known;
    {
        QMutexLocker locker(&m_connection->mutex());
        known = m_connection->knownDataSets();
    }
    const QStringList delta = UpdateCatalogue::determineUpdateDataDelta(catalogue.entries(), known);
    setAvailable(delta);
    if (delta.isEmpty())
        setStatus(UpdateStatus::text(UpdateStatus::UpToDate));
    else
        setStatus(QCoreApplication::translate("PriceUpdateRun", "%1 update(s) available").arg(delta.size()));
    return true;
}

bool PriceUpdateRun::installCatalogueFiles(const QStringList &files)
{
    QMutexLocker locker(&m_connection->mutex());
    const int count = static_cast<int>(files.size());
    bool allInstalled = true;
    QString why;

    if (m_connection->handle()) {
        m_connection->prepareForWriting();
        OfficialSourceInstaller::Options options;
        options.feedback.status = m_observer.status;
        options.feedback.progress = m_observer.progress;
        options.updateSummary = false;
        for (int i = 0; i < count && allInstalled; ++i) {
            const QString &name = files.at(i);
            const std::optional<QByteArray> data =
                downloadUrl(UpdateLocation::fileUrl(m_settings.baseUrl, name),
                            QCoreApplication::translate("PriceUpdateRun", "Downloading update %1 of %2").arg(i + 1).arg(count), &why);
            if (!data) {
                allInstalled = false;
                break;
            }
            // A cut or foreign download is no price data file: nothing of it goes in.
            if (const QString problem = PriceDataFile::checkLength(*data); !problem.isEmpty()) {
                why = QCoreApplication::translate("PriceUpdateRun", "Download corrupt: %1: %2").arg(name, problem);
                allInstalled = false;
                break;
            }
            if (name == QLatin1String(MaturedBondCarryForward::SourceName)) {
                // Values of matured bonds carried forward: every installation here derives them
                // itself by the same rule, so only the name is recorded.
                PriceDataInstaller installer(m_connection->handle(), options.feedback);
                allInstalled = installer.updateDerivedDataWithData({}, name);
                why = installer.lastError();
                continue;
            }
            // Rows equal to installed official ones pass over; a contradiction refuses the file.
            const OfficialSourceInstaller::Outcome outcome = OfficialSourceInstaller::install(
                m_connection->handle(), {name, PriceDataFile::decode(*data)}, options);
            if (outcome.alreadyInstalled) {
                // Another program (a second updater, say) installed it meanwhile.
                setStatus(outcome.error);
            } else if (!outcome.ok()) {
                why = outcome.error;
                allInstalled = false;
            }
        }
        // Whatever happened above, the summary tables follow what is now in bond_value.
        updateSummary();
    } else if (count > 0) {
        why = QCoreApplication::translate("PriceUpdateRun", "the redemption value database cannot be opened");
        allInstalled = false;
    }

    if (allInstalled) {
        setAvailable(QStringList());
        setStatus(QCoreApplication::translate("PriceUpdateRun", "All updates installed"));
    } else {
        setAvailable(std::nullopt);
        setStatus(UpdateStatus::failed(UpdateStatus::SomeFailed, why));
    }
    return allInstalled;
}
