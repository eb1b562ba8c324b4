// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Keeps the redemption value database current: checks the Treasury's Fiscal Data service (or an
// update directory's catalogue) for values the database lacks, and downloads and installs them. One updater per
// showing of the updater window (or per command-line run), with its own database connection.
//
// Each action runs on a worker thread of its own and returns at once. The observable state, the
// status text and the progress are announced by signals on the updater's own (main) thread, in
// the order in which the worker produced them. A worker still running when the updater is
// destroyed finishes its work; only its announcements to the updater are dropped.
#include "update/PriceDataDownloader.h"
#include "update/UpdateLocation.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <memory>
#include <optional>

class UpdateConnection;

class PriceUpdater : public QObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<QStringList> availableUpdates READ availableUpdates WRITE setAvailableUpdates NOTIFY availableUpdatesChanged)
    Q_PROPERTY(bool updateAvailable READ updateAvailable NOTIFY updateAvailableChanged)
    Q_PROPERTY(bool checkingForUpdates READ checkingForUpdates NOTIFY checkingForUpdatesChanged)
    Q_PROPERTY(bool updatingPriceData READ updatingPriceData NOTIFY updatingPriceDataChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusTextChanged)

public:
    // Works on the user's working copy of the database.
    explicit PriceUpdater(QObject *parent = nullptr);
    // Works on the given database file.
    explicit PriceUpdater(const QString &databasePath, QObject *parent = nullptr);
    ~PriceUpdater() override;

    // False when the database file cannot be written (nor, with it, its folder), so no update
    // could ever be installed. A file without any write permission counts as read-only even for
    // a user (such as root) whom the system would let write it anyway.
    static bool canPerformUpdate();
    static bool canPerformUpdate(const QString &databasePath);

    // False when the database exists but could not be opened for writing.
    bool isValid() const;
    QString databasePath() const;

    // Where updates come from; by default as the settings and the environment say.
    UpdateLocation::Source source() const { return m_source; }
    void setSource(UpdateLocation::Source source) { m_source = source; }
    QUrl baseUrl() const { return m_baseUrl; }
    void setBaseUrl(const QUrl &baseUrl) { m_baseUrl = baseUrl; }
    QUrl serviceRoot() const { return m_serviceRoot; }
    void setServiceRoot(const QUrl &root) { m_serviceRoot = root; }
    PriceDataDownloader::Limits downloadLimits() const { return m_limits; }
    void setDownloadLimits(const PriceDataDownloader::Limits &limits) { m_limits = limits; }

    // Nothing: not known (never checked, or the last installation failed). Empty: nothing to do.
    std::optional<QStringList> availableUpdates() const { return m_availableUpdates; }
    void setAvailableUpdates(const std::optional<QStringList> &updates);
    bool updateAvailable() const { return m_availableUpdates && !m_availableUpdates->isEmpty(); }
    // The last month (MonthIndex) of the values the last check found, when the source says; else 0.
    int availableThrough() const { return m_availableThrough; }
    bool checkingForUpdates() const { return m_checkingForUpdates; }
    bool updatingPriceData() const { return m_updatingPriceData; }
    QString statusText() const { return m_statusText; }
    bool isBusy() const { return m_checkingForUpdates || m_updatingPriceData; }

public slots:
    // Both return at once. Each refuses (false) while another action of this updater still runs,
    // since both work on the one connection.
    bool checkForUpdates();
    bool updatePriceData();

signals:
    void availableUpdatesChanged();
    void updateAvailableChanged(bool available);
    void checkingForUpdatesChanged(bool checking);
    void updatingPriceDataChanged(bool updating);
    void statusTextChanged(const QString &status);
    // While a file downloads the progress is indeterminate (an animated bar).
    void downloadingChanged(bool downloading);
    // Determinate progress: of the installation of one file, or of the pages and then the months
    // of a Fiscal Data update.
    void progressChanged(double value, double maximum);
    // The action started by checkForUpdates() or updatePriceData() has ended; state and status
    // are final. succeeded: the source was read, or everything was installed.
    void finished(bool succeeded);

private:
    void setCheckingForUpdates(bool checking);
    void setUpdatingPriceData(bool updating);
    void setStatusText(const QString &status);
    template<typename Work> void startWorker(Work work);

    std::shared_ptr<UpdateConnection> m_connection;
    UpdateLocation::Source m_source;
    QUrl m_baseUrl;
    QUrl m_serviceRoot;
    PriceDataDownloader::Limits m_limits;
    std::optional<QStringList> m_availableUpdates;
    int m_availableThrough = 0;
    bool m_checkingForUpdates = false;
    bool m_updatingPriceData = false;
    QString m_statusText;
};
