// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Our property-list reader and writer against libplist: each reads what the other writes; odd files are read as libplist reads them.
#include "base/BinaryPlistWriter.h"
#include "base/PlistReader.h"

#include "HandMadePlist.h"
#include "IndependentReaders.h"

using V = PlistValue;

template<typename Value>
V arrayOfEach(std::initializer_list<Value> values, V (*make)(Value))
{
    std::vector<V> items;
    for (Value value : values)
        items.push_back(make(value));
    return V::array(std::move(items));
}

// What ours reads, or nothing when it finds no property list there.
std::optional<V> ours(const QByteArray &bytes)
{
    const PlistReader::Result result = PlistReader::read(bytes, {1000, 4'000'000});
    if (result.outcome != PlistReader::Result::Outcome::Read)
        return std::nullopt;
    return result.root;
}

// Not inXml: XML spells UIDs as dictionaries and dates in whole seconds.
struct TreeCase { const char *name; std::function<V()> make; bool inXml = true; };
void PrintTo(const TreeCase &c, std::ostream *out) { *out << c.name; }
const auto caseName = [](const auto &info) { return std::string(info.param.name); };

const TreeCase treeCases[] = {
    {"Integers", [] {
         return arrayOfEach<quint64>({0, 255, 256, 65535, 65536, 0xFFFFFFFF, 0x100000000, quint64(INT64_MAX),
                                      quint64(INT64_MIN), quint64(-1)}, [](quint64 v) { return V::integer(v); });
     }},
    {"UnsignedAboveInt64Max", [] { return V::array({V::integer(quint64(-1), true), V::integer(7)}); }},
    {"Reals", [] { return arrayOfEach<double>({0.0, -0.0, 0.5, 0.1, 1e300, -2.25}, V::real); }, false},
    {"Booleans", [] { return arrayOfEach<bool>({true, false, true}, V::boolean); }},
    {"Strings", [] {
         return arrayOfEach<QString>({QString(), "plain", "h\u00e9llo w\u00f6rld", "\u65e5\u672c\u8a9e", "\U0001F4B5 savings",
                                      "\uFEFF" "after a byte order mark", "fifteen or more characters", "a&b<c>\"d'",
                                      "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"},
                                     V::string);
     }},
    {"Data", [] { return V::array({V::data(""), V::data(QByteArray("a\0b", 3)), V::data(QByteArray(300, 'x'))}); }},
    {"Dates", [] { return arrayOfEach<double>({0, 10.5, -86400, 725846400.25}, V::date); }, false},
    {"Uids", [] { return arrayOfEach<quint64>({0, 255, 256, 65535, 65536, 0xFFFFFF, 0xFFFFFFFF}, V::uid); }, false},
    {"EmptyAndLengthEscapedContainers", [] {
         V dictionary = V::dictionary();
         for (int i = 0; i < 15; ++i) {
             std::vector<V> items;
             for (int j = 0; j < 14 + i % 3; ++j)
                 items.push_back(V::integer(quint64(j)));
             dictionary.insert(QString::number(i), V::array(std::move(items)));
         }
         return V::array({V::array(), V::dictionary(), dictionary});
     }},
    {"KeysSharedWithValues", [] {
         return V::dictionary({{"a", V::string("a")}, {"b", V::array({V::string("a"), V::string("b")})}});
     }},
    {"WideReferencesAndOffsets", [] {
         std::vector<V> items;
         for (quint64 v = 0; v < 70000; ++v)
             items.push_back(V::integer(v * 1000));
         return V::array(std::move(items));
     }},
};

class PropertyListRoundTrip : public ::testing::TestWithParam<TreeCase> {};

TEST_P(PropertyListRoundTrip, BothReadBackWhatEitherWrites)
{
    const V tree = GetParam().make();
    const QByteArray written = BinaryPlistWriter::write(tree);
    ASSERT_TRUE(written.startsWith("bplist00"));
    EXPECT_EQ(ours(written), tree);
    const PlistPtr theirTree = libplistTree(written);
    ASSERT_TRUE(theirTree) << "libplist reads ours";
    const QByteArray theirs = libplistBinary(theirTree.get());
    EXPECT_EQ(ours(theirs), tree) << "ours reads libplist's";
    if (GetParam().inXml) {
        EXPECT_EQ(ours(libplistXml(theirTree.get())), tree) << "ours reads libplist's XML";
    }
    EXPECT_LE(written.size(), theirs.size());
}

INSTANTIATE_TEST_SUITE_P(EveryType, PropertyListRoundTrip, ::testing::ValuesIn(treeCases), caseName);

TEST(PropertyListWriter, RefusesUidsBeyond32Bits)
{
    EXPECT_FALSE(BinaryPlistWriter::write(V::array({V::uid(1), V::uid(0xFFFFFFFF)})).isEmpty());
    EXPECT_TRUE(BinaryPlistWriter::write(V::array({V::uid(1), V::uid(0x100000000ull)})).isEmpty());
}

struct OddFile { const char *name; QByteArray bytes; };
void PrintTo(const OddFile &c, std::ostream *out) { *out << c.name; }

QByteArray one(const QByteArray &object) { return HandMadePlist::binaryOfObjects({object}); }
QByteArray utf16(std::initializer_list<char16_t> units)
{
    QByteArray object(1, char(0x60 | units.size()));
    for (char16_t unit : units)
        object.append(char(unit >> 8)).append(char(unit & 0xFF));
    return object;
}

const OddFile oddFiles[] = {
    {"SetReadAsArray", HandMadePlist::binaryOfObjects({"\xC2\x01\x02", "\x10\x05", "\x09"})},
    {"ThreeByteUid", one(QByteArray("\x82\x01\x02\x03", 4))},
    {"UidBeyond32Bits", one(QByteArray("\x84\x01\x00\x00\x00\x00", 6))},
    {"SixteenByteInteger", one(QByteArray("\x14", 1) + QByteArray(8, '\x7f') + QByteArray(8, '\xff'))},
    {"FloatReal", one(QByteArray("\x22\x3f\xc0\x00\x00", 5))},
    {"OneByteTextHoldingUtf8", one("\x53\xc3\xa9!")},
    {"LoneSurrogates", one(utf16({'a', 0xD800, 'b', 0xDC00, 0xDC01, 0xD801, 0xD802, 'c', 0xDC02}))},
    {"NullMarker", one(QByteArray(1, '\0'))},
    {"UnknownType", one("\x70")},
    {"DictionaryKeyNotText", HandMadePlist::binaryOfObjects({"\xD1\x01\x01", "\x10\x05"})},
    {"DataBeyondTable", one("\x45xy")},
    {"XmlBare", "<array><string>a</string><integer>0x1F</integer><integer>017</integer><integer> -5 </integer>"
                "<integer>18446744073709551615</integer><real>2.5</real><true/><false></false>"
                "<key>in an array</key><data>YWJj\n ZA==</data></array>"},
    {"XmlEntitiesCommentsAndData", "<?xml version=\"1.0\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\"><dict>"
                                   "<!-- note --><key>a&amp;b</key><string>&lt;&#233;&#x1F4B5;<![CDATA[<raw>]]></string>"
                                   "<key>a&amp;b</key><integer>2</integer><key>c</key><key>d</key></dict></plist>"},
    {"XmlScalarRootAndWhatFollows", "<plist><string> spaced </string></plist><junk"},
    {"XmlUnknownTag", "<plist><array><float>1</float></array></plist>"},
    {"XmlCutShort", "<plist><array><string>a</string>"},
};

class PropertyListOddFile : public ::testing::TestWithParam<OddFile> {};

TEST_P(PropertyListOddFile, ReadAsLibplistReadsIt)
{
    const PlistPtr relayed = libplistTree(GetParam().bytes); // then written again in libplist's binary form
    EXPECT_EQ(ours(GetParam().bytes), relayed ? ours(libplistBinary(relayed.get())) : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(HandMade, PropertyListOddFile, ::testing::ValuesIn(oddFiles), caseName);
