// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QCoreApplication>
#include <QMetaObject>

RedemptionDateRangeNotifier *RedemptionDateRangeNotifier::instance()
{
    static RedemptionDateRangeNotifier *notifier = [] {
        auto *n = new RedemptionDateRangeNotifier;
        if (QCoreApplication::instance())
            n->moveToThread(QCoreApplication::instance()->thread());
        return n;
    }();
    return notifier;
}

void RedemptionDateRangeNotifier::post(const QObject *sender, const QDateTime &minimum,
                                       const QDateTime &maximum)
{
    QVariantMap userInfo;
    userInfo.insert(QString::fromLatin1(QBMinimumRedemptionDateKey), minimum);
    userInfo.insert(QString::fromLatin1(QBMaximumRedemptionDateKey), maximum);
    QMetaObject::invokeMethod(
        this, [this, sender, userInfo] { emit redemptionDateRangeDidChange(sender, userInfo); },
        Qt::QueuedConnection);
}
