// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading keyed archives. Every file is treated as hostile: sizes and nesting are bounded before
// the property list is parsed, every reference is checked, and objects are decoded at most once,
// so shared objects come back shared and a file that contains itself is refused.
#include "document/KeyedArchive.h"
#include "document/KeyedArchiveFormat.h"
#include "document/KeyedArchiveLimits.h"
#include "base/PlistReader.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>
#include <QCoreApplication>

namespace {

using namespace KeyedArchiveFormat;
using Type = PlistValue::Type;

bool isString(const PlistValue *value, const char *expected)
{
    return value && value->is(Type::String) && value->text() == QLatin1StringView(expected);
}

// A reference: a UID in the binary form, a one-entry {"CF$UID": n} dictionary in the XML form.
bool readUid(const PlistValue *value, quint64 *uid)
{
    if (!value)
        return false;
    if (value->is(Type::Uid)) {
        *uid = value->toInteger();
        return true;
    }
    if (!value->is(Type::Dictionary) || value->entries().size() != 1)
        return false;
    const PlistValue *number = value->value(QLatin1StringView(XmlUidKey));
    if (!number || !number->is(Type::Integer))
        return false;
    *uid = number->toInteger();
    return true;
}

// Furthest date accepted: Foundation's own distant past and future lie within about 2000 years.
constexpr double MaximumSecondsFromReferenceDate = 1.0e11;

QString notAPortfolio()
{
    return QCoreApplication::translate("KeyedArchiveDecoder", "The file is not a Quillmere portfolio.");
}

QString damaged(const QString &detail)
{
    return QCoreApplication::translate("KeyedArchiveDecoder", "The portfolio file is damaged: %1.").arg(detail);
}

struct ClassDescription
{
    QString name;
    QStringList hierarchy;
};

class ArchiveDecoder
{
public:
    KeyedArchive::DecodeResult decode(const QByteArray &data)
    {
        KeyedArchive::DecodeResult result;
        PlistValue archive;
        if (parse(data, &archive) && readArchive(archive, &result.root)) {
            result.ok = true;
        } else {
            result.root = std::monostate();
            result.error = m_error;
        }
        return result;
    }

private:
    enum : quint8 { Unvisited, InProgress, Decoded };

    bool fail(const QString &message)
    {
        if (m_error.isEmpty())
            m_error = message;
        return false;
    }

    bool parse(const QByteArray &data, PlistValue *archive)
    {
        if (data.size() > KeyedArchiveLimits::MaximumBytes)
            return fail(QCoreApplication::translate("KeyedArchiveDecoder", "The file is too large to be a Quillmere portfolio."));
        PlistReader::Result read = PlistReader::read(
            data, {KeyedArchiveLimits::MaximumDepth, KeyedArchiveLimits::MaximumPlistNodes});
        switch (read.outcome) {
        case PlistReader::Result::Outcome::Read:
            *archive = std::move(read.root);
            return true;
        case PlistReader::Result::Outcome::NotAPropertyList:
            return fail(notAPortfolio());
        case PlistReader::Result::Outcome::Refused:
            return fail(damaged(read.problem));
        case PlistReader::Result::Outcome::Unreadable:
            break;
        }
        return fail(read.format == PlistReader::Format::Binary
                        ? damaged(QCoreApplication::translate("KeyedArchiveDecoder", "it cannot be read as a property list"))
                        : notAPortfolio());
    }

    bool readArchive(const PlistValue &archive, ArchiveRef *root)
    {
        if (!archive.is(Type::Dictionary) || !isString(archive.value(QLatin1StringView(ArchiverKey)), ArchiverName))
            return fail(notAPortfolio());
        const PlistValue *version = archive.value(QLatin1StringView(VersionKey));
        const quint64 versionNumber = version && version->is(Type::Integer) ? version->toInteger() : 0;
        if (versionNumber != ArchiverVersion)
            return fail(QCoreApplication::translate("KeyedArchiveDecoder", "The file is not a Quillmere portfolio: its archive version is not %1.")
                            .arg(ArchiverVersion));
        const PlistValue *objects = archive.value(QLatin1StringView(ObjectsKey));
        if (!objects || !objects->is(Type::Array) || objects->items().empty())
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "it has no object table")));
        m_objects = &objects->items();
        m_count = m_objects->size();
        if (m_count > quint64(KeyedArchiveLimits::MaximumObjects))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "it holds more than %1 objects").arg(KeyedArchiveLimits::MaximumObjects)));
        if (!isString(&m_objects->front(), NullObject))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "its object table does not begin with \"$null\"")));
        const PlistValue *top = archive.value(QLatin1StringView(TopKey));
        quint64 rootUid = 0;
        if (!top || !top->is(Type::Dictionary) || !readUid(top->value(QLatin1StringView(RootKey)), &rootUid))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "it has no root object")));
        m_state.assign(m_count, Unvisited);
        m_decoded.assign(m_count, ArchiveRef());
        return decodeReference(rootUid, 1, root);
    }

    bool decodeReference(quint64 uid, int depth, ArchiveRef *out)
    {
        if (uid >= m_count)
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "a reference points to object %1, but there are only %2 objects")
                                    .arg(uid)
                                    .arg(m_count)));
        if (m_state[uid] == Decoded) {
            *out = m_decoded[uid];
            return true;
        }
        if (m_state[uid] == InProgress)
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "object %1 contains itself").arg(uid)));
        if (depth > KeyedArchiveLimits::MaximumDepth)
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "its objects are nested more than %1 levels deep")
                                    .arg(KeyedArchiveLimits::MaximumDepth)));
        if (uid == 0) {
            *out = std::monostate();
            return true;
        }
        m_state[uid] = InProgress;
        if (!decodeObject(uid, depth, out))
            return false;
        m_state[uid] = Decoded;
        m_decoded[uid] = *out;
        return true;
    }

    bool decodeObject(quint64 uid, int depth, ArchiveRef *out)
    {
        const PlistValue &node = (*m_objects)[uid];
        if (node.is(Type::String))
            return decodeText(uid, node, out);
        if (node.is(Type::Data)) {
            *out = ArchiveData{node.bytes()};
            return true;
        }
        const ClassDescription *description = node.is(Type::Dictionary) ? classOf(uid, node) : nullptr;
        if (!description)
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "object %1 is not an object of a known kind").arg(uid)));
        const QString &name = description->name;
        // Subclasses too: a calendar date (NSCalendarDate) is an NSDate with a time zone and a
        // format besides, and only its instant matters here.
        if (description->hierarchy.contains(DateClass))
            return decodeDate(uid, node, out);
        if (name == ArrayClass || name == MutableArrayClass)
            return decodeArray(uid, node, name, depth, out);
        if (name == DictionaryClass || name == MutableDictionaryClass)
            return decodeDictionary(uid, node, name, depth, out);
        if (name == StringClass || name == MutableStringClass) {
            const PlistValue *text = node.value(QLatin1StringView(StringKey));
            if (!text || !text->is(Type::String))
                return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the text object %1 has no text").arg(uid)));
            return decodeText(uid, *text, out);
        }
        return decodeProgramObject(uid, node, *description, depth, out);
    }

    // Null characters are refused here because the writer refuses them: what opens can be saved.
    bool decodeText(quint64 uid, const PlistValue &node, ArchiveRef *out)
    {
        QString text = node.text();
        if (text.contains(QChar(0)))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the text object %1 contains a null character").arg(uid)));
        *out = std::move(text);
        return true;
    }

    // The class dictionary an object names under "$class", read once per class.
    const ClassDescription *classOf(quint64 uid, const PlistValue &node)
    {
        quint64 classUid = 0;
        if (!readUid(node.value(QLatin1StringView(ClassKey)), &classUid) || classUid == 0 || classUid >= m_count
            || classUid == uid)
            return nullptr;
        if (const auto known = m_classes.find(classUid); known != m_classes.end())
            return &known->second;
        const PlistValue &description = (*m_objects)[classUid];
        const PlistValue *name =
            description.is(Type::Dictionary) ? description.value(QLatin1StringView(ClassNameKey)) : nullptr;
        if (!name || !name->is(Type::String) || name->text().isEmpty())
            return nullptr;
        ClassDescription result{name->text(), {}};
        if (const PlistValue *classes = description.value(QLatin1StringView(ClassesKey))) {
            if (!classes->is(Type::Array))
                return nullptr;
            for (const PlistValue &entry : classes->items()) {
                if (!entry.is(Type::String))
                    return nullptr;
                result.hierarchy.append(entry.text());
            }
        } else {
            result.hierarchy = {result.name};
        }
        // Such a name could not be written back: the copy would name no class at all.
        if (result.name.contains(QChar(0))
            || std::any_of(result.hierarchy.cbegin(), result.hierarchy.cend(), [](const QString &n) { return n.contains(QChar(0)); })) {
            fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the class of object %1 has a name with a null character").arg(uid)));
            return nullptr;
        }
        return &m_classes.emplace(classUid, std::move(result)).first->second;
    }

    bool decodeDate(quint64 uid, const PlistValue &node, ArchiveRef *out)
    {
        const PlistValue *time = node.value(QLatin1StringView(TimeKey));
        double seconds = std::nan("");
        if (time && time->is(Type::Real))
            seconds = time->toReal();
        else if (time && time->is(Type::Integer))
            seconds = double(qint64(time->toInteger()));
        if (!std::isfinite(seconds) || std::fabs(seconds) > MaximumSecondsFromReferenceDate)
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the date object %1 has no valid time").arg(uid)));
        const qint64 msecs = qRound64(seconds * 1000.0) + ReferenceDateMSecsSinceEpoch;
        // In UTC: a local time would ask the C library, which re-reads the zone file each time; the
        // reader of the graph converts what it keeps.
        *out = ArchiveDate{QDateTime::fromMSecsSinceEpoch(msecs, Qt::UTC)};
        return true;
    }

    // The references of an "NS.objects" or "NS.keys" list.
    bool readReferenceList(quint64 uid, const PlistValue &node, const char *key, QList<quint64> *uids)
    {
        const PlistValue *list = node.value(QLatin1StringView(key));
        if (!list || !list->is(Type::Array))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "object %1 has no \"%2\" list").arg(uid).arg(QLatin1String(key))));
        uids->reserve(qsizetype(list->items().size()));
        for (const PlistValue &entry : list->items()) {
            quint64 item = 0;
            if (!readUid(&entry, &item))
                return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the \"%2\" list of object %1 holds something other than "
                                                   "references").arg(uid).arg(QLatin1String(key))));
            uids->append(item);
        }
        return true;
    }

    bool decodeArray(quint64 uid, const PlistValue &node, const QString &className, int depth, ArchiveRef *out)
    {
        QList<quint64> uids;
        if (!readReferenceList(uid, node, ObjectsListKey, &uids))
            return false;
        auto array = std::make_shared<ArchiveArray>();
        array->className = className;
        array->items.reserve(uids.size());
        for (quint64 item : uids) {
            ArchiveRef value;
            if (!decodeReference(item, depth + 1, &value))
                return false;
            array->items.append(std::move(value));
        }
        *out = std::move(array);
        return true;
    }

    bool decodeDictionary(quint64 uid, const PlistValue &node, const QString &className, int depth, ArchiveRef *out)
    {
        QList<quint64> keys, values;
        if (!readReferenceList(uid, node, KeysListKey, &keys) || !readReferenceList(uid, node, ObjectsListKey, &values))
            return false;
        if (keys.size() != values.size())
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the dictionary object %1 has %2 keys but %3 values")
                                    .arg(uid)
                                    .arg(keys.size())
                                    .arg(values.size())));
        auto dictionary = std::make_shared<ArchiveDictionary>();
        dictionary->className = className;
        QSet<QString> seen;
        for (qsizetype i = 0; i < keys.size(); ++i) {
            ArchiveRef key, value;
            if (!decodeReference(keys[i], depth + 1, &key))
                return false;
            const QString *name = std::get_if<QString>(&key);
            if (!name)
                return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the dictionary object %1 has a key that is not a text").arg(uid)));
            if (seen.contains(*name))
                return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the dictionary object %1 has the key \"%2\" twice").arg(uid).arg(*name)));
            seen.insert(*name);
            if (!decodeReference(values[i], depth + 1, &value))
                return false;
            dictionary->entries.append({*name, std::move(value)});
        }
        *out = std::move(dictionary);
        return true;
    }

    bool decodeProgramObject(quint64 uid, const PlistValue &node, const ClassDescription &description, int depth,
                             ArchiveRef *out)
    {
        if (node.entries().size() > size_t(KeyedArchiveLimits::MaximumKeysPerObject))
            return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "object %1 has more than %2 entries")
                                    .arg(uid)
                                    .arg(KeyedArchiveLimits::MaximumKeysPerObject)));
        auto object = std::make_shared<ArchiveObject>();
        object->className = description.name;
        object->classHierarchy = description.hierarchy;
        for (const auto &[key, value] : node.entries()) {
            if (key.startsWith(QLatin1Char('$')) && !key.startsWith(QLatin1String("$$")))
                continue; // the archiver's own entries, such as "$class"
            const QString name = key.startsWith(QLatin1Char('$')) ? key.mid(1) : key;
            quint64 reference = 0;
            if (readUid(&value, &reference)) {
                ArchiveRef target;
                if (!decodeReference(reference, depth + 1, &target))
                    return false;
                object->set(name, std::move(target));
            } else if (value.is(Type::Integer)) {
                object->set(name, qint64(value.toInteger()));
            } else if (value.is(Type::Boolean)) {
                object->set(name, value.toBool());
            } else if (value.is(Type::Real)) {
                object->set(name, value.toReal());
            } else if (value.is(Type::Data)) {
                object->set(name, ArchiveRef(ArchiveData{value.bytes()}));
            } else {
                return fail(damaged(QCoreApplication::translate("KeyedArchiveDecoder", "the value of \"%2\" in object %1 is of an unsupported kind")
                                        .arg(uid)
                                        .arg(name)));
            }
        }
        *out = std::move(object);
        return true;
    }

    const std::vector<PlistValue> *m_objects = nullptr;
    quint64 m_count = 0;
    std::vector<quint8> m_state;
    std::vector<ArchiveRef> m_decoded;
    // Node-based, so a description stays put while further classes are read.
    std::unordered_map<quint64, ClassDescription> m_classes;
    QString m_error;
};

} // namespace

KeyedArchive::DecodeResult KeyedArchive::decode(const QByteArray &data)
{
    return ArchiveDecoder().decode(data);
}
