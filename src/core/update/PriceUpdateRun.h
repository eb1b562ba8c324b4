// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What one updater action does on its worker thread, start to finish: a check for new values, or
// their download and installation, from the Fiscal Data service or from an update directory's
// catalogue. Runs synchronously on the calling thread and
// tells its owner everything through the callbacks, which are called on that thread too.
#include "update/PriceDataDownloader.h"
#include "update/UpdateLocation.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
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
        // The redemption months (MonthIndex) a Fiscal Data check found; 0, 0 when none or unknown.
        std::function<void(int first, int last)> availableMonths;
        // The new range of redemption months after the summary tables were rebuilt.
        std::function<void(const QDateTime &minimum, const QDateTime &maximum)> rangeChanged;
    };

    struct Settings
    {
        UpdateLocation::Source source = UpdateLocation::Source::FiscalData;
        QUrl baseUrl;     // the update directory
        QUrl serviceRoot; // the Fiscal Data service
        PriceDataDownloader::Limits limits;
    };

    PriceUpdateRun(std::shared_ptr<UpdateConnection> connection, const Settings &settings, Observer observer);

    // Finds what the source holds that the database lacks: the catalogue's files not yet
    // installed, or the Fiscal Data months not yet installed (one entry naming them). False when
    // the source could not be read; the list of available updates then stays as it was.
    bool checkForUpdates();
    // Installs what the check found: the catalogue's files in order, each wholly or not at all,
    // stopping at the first failure; or every missing Fiscal Data month in one transaction. Then
    // the summary tables follow and the range is announced. True when everything was installed.
    bool updatePriceData(const QStringList &files);

    // The name recorded in data_file for Fiscal Data values of these months (MonthIndex).
    static QString fiscalDataName(int first, int last);

private:
    bool checkCatalogue();
    bool checkFiscalData();
    bool installCatalogueFiles(const QStringList &files);
    bool installFiscalData();
    std::optional<QByteArray> downloadUrl(const QUrl &url, const QString &label, QString *error);
    void setStatus(const QString &status);
    void setAvailable(const std::optional<QStringList> &available);
    // Rebuilds the summary tables after an installation (unless it did so itself) and announces
    // the range.
    void updateSummary(bool rebuild = true);

    std::shared_ptr<UpdateConnection> m_connection;
    Settings m_settings;
    Observer m_observer;
    // The limits' total time bounds a whole action, all its downloads together.
    QDeadlineTimer m_deadline;
};

// The status texts both sources end in.
namespace UpdateStatus {
inline constexpr const char *Checking = QT_TRANSLATE_NOOP("UpdateStatus", "Checking for updates...");
inline constexpr const char *Unavailable =
    QT_TRANSLATE_NOOP("UpdateStatus", "Update information unavailable. Check internet connections and try again.");
inline constexpr const char *UpToDate = QT_TRANSLATE_NOOP("UpdateStatus", "Your redemption values are up to date");
inline constexpr const char *SomeFailed = QT_TRANSLATE_NOOP("UpdateStatus", "Some updates could not be performed");
inline constexpr const char *Corrupt = QT_TRANSLATE_NOOP("UpdateStatus", "Download corrupt; unable to update");
// One of the texts above in the user's language.
QString text(const char *status);
// A failure's status and, on the next line, why.
QString failed(const char *status, const QString &why);
// "MM/YYYY" or "MM/YYYY to MM/YYYY" of months (MonthIndex).
QString monthsText(int first, int last);
}
