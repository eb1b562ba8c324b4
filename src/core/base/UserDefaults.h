// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The user's settings with registered fallbacks: a key the user never set answers its registered
// default, and a key the user did set always wins.
#include <QSettings>
#include <QString>
#include <QVariant>

namespace UserDefaults {
inline constexpr const char *Organization = "larchfield";
inline constexpr const char *Application = "Quillmere";

inline constexpr const char *DefaultBuysPaperKey = "defaultBuysPaper";
inline constexpr const char *DefaultBondSeriesKey = "defaultBondSeries";
inline constexpr const char *BondTableColumnSettingsKey = "BondTableColumnSettings";

// Settings stored under the program's organisation and application names.
QSettings settings();

void registerDefault(const QString &key, const QVariant &fallback);
// Values are read from the store once and kept; change them only through setValue() and remove().
QVariant value(const QString &key);
void setValue(const QString &key, const QVariant &value);
void remove(const QString &key);
}
