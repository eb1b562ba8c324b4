// Reading keyed archives. Every file is treated as hostile: sizes and nesting are bounded before
// the property list is parsed, every reference is checked, and objects are decoded at most once,
// so shared objects come back shared and a file that contains itself is refused.
#include "document/KeyedArchive.h"
#include "document/KeyedArchiveFormat.h"
#include "document/KeyedArchiveLimits.h"
#include "document/PlistInputGuard.h"
#include "document/PlistPtr.h"
#include "document/PlistReading.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <unordered_map>
#include <vector>

namespace {

using namespace KeyedArchiveFormat;
using namespace PlistReading;

// Furthest date accepted: Foundation's own distant past and future lie within about 2000 years.
constexpr double MaximumSecondsFromReferenceDate = 1.0e11;

QString notAPortfolio()
{
    return QStringLiteral("The file is not a Quillmere portfolio.");
}

QString damaged(const QString &detail)
{
    return QStringLiteral("The portfolio file is damaged: %1.").arg(detail);
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
        PlistPtr archive;
        if (parse(data, &archive) && readArchive(archive.get(), &result.root)) {
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

    bool parse(const QByteArray &data, PlistPtr *archive)
    {
        if (data.size() > KeyedArchiveLimits::MaximumBytes)
            return fail(QStringLiteral("The file is too large to be a Quillmere portfolio."));
        const PlistInputGuard::Format format = PlistInputGuard::detectFormat(data);
        if (format == PlistInputGuard::Format::Unknown)
            return fail(notAPortfolio());
        QString problem;
        const bool binary = format == PlistInputGuard::Format::Binary;
        const bool acceptable =
            binary ? PlistInputGuard::checkBinary(data, KeyedArchiveLimits::MaximumDepth,
                                                  KeyedArchiveLimits::MaximumPlistNodes, &problem)
                   : PlistInputGuard::checkXml(data, KeyedArchiveLimits::MaximumDepth,
                                               KeyedArchiveLimits::MaximumPlistNodes, &problem);
        if (!acceptable)
            return fail(damaged(problem));
        plist_t root = nullptr;
        if (binary)
            plist_from_bin(data.constData(), uint32_t(data.size()), &root);
        else
            plist_from_xml(data.constData(), uint32_t(data.size()), &root);
        archive->reset(root);
        if (!root)
            return fail(binary ? damaged(QStringLiteral("it cannot be read as a property list")) : notAPortfolio());
        return true;
    }

    bool readArchive(plist_t archive, ArchiveRef *root)
    {
        if (!PLIST_IS_DICT(archive) || !isString(plist_dict_get_item(archive, ArchiverKey), ArchiverName))
            return fail(notAPortfolio());
        plist_t version = plist_dict_get_item(archive, VersionKey);
        uint64_t versionNumber = 0;
        if (PLIST_IS_UINT(version))
            plist_get_uint_val(version, &versionNumber);
        if (versionNumber != ArchiverVersion)
            return fail(QStringLiteral("The file is not a Quillmere portfolio: its archive version is not %1.")
                            .arg(ArchiverVersion));
        m_objects = plist_dict_get_item(archive, ObjectsKey);
        if (!PLIST_IS_ARRAY(m_objects) || plist_array_get_size(m_objects) == 0)
            return fail(damaged(QStringLiteral("it has no object table")));
        m_count = plist_array_get_size(m_objects);
        if (m_count > quint64(KeyedArchiveLimits::MaximumObjects))
            return fail(damaged(QStringLiteral("it holds more than %1 objects").arg(KeyedArchiveLimits::MaximumObjects)));
        makeIndexable(m_objects);
        if (!isString(plist_array_get_item(m_objects, 0), NullObject))
            return fail(damaged(QStringLiteral("its object table does not begin with \"$null\"")));
        plist_t top = plist_dict_get_item(archive, TopKey);
        quint64 rootUid = 0;
        if (!PLIST_IS_DICT(top) || !readUid(plist_dict_get_item(top, RootKey), &rootUid))
            return fail(damaged(QStringLiteral("it has no root object")));
        m_state.assign(m_count, Unvisited);
        m_decoded.assign(m_count, ArchiveRef());
        return decodeReference(rootUid, 1, root);
    }

    bool decodeReference(quint64 uid, int depth, ArchiveRef *out)
    {
        if (uid >= m_count)
            return fail(damaged(QStringLiteral("a reference points to object %1, but there are only %2 objects")
                                    .arg(uid)
                                    .arg(m_count)));
        if (m_state[uid] == Decoded) {
            *out = m_decoded[uid];
            return true;
        }
        if (m_state[uid] == InProgress)
            return fail(damaged(QStringLiteral("object %1 contains itself").arg(uid)));
        if (depth > KeyedArchiveLimits::MaximumDepth)
            return fail(damaged(QStringLiteral("its objects are nested more than %1 levels deep")
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
        plist_t node = plist_array_get_item(m_objects, uint32_t(uid));
        if (PLIST_IS_STRING(node))
            return decodeText(uid, node, out);
        if (PLIST_IS_DATA(node)) {
            *out = dataOf(node);
            return true;
        }
        const ClassDescription *description = PLIST_IS_DICT(node) ? classOf(uid, node) : nullptr;
        if (!description)
            return fail(damaged(QStringLiteral("object %1 is not an object of a known kind").arg(uid)));
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
            plist_t text = plist_dict_get_item(node, StringKey);
            if (!PLIST_IS_STRING(text))
                return fail(damaged(QStringLiteral("the text object %1 has no text").arg(uid)));
            return decodeText(uid, text, out);
        }
        return decodeProgramObject(uid, node, *description, depth, out);
    }

    // Null characters are refused here because the writer refuses them: what opens can be saved.
    bool decodeText(quint64 uid, plist_t node, ArchiveRef *out)
    {
        QString text = textOf(node);
        if (text.contains(QChar(0)))
            return fail(damaged(QStringLiteral("the text object %1 contains a null character").arg(uid)));
        *out = std::move(text);
        return true;
    }

    // The class dictionary an object names under "$class", read once per class.
    const ClassDescription *classOf(quint64 uid, plist_t node)
    {
        quint64 classUid = 0;
        if (!readUid(plist_dict_get_item(node, ClassKey), &classUid) || classUid == 0 || classUid >= m_count
            || classUid == uid)
            return nullptr;
        if (const auto known = m_classes.find(classUid); known != m_classes.end())
            return &known->second;
        plist_t description = plist_array_get_item(m_objects, uint32_t(classUid));
        plist_t name = PLIST_IS_DICT(description) ? plist_dict_get_item(description, ClassNameKey) : nullptr;
        if (!PLIST_IS_STRING(name) || textOf(name).isEmpty())
            return nullptr;
        ClassDescription result{textOf(name), {}};
        if (plist_t classes = plist_dict_get_item(description, ClassesKey)) {
            if (!PLIST_IS_ARRAY(classes))
                return nullptr;
            makeIndexable(classes);
            const uint32_t count = plist_array_get_size(classes);
            for (uint32_t i = 0; i < count; ++i) {
                plist_t entry = plist_array_get_item(classes, i);
                if (!PLIST_IS_STRING(entry))
                    return nullptr;
                result.hierarchy.append(textOf(entry));
            }
        } else {
            result.hierarchy = {result.name};
        }
        // Such a name could not be written back: the copy would name no class at all.
        if (result.name.contains(QChar(0))
            || std::any_of(result.hierarchy.cbegin(), result.hierarchy.cend(), [](const QString &n) { return n.contains(QChar(0)); })) {
            fail(damaged(QStringLiteral("the class of object %1 has a name with a null character").arg(uid)));
            return nullptr;
        }
        return &m_classes.emplace(classUid, std::move(result)).first->second;
    }

    bool decodeDate(quint64 uid, plist_t node, ArchiveRef *out)
    {
        plist_t time = plist_dict_get_item(node, TimeKey);
        double seconds = std::nan("");
        if (PLIST_IS_REAL(time)) {
            plist_get_real_val(time, &seconds);
        } else if (PLIST_IS_UINT(time)) {
            uint64_t whole = 0;
            plist_get_uint_val(time, &whole);
            seconds = double(qint64(whole));
        }
        if (!std::isfinite(seconds) || std::fabs(seconds) > MaximumSecondsFromReferenceDate)
            return fail(damaged(QStringLiteral("the date object %1 has no valid time").arg(uid)));
        const qint64 msecs = qRound64(seconds * 1000.0) + ReferenceDateMSecsSinceEpoch;
        // In UTC: a local time would ask the C library, which re-reads the zone file each time; the
        // reader of the graph converts what it keeps.
        *out = ArchiveDate{QDateTime::fromMSecsSinceEpoch(msecs, Qt::UTC)};
        return true;
    }

    static ArchiveData dataOf(plist_t node)
    {
        uint64_t length = 0;
        const char *bytes = plist_get_data_ptr(node, &length);
        return ArchiveData{QByteArray(bytes, qsizetype(length))};
    }

    // The references of an "NS.objects" or "NS.keys" list.
    bool readReferenceList(quint64 uid, plist_t node, const char *key, QList<quint64> *uids)
    {
        plist_t list = plist_dict_get_item(node, key);
        if (!PLIST_IS_ARRAY(list))
            return fail(damaged(QStringLiteral("object %1 has no \"%2\" list").arg(uid).arg(QLatin1String(key))));
        makeIndexable(list);
        const uint32_t count = plist_array_get_size(list);
        uids->reserve(qsizetype(count));
        for (uint32_t i = 0; i < count; ++i) {
            quint64 item = 0;
            if (!readUid(plist_array_get_item(list, i), &item))
                return fail(damaged(QStringLiteral("the \"%2\" list of object %1 holds something other than "
                                                   "references").arg(uid).arg(QLatin1String(key))));
            uids->append(item);
        }
        return true;
    }

    bool decodeArray(quint64 uid, plist_t node, const QString &className, int depth, ArchiveRef *out)
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

    bool decodeDictionary(quint64 uid, plist_t node, const QString &className, int depth, ArchiveRef *out)
    {
        QList<quint64> keys, values;
        if (!readReferenceList(uid, node, KeysListKey, &keys) || !readReferenceList(uid, node, ObjectsListKey, &values))
            return false;
        if (keys.size() != values.size())
            return fail(damaged(QStringLiteral("the dictionary object %1 has %2 keys but %3 values")
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
                return fail(damaged(QStringLiteral("the dictionary object %1 has a key that is not a text").arg(uid)));
            if (seen.contains(*name))
                return fail(damaged(QStringLiteral("the dictionary object %1 has the key \"%2\" twice").arg(uid).arg(*name)));
            seen.insert(*name);
            if (!decodeReference(values[i], depth + 1, &value))
                return false;
            dictionary->entries.append({*name, std::move(value)});
        }
        *out = std::move(dictionary);
        return true;
    }

    bool decodeProgramObject(quint64 uid, plist_t node, const ClassDescription &description, int depth,
                             ArchiveRef *out)
    {
        if (plist_dict_get_size(node) > uint32_t(KeyedArchiveLimits::MaximumKeysPerObject))
            return fail(damaged(QStringLiteral("object %1 has more than %2 entries")
                                    .arg(uid)
                                    .arg(KeyedArchiveLimits::MaximumKeysPerObject)));
        auto object = std::make_shared<ArchiveObject>();
        object->className = description.name;
        object->classHierarchy = description.hierarchy;
        const bool read = forEachEntry(node, [&](const QString &key, plist_t value) {
            if (key.startsWith(QLatin1Char('$')) && !key.startsWith(QLatin1String("$$")))
                return true; // the archiver's own entries, such as "$class"
            const QString name = key.startsWith(QLatin1Char('$')) ? key.mid(1) : key;
            quint64 reference = 0;
            if (readUid(value, &reference)) {
                ArchiveRef target;
                if (!decodeReference(reference, depth + 1, &target))
                    return false;
                object->set(name, std::move(target));
            } else if (PLIST_IS_UINT(value)) {
                uint64_t integer = 0;
                plist_get_uint_val(value, &integer);
                object->set(name, qint64(integer));
            } else if (PLIST_IS_BOOLEAN(value)) {
                uint8_t flag = 0;
                plist_get_bool_val(value, &flag);
                object->set(name, flag != 0);
            } else if (PLIST_IS_REAL(value)) {
                double real = 0;
                plist_get_real_val(value, &real);
                object->set(name, real);
            } else if (PLIST_IS_DATA(value)) {
                object->set(name, ArchiveRef(dataOf(value)));
            } else {
                return fail(damaged(QStringLiteral("the value of \"%2\" in object %1 is of an unsupported kind")
                                        .arg(uid)
                                        .arg(name)));
            }
            return true;
        });
        if (!read)
            return false;
        *out = std::move(object);
        return true;
    }

    plist_t m_objects = nullptr;
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
