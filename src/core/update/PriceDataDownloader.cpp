// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/PriceDataDownloader.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <memory>
#include <QCoreApplication>

PriceDataDownloader::PriceDataDownloader() = default;

PriceDataDownloader::PriceDataDownloader(Limits limits)
    : m_limits(limits)
{
}

bool PriceDataDownloader::isSupportedScheme(const QUrl &url)
{
    const QString scheme = url.scheme().toLower();
    return scheme == QLatin1String("http") || scheme == QLatin1String("https");
}

std::optional<QByteArray> PriceDataDownloader::fetch(const QUrl &url)
{
    m_lastError.clear();
    m_lastStatus = 0;
    m_tooLarge = false;
    if (!url.isValid() || !isSupportedScheme(url)) {
        m_lastError = QCoreApplication::translate("PriceDataDownloader", "unsupported address %1").arg(url.toString());
        return std::nullopt;
    }

    QNetworkAccessManager manager;
    // A proxy never helps to reach this machine itself (and would break local test servers).
    const QHostAddress host(url.host());
    if (url.host() == QLatin1String("localhost") || (!host.isNull() && host.isLoopback()))
        manager.setProxy(QNetworkProxy::NoProxy);

    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(m_limits.maximumRedirects);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setTransferTimeout(m_limits.idleTimeoutMs);

    std::unique_ptr<QNetworkReply> reply(manager.get(request));
    QByteArray body;
    QString failure;
    QEventLoop loop;

    auto tooLarge = [this] {
        m_tooLarge = true;
        return QCoreApplication::translate("PriceDataDownloader", "the reply is larger than %1 bytes").arg(m_limits.maximumBytes);
    };
    auto abortWith = [&](const QString &why) {
        if (failure.isEmpty())
            failure = why;
        reply->abort();
    };
    QObject::connect(reply.get(), &QNetworkReply::redirected, &loop, [&](const QUrl &target) {
        if (!isSupportedScheme(target))
            abortWith(QCoreApplication::translate("PriceDataDownloader", "redirected to unsupported address %1").arg(target.toString()));
    });
    QObject::connect(reply.get(), &QNetworkReply::metaDataChanged, &loop, [&] {
        const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
        if (length.isValid() && length.toLongLong() > m_limits.maximumBytes)
            abortWith(tooLarge());
    });
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
        body += reply->readAll();
        if (body.size() > m_limits.maximumBytes)
            abortWith(tooLarge());
    });
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, &loop,
                     [&] { abortWith(QCoreApplication::translate("PriceDataDownloader", "the time allowed for the download ran out")); });
    deadline.start(m_limits.totalTimeoutMs);

    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    deadline.stop();

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_lastStatus = status;
    // An HTTP error says more by its status than by Qt's transfer error, which repeats the URL.
    if (failure.isEmpty() && status >= 400)
        failure = QCoreApplication::translate("PriceDataDownloader", "the server answered with status %1").arg(status);
    // Qt cancels a transfer that fell silent for the idle time.
    if (failure.isEmpty() && reply->error() == QNetworkReply::OperationCanceledError)
        failure = QCoreApplication::translate("PriceDataDownloader", "the server fell silent for %1 seconds").arg(m_limits.idleTimeoutMs / 1000.0);
    if (failure.isEmpty() && reply->error() != QNetworkReply::NoError)
        failure = reply->errorString();
    if (failure.isEmpty() && status != 200)
        failure = QCoreApplication::translate("PriceDataDownloader", "the server answered with status %1").arg(status);
    if (failure.isEmpty() && !isSupportedScheme(reply->url()))
        failure = QCoreApplication::translate("PriceDataDownloader", "redirected to unsupported address %1").arg(reply->url().toString());
    if (!failure.isEmpty()) {
        m_lastError = failure;
        return std::nullopt;
    }
    body += reply->readAll();
    if (body.size() > m_limits.maximumBytes) {
        m_lastError = tooLarge();
        return std::nullopt;
    }
    return body;
}
