// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/UserDefaults.h"

#include <QHash>
#include <QMutex>
#include <optional>

namespace {
// Opening the settings store touches several files; new holdings ask for their defaults one by
// one (thousands when a portfolio opens), so what the store answered is kept. Writes go through
// setValue() and remove(), which keep the copy current.
struct Store
{
    QMutex lock;
    QHash<QString, QVariant> fallbacks;
    QHash<QString, std::optional<QVariant>> stored; // nullopt: the user never set the key
};

Store &store()
{
    static Store instance;
    return instance;
}
}

namespace UserDefaults {

QSettings settings()
{
    return QSettings(QString::fromLatin1(Organization), QString::fromLatin1(Application));
}

void registerDefault(const QString &key, const QVariant &fallback)
{
    QMutexLocker locker(&store().lock);
    store().fallbacks.insert(key, fallback);
}

QVariant value(const QString &key)
{
    Store &s = store();
    QMutexLocker locker(&s.lock);
    auto found = s.stored.find(key);
    if (found == s.stored.end()) {
        QSettings file = settings();
        found = s.stored.insert(key, file.contains(key) ? std::optional<QVariant>(file.value(key)) : std::nullopt);
    }
    return found->has_value() ? **found : s.fallbacks.value(key);
}

void setValue(const QString &key, const QVariant &value)
{
    QMutexLocker locker(&store().lock);
    settings().setValue(key, value);
    store().stored.insert(key, value);
}

void remove(const QString &key)
{
    QMutexLocker locker(&store().lock);
    settings().remove(key);
    store().stored.insert(key, std::nullopt);
}

} // namespace UserDefaults
