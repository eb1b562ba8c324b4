// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/AutomaticUpdateCheck.h"

#include "base/UserDefaults.h"
#include "update/fiscaldata/FiscalDataRequest.h"
#include "valuation/MonthIndex.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace AutomaticUpdateCheck {

bool isEnabled()
{
    return UserDefaults::settings().value(QString::fromLatin1(EnabledSettingsKey), true).toBool();
}

void setEnabled(bool enabled)
{
    UserDefaults::settings().setValue(QString::fromLatin1(EnabledSettingsKey), enabled);
}

bool isTimeForCheck(const QDateTime &now)
{
    if (!isEnabled())
        return false;
    const QDateTime last = UserDefaults::settings().value(QString::fromLatin1(LastCheckSettingsKey)).toDateTime();
    if (!last.isValid())
        return true;
    const qint64 since = last.secsTo(now);
    return since < 0 || since >= IntervalSeconds;
}

void noteCheck(const QDateTime &now)
{
    UserDefaults::settings().setValue(QString::fromLatin1(LastCheckSettingsKey), now.toUTC());
}

bool lacksCurrentValues(const QString &databasePath, const QDateTime &now)
{
    if (databasePath.isEmpty() || !QFileInfo(databasePath).isFile())
        return false;
    sqlite3 *db = nullptr;
    bool lacks = false;
    if (sqlite3_open_v2(databasePath.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_busy_timeout(db, 10000);
        QString error;
        const int current = MonthIndex::of(now.date());
        if (const auto requests = FiscalDataQuery::plan(db, &error)) {
            for (const FiscalDataRequest &request : *requests)
                lacks = lacks || (request.last == 0 && request.first <= current);
        }
    }
    sqlite3_close(db);
    return lacks;
}

} // namespace AutomaticUpdateCheck
