#include "update/PriceUpdateRun.h"

#include "update/PriceDataInstaller.h"
#include "update/UpdateCatalogue.h"
#include "update/UpdateConnection.h"
#include "update/UpdateLocation.h"

#include <QMutexLocker>
#include <QtDebug>

PriceUpdateRun::PriceUpdateRun(std::shared_ptr<UpdateConnection> connection, const QUrl &baseUrl,
                               const PriceDataDownloader::Limits &limits, Observer observer)
    : m_connection(std::move(connection))
    , m_baseUrl(baseUrl)
    , m_limits(limits)
    , m_observer(std::move(observer))
{
}

void PriceUpdateRun::setStatus(const QString &status)
{
    if (m_observer.status)
        m_observer.status(status);
}

std::optional<QByteArray> PriceUpdateRun::downloadUrl(const QUrl &url, const QString &label)
{
    setStatus(label);
    if (m_observer.downloading)
        m_observer.downloading(true);
    PriceDataDownloader downloader(m_limits);
    std::optional<QByteArray> data = downloader.fetch(url);
    if (!data)
        qWarning().noquote() << QStringLiteral("Download failed: %1").arg(downloader.lastError());
    if (m_observer.downloading)
        m_observer.downloading(false);
    return data;
}

bool PriceUpdateRun::checkForUpdates()
{
    const std::optional<QByteArray> data =
        downloadUrl(UpdateLocation::catalogueUrl(m_baseUrl), QStringLiteral("Checking for updates..."));
    const UpdateCatalogue catalogue = UpdateCatalogue::parse(data.value_or(QByteArray()));
    switch (catalogue.status()) {
    case UpdateCatalogue::Status::Unavailable:
        setStatus(QStringLiteral("Update information unavailable. Check internet connections and try again."));
        return false;
    case UpdateCatalogue::Status::Corrupt:
        qWarning().noquote() << QStringLiteral("Error loading plist: %1").arg(catalogue.error());
        setStatus(QStringLiteral("Download corrupt; unable to update"));
        return false;
    case UpdateCatalogue::Status::Valid:
        break;
    }

    QStringList known;
    {
        QMutexLocker locker(&m_connection->mutex());
        known = m_connection->knownDataSets();
    }
    const QStringList delta = UpdateCatalogue::determineUpdateDataDelta(catalogue.entries(), known);
    if (m_observer.availableUpdates)
        m_observer.availableUpdates(delta);
    if (delta.isEmpty())
        setStatus(QStringLiteral("Your software is up to date."));
    else
        setStatus(QStringLiteral("%1 update(s) available").arg(delta.size()));
    return true;
}

bool PriceUpdateRun::updatePriceData(const QStringList &files)
{
    QMutexLocker locker(&m_connection->mutex());
    PriceDataInstaller::Feedback feedback;
    feedback.status = m_observer.status;
    feedback.progress = m_observer.progress;
    const int count = static_cast<int>(files.size());
    bool allInstalled = true;

    if (m_connection->handle()) {
        PriceDataInstaller installer(m_connection->handle(), feedback);
        // Derived values give way to official ones and then reach each file's latest month.
        installer.setExtendsDerivedValues(true);
        for (int i = 0; i < count && allInstalled; ++i) {
            const QString &name = files.at(i);
            const std::optional<QByteArray> data =
                downloadUrl(UpdateLocation::fileUrl(m_baseUrl, name),
                            QStringLiteral("Downloading update %1 of %2").arg(i + 1).arg(count));
            allInstalled = data && !data->isEmpty() && installer.updatePricingDataWithData(*data, name);
        }
        // Whatever happened above, the summary tables follow what is now in bond_value.
        QDateTime minimum;
        QDateTime maximum;
        if (installer.updateRedemptionDateSummaryTables(&minimum, &maximum, false) && m_observer.rangeChanged)
            m_observer.rangeChanged(minimum, maximum);
    } else if (count > 0) {
        setStatus(QStringLiteral("Unable to begin price update"));
        allInstalled = false;
    }

    if (allInstalled) {
        if (m_observer.availableUpdates)
            m_observer.availableUpdates(QStringList());
        setStatus(QStringLiteral("All updates installed"));
    } else {
        if (m_observer.availableUpdates)
            m_observer.availableUpdates(std::nullopt);
        setStatus(QStringLiteral("Some updates could not be performed"));
    }
    return allInstalled;
}
