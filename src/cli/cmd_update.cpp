// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli update: checks the Treasury's Fiscal Data service (or an update directory) for new
// redemption values and installs them, showing the updater's status texts and a progress bar.
#include "CliCommand.h"
#include "update/PriceUpdater.h"
#include "update/UpdateLocation.h"
#include "valuation/RedemptionDatabase.h"

#include <QCommandLineParser>
#include <QEventLoop>
#include <cstdio>
#include <unistd.h>

namespace {

// Status lines as they come; on a terminal also a bar that redraws in place.
class TerminalProgress
{
public:
    explicit TerminalProgress(PriceUpdater &updater)
        : m_terminal(isatty(fileno(stdout)) != 0)
    {
        QObject::connect(&updater, &PriceUpdater::statusTextChanged, &m_context,
                         [this](const QString &status) { showStatus(status); });
        QObject::connect(&updater, &PriceUpdater::progressChanged, &m_context,
                         [this](double value, double maximum) { showBar(value, maximum); });
        QObject::connect(&updater, &PriceUpdater::downloadingChanged, &m_context,
                         [this](bool downloading) { showBusy(downloading); });
    }

    void endLine()
    {
        if (m_barShown)
            cliOut() << '\n';
        m_barShown = false;
        cliOut().flush();
    }

private:
    void showStatus(const QString &status)
    {
        endLine();
        cliOut() << status << Qt::endl;
    }

    void showBar(double value, double maximum)
    {
        if (!m_terminal)
            return;
        const int width = 40;
        const double fraction = maximum > 0 ? qBound(0.0, value / maximum, 1.0) : 1.0;
        const int filled = static_cast<int>(fraction * width);
        cliOut() << "\r[" << QString(filled, QLatin1Char('#')) << QString(width - filled, QLatin1Char(' '))
                 << "] " << qRound(fraction * 100) << '%';
        cliOut().flush();
        m_barShown = true;
    }

    void showBusy(bool downloading)
    {
        if (!m_terminal)
            return;
        if (downloading) {
            cliOut() << "[" << QString(40, QLatin1Char('.')) << "] " << CliText::tr("downloading");
            cliOut().flush();
            m_barShown = true;
        } else {
            endLine();
        }
    }

    QObject m_context; // disconnects everything when the display goes
    bool m_terminal;
    bool m_barShown = false;
};

// Runs one action of the updater to its end.
bool waitFor(PriceUpdater &updater, bool (PriceUpdater::*action)())
{
    QEventLoop loop;
    bool succeeded = false;
    QObject::connect(&updater, &PriceUpdater::finished, &loop, [&](bool ok) {
        succeeded = ok;
        loop.quit();
    });
    if (!(updater.*action)())
        return false;
    loop.exec();
    return succeeded;
}

int run(const QStringList &arguments)
{
    PriceDataDownloader::Limits limits;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        CliText::tr("Asks the Treasury's Fiscal Data service for every redemption month the redemption value\n"
                       "database lacks official values for, and installs them in one step (all or nothing).\n"
                       "With --catalogue, fetches the catalogue %1 from an update directory instead\n"
                       "and installs every price data file it lists that the database lacks.\n"
                       "The database is QUILLMERE_DATABASE, or the working copy in the user's data folder.\n"
                       "Exit status 0 when the check, or every installation, succeeded.")
            .arg(QLatin1String(UpdateLocation::CatalogueName)));
    const QCommandLineOption checkOption(QStringLiteral("check"), CliText::tr("Only report what would be installed."));
    const QCommandLineOption catalogueOption(QStringLiteral("catalogue"),
                                             CliText::tr("Use an update directory's catalogue instead of Fiscal Data."));
    const QCommandLineOption fiscalDataOption(QStringLiteral("fiscal-data"),
                                              CliText::tr("Use the Fiscal Data service even when the settings name a catalogue."));
    const QCommandLineOption baseUrlOption(
        QStringLiteral("base-url"),
        CliText::tr("The update directory; implies --catalogue (default: the %1 variable, the '%2' setting, or %3).")
            .arg(QLatin1String(UpdateLocation::BaseUrlEnvironmentVariable), QLatin1String(UpdateLocation::BaseUrlSettingsKey),
                 QLatin1String(UpdateLocation::DefaultBaseUrl)),
        QStringLiteral("URL"));
    const QCommandLineOption serviceUrlOption(
        QStringLiteral("service-url"),
        CliText::tr("The Fiscal Data service root (default: the %1 variable, the '%2' setting, or %3).")
            .arg(QLatin1String(UpdateLocation::FiscalDataRootEnvironmentVariable),
                 QLatin1String(UpdateLocation::FiscalDataRootSettingsKey), QLatin1String(UpdateLocation::DefaultFiscalDataRoot)),
        QStringLiteral("URL"));
    const QCommandLineOption timeoutOption(
        QStringLiteral("timeout"),
        CliText::tr("Give up when the whole download takes longer than this (default: %1 seconds without a byte, "
                       "%2 in all).").arg(limits.idleTimeoutMs / 1000).arg(limits.totalTimeoutMs / 1000),
        QStringLiteral("SECONDS"));
    parser.addOptions({checkOption, catalogueOption, fiscalDataOption, baseUrlOption, serviceUrlOption, timeoutOption});
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::none(), {}, &status))
        return status;
    const bool checkOnly = parser.isSet(checkOption);
    const QString baseUrl = parser.value(baseUrlOption);
    const QString serviceUrl = parser.value(serviceUrlOption);
    const bool catalogue = parser.isSet(catalogueOption) || parser.isSet(baseUrlOption);
    if (catalogue && (parser.isSet(fiscalDataOption) || parser.isSet(serviceUrlOption)))
        return cliFail(CliText::tr("--catalogue and --base-url do not go with --fiscal-data or --service-url"));
    if (parser.isSet(timeoutOption)) {
        bool ok = false;
        const double seconds = parser.value(timeoutOption).toDouble(&ok);
        if (!ok || seconds <= 0 || seconds > 3600)
            return cliFail(CliText::tr("--timeout needs a number of seconds up to 3600"));
        limits.idleTimeoutMs = static_cast<int>(seconds * 1000);
        limits.totalTimeoutMs = limits.idleTimeoutMs;
    }

    const QString database = RedemptionDatabase::path();
    if (database.isEmpty())
        return cliFail(CliText::tr("no redemption value database found"));
    if (!checkOnly && !PriceUpdater::canPerformUpdate(database))
        return cliFail(CliText::tr("the redemption value database %1 cannot be written").arg(database));
    PriceUpdater updater(database);
    if (!updater.isValid())
        return cliFail(CliText::tr("cannot open the redemption value database %1").arg(database));
    if (!baseUrl.isEmpty()) {
        const QUrl url = UpdateLocation::normalisedBaseUrl(baseUrl);
        if (!url.isValid())
            return cliFail(CliText::tr("'%1' is not an absolute URL").arg(baseUrl));
        updater.setBaseUrl(url);
    }
    if (!serviceUrl.isEmpty()) {
        const QUrl url = UpdateLocation::normalisedServiceRoot(serviceUrl);
        if (!url.isValid())
            return cliFail(CliText::tr("'%1' is not an absolute http or https URL").arg(serviceUrl));
        updater.setServiceRoot(url);
    }
    if (catalogue)
        updater.setSource(UpdateLocation::Source::Catalogue);
    else if (parser.isSet(fiscalDataOption) || !serviceUrl.isEmpty())
        updater.setSource(UpdateLocation::Source::FiscalData);
    updater.setDownloadLimits(limits);

    TerminalProgress progress(updater);
    if (!waitFor(updater, &PriceUpdater::checkForUpdates))
        return 1;
    const QStringList pending = updater.availableUpdates().value_or(QStringList());
    if (checkOnly || pending.isEmpty()) {
        for (const QString &name : pending)
            cliOut() << "  " << name << '\n';
        return 0;
    }
    const bool installed = waitFor(updater, &PriceUpdater::updatePriceData);
    progress.endLine();
    return installed ? 0 : 1;
}

const CliCommand::Registration registration(
    {QStringLiteral("update"),
     QT_TRANSLATE_NOOP("CliText", "update [--check] [--catalogue [--base-url URL]]  install new redemption values from the Treasury"), run});

} // namespace
