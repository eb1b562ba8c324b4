// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Keyed archives: unreadable graphs not written, Python reads what is, damaged or hostile files refused with a message.
#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"
#include "model/PeopleStore.h"

#include "HandMadePlist.h"
#include "IndependentReaders.h"

#include <QTimeZone>

using ObjectPtr = std::shared_ptr<ArchiveObject>;
using ArrayPtr = std::shared_ptr<ArchiveArray>;
using DictionaryPtr = std::shared_ptr<ArchiveDictionary>;

constexpr qint64 Int64Max = std::numeric_limits<qint64>::max();
constexpr qint64 Int64Min = std::numeric_limits<qint64>::min();

ArchiveRef text(const char *value) { return QString::fromUtf8(value); }

ObjectPtr makeObject(const QString &className, const QList<std::pair<QString, ArchiveField>> &fields = {})
{
    return std::make_shared<ArchiveObject>(ArchiveObject{className, {className, QStringLiteral("NSObject")}, fields});
}

ArrayPtr makeArray(const QList<ArchiveRef> &items, const QString &className = QStringLiteral("NSMutableArray"))
{
    return std::make_shared<ArchiveArray>(ArchiveArray{className, items});
}

DictionaryPtr makeDictionary(const QList<std::pair<QString, ArchiveRef>> &entries,
                             const QString &className = QStringLiteral("NSMutableDictionary"))
{
    return std::make_shared<ArchiveDictionary>(ArchiveDictionary{className, entries});
}

const QDateTime IssueInstant(QDate(2004, 3, 1), QTime(0, 0, 1, 250), QTimeZone::utc());

// A portfolio-like graph with every kind of value, shared objects and a nil.
ArchiveRef sampleGraph()
{
    auto person = makeObject("Person", {{"uid", text("5F1C-ABCD:ABPerson")}});
    auto series = makeObject("Series", {{"code", text("N")}});
    auto first = makeObject("Holding", {{"series", series}, {"quantity", qint64(2)}, {"faceValue", Int64Max},
                                        {"lowest", Int64Min}, {"minusOne", qint64(-1)},
                                        {"issueDate", ArchiveDate{IssueInstant}},
                                        {"serialNumber", text("C123456789EE")}, {"owner", person},
                                        {"coOwner", ArchiveRef()}, {"paper", false}, {"checked", true},
                                        {"rate", 0.0325}, {"$price", text("Ünïcode €")}});
    auto second = makeObject("Holding", {{"series", series}, {"serialNumber", text("C123456789EE")}, {"owner", person}});
    return makeDictionary({{"holdings", makeArray({first, second, first})},
                           {"titleHolders", makeArray({person}, "NSArray")},
                           {"nothing", ArchiveRef()},
                           {"empty", makeDictionary({}, "NSDictionary")}});
}

TEST(KeyedArchiveEncode, RefusesGraphsItCouldNotReadBack)
{
    auto selfReferring = makeObject("Loop");
    selfReferring->set("me", selfReferring);
    auto outer = makeArray({});
    outer->items.append(makeDictionary({{"back", outer}}));
    ArchiveRef chain = text("bottom");
    for (int i = 0; i < 999; ++i)
        chain = makeArray({chain});
    ASSERT_TRUE(KeyedArchive::decode(KeyedArchive::encode(chain)).ok); // 1000 levels with the text, not one more
    auto manyKeys = makeObject("Wide");
    for (int i = 0; i < 100; ++i)
        manyKeys->set(QStringLiteral("key%1").arg(i), qint64(i));
    const struct { const char *name; ArchiveRef graph; } cases[] = {
        {"object refers to itself", selfReferring},
        {"cycle through an array and a dictionary", outer},
        {"nested too deeply", makeArray({chain})},
        {"invalid date", ArchiveDate{QDateTime()}},
        {"array of unknown class", makeArray({}, "NSSet")},
        {"object posing as a Foundation class", makeObject("NSDate")},
        {"object with more keys than a reader accepts", manyKeys},
        {"text with a null character", ArchiveRef(QString("a") + QChar(0) + "b")},
    };
    for (const auto &testCase : cases) {
        SCOPED_TRACE(testCase.name);
        QString error;
        EXPECT_TRUE(KeyedArchive::encode(testCase.graph, &error).isEmpty());
        EXPECT_FALSE(error.isEmpty());
    }
}

// Equal strings stored once, one description per class, every other dictionary names one (or Python fails).
TEST(KeyedArchiveIndependentReader, PythonSeesTheSameGraph)
{
    SKIP_WITHOUT_PYTHON();
    const QJsonObject json = pythonJson(KeyedArchive::encode(sampleGraph()));
    expectFields(json, R"({"format": "binary", "topKeys": ["$archiver", "$objects", "$top", "$version"],
        "archiver": "NSKeyedArchiver", "version": 100000, "null": "$null", "hierarchies": {
            "Holding": ["Holding", "NSObject"], "Person": ["Person", "NSObject"], "Series": ["Series", "NSObject"],
            "NSArray": ["NSArray", "NSObject"], "NSDate": ["NSDate", "NSObject"],
            "NSDictionary": ["NSDictionary", "NSObject"],
            "NSMutableArray": ["NSMutableArray", "NSArray", "NSObject"],
            "NSMutableDictionary": ["NSMutableDictionary", "NSDictionary", "NSObject"]}, "classDictionaryCount": 8,
        "strings": ["5F1C-ABCD:ABPerson", "C123456789EE", "N", "empty", "holdings", "nothing", "titleHolders",
                    "Ünïcode €"]})");
    const QJsonObject root = json["root"].toObject();
    EXPECT_EQ(root.keys(), QStringList({"empty", "holdings", "nothing", "titleHolders"}));
    expectFields(root, R"({"nothing": null, "empty": {}})");
    const QJsonArray holdings = root["holdings"].toArray();
    ASSERT_EQ(holdings.size(), 3);
    const QJsonObject first = holdings[0].toObject();
    expectFields(first, R"({"$class": "Holding", "quantity": 2, "faceValue": 9223372036854775807,
        "lowest": -9223372036854775808, "minusOne": -1, "paper": false, "checked": true, "rate": 0.0325,
        "issueDate": {"$date": "2004-03-01T00:00:01.250+00:00"}, "serialNumber": "C123456789EE",
        "coOwner": null, "$$price": "Ünïcode €"})");
    EXPECT_EQ(first["faceValue"].toInteger(), Int64Max); // not rounded through a double
    EXPECT_EQ(first["lowest"].toInteger(), Int64Min);
    EXPECT_EQ(first["series"]["code"].toString(), QStringLiteral("N"));

    // Sharing as Python sees it: one holding listed twice, one person on both holdings and in the list.
    const QJsonValue personId = root["titleHolders"][0]["$id"];
    EXPECT_EQ(root["titleHolders"][0]["uid"].toString(), QStringLiteral("5F1C-ABCD:ABPerson"));
    EXPECT_EQ(holdings[2]["$id"], first["$id"]);
    EXPECT_NE(holdings[1]["$id"], first["$id"]);
    EXPECT_EQ(first["owner"]["$id"], personId);
    EXPECT_EQ(holdings[1]["owner"]["$id"], personId);
    EXPECT_EQ(holdings[1]["series"]["$id"], first["series"]["$id"]);
}

plist_t uid(quint64 value) { return plist_new_uid(value); }

plist_t listOf(std::initializer_list<plist_t> items)
{
    plist_t list = plist_new_array();
    for (plist_t item : items)
        plist_array_append_item(list, item);
    return list;
}

plist_t uidList(std::initializer_list<quint64> values)
{
    plist_t list = listOf({});
    for (quint64 value : values)
        plist_array_append_item(list, uid(value));
    return list;
}

plist_t dictionary(std::initializer_list<std::pair<const char *, plist_t>> entries)
{
    plist_t dictionary = plist_new_dict();
    for (const auto &[key, value] : entries)
        plist_dict_set_item(dictionary, key, value);
    return dictionary;
}

// The class description of "$classes", most derived first.
plist_t classDictionary(std::initializer_list<const char *> hierarchy)
{
    plist_t classes = listOf({});
    for (const char *name : hierarchy)
        plist_array_append_item(classes, plist_new_string(name));
    return dictionary({{"$classname", plist_new_string(*hierarchy.begin())}, {"$classes", classes}});
}

plist_t instance(quint64 classUid, std::initializer_list<std::pair<const char *, plist_t>> entries)
{
    plist_t object = dictionary(entries);
    plist_dict_set_item(object, "$class", uid(classUid));
    return object;
}

// One Holding with a date and non-ASCII text and key (UTF-16 in binary); object 8 may become the root.
PlistPtr soundArchive()
{
    plist_t objects = listOf({plist_new_string("$null"), instance(5, {{"NS.objects", uidList({2})}}),
                              instance(6, {{"issueDate", uid(3)}, {"serialNumber", uid(4)},
                                           {"quantity", plist_new_uint(2)}, {"pr\u00efce", plist_new_uint(1)}}),
                              instance(7, {{"NS.time", plist_new_real(0.0)}}), plist_new_string("C\u00e9"),
                              classDictionary({"NSMutableArray"}), classDictionary({"Holding"}), classDictionary({"NSDate"}),
                              instance(9, {{"NS.keys", uidList({4})}, {"NS.objects", uidList({2})}}),
                              classDictionary({"NSDictionary"})});
    return PlistPtr(dictionary({{"$version", plist_new_uint(100000)}, {"$archiver", plist_new_string("NSKeyedArchiver")},
                                {"$top", dictionary({{"root", uid(1)}})}, {"$objects", objects}}));
}

plist_t objectAt(plist_t archive, uint32_t index) { return plist_array_get_item(plist_dict_get_item(archive, "$objects"), index); }
void setField(plist_t archive, uint32_t index, const char *key, plist_t value) { plist_dict_set_item(objectAt(archive, index), key, value); }
void setRoot(plist_t archive, quint64 root) { plist_dict_set_item(plist_dict_get_item(archive, "$top"), "root", uid(root)); }

QByteArray soundArchiveWith(const std::function<void(plist_t)> &change)
{
    PlistPtr archive = soundArchive();
    change(archive.get());
    return libplistBinary(archive.get());
}

// An archive whose root array holds an array that holds an array..., `depth` of them.
QByteArray nestedArchive(int depth)
{
    return soundArchiveWith([depth](plist_t archive) {
        plist_t objects = plist_dict_get_item(archive, "$objects");
        const quint32 first = plist_array_get_size(objects);
        for (int i = 0; i < depth; ++i)
            plist_array_append_item(objects, instance(5, {{"NS.objects", i + 1 < depth ? uidList({first + i + 1}) : uidList({})}}));
        setRoot(archive, first);
    });
}

// The sound archive with one piece of text changed in place in its binary form.
QByteArray soundArchivePatched(const QByteArray &from, const QByteArray &to) { return libplistBinary(soundArchive().get()).replace(from, to); }

ObjectPtr item(const ArchiveRef &array, int index) { return std::get<ObjectPtr>(std::get<ArrayPtr>(array)->items[index]); }
const ArchiveRef &reference(const ObjectPtr &object, const char *key) { return std::get<ArchiveRef>(*object->field(key)); }
qint64 integer(const ObjectPtr &object, const char *key) { return std::get<qint64>(*object->field(key)); }

TEST(KeyedArchiveRefusal, SoundArchiveAndItsXmlFormAreRead)
{
    const PlistPtr archive = soundArchive();
    for (const QByteArray &bytes : {libplistBinary(archive.get()), libplistXml(archive.get())}) {
        SCOPED_TRACE(bytes.left(8).toStdString());
        const auto result = KeyedArchive::decode(bytes);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        const ObjectPtr holding = item(result.root, 0);
        EXPECT_EQ(holding->className, QStringLiteral("Holding"));
        EXPECT_EQ(integer(holding, "quantity"), 2);
        EXPECT_EQ(std::get<QString>(reference(holding, "serialNumber")), QStringLiteral("C\u00e9"));
    }
    EXPECT_TRUE(KeyedArchive::decode(nestedArchive(1000)).ok); // the deepest nesting accepted
}

// Archives by Python's plistlib (fuzz/corpus_keyed_archive), both forms, and an older one rooted in the list.
TEST(KeyedArchiveRefusal, ArchivesOfAnotherWriterAreRead)
{
    for (const char *name : {"portfolio.bplist", "portfolio.xml", "old_form.bplist"}) {
        SCOPED_TRACE(name);
        const auto result = KeyedArchive::decode(TestSupport::readFile(TestSupport::sourcePath("fuzz/corpus_keyed_archive/") + name));
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        if (const auto *old = std::get_if<ArrayPtr>(&result.root)) {
            EXPECT_EQ(integer(item(*old, 0), "faceValue"), -1);
            continue;
        }
        const auto &root = std::get<std::shared_ptr<ArchiveDictionary>>(result.root);
        const ArchiveRef &holdings = *root->value("holdings");
        ASSERT_EQ(std::get<ArrayPtr>(holdings)->items.size(), 2);
        const ObjectPtr holding = item(holdings, 0);
        EXPECT_EQ(holding, item(holdings, 1));
        EXPECT_EQ(std::get<ObjectPtr>(reference(holding, "owner")), item(*root->value("titleHolders"), 0));
        EXPECT_EQ(integer(holding, "faceValue"), 5000);
        EXPECT_TRUE(std::get<bool>(*holding->field("paper")));
        EXPECT_EQ(std::get<ArchiveDate>(reference(holding, "issueDate")).instant, IssueInstant);
    }
}

// Mac calendar dates carry a time zone (name and data) and a format: only the instant is read.
TEST(KeyedArchiveOfTheMacProgram, CalendarDatesAndUnreadBinaryDataAreRead)
{
    const QDateTime noon(QDate(2004, 3, 1), QTime(12, 0), QTimeZone::utc());
    const double sinceReferenceDate = double(noon.toSecsSinceEpoch() - 978307200); // since 2001-01-01
    // Objects 10 to 15: the date's class, its time zone and what that holds; the holding has an unread key of data.
    const auto archive = KeyedArchive::decode(soundArchiveWith([&](plist_t a) {
        plist_t objects = plist_dict_get_item(a, "$objects");
        for (plist_t object : {classDictionary({"NSCalendarDate", "NSDate", "NSObject"}),
                               instance(12, {{"NS.name", uid(13)}, {"NS.data", uid(14)}}),
                               classDictionary({"__NSTimeZone", "NSTimeZone", "NSObject"}),
                               plist_new_string("America/New_York"), plist_new_data("TZif2\0\1", 7),
                               plist_new_string("%Y-%m-%d %H:%M:%S %z")})
            plist_array_append_item(objects, object);
        plist_array_set_item(objects, instance(10, {{"NS.time", plist_new_real(sinceReferenceDate)},
                                                    {"NS.timezone", uid(11)}, {"NS.format", uid(15)}}), 3);
        setField(a, 2, "blob", plist_new_data("xy", 2));
    }));
    ASSERT_TRUE(archive.ok) << archive.error.toStdString();
    const auto decoded = PortfolioArchive::decodePortfolio(archive.root, PeopleStore(QString()));
    ASSERT_TRUE(decoded.ok) << decoded.error.toStdString();
    EXPECT_EQ(decoded.holdings.at(0)->issueDate(), Month::of(noon.toLocalTime()));
    // Where a value is read, data is still refused.
    const auto spoilt = KeyedArchive::decode(soundArchiveWith([](plist_t a) {
        plist_array_set_item(plist_dict_get_item(a, "$objects"), plist_new_data("C1", 2), 4); }));
    ASSERT_TRUE(spoilt.ok) << spoilt.error.toStdString();
    EXPECT_EQ(PortfolioArchive::decodePortfolio(spoilt.root, PeopleStore(QString())).error,
              QStringLiteral("The portfolio file is damaged: a serial number is not text."));
}

TEST(KeyedArchiveRefusal, DamagedOrHostileFilesAreRefused)
{
    const QString notOurs = QStringLiteral("not a Quillmere portfolio");
    const struct { const char *name; QByteArray bytes; QString expected; } cases[] = {
        {"empty file", QByteArray(), notOurs},
        {"JSON", R"({"$archiver": "NSKeyedArchiver"})", notOurs},
        {"truncated", libplistBinary(soundArchive().get()).left(60), "damaged"},
        {"over 64 MiB", QByteArray("bplist00") + QByteArray(64 * 1024 * 1024, '\0'), "too large"},
        {"property list nested 2000 deep", HandMadePlist::binary(HandMadePlist::chainOfArrays(2000, 1)), "nested more than 1000"},
        {"references fanning out to 2^40 values", HandMadePlist::binary(HandMadePlist::chainOfArrays(40, 2)), "more than 4000000 values"},
        {"property list containing itself", HandMadePlist::binary({{1}, {0}}), "contains itself"},
        {"archive objects nested 1001 deep", nestedArchive(1001), "nested more than 1000"},
        {"other archiver", soundArchiveWith([](plist_t a) { plist_dict_set_item(a, "$archiver", plist_new_string("NSArchiver")); }), notOurs},
        {"other version", soundArchiveWith([](plist_t a) { plist_dict_set_item(a, "$version", plist_new_uint(99999)); }), "version"},
        {"dangling field", soundArchiveWith([](plist_t a) { setField(a, 2, "owner", uid(99)); }), "object 99"},
        {"array containing itself", soundArchiveWith([](plist_t a) { setField(a, 1, "NS.objects", uidList({2, 1})); }), "contains itself"},
        {"$class names an object", soundArchiveWith([](plist_t a) { setField(a, 2, "$class", uid(3)); }), "known kind"},
        {"NS.objects is not a list", soundArchiveWith([](plist_t a) { setField(a, 1, "NS.objects", uid(2)); }), "NS.objects"},
        {"more keys than values", soundArchiveWith([](plist_t a) { setRoot(a, 8); setField(a, 8, "NS.keys", uidList({4, 4})); }), "2 keys but 1 values"},
        {"key given twice", soundArchiveWith([](plist_t a) { setRoot(a, 8); setField(a, 8, "NS.keys", uidList({4, 4})); setField(a, 8, "NS.objects", uidList({2, 2})); }), "twice"},
        {"date at infinity", soundArchiveWith([](plist_t a) { setField(a, 3, "NS.time", plist_new_real(INFINITY)); }), "date"},
        // Both in the two-byte form libplist keeps whole; the key one would abort libplist itself.
        {"dictionary key with a null character", soundArchivePatched(QByteArray("r\0\xef", 3), QByteArray("r\0\0", 3)), "dictionary key"},
        {"text with a null character", soundArchivePatched(QByteArray("C\0\xe9", 3), QByteArray("C\0\0", 3)), "null character"},
        // libplist would cut this one-byte text at its null without a word: "Q1".
        {"one-byte text with a null character", soundArchiveWith([](plist_t a) {
             plist_array_set_item(plist_dict_get_item(a, "$objects"), plist_new_string("Q1x00"), 4); }).replace("Q1x00", QByteArray("Q1\0" "00", 5)),
         "it holds a text with a null character"},
        // Read, it would be written back with no class name at all.
        {"class name with a null character", soundArchiveWith([](plist_t a) {
             plist_array_set_item(plist_dict_get_item(a, "$objects"), classDictionary({"H\u00e9"}), 6); })
             .replace(QByteArray("\0H\0\xe9", 4), QByteArray("\0\0\0\xe9", 4)),
         "the class of object 2 has a name with a null character"},
        {"object with 101 entries", soundArchiveWith([](plist_t a) { for (int i = 0; i < 97; ++i) setField(a, 2, QByteArray::number(i).constData(), plist_new_bool(1)); }), "more than 100 entries"},
    };
    for (const auto &testCase : cases) {
        SCOPED_TRACE(testCase.name);
        const auto result = KeyedArchive::decode(testCase.bytes);
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.error.contains(testCase.expected)) << result.error.toStdString();
        EXPECT_TRUE(result.error.endsWith(QLatin1Char('.'))) << result.error.toStdString();
    }
}
