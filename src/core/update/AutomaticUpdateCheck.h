// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// When the program looks for new redemption values by itself: at most once a day, only when the
// user has not turned it off, and only while some series lacks official values for the current
// month (values the program derived do not count: they stand in for the Treasury's).
#include <QDateTime>
#include <QString>

namespace AutomaticUpdateCheck {
inline constexpr const char *EnabledSettingsKey = "checkForUpdatesAutomatically";
inline constexpr const char *LastCheckSettingsKey = "lastUpdateCheck";
inline constexpr qint64 IntervalSeconds = 24 * 60 * 60;

bool isEnabled(); // on unless turned off
void setEnabled(bool enabled);

// Enabled, and no check noted in the last 24 hours (nor one noted in the future: a clock set back).
bool isTimeForCheck(const QDateTime &now);
void noteCheck(const QDateTime &now);

// Whether the database at the path lacks official values of the month `now` falls in for some
// series. Reads the database; meant for a worker thread. False when it cannot be read.
bool lacksCurrentValues(const QString &databasePath, const QDateTime &now);
}
