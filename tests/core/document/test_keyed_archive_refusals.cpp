// Damaged and hostile files are refused with a message, never crash and never exhaust memory.
#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"
#include "model/PeopleStore.h"

#include "HandMadePlist.h"
#include "TestSupport.h"

#include <QFile>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cmath>
#include <functional>

namespace {

using Tree = std::unique_ptr<void, void (*)(plist_t)>;

plist_t uid(quint64 value) { return plist_new_uid(value); }

plist_t uidList(std::initializer_list<quint64> values)
{
    plist_t list = plist_new_array();
    for (quint64 value : values)
        plist_array_append_item(list, uid(value));
    return list;
}

// The class description of "$classes", most derived first.
plist_t classDictionary(std::initializer_list<const char *> hierarchy)
{
    plist_t description = plist_new_dict();
    plist_dict_set_item(description, "$classname", plist_new_string(*hierarchy.begin()));
    plist_t classes = plist_new_array();
    for (const char *name : hierarchy)
        plist_array_append_item(classes, plist_new_string(name));
    plist_dict_set_item(description, "$classes", classes);
    return description;
}

plist_t classDictionary(const char *name) { return classDictionary({name}); }

plist_t instance(quint64 classUid, std::initializer_list<std::pair<const char *, plist_t>> entries)
{
    plist_t object = plist_new_dict();
    plist_dict_set_item(object, "$class", uid(classUid));
    for (const auto &[key, value] : entries)
        plist_dict_set_item(object, key, value);
    return object;
}

// A sound archive: an array holding one Holding, which names a date and a text; the text and one
// key hold a non-ASCII letter, so libplist writes them as UTF-16. Object 8 is a
// dictionary that a case may make the root.
Tree soundArchive()
{
    plist_t objects = plist_new_array();
    plist_array_append_item(objects, plist_new_string("$null"));
    plist_array_append_item(objects, instance(5, {{"NS.objects", uidList({2})}}));
    plist_array_append_item(objects, instance(6, {{"issueDate", uid(3)}, {"serialNumber", uid(4)},
                                                  {"quantity", plist_new_uint(2)}, {"pr\u00efce", plist_new_uint(1)}}));
    plist_array_append_item(objects, instance(7, {{"NS.time", plist_new_real(0.0)}}));
    plist_array_append_item(objects, plist_new_string("C\u00e9"));
    plist_array_append_item(objects, classDictionary("NSMutableArray"));
    plist_array_append_item(objects, classDictionary("Holding"));
    plist_array_append_item(objects, classDictionary("NSDate"));
    plist_array_append_item(objects, instance(9, {{"NS.keys", uidList({4})}, {"NS.objects", uidList({2})}}));
    plist_array_append_item(objects, classDictionary("NSDictionary"));
    plist_t top = plist_new_dict();
    plist_dict_set_item(top, "root", uid(1));
    plist_t archive = plist_new_dict();
    plist_dict_set_item(archive, "$version", plist_new_uint(100000));
    plist_dict_set_item(archive, "$archiver", plist_new_string("NSKeyedArchiver"));
    plist_dict_set_item(archive, "$top", top);
    plist_dict_set_item(archive, "$objects", objects);
    return Tree(archive, plist_free);
}

plist_t objectAt(plist_t archive, uint32_t index)
{
    return plist_array_get_item(plist_dict_get_item(archive, "$objects"), index);
}

QByteArray binaryOf(plist_t tree)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(tree, &bytes, &length);
    QByteArray result(bytes, qsizetype(length));
    plist_to_bin_free(bytes);
    return result;
}

QByteArray soundArchiveWith(const std::function<void(plist_t)> &change)
{
    Tree archive = soundArchive();
    change(archive.get());
    return binaryOf(archive.get());
}

// An archive whose root array holds an array that holds an array..., `depth` of them.
QByteArray nestedArchive(int depth)
{
    Tree archive = soundArchive();
    plist_t objects = plist_dict_get_item(archive.get(), "$objects");
    const quint32 first = plist_array_get_size(objects);
    for (int i = 0; i < depth; ++i)
        plist_array_append_item(objects, instance(5, {{"NS.objects", i + 1 < depth ? uidList({first + i + 1}) : uidList({})}}));
    plist_dict_set_item(plist_dict_get_item(archive.get(), "$top"), "root", uid(first));
    return binaryOf(archive.get());
}

// The sound archive with one piece of text changed in place in its binary form.
QByteArray soundArchivePatched(const QByteArray &from, const QByteArray &to)
{
    return binaryOf(soundArchive().get()).replace(from, to);
}

void setField(plist_t archive, uint32_t index, const char *key, plist_t value)
{
    plist_dict_set_item(objectAt(archive, index), key, value);
}

void setRoot(plist_t archive, quint64 root)
{
    plist_dict_set_item(plist_dict_get_item(archive, "$top"), "root", uid(root));
}

TEST(KeyedArchiveRefusal, SoundArchiveAndItsXmlFormAreRead)
{
    Tree archive = soundArchive();
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(archive.get(), &xml, &length);
    const QByteArray xmlForm(xml, qsizetype(length));
    plist_to_xml_free(xml);
    for (const QByteArray &bytes : {binaryOf(archive.get()), xmlForm}) {
        SCOPED_TRACE(bytes.left(8).toStdString());
        const auto result = KeyedArchive::decode(bytes);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        const auto &holding = std::get<std::shared_ptr<ArchiveObject>>(std::get<std::shared_ptr<ArchiveArray>>(result.root)->items[0]);
        EXPECT_EQ(holding->className, QStringLiteral("Holding"));
        EXPECT_EQ(std::get<qint64>(*holding->field(QStringLiteral("quantity"))), 2);
        EXPECT_EQ(std::get<QString>(std::get<ArchiveRef>(*holding->field(QStringLiteral("serialNumber")))), QStringLiteral("C\u00e9"));
    }
    EXPECT_TRUE(KeyedArchive::decode(nestedArchive(1000)).ok); // the deepest nesting accepted
}

// Archives written by Python's plistlib (see fuzz/corpus_keyed_archive), in both forms.
TEST(KeyedArchiveRefusal, ArchivesOfAnotherWriterAreRead)
{
    for (const char *name : {"portfolio.bplist", "portfolio.xml"}) {
        SCOPED_TRACE(name);
        QFile file(TestSupport::sourcePath(QStringLiteral("fuzz/corpus_keyed_archive/") + QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const auto result = KeyedArchive::decode(file.readAll());
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        const auto &root = std::get<std::shared_ptr<ArchiveDictionary>>(result.root);
        const auto &holdings = std::get<std::shared_ptr<ArchiveArray>>(*root->value(QStringLiteral("holdings")))->items;
        const auto &people = std::get<std::shared_ptr<ArchiveArray>>(*root->value(QStringLiteral("titleHolders")))->items;
        ASSERT_EQ(holdings.size(), 2);
        const auto &holding = std::get<std::shared_ptr<ArchiveObject>>(holdings[0]);
        EXPECT_EQ(holding, std::get<std::shared_ptr<ArchiveObject>>(holdings[1]));
        EXPECT_EQ(std::get<std::shared_ptr<ArchiveObject>>(std::get<ArchiveRef>(*holding->field(QStringLiteral("owner")))),
                  std::get<std::shared_ptr<ArchiveObject>>(people[0]));
        EXPECT_EQ(std::get<qint64>(*holding->field(QStringLiteral("faceValue"))), 5000);
        EXPECT_TRUE(std::get<bool>(*holding->field(QStringLiteral("paper"))));
        const auto &date = std::get<ArchiveDate>(std::get<ArchiveRef>(*holding->field(QStringLiteral("issueDate"))));
        EXPECT_EQ(date.instant.toMSecsSinceEpoch(), QDateTime(QDate(2004, 3, 1), QTime(0, 0, 1, 250), QTimeZone::utc()).toMSecsSinceEpoch());
    }
    QFile oldForm(TestSupport::sourcePath(QStringLiteral("fuzz/corpus_keyed_archive/old_form.bplist")));
    ASSERT_TRUE(oldForm.open(QIODevice::ReadOnly));
    const auto result = KeyedArchive::decode(oldForm.readAll());
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    const auto &holding = std::get<std::shared_ptr<ArchiveObject>>(std::get<std::shared_ptr<ArchiveArray>>(result.root)->items[0]);
    EXPECT_EQ(std::get<qint64>(*holding->field(QStringLiteral("faceValue"))), -1);
}

// The Mac program's dates are calendar dates: an NSDate subclass that carries its time zone (a name
// and the zone's binary data) and a format. Only the instant is read; the rest is tolerated.
TEST(KeyedArchiveOfTheMacProgram, CalendarDatesAndUnreadBinaryDataAreRead)
{
    const double noonOnMarch1st2004 = double(QDateTime(QDate(2004, 3, 1), QTime(12, 0), QTimeZone::utc()).toSecsSinceEpoch()
                                             - QDateTime(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc()).toSecsSinceEpoch());
    // Objects 10 to 15 of the sound archive: the date's class, its time zone and what that holds.
    auto calendarDate = [&](plist_t a, std::initializer_list<const char *> dateClasses, bool inlineZoneData) {
        plist_t objects = plist_dict_get_item(a, "$objects");
        plist_array_append_item(objects, classDictionary(dateClasses));
        plist_array_append_item(objects, instance(12, {{"NS.name", uid(13)},
                                                       {"NS.data", inlineZoneData ? plist_new_data("TZif2\0\1", 7) : uid(14)}}));
        plist_array_append_item(objects, classDictionary({"__NSTimeZone", "NSTimeZone", "NSObject"}));
        plist_array_append_item(objects, plist_new_string("America/New_York"));
        plist_array_append_item(objects, plist_new_data("TZif2\0\1", 7));
        plist_array_append_item(objects, plist_new_string("%Y-%m-%d %H:%M:%S %z"));
        plist_array_set_item(objects, instance(10, {{"NS.time", plist_new_real(noonOnMarch1st2004)}, {"NS.timezone", uid(11)},
                                                    {"NS.format", uid(15)}}), 3);
    };
    const struct
    {
        const char *name;
        QByteArray bytes;
    } cases[] = {
        {"calendar date", soundArchiveWith([&](plist_t a) { calendarDate(a, {"NSCalendarDate", "NSDate", "NSObject"}, false); })},
        {"zone data stored in place", soundArchiveWith([&](plist_t a) { calendarDate(a, {"NSCalendarDate", "NSDate", "NSObject"}, true); })},
        {"private date class", soundArchiveWith([&](plist_t a) { calendarDate(a, {"__NSDate", "NSDate", "NSObject"}, false); })},
        {"unread key holding data", soundArchiveWith([&](plist_t a) {
             calendarDate(a, {"NSCalendarDate", "NSDate", "NSObject"}, false);
             setField(a, 2, "blob", plist_new_data("xy", 2)); })},
    };
    for (const auto &testCase : cases) {
        SCOPED_TRACE(testCase.name);
        const auto archive = KeyedArchive::decode(testCase.bytes);
        ASSERT_TRUE(archive.ok) << archive.error.toStdString();
        const auto decoded = PortfolioArchive::decodePortfolio(archive.root, PeopleStore(QString()));
        ASSERT_TRUE(decoded.ok) << decoded.error.toStdString();
        EXPECT_EQ(decoded.holdings.at(0)->issueDate().toUTC(), QDateTime(QDate(2004, 3, 1), QTime(12, 0), QTimeZone::utc()));
    }
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
    const struct
    {
        const char *name;
        QByteArray bytes;
        QString expected;
    } cases[] = {
        {"empty file", QByteArray(), notOurs},
        {"plain text", "holdings: none", notOurs},
        {"JSON", R"({"$archiver": "NSKeyedArchiver"})", notOurs},
        {"XML that is not a property list", "<html><body>hi</body></html>", notOurs},
        {"truncated", binaryOf(soundArchive().get()).left(60), "damaged"},
        {"over 64 MiB", QByteArray("bplist00") + QByteArray(64 * 1024 * 1024, '\0'), "too large"},
        {"property list nested 2000 deep", HandMadePlist::binary(HandMadePlist::chainOfArrays(2000, 1)), "nested more than 1000"},
        {"XML nested 2000 deep", "<plist>" + QByteArray("<array>").repeated(2000), "nested more than 1000"},
        {"references fanning out to 2^40 values", HandMadePlist::binary(HandMadePlist::chainOfArrays(40, 2)), "more than 4000000 values"},
        {"property list containing itself", HandMadePlist::binary({{1}, {0}}), "contains itself"},
        {"archive objects nested 1001 deep", nestedArchive(1001), "nested more than 1000"},
        {"top level is an array", binaryOf(Tree(plist_new_array(), plist_free).get()), notOurs},
        {"other archiver", soundArchiveWith([](plist_t a) { plist_dict_set_item(a, "$archiver", plist_new_string("NSArchiver")); }), notOurs},
        {"other version", soundArchiveWith([](plist_t a) { plist_dict_set_item(a, "$version", plist_new_uint(99999)); }), "version"},
        {"version as text", soundArchiveWith([](plist_t a) { plist_dict_set_item(a, "$version", plist_new_string("100000")); }), "version"},
        {"no object table", soundArchiveWith([](plist_t a) { plist_dict_remove_item(a, "$objects"); }), "object table"},
        {"object 0 is not $null", soundArchiveWith([](plist_t a) { plist_set_string_val(objectAt(a, 0), "nil"); }), "$null"},
        {"no $top", soundArchiveWith([](plist_t a) { plist_dict_remove_item(a, "$top"); }), "root"},
        {"root is an integer", soundArchiveWith([](plist_t a) { plist_dict_set_item(plist_dict_get_item(a, "$top"), "root", plist_new_uint(1)); }), "root"},
        {"dangling root", soundArchiveWith([](plist_t a) { setRoot(a, 50); }), "object 50"},
        {"dangling field", soundArchiveWith([](plist_t a) { setField(a, 2, "owner", uid(99)); }), "object 99"},
        {"array containing itself", soundArchiveWith([](plist_t a) { setField(a, 1, "NS.objects", uidList({2, 1})); }), "contains itself"},
        {"holding containing its array", soundArchiveWith([](plist_t a) { setField(a, 2, "parent", uid(1)); }), "contains itself"},
        {"$class is text", soundArchiveWith([](plist_t a) { setField(a, 2, "$class", plist_new_string("Holding")); }), "known kind"},
        {"$class names a string", soundArchiveWith([](plist_t a) { setField(a, 2, "$class", uid(4)); }), "known kind"},
        {"$class names $null", soundArchiveWith([](plist_t a) { setField(a, 2, "$class", uid(0)); }), "known kind"},
        {"$class names an object", soundArchiveWith([](plist_t a) { setField(a, 2, "$class", uid(3)); }), "known kind"},
        {"$classes is text", soundArchiveWith([](plist_t a) { setField(a, 6, "$classes", plist_new_string("Holding")); }), "known kind"},
        {"object is a number", soundArchiveWith([](plist_t a) { plist_array_set_item(plist_dict_get_item(a, "$objects"), plist_new_uint(5), 4); }), "known kind"},
        {"NS.objects is not a list", soundArchiveWith([](plist_t a) { setField(a, 1, "NS.objects", uid(2)); }), "NS.objects"},
        {"NS.objects holds a number", soundArchiveWith([](plist_t a) { plist_array_append_item(plist_dict_get_item(objectAt(a, 1), "NS.objects"), plist_new_uint(2)); }), "references"},
        {"more keys than values", soundArchiveWith([](plist_t a) { setRoot(a, 8); setField(a, 8, "NS.keys", uidList({4, 4})); }), "2 keys but 1 values"},
        {"key that is a date", soundArchiveWith([](plist_t a) { setRoot(a, 8); setField(a, 8, "NS.keys", uidList({3})); }), "not a text"},
        {"key given twice", soundArchiveWith([](plist_t a) { setRoot(a, 8); setField(a, 8, "NS.keys", uidList({4, 4})); setField(a, 8, "NS.objects", uidList({2, 2})); }), "twice"},
        {"date without time", soundArchiveWith([](plist_t a) { plist_dict_remove_item(objectAt(a, 3), "NS.time"); }), "date"},
        {"date at infinity", soundArchiveWith([](plist_t a) { setField(a, 3, "NS.time", plist_new_real(INFINITY)); }), "date"},
        {"date as text", soundArchiveWith([](plist_t a) { setField(a, 3, "NS.time", plist_new_string("2004-03-01")); }), "date"},
        // Both in the two-byte form libplist keeps whole; the key one would abort libplist itself.
        {"dictionary key with a null character", soundArchivePatched(QByteArray("r\0\xef", 3), QByteArray("r\0\0", 3)), "dictionary key"},
        {"text with a null character", soundArchivePatched(QByteArray("C\0\xe9", 3), QByteArray("C\0\0", 3)), "null character"},
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

} // namespace
