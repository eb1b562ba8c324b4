// The binary property-list writer against libplist: what it writes reads back equal, is no larger
// than libplist's, and what could not be read back is refused.
#include "document/BinaryPlistWriter.h"

#include "IndependentReaders.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

plist_t arrayOf(const std::vector<plist_t> &items)
{
    plist_t array = plist_new_array();
    for (plist_t item : items)
        plist_array_append_item(array, item);
    return array;
}

template<typename Value>
plist_t arrayOfEach(std::initializer_list<Value> values, plist_t (*make)(Value))
{
    std::vector<plist_t> items;
    for (Value value : values)
        items.push_back(make(value));
    return arrayOf(items);
}

// The only way libplist makes an integer it writes in sixteen bytes is by reading one.
plist_t unsignedMaximumAsReadFromAFile()
{
    QByteArray file("bplist00\x14", 9);
    file += QByteArray(8, '\0') + QByteArray(8, '\xff');
    file += char(8); // the offset table
    file += QByteArray(6, '\0') + "\x01\x01" + QByteArray(7, '\0') + '\x01' + QByteArray(15, '\0') + '\x19';
    return libplistTree(file).release();
}

struct TreeCase
{
    const char *name;
    std::function<plist_t()> make;
};
void PrintTo(const TreeCase &c, std::ostream *out) { *out << c.name; }
const auto caseName = [](const auto &info) { return std::string(info.param.name); };

const TreeCase treeCases[] = {
    {"Integers", [] {
         return arrayOfEach<uint64_t>({0, 255, 256, 65535, 65536, 0xFFFFFFFF, 0x100000000, uint64_t(INT64_MAX),
                                       uint64_t(INT64_MIN), uint64_t(-1)}, plist_new_uint);
     }},
    {"UnsignedAboveInt64Max", [] { return arrayOf({unsignedMaximumAsReadFromAFile(), plist_new_uint(7)}); }},
    {"Reals", [] { return arrayOfEach<double>({0.0, -0.0, 0.5, 0.1, 1e300, -2.25}, plist_new_real); }},
    {"Booleans", [] { return arrayOfEach<uint8_t>({1, 0, 1}, plist_new_bool); }},
    {"Strings", [] {
         return arrayOfEach<const char *>({"", "plain", "h\u00e9llo w\u00f6rld", "\u65e5\u672c\u8a9e", "\U0001F4B5 savings",
                                           "\xEF\xBB\xBF" "after a byte order mark", "fifteen or more characters",
                                           "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"},
                                          plist_new_string);
     }},
    {"Data", [] {
         const QByteArray large(300, 'x');
         return arrayOf({plist_new_data("", 0), plist_new_data("a\0b", 3), plist_new_data(large.constData(), 300)});
     }},
    {"Dates", [] {
         return arrayOf({plist_new_date(0, 0), plist_new_date(10, 500001), plist_new_date(-86400, 0),
                         plist_new_date(725846400, 123456)});
     }},
    {"Uids", [] { return arrayOfEach<uint64_t>({0, 255, 256, 65535, 65536, 0xFFFFFF, 0xFFFFFFFF}, plist_new_uid); }},
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

class BinaryPlistRoundTrip : public ::testing::TestWithParam<TreeCase> {};

TEST_P(BinaryPlistRoundTrip, ReadsBackEqualAndNoLargerThanLibplist)
{
    const PlistPtr tree(GetParam().make());
    const QByteArray written = BinaryPlistWriter::write(tree.get());
    ASSERT_TRUE(written.startsWith("bplist00"));
    const PlistPtr read = libplistTree(written);
    ASSERT_TRUE(read) << "libplist refused the file";
    const QByteArray theirs = libplistBinary(tree.get());
    EXPECT_EQ(libplistBinary(read.get()), theirs) << "libplist writes the tree read back as the original";
    EXPECT_LE(written.size(), theirs.size());
}

INSTANTIATE_TEST_SUITE_P(EveryType, BinaryPlistRoundTrip, ::testing::ValuesIn(treeCases), caseName);

plist_t withString(const char *text) { return arrayOf({plist_new_string("fine"), plist_new_string(text)}); }

const TreeCase refusalCases[] = {
    {"NoRoot", [] { return plist_t(nullptr); }},
    {"MalformedUtf8", [] { return withString("\xC3\x28"); }},
    {"OverlongUtf8", [] { return withString("overlong \xC0\xAF"); }},
    {"CutShortUtf8", [] { return withString("cut short \xE6\x97"); }},
    {"EncodedSurrogate", [] { return withString("\xED\xA0\x80"); }},
    {"UidBeyond32Bits", [] { return arrayOf({plist_new_uid(1), plist_new_uid(0x100000000ull)}); }},
};

class BinaryPlistRefusal : public ::testing::TestWithParam<TreeCase> {};

TEST_P(BinaryPlistRefusal, GivesNothing)
{
    const PlistPtr tree(GetParam().make());
    EXPECT_TRUE(BinaryPlistWriter::write(tree.get()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Unwritable, BinaryPlistRefusal, ::testing::ValuesIn(refusalCases), caseName);

} // namespace
