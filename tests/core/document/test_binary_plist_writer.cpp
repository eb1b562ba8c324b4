#include "../PeopleFixture.h"
#include "document/BinaryPlistWriter.h"
#include "document/KeyedArchive.h"
#include "document/PlistPtr.h"
#include "document/PortfolioArchive.h"
#include "valuation/BondAssessor.h"

#include <QProcess>
#include <QStandardPaths>
#include <functional>
#include <gtest/gtest.h>

namespace {

// libplist compares containers by identity, so they are compared here entry by entry.
bool sameTree(plist_t a, plist_t b)
{
    const plist_type type = plist_get_node_type(a);
    if (type != plist_get_node_type(b))
        return false;
    if (type == PLIST_ARRAY) {
        const uint32_t size = plist_array_get_size(a);
        if (size != plist_array_get_size(b))
            return false;
        plist_array_iter left = nullptr, right = nullptr;
        plist_array_new_iter(a, &left);
        plist_array_new_iter(b, &right);
        bool same = true;
        for (uint32_t i = 0; same && i < size; ++i) {
            plist_t x = nullptr, y = nullptr;
            plist_array_next_item(a, left, &x);
            plist_array_next_item(b, right, &y);
            same = x && y && sameTree(x, y);
        }
        free(left);
        free(right);
        return same;
    }
    if (type == PLIST_DICT) {
        if (plist_dict_get_size(a) != plist_dict_get_size(b))
            return false;
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(a, &iterator);
        bool same = true;
        for (uint32_t i = 0; same && i < plist_dict_get_size(a); ++i) {
            char *key = nullptr;
            plist_t value = nullptr;
            plist_dict_next_item(a, iterator, &key, &value);
            const plist_t other = plist_dict_get_item(b, key);
            same = other && sameTree(value, other);
            free(key);
        }
        free(iterator);
        return same;
    }
    return plist_compare_node_value(a, b);
}

PlistPtr fromBinary(const QByteArray &bytes)
{
    plist_t root = nullptr;
    plist_from_bin(bytes.constData(), uint32_t(bytes.size()), &root);
    return PlistPtr(root);
}

QByteArray libplistBinary(plist_t root)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const QByteArray result(bytes, qsizetype(length));
    free(bytes);
    return result;
}

plist_t arrayOf(const std::vector<plist_t> &items)
{
    plist_t array = plist_new_array();
    for (plist_t item : items)
        plist_array_append_item(array, item);
    return array;
}

// The only way libplist makes an integer it writes in sixteen bytes is by reading one.
plist_t unsignedMaximumAsReadFromAFile()
{
    QByteArray file("bplist00\x14", 9);
    file += QByteArray(8, '\0') + QByteArray(8, '\xff');
    file += char(8); // the offset table
    file += QByteArray(6, '\0') + "\x01\x01" + QByteArray(7, '\0') + '\x01' + QByteArray(15, '\0') + '\x19';
    return fromBinary(file).release();
}

struct TreeCase
{
    const char *name;
    std::function<plist_t()> make;
};

const TreeCase treeCases[] = {
    {"Integers", [] {
         std::vector<plist_t> items;
         for (quint64 v : {0ull, 255ull, 256ull, 65535ull, 65536ull, 0xFFFFFFFFull, 0x100000000ull,
                           quint64(INT64_MAX), quint64(INT64_MIN), quint64(-1)})
             items.push_back(plist_new_uint(v));
         return arrayOf(items);
     }},
    {"UnsignedAboveInt64Max", [] { return arrayOf({unsignedMaximumAsReadFromAFile(), plist_new_uint(7)}); }},
    {"Reals", [] {
         return arrayOf({plist_new_real(0.0), plist_new_real(-0.0), plist_new_real(0.5), plist_new_real(0.1),
                         plist_new_real(1e300), plist_new_real(-2.25)});
     }},
    {"Booleans", [] { return arrayOf({plist_new_bool(1), plist_new_bool(0), plist_new_bool(1)}); }},
    {"Strings", [] {
         std::vector<plist_t> items;
         for (const char *text : {"", "plain", "h\u00e9llo w\u00f6rld", "\u65e5\u672c\u8a9e", "\U0001F4B5 savings",
                                  "\xEF\xBB\xBF" "after a byte order mark", "fifteen or more characters",
                                  "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"})
             items.push_back(plist_new_string(text));
         return arrayOf(items);
     }},
    {"Data", [] {
         const QByteArray large(300, 'x');
         return arrayOf({plist_new_data("", 0), plist_new_data("a\0b", 3), plist_new_data(large.constData(), 300)});
     }},
    {"Dates", [] {
         return arrayOf({plist_new_date(0, 0), plist_new_date(10, 500001), plist_new_date(-86400, 0),
                         plist_new_date(725846400, 123456)});
     }},
    {"Uids", [] {
         std::vector<plist_t> items;
         for (quint64 v : {0ull, 255ull, 256ull, 65535ull, 65536ull, 0xFFFFFFull, 0xFFFFFFFFull})
             items.push_back(plist_new_uid(v));
         return arrayOf(items);
     }},
    {"EmptyAndLengthEscapedContainers", [] {
         plist_t dictionary = plist_new_dict();
         for (int i = 0; i < 15; ++i) {
             std::vector<plist_t> items;
             for (int j = 0; j < 14 + i % 3; ++j)
                 items.push_back(plist_new_uint(quint64(j)));
             plist_dict_set_item(dictionary, QByteArray::number(i).constData(), arrayOf(items));
         }
         return arrayOf({plist_new_array(), plist_new_dict(), dictionary});
     }},
    {"KeysSharedWithValues", [] {
         plist_t dictionary = plist_new_dict();
         plist_dict_set_item(dictionary, "a", plist_new_string("a"));
         plist_dict_set_item(dictionary, "b", arrayOf({plist_new_string("a"), plist_new_string("b")}));
         return dictionary;
     }},
    {"WideReferencesAndOffsets", [] {
         std::vector<plist_t> items;
         for (quint64 v = 0; v < 70000; ++v)
             items.push_back(plist_new_uint(v * 1000));
         return arrayOf(items);
     }},
};

class BinaryPlistRoundTrip : public ::testing::TestWithParam<TreeCase>
{
};

TEST_P(BinaryPlistRoundTrip, ReadsBackEqualAndNoLargerThanLibplist)
{
    const PlistPtr tree(GetParam().make());
    const QByteArray written = BinaryPlistWriter::write(tree.get());
    ASSERT_TRUE(written.startsWith("bplist00"));
    const PlistPtr read = fromBinary(written);
    ASSERT_TRUE(read) << "libplist refused the file";
    EXPECT_TRUE(sameTree(tree.get(), read.get()));
    EXPECT_LE(written.size(), libplistBinary(tree.get()).size());
}

INSTANTIATE_TEST_SUITE_P(EveryType, BinaryPlistRoundTrip, ::testing::ValuesIn(treeCases),
                         [](const auto &info) { return std::string(info.param.name); });

plist_t withString(const char *text)
{
    return arrayOf({plist_new_string("fine"), plist_new_string(text)});
}

const TreeCase refusalCases[] = {
    {"NoRoot", [] { return plist_t(nullptr); }},
    {"MalformedUtf8", [] { return withString("\xC3\x28"); }},
    {"OverlongUtf8", [] { return withString("overlong \xC0\xAF"); }},
    {"CutShortUtf8", [] { return withString("cut short \xE6\x97"); }},
    {"EncodedSurrogate", [] { return withString("\xED\xA0\x80"); }},
    {"UidBeyond32Bits", [] { return arrayOf({plist_new_uid(1), plist_new_uid(0x100000000ull)}); }},
};

class BinaryPlistRefusal : public ::testing::TestWithParam<TreeCase>
{
};

TEST_P(BinaryPlistRefusal, GivesNothing)
{
    const PlistPtr tree(GetParam().make());
    EXPECT_TRUE(BinaryPlistWriter::write(tree.get()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Unwritable, BinaryPlistRefusal, ::testing::ValuesIn(refusalCases),
                         [](const auto &info) { return std::string(info.param.name); });

// Python's reader shares nothing with either writer; it must see the same portfolio in both
// files, and this writer's file must be no larger.
TEST(BinaryPlistWriter, PythonReadsAPortfolioAsFromLibplist)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        GTEST_SKIP() << "python3 is not installed";
    PeopleFixture people;
    const QList<PersonRef> titleHolders{people.person("Ann", "Smith"), people.person("Jos\u00e9", "Mu\u00f1oz")};
    QList<HoldingRef> holdings;
    for (int i = 0; i < 40; ++i) {
        auto holding = Holding::create();
        holding->setIssueDate(BondAssessor::monthDate(1990 + i % 20, 1 + i % 12));
        holding->setFaceValue(Pennies(5000) << (i % 8));
        holding->setQuantity(1 + i % 3);
        holding->setSerialNumber(QStringLiteral("Gr\u00f6\u00dfe-%1").arg(i % 5));
        holding->setPaper(i % 2 == 0);
        holding->setOwner(titleHolders.at(i % 2));
        holdings.append(holding);
    }
    QString error;
    const QByteArray ours = KeyedArchive::encode(PortfolioArchive::encodePortfolio(holdings, titleHolders), &error);
    ASSERT_FALSE(ours.isEmpty()) << error.toStdString();
    const QByteArray theirs = libplistBinary(fromBinary(ours).get());
    EXPECT_LE(ours.size(), theirs.size());

    const QString folder = TestSupport::temporaryDirectory();
    QByteArray seen[2];
    for (int i = 0; i < 2; ++i) {
        const QString path = TestSupport::writeFile(folder + QStringLiteral("/%1.bondportfolio").arg(i), i ? theirs : ours);
        QProcess reader;
        reader.start(python, {TestSupport::sourcePath(QStringLiteral("tests/core/document/read_keyed_archive.py")), path});
        ASSERT_TRUE(reader.waitForFinished(60000));
        ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
        seen[i] = reader.readAllStandardOutput();
    }
    EXPECT_FALSE(seen[0].isEmpty());
    EXPECT_EQ(seen[0], seen[1]);
}

} // namespace
