#pragma once
// What one updater action does on its worker thread, start to finish: a catalogue check, or the
// download and installation of the pending files. Runs synchronously on the calling thread and
// tells its owner everything through the callbacks, which are called on that thread too.
#include "update/PriceDataDownloader.h"

#include <QDateTime>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

class UpdateConnection;

class PriceUpdateRun
{
public:
    struct Observer
    {
        std::function<void(const QString &status)> status;
        // True while a download runs (an indeterminate, animated progress bar).
        std::function<void(bool downloading)> downloading;
        // Determinate progress of an installation.
        std::function<void(double value, double maximum)> progress;
        std::function<void(const std::optional<QStringList> &available)> availableUpdates;
        // The new range of redemption months after the summary tables were rebuilt.
        std::function<void(const QDateTime &minimum, const QDateTime &maximum)> rangeChanged;
    };

    PriceUpdateRun(std::shared_ptr<UpdateConnection> connection, const QUrl &baseUrl,
                   const PriceDataDownloader::Limits &limits, Observer observer);

    // Fetches the catalogue and reports the files the database lacks. False when the catalogue
    // could not be had; the list of available updates then stays as it was.
    bool checkForUpdates();
    // Downloads and installs the files in order, stopping at the first failure, then rebuilds
    // the summary tables and announces the range. True when every file was installed.
    bool updatePriceData(const QStringList &files);

private:
    std::optional<QByteArray> downloadUrl(const QUrl &url, const QString &label);
    void setStatus(const QString &status);

    std::shared_ptr<UpdateConnection> m_connection;
    QUrl m_baseUrl;
    PriceDataDownloader::Limits m_limits;
    Observer m_observer;
};
