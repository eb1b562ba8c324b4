#include "update/UpdateLocation.h"

#include "model/UserDefaults.h"

namespace UpdateLocation {

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
    const QByteArray environment = qgetenv(BaseUrlEnvironmentVariable);
    if (!environment.isEmpty()) {
        const QUrl url = normalisedBaseUrl(QString::fromLocal8Bit(environment));
        if (url.isValid())
            return url;
    }
    const QString configured = UserDefaults::settings().value(QString::fromLatin1(BaseUrlSettingsKey)).toString();
    if (!configured.isEmpty()) {
        const QUrl url = normalisedBaseUrl(configured);
        if (url.isValid())
            return url;
    }
    return QUrl(QString::fromLatin1(DefaultBaseUrl));
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
