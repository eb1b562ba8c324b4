// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing keyed archives: the object graph is flattened into "$objects", every reference
// becomes a UID, and each class is described once by a class dictionary.
#include "base/BinaryPlistWriter.h"
#include "document/KeyedArchive.h"
#include "document/KeyedArchiveFormat.h"
#include "document/KeyedArchiveLimits.h"

#include <QHash>
#include <QSet>

#include <vector>
#include <QCoreApplication>

namespace {

using namespace KeyedArchiveFormat;

class ArchiveEncoder
{
public:
    QByteArray encode(const ArchiveRef &root, QString *error)
    {
        m_objects.push_back(PlistValue::string(QString::fromLatin1(NullObject)));
        quint64 rootUid = 0;
        if (!encodeReference(root, 1, &rootUid)) {
            if (error)
                *error = m_error;
            return {};
        }
        PlistValue::Entries top;
        top.emplace_back(QString::fromLatin1(RootKey), PlistValue::uid(rootUid));
        PlistValue::Entries archive;
        archive.emplace_back(QString::fromLatin1(VersionKey), PlistValue::integer(ArchiverVersion));
        archive.emplace_back(QString::fromLatin1(ArchiverKey), PlistValue::string(QString::fromLatin1(ArchiverName)));
        archive.emplace_back(QString::fromLatin1(TopKey), PlistValue::dictionary(std::move(top)));
        archive.emplace_back(QString::fromLatin1(ObjectsKey), PlistValue::array(std::move(m_objects)));

        const QByteArray result = BinaryPlistWriter::write(PlistValue::dictionary(std::move(archive)));
        if (result.isEmpty()) {
            if (error)
                *error = QCoreApplication::translate("KeyedArchiveEncoder", "The archive could not be converted to a property list.");
            return {};
        }
        if (result.size() > KeyedArchiveLimits::MaximumBytes) {
            if (error)
                *error = tooLarge();
            return {};
        }
        if (error)
            error->clear();
        return result;
    }

private:
    static QString tooLarge()
    {
        return QCoreApplication::translate("KeyedArchiveEncoder", "The data is too large to be saved in one file.");
    }

    // Counts the property-list nodes written, so that nothing is saved that the reader's limits
    // would refuse.
    bool addNodes(qint64 count)
    {
        m_nodes += count;
        return m_nodes <= KeyedArchiveLimits::MaximumPlistNodes || fail(tooLarge());
    }

    bool fail(const QString &message)
    {
        if (m_error.isEmpty())
            m_error = message;
        return false;
    }

    // Slots are taken before an object's contents are written, so that a parent precedes its
    // children in "$objects" as in the archives Foundation writes.
    quint64 reserveSlot()
    {
        m_objects.emplace_back();
        return quint64(m_objects.size() - 1);
    }

    bool encodeReference(const ArchiveRef &ref, int depth, quint64 *uid)
    {
        if (depth > KeyedArchiveLimits::MaximumDepth)
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "The data is nested more than %1 levels deep and cannot be saved.")
                            .arg(KeyedArchiveLimits::MaximumDepth));
        if (std::holds_alternative<std::monostate>(ref)) {
            *uid = 0;
            return true;
        }
        if (const auto *text = std::get_if<QString>(&ref))
            return encodeString(*text, uid);
        if (const auto *date = std::get_if<ArchiveDate>(&ref))
            return encodeDate(*date, uid);
        if (const auto *data = std::get_if<ArchiveData>(&ref))
            return encodeData(*data, uid);
        if (const auto *object = std::get_if<std::shared_ptr<ArchiveObject>>(&ref))
            return encodeShared(object->get(), depth, uid);
        if (const auto *array = std::get_if<std::shared_ptr<ArchiveArray>>(&ref))
            return encodeShared(array->get(), depth, uid);
        const auto &dictionary = std::get<std::shared_ptr<ArchiveDictionary>>(ref);
        return encodeShared(dictionary.get(), depth, uid);
    }

    // One UID per pointer; reaching a pointer again while its contents are being written means
    // the graph contains itself, which the reader would refuse.
    template<typename Node>
    bool encodeShared(const Node *node, int depth, quint64 *uid)
    {
        if (!node) {
            *uid = 0;
            return true;
        }
        if (m_inProgress.contains(node))
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "The data refers back to itself and cannot be saved."));
        if (const auto known = m_uidByPointer.constFind(node); known != m_uidByPointer.constEnd()) {
            *uid = *known;
            return true;
        }
        if (qint64(m_objects.size()) >= KeyedArchiveLimits::MaximumObjects || !addNodes(1))
            return fail(tooLarge());
        m_inProgress.insert(node);
        const quint64 slot = reserveSlot();
        PlistValue content;
        const bool written = encodeContent(*node, depth, &content);
        m_inProgress.remove(node);
        if (!written)
            return false;
        m_objects[slot] = std::move(content);
        m_uidByPointer.insert(node, slot);
        *uid = slot;
        return true;
    }

    bool encodeString(const QString &text, quint64 *uid)
    {
        if (const auto known = m_uidByString.constFind(QStringView(text)); known != m_uidByString.constEnd()) {
            *uid = *known;
            return true;
        }
        if (text.contains(QChar(0)))
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "A text contains a null character and cannot be saved."));
        if (qint64(m_objects.size()) >= KeyedArchiveLimits::MaximumObjects || !addNodes(1))
            return fail(tooLarge());
        *uid = reserveSlot();
        m_objects[*uid] = PlistValue::string(text);
        m_uidByString.insert(QStringView(text), *uid);
        return true;
    }

    bool encodeDate(const ArchiveDate &date, quint64 *uid)
    {
        if (!date.instant.isValid())
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An invalid date cannot be saved."));
        if (qint64(m_objects.size()) >= KeyedArchiveLimits::MaximumObjects || !addNodes(5))
            return fail(tooLarge());
        const quint64 slot = reserveSlot();
        PlistValue::Entries dictionary;
        const double seconds = double(msecsSinceEpoch(date.instant) - ReferenceDateMSecsSinceEpoch) / 1000.0;
        dictionary.emplace_back(QString::fromLatin1(TimeKey), PlistValue::real(seconds));
        quint64 classUid = 0;
        if (!encodeClass(DateClass, hierarchyOf(DateClass), &classUid))
            return false;
        dictionary.emplace_back(QString::fromLatin1(ClassKey), PlistValue::uid(classUid));
        m_objects[slot] = PlistValue::dictionary(std::move(dictionary));
        *uid = slot;
        return true;
    }

    // A local time's instant asks the C library, which re-reads the zone file each time; holdings
    // share few issue dates, so each is converted once.
    qint64 msecsSinceEpoch(const QDateTime &instant)
    {
        if (instant.timeSpec() != Qt::LocalTime)
            return instant.toMSecsSinceEpoch();
        const auto key = std::make_pair(instant.date().toJulianDay(), instant.time().msecsSinceStartOfDay());
        if (const auto found = m_localInstants.constFind(key); found != m_localInstants.cend())
            return *found;
        return *m_localInstants.insert(key, instant.toMSecsSinceEpoch());
    }

    // An NSData is archived as the bytes themselves, in a slot of its own.
    bool encodeData(const ArchiveData &data, quint64 *uid)
    {
        if (qint64(m_objects.size()) >= KeyedArchiveLimits::MaximumObjects || !addNodes(1))
            return fail(tooLarge());
        *uid = reserveSlot();
        m_objects[*uid] = PlistValue::data(data.bytes);
        return true;
    }

    bool encodeContent(const ArchiveObject &object, int depth, PlistValue *content)
    {
        if (object.className.isEmpty())
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An object without a class name cannot be saved."));
        if (isFoundationClass(object.className))
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An object of class %1 must be saved as a date, string, array or "
                                       "dictionary.").arg(object.className));
        if (object.fields.size() + 1 > KeyedArchiveLimits::MaximumKeysPerObject)
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An object of class %1 has more than %2 keys and cannot be saved.")
                            .arg(object.className)
                            .arg(KeyedArchiveLimits::MaximumKeysPerObject - 1));
        if (!addNodes(2 * object.fields.size()))
            return false;
        PlistValue::Entries dictionary;
        dictionary.reserve(size_t(object.fields.size()) + 1);
        for (const auto &[key, field] : object.fields) {
            if (key.isEmpty() || key.contains(QChar(0)))
                return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An object of class %1 has an unusable key.").arg(object.className));
            PlistValue value;
            if (!encodeField(field, depth, &value))
                return false;
            dictionary.emplace_back(escapeKey(key), std::move(value));
        }
        QStringList hierarchy = object.classHierarchy;
        if (hierarchy.isEmpty())
            hierarchy = {object.className, QStringLiteral("NSObject")};
        return finishWithClass(object.className, hierarchy, std::move(dictionary), content);
    }

    bool encodeContent(const ArchiveArray &array, int depth, PlistValue *content)
    {
        if (array.className != MutableArrayClass && array.className != ArrayClass)
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "An array of class %1 cannot be saved.").arg(array.className));
        PlistValue items;
        if (!addNodes(2) || !encodeReferenceList(array.items, depth, &items))
            return false;
        PlistValue::Entries dictionary;
        dictionary.emplace_back(QString::fromLatin1(ObjectsListKey), std::move(items));
        return finishWithClass(array.className, hierarchyOf(array.className), std::move(dictionary), content);
    }

    bool encodeContent(const ArchiveDictionary &dictionaryValue, int depth, PlistValue *content)
    {
        const QString &className = dictionaryValue.className;
        if (className != MutableDictionaryClass && className != DictionaryClass)
            return fail(QCoreApplication::translate("KeyedArchiveEncoder", "A dictionary of class %1 cannot be saved.").arg(className));
        QList<ArchiveRef> keys, values;
        QSet<QString> seen;
        for (const auto &[key, value] : dictionaryValue.entries) {
            if (seen.contains(key))
                return fail(QCoreApplication::translate("KeyedArchiveEncoder", "A dictionary has the key \"%1\" twice and cannot be saved.").arg(key));
            seen.insert(key);
            keys.append(key);
            values.append(value);
        }
        PlistValue keyList, valueList;
        if (!addNodes(4) || !encodeReferenceList(keys, depth, &keyList) || !encodeReferenceList(values, depth, &valueList))
            return false;
        PlistValue::Entries dictionary;
        dictionary.emplace_back(QString::fromLatin1(KeysListKey), std::move(keyList));
        dictionary.emplace_back(QString::fromLatin1(ObjectsListKey), std::move(valueList));
        return finishWithClass(className, hierarchyOf(className), std::move(dictionary), content);
    }

    bool encodeReferenceList(const QList<ArchiveRef> &references, int depth, PlistValue *list)
    {
        if (!addNodes(references.size()))
            return false;
        std::vector<PlistValue> uids;
        uids.reserve(size_t(references.size()));
        for (const ArchiveRef &reference : references) {
            quint64 uid = 0;
            if (!encodeReference(reference, depth + 1, &uid))
                return false;
            uids.push_back(PlistValue::uid(uid));
        }
        *list = PlistValue::array(std::move(uids));
        return true;
    }

    bool encodeField(const ArchiveField &field, int depth, PlistValue *value)
    {
        if (const auto *integer = std::get_if<qint64>(&field)) {
            // Values with the top bit set are written as eight-byte integers, which property lists
            // define as signed, so negative numbers survive.
            *value = PlistValue::integer(quint64(*integer));
        } else if (const auto *flag = std::get_if<bool>(&field)) {
            *value = PlistValue::boolean(*flag);
        } else if (const auto *real = std::get_if<double>(&field)) {
            *value = PlistValue::real(*real);
        } else {
            quint64 uid = 0;
            if (!encodeReference(std::get<ArchiveRef>(field), depth + 1, &uid))
                return false;
            *value = PlistValue::uid(uid);
        }
        return true;
    }

    bool finishWithClass(const QString &className, const QStringList &hierarchy, PlistValue::Entries dictionary,
                         PlistValue *content)
    {
        quint64 classUid = 0;
        if (!addNodes(2) || !encodeClass(className, hierarchy, &classUid))
            return false;
        dictionary.emplace_back(QString::fromLatin1(ClassKey), PlistValue::uid(classUid));
        *content = PlistValue::dictionary(std::move(dictionary));
        return true;
    }

    bool encodeClass(const QString &className, const QStringList &hierarchy, quint64 *uid)
    {
        if (const auto known = m_classes.constFind(className); known != m_classes.constEnd()) {
            if (known->second != hierarchy)
                return fail(QCoreApplication::translate("KeyedArchiveEncoder", "The class %1 is described in two different ways.").arg(className));
            *uid = known->first;
            return true;
        }
        if (!addNodes(5 + hierarchy.size()))
            return false;
        *uid = reserveSlot();
        std::vector<PlistValue> names;
        for (const QString &name : hierarchy)
            names.push_back(PlistValue::string(name));
        PlistValue::Entries description;
        description.emplace_back(QString::fromLatin1(ClassesKey), PlistValue::array(std::move(names)));
        description.emplace_back(QString::fromLatin1(ClassNameKey), PlistValue::string(className));
        m_objects[*uid] = PlistValue::dictionary(std::move(description));
        m_classes.insert(className, {*uid, hierarchy});
        return true;
    }

    std::vector<PlistValue> m_objects;
    QHash<const void *, quint64> m_uidByPointer;
    QSet<const void *> m_inProgress;
    // Views of the graph's strings (the graph outlives the encoder; lists made here share the
    // strings' data): freeing a copy of every string took a fifth of the time of a large save.
    QHash<QStringView, quint64> m_uidByString;
    QHash<std::pair<qint64, int>, qint64> m_localInstants;
    QHash<QString, std::pair<quint64, QStringList>> m_classes;
    qint64 m_nodes = 8; // the top-level dictionary and its entries
    QString m_error;
};

} // namespace

QByteArray KeyedArchive::encode(const ArchiveRef &root, QString *error)
{
    return ArchiveEncoder().encode(root, error);
}
