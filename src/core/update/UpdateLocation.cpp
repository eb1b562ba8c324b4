// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateLocation.h"

#include "base/UserDefaults.h"

namespace UpdateLocation {

namespace {

// The first usable address of: the environment variable, the setting, the compiled-in default.
QUrl firstUsable(const char *variable, const char *settingsKey, const char *fallback, QUrl (*normalise)(const QString &))
{
    const QByteArray environment = qgetenv(variable);
    const QString configured = UserDefaults::settings().value(QString::fromLatin1(settingsKey)).toString();
    for (const QString &text : {QString::fromLocal8Bit(environment), configured}) {
        if (text.isEmpty())
            continue;
        if (const QUrl url = normalise(text); url.isValid())
            return url;
    }
    return QUrl(QString::fromLatin1(fallback));
}

} // namespace

QUrl normalisedBaseUrl(const QString &text)
{
    QUrl url(text.trimmed(), QUrl::StrictMode);
    if (!url.isValid() || url.isRelative())
        return {};
    // Without the slash the last path segment would be replaced rather than descended into.
    if (!url.path().endsWith(QLatin1Char('/')))
        url.setPath(url.path() + QLatin1Char('/'));
    return url;
}

QUrl baseUrl()
{
    return firstUsable(BaseUrlEnvironmentVariable, BaseUrlSettingsKey, DefaultBaseUrl, normalisedBaseUrl);
}

Source source()
{
    const QString value = UserDefaults::settings().value(QString::fromLatin1(SourceSettingsKey)).toString();
    return value == QLatin1String("catalogue") ? Source::Catalogue : Source::FiscalData;
}

void setSource(Source source)
{
    UserDefaults::settings().setValue(QString::fromLatin1(SourceSettingsKey),
                                      source == Source::Catalogue ? QStringLiteral("catalogue")
                                                                  : QStringLiteral("fiscalData"));
}

QUrl normalisedServiceRoot(const QString &text)
{
    QUrl url(text.trimmed(), QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || url.isRelative() || (scheme != QLatin1String("http") && scheme != QLatin1String("https")))
        return {};
    return url;
}

QUrl fiscalDataRoot()
{
    return firstUsable(FiscalDataRootEnvironmentVariable, FiscalDataRootSettingsKey, DefaultFiscalDataRoot,
                       normalisedServiceRoot);
}

QUrl catalogueUrl(const QUrl &base)
{
    return base.resolved(QUrl(QString::fromLatin1(CatalogueName)));
}

QUrl fileUrl(const QUrl &base, const QString &entry)
{
    return base.resolved(QUrl(entry));
}

} // namespace UpdateLocation
