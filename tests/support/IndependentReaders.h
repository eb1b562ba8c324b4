#pragma once
// Readers and writers that share nothing with ours, to check our files against: libplist's (which
// the program itself does not use), and Python's through read_keyed_archive.py, which prints what
// it sees in a file as JSON.
#include "TestSupport.h"
#include "base/PlistValue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cmath>
#include <memory>

struct PlistDeleter
{
    void operator()(void *node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistDeleter>;

inline PlistPtr libplistTree(const QByteArray &binary)
{
    plist_t root = nullptr;
    plist_from_bin(binary.constData(), uint32_t(binary.size()), &root);
    return PlistPtr(root);
}

inline QByteArray libplistBinary(plist_t root)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const QByteArray result(bytes, qsizetype(length));
    free(bytes);
    return result;
}

inline QByteArray libplistXml(plist_t root)
{
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root, &xml, &length);
    const QByteArray result(xml, qsizetype(length));
    plist_to_xml_free(xml);
    return result;
}

// libplist makes an integer it writes in sixteen bytes only by reading one.
inline plist_t libplistSixteenByteInteger(quint64 value)
{
    QByteArray file("bplist00\x14", 9);
    file += QByteArray(8, '\0');
    for (int shift = 56; shift >= 0; shift -= 8)
        file += char(value >> shift);
    file += char(8); // the offset table
    file += QByteArray(6, '\0') + "\x01\x01" + QByteArray(7, '\0') + '\x01' + QByteArray(15, '\0') + '\x19';
    return libplistTree(file).release();
}

// The same value as a libplist tree, and back.
inline plist_t libplistValue(const PlistValue &value)
{
    switch (value.type()) {
    case PlistValue::Type::Boolean:
        return plist_new_bool(value.toBool());
    case PlistValue::Type::Integer:
        return value.isSixteenByteInteger() ? libplistSixteenByteInteger(value.toInteger())
                                            : plist_new_uint(value.toInteger());
    case PlistValue::Type::Real:
        return plist_new_real(value.toReal());
    case PlistValue::Type::Date: {
        const double whole = std::floor(value.toReal());
        return plist_new_date(int32_t(whole), int32_t(std::lround((value.toReal() - whole) * 1e6)));
    }
    case PlistValue::Type::Data:
        return plist_new_data(value.bytes().constData(), uint64_t(value.bytes().size()));
    case PlistValue::Type::String:
        return plist_new_string(value.text().toUtf8().constData());
    case PlistValue::Type::Uid:
        return plist_new_uid(value.toInteger());
    case PlistValue::Type::Array: {
        plist_t array = plist_new_array();
        for (const PlistValue &item : value.items())
            plist_array_append_item(array, libplistValue(item));
        return array;
    }
    case PlistValue::Type::Dictionary: {
        plist_t dictionary = plist_new_dict();
        for (const auto &[key, item] : value.entries())
            plist_dict_set_item(dictionary, key.toUtf8().constData(), libplistValue(item));
        return dictionary;
    }
    }
    return nullptr;
}

inline PlistValue fromLibplist(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t flag = 0;
        plist_get_bool_val(node, &flag);
        return PlistValue::boolean(flag);
    }
    case PLIST_UINT: {
        uint64_t number = 0;
        plist_get_uint_val(node, &number);
        // libplist keeps only whether it read the sixteen-byte form: a fresh node tells.
        const PlistPtr plain(plist_new_uint(number));
        return PlistValue::integer(number, !plist_compare_node_value(node, plain.get()));
    }
    case PLIST_REAL: {
        double number = 0;
        plist_get_real_val(node, &number);
        return PlistValue::real(number);
    }
    case PLIST_DATE: {
        int32_t seconds = 0, microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        return PlistValue::date(seconds + microseconds / 1e6);
    }
    case PLIST_DATA: {
        uint64_t length = 0;
        const char *bytes = plist_get_data_ptr(node, &length);
        return PlistValue::data(QByteArray(bytes, qsizetype(length)));
    }
    case PLIST_STRING: {
        uint64_t length = 0;
        const char *text = plist_get_string_ptr(node, &length);
        return PlistValue::string(QString::fromUtf8(text, qsizetype(length)));
    }
    case PLIST_UID: {
        uint64_t number = 0;
        plist_get_uid_val(node, &number);
        return PlistValue::uid(number);
    }
    case PLIST_ARRAY: {
        std::vector<PlistValue> items;
        plist_array_iter iterator = nullptr; // a look-up by index walks the list from its start
        plist_array_new_iter(node, &iterator);
        for (plist_t item = nullptr; plist_array_next_item(node, iterator, &item), item;)
            items.push_back(fromLibplist(item));
        free(iterator);
        return PlistValue::array(std::move(items));
    }
    case PLIST_DICT: {
        PlistValue::Entries entries;
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(node, &iterator);
        for (;;) {
            char *key = nullptr;
            plist_t item = nullptr;
            plist_dict_next_item(node, iterator, &key, &item);
            if (!item)
                break;
            entries.emplace_back(QString::fromUtf8(key), fromLibplist(item));
            free(key);
        }
        free(iterator);
        return PlistValue::dictionary(std::move(entries));
    }
    default:
        ADD_FAILURE() << "libplist gave a value of no known type";
        return {};
    }
}

#define SKIP_WITHOUT_PYTHON()                                                                  \
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())                  \
    GTEST_SKIP() << "python3 is not installed"

// Python's output for these bytes; empty, with a failure recorded, if it could not read them.
inline QByteArray pythonReading(const QByteArray &file)
{
    const QString path = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/read.bondportfolio"), file);
    QProcess reader;
    const QString script = TestSupport::sourcePath(QStringLiteral("tests/core/document/read_keyed_archive.py"));
    reader.start(QStringLiteral("python3"), {script, path});
    if (!reader.waitForFinished(60000) || reader.exitCode() != 0) {
        ADD_FAILURE() << "Python could not read the file: " << reader.readAllStandardError().toStdString();
        return {};
    }
    return reader.readAllStandardOutput();
}

inline QJsonObject pythonJson(const QByteArray &file) { return QJsonDocument::fromJson(pythonReading(file)).object(); }

inline void PrintTo(const QJsonValue &value, std::ostream *out)
{
    *out << QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

// Each key of `expected` (JSON text) has its value in `actual`.
inline void expectFields(const QJsonObject &actual, const char *expected)
{
    const QJsonObject fields = QJsonDocument::fromJson(expected).object();
    ASSERT_FALSE(fields.isEmpty()) << "unreadable expectation";
    for (const QString &key : fields.keys())
        EXPECT_EQ(actual[key], fields[key]) << key.toStdString();
}
