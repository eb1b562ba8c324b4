// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Fetches one whole resource over HTTP or HTTPS, blocking the calling thread. Meant for the
// updater's worker thread: the network manager and its event loop live only for the call.
//
// A careful fetch rather than a trusting one: a time-out when the server falls silent, a cap on
// the size, only http and https, a bounded number of redirects (never from https down to http),
// and anything but status 200 counts as no data.
#include <QByteArray>
#include <QString>
#include <QUrl>
#include <optional>

class PriceDataDownloader
{
public:
    struct Limits
    {
        int idleTimeoutMs = 30000;          // no byte for this long: give up
        int totalTimeoutMs = 10 * 60 * 1000; // a trickle never holds the update for ever
        qint64 maximumBytes = 64LL * 1024 * 1024;
        int maximumRedirects = 5;
    };

    PriceDataDownloader();
    explicit PriceDataDownloader(Limits limits);

    // The resource's bytes (possibly empty), or nothing when it could not be fetched.
    std::optional<QByteArray> fetch(const QUrl &url);

    // Why the last fetch gave nothing.
    QString lastError() const { return m_lastError; }
    // Whether the last fetch gave up because the reply outgrew the size limit.
    bool lastWasTooLarge() const { return m_tooLarge; }
    // The HTTP status of the last reply (0 when none came).
    int lastStatus() const { return m_lastStatus; }

    static bool isSupportedScheme(const QUrl &url);

private:
    Limits m_limits;
    QString m_lastError;
    int m_lastStatus = 0;
    bool m_tooLarge = false;
};
