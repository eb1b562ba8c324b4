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
    const QByteArray environment = qgetenv(FiscalDataRootEnvironmentVariable);
    if (!environment.isEmpty()) {
        const QUrl url = normalisedServiceRoot(QString::fromLocal8Bit(environment));
        if (url.isValid())
            return url;
    }
    const QString configured = UserDefaults::settings().value(QString::fromLatin1(FiscalDataRootSettingsKey)).toString();
    if (!configured.isEmpty()) {
        const QUrl url = normalisedServiceRoot(configured);
        if (url.isValid())
            return url;
    }
    return QUrl(QString::fromLatin1(DefaultFiscalDataRoot));
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
