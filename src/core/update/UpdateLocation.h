// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where price updates come from: by default the Treasury's Fiscal Data service; or a web
// directory holding the catalogue and the price data files it lists, every location resolved
// against the base with the ordinary relative-URL rules.
#include <QString>
#include <QUrl>

namespace UpdateLocation {
// The maker's own update directory, compiled in.
inline constexpr const char *DefaultBaseUrl = "https://updates.quillmere.org/bonddata/";
// Overrides, strongest first: the environment, then the user's settings.
inline constexpr const char *BaseUrlEnvironmentVariable = "QUILLMERE_UPDATE_URL";
inline constexpr const char *BaseUrlSettingsKey = "updateBaseURL";
inline constexpr const char *CatalogueName = "AvailableBondData.plist";

enum class Source { FiscalData, Catalogue };
inline constexpr const char *SourceSettingsKey = "updateSource"; // "fiscalData" or "catalogue"
Source source();
void setSource(Source source);

// The Fiscal Data service root; the data set's path is appended to it.
inline constexpr const char *DefaultFiscalDataRoot = "https://api.fiscaldata.treasury.gov/services/api/fiscal_service";
inline constexpr const char *FiscalDataRootEnvironmentVariable = "QUILLMERE_FISCAL_DATA_URL";
inline constexpr const char *FiscalDataRootSettingsKey = "fiscalDataURL";
// The root in force: the environment, then the settings, then the Treasury's own.
QUrl fiscalDataRoot();
// A root given by hand; invalid unless an absolute http or https URL.
QUrl normalisedServiceRoot(const QString &text);

// The base in force, always ending in "/" so that relative names land inside the directory.
QUrl baseUrl();
// A base given by hand (command line, settings), normalised the same way; invalid when unusable.
QUrl normalisedBaseUrl(const QString &text);

QUrl catalogueUrl(const QUrl &base);
// A catalogue entry relative to the base; an absolute URL stands for itself.
QUrl fileUrl(const QUrl &base, const QString &entry);
}
