// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Process-wide announcement that the database's range of redemption months has changed.
// Emitted on the main thread; date pickers follow it.
#include <QDateTime>
#include <QObject>
#include <QVariantMap>

inline constexpr const char *QBRedemptionDateRangeDidChange = "QBRedemptionDateRangeDidChange";
inline constexpr const char *QBMinimumRedemptionDateKey = "QBMinimumRedemptionDateKey";
inline constexpr const char *QBMaximumRedemptionDateKey = "QBMaximumRedemptionDateKey";

class RedemptionDateRangeNotifier : public QObject
{
    Q_OBJECT
public:
    static RedemptionDateRangeNotifier *instance();

    // Safe from any thread: the signal is delivered on the notifier's (main) thread, never waiting.
    void post(const QObject *sender, const QDateTime &minimum, const QDateTime &maximum);

signals:
    // userInfo holds the two dates under QBMinimumRedemptionDateKey and QBMaximumRedemptionDateKey.
    void redemptionDateRangeDidChange(const QObject *sender, const QVariantMap &userInfo);

private:
    RedemptionDateRangeNotifier() = default;
};
