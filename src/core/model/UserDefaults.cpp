#include "model/UserDefaults.h"

#include <QHash>
#include <QMutex>

namespace {
QMutex registeredLock;
QHash<QString, QVariant> &registered()
{
    static QHash<QString, QVariant> fallbacks;
    return fallbacks;
}
}

namespace UserDefaults {

QSettings settings()
{
    return QSettings(QString::fromLatin1(Organization), QString::fromLatin1(Application));
}

void registerDefault(const QString &key, const QVariant &fallback)
{
    QMutexLocker locker(&registeredLock);
    registered().insert(key, fallback);
}

QVariant value(const QString &key)
{
    QSettings store = settings();
    if (store.contains(key))
        return store.value(key);
    QMutexLocker locker(&registeredLock);
    return registered().value(key);
}

void setValue(const QString &key, const QVariant &value)
{
    settings().setValue(key, value);
}

void remove(const QString &key)
{
    settings().remove(key);
}

} // namespace UserDefaults
