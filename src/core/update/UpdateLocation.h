#pragma once
// Where price updates come from: a web directory holding the catalogue and the price data files
// it lists. Every location is resolved against the base with the ordinary relative-URL rules.
#include <QString>
#include <QUrl>

namespace UpdateLocation {
// The maker's own update directory, compiled in.
inline constexpr const char *DefaultBaseUrl = "https://updates.quillmere.org/bonddata/";
// Overrides, strongest first: the environment, then the user's settings.
inline constexpr const char *BaseUrlEnvironmentVariable = "QUILLMERE_UPDATE_URL";
inline constexpr const char *BaseUrlSettingsKey = "updateBaseURL";
inline constexpr const char *CatalogueName = "AvailableBondData.plist";

// The base in force, always ending in "/" so that relative names land inside the directory.
QUrl baseUrl();
// A base given by hand (command line, settings), normalised the same way; invalid when unusable.
QUrl normalisedBaseUrl(const QString &text);

QUrl catalogueUrl(const QUrl &base);
// A catalogue entry relative to the base; an absolute URL stands for itself.
QUrl fileUrl(const QUrl &base, const QString &entry);
}
