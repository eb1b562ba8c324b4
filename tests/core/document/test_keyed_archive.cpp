// Keyed archives: round trips, the layout Foundation expects, refusal of damaged or hostile
// files, and a check of written files by Python's independent property-list reader.
#include "document/KeyedArchive.h"

#include "TestSupport.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <limits>

namespace {

using ObjectPtr = std::shared_ptr<ArchiveObject>;
using ArrayPtr = std::shared_ptr<ArchiveArray>;
using DictionaryPtr = std::shared_ptr<ArchiveDictionary>;

constexpr qint64 Int64Max = std::numeric_limits<qint64>::max();
constexpr qint64 Int64Min = std::numeric_limits<qint64>::min();

ArchiveRef text(const char *value) { return QString::fromUtf8(value); }

ObjectPtr makeObject(const QString &className, const QList<std::pair<QString, ArchiveField>> &fields = {})
{
    auto object = std::make_shared<ArchiveObject>();
    object->className = className;
    object->classHierarchy = {className, QStringLiteral("NSObject")};
    for (const auto &[key, value] : fields)
        object->set(key, value);
    return object;
}

ArrayPtr makeArray(const QList<ArchiveRef> &items, const QString &className = QStringLiteral("NSMutableArray"))
{
    auto array = std::make_shared<ArchiveArray>();
    array->className = className;
    array->items = items;
    return array;
}

DictionaryPtr makeDictionary(const QList<std::pair<QString, ArchiveRef>> &entries,
                             const QString &className = QStringLiteral("NSMutableDictionary"))
{
    auto dictionary = std::make_shared<ArchiveDictionary>();
    dictionary->className = className;
    dictionary->entries = entries;
    return dictionary;
}

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int msec = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second, msec), QTimeZone::utc());
}

// Renders a graph as text in which an object met again prints as "@n", n being the number it got
// when first met: equal texts mean equal structure and equal sharing.
class GraphText
{
public:
    QString of(const ArchiveRef &ref)
    {
        if (const auto *string = std::get_if<QString>(&ref))
            return QLatin1Char('"') + *string + QLatin1Char('"');
        if (const auto *date = std::get_if<ArchiveDate>(&ref))
            return QStringLiteral("date(%1)").arg(date->instant.toMSecsSinceEpoch());
        if (const auto *data = std::get_if<ArchiveData>(&ref))
            return QStringLiteral("data(%1)").arg(QString::fromLatin1(data->bytes.toHex()));
        if (const auto *object = std::get_if<ObjectPtr>(&ref))
            return node(object->get(), [&](const ArchiveObject &o) {
                return o.className + o.classHierarchy.join(QLatin1Char('<')) + entries(o.fields);
            });
        if (const auto *array = std::get_if<ArrayPtr>(&ref))
            return node(array->get(), [&](const ArchiveArray &a) {
                QStringList items;
                for (const ArchiveRef &item : a.items)
                    items.append(of(item));
                return a.className + QLatin1Char('[') + items.join(QLatin1Char(',')) + QLatin1Char(']');
            });
        if (const auto *dictionary = std::get_if<DictionaryPtr>(&ref))
            return node(dictionary->get(), [&](const ArchiveDictionary &d) { return d.className + entries(d.entries); });
        return QStringLiteral("nil");
    }

private:
    QString of(const ArchiveField &field)
    {
        if (const auto *integer = std::get_if<qint64>(&field))
            return QStringLiteral("int(%1)").arg(*integer);
        if (const auto *flag = std::get_if<bool>(&field))
            return *flag ? QStringLiteral("yes") : QStringLiteral("no");
        if (const auto *real = std::get_if<double>(&field))
            return QStringLiteral("real(%1)").arg(*real, 0, 'g', 17);
        return of(std::get<ArchiveRef>(field));
    }

    template<typename Entries>
    QString entries(const Entries &list)
    {
        QStringList parts;
        for (const auto &[key, value] : list)
            parts.append(key + QLatin1Char('=') + of(value));
        return QLatin1Char('{') + parts.join(QLatin1Char(',')) + QLatin1Char('}');
    }

    template<typename Node, typename Render>
    QString node(const Node *pointer, Render render)
    {
        if (const auto seen = m_seen.constFind(pointer); seen != m_seen.constEnd())
            return QStringLiteral("@%1").arg(*seen);
        const int number = int(m_seen.size());
        m_seen.insert(pointer, number);
        return QStringLiteral("#%1 ").arg(number) + render(*pointer);
    }

    QHash<const void *, int> m_seen;
};

// A portfolio-like graph with every kind of value, shared objects and a nil.
ArchiveRef sampleGraph()
{
    auto person = makeObject(QStringLiteral("Person"), {{QStringLiteral("uid"), text("5F1C-ABCD:ABPerson")}});
    auto series = makeObject(QStringLiteral("Series"), {{QStringLiteral("code"), text("N")}});
    auto first = makeObject(QStringLiteral("Holding"),
                            {{QStringLiteral("series"), series},
                             {QStringLiteral("quantity"), qint64(2)},
                             {QStringLiteral("faceValue"), Int64Max},
                             {QStringLiteral("lowest"), Int64Min},
                             {QStringLiteral("minusOne"), qint64(-1)},
                             {QStringLiteral("issueDate"), ArchiveDate{utc(2004, 3, 1, 0, 0, 1, 250)}},
                             {QStringLiteral("serialNumber"), text("C123456789EE")},
                             {QStringLiteral("owner"), person},
                             {QStringLiteral("coOwner"), ArchiveRef()},
                             {QStringLiteral("paper"), false},
                             {QStringLiteral("checked"), true},
                             {QStringLiteral("rate"), 0.0325},
                             {QStringLiteral("$price"), text("Ünïcode €")}});
    auto second = makeObject(QStringLiteral("Holding"), {{QStringLiteral("series"), series},
                                                         {QStringLiteral("serialNumber"), text("C123456789EE")},
                                                         {QStringLiteral("owner"), person}});
    return makeDictionary({{QStringLiteral("holdings"), makeArray({first, second, first})},
                           {QStringLiteral("titleHolders"), makeArray({person}, QStringLiteral("NSArray"))},
                           {QStringLiteral("nothing"), ArchiveRef()},
                           {QStringLiteral("empty"), makeDictionary({}, QStringLiteral("NSDictionary"))}});
}

KeyedArchive::DecodeResult roundTrip(const ArchiveRef &root)
{
    QString error;
    const QByteArray bytes = KeyedArchive::encode(root, &error);
    EXPECT_FALSE(bytes.isEmpty()) << error.toStdString();
    return KeyedArchive::decode(bytes);
}

TEST(KeyedArchiveRoundTrip, KeepsValuesOrderAndSharing)
{
    const ArchiveRef graph = sampleGraph();
    const auto result = roundTrip(graph);
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_EQ(GraphText().of(result.root), GraphText().of(graph));

}

TEST(KeyedArchiveRoundTrip, EveryKindOfRootValue)
{
    auto longList = makeArray({});
    for (int i = 0; i < 300; ++i) // long enough for libplist's indexed look-up to matter
        longList->items.append(i % 3 ? ArchiveRef(QString::number(i)) : ArchiveRef(makeObject(QStringLiteral("Item"))));
    const QList<ArchiveRef> roots = {ArchiveRef(), text(""), text("plain"), ArchiveDate{utc(2001, 1, 1)}, longList,
                                     makeArray({}), makeArray({ArchiveRef(), text("after nil")}),
                                     makeObject(QStringLiteral("Empty")), ArchiveData{QByteArray("\0\xff", 2)}};
    for (qsizetype i = 0; i < roots.size(); ++i) {
        SCOPED_TRACE(i);
        const auto result = roundTrip(roots[i]);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        EXPECT_EQ(GraphText().of(result.root), GraphText().of(roots[i]));
    }
}

TEST(KeyedArchiveRoundTrip, DatesKeepTheirMillisecond)
{
    const QList<QDateTime> dates = {utc(2001, 1, 1),         utc(1970, 1, 1),
                                    utc(1941, 5, 1, 0, 0, 1), utc(2024, 2, 29, 12, 34, 56, 789),
                                    utc(2000, 12, 31, 23, 59, 59, 999), utc(2999, 12, 31, 23, 59, 59, 1),
                                    QDateTime(QDate(1992, 6, 1), QTime(0, 0, 1))};
    for (const QDateTime &date : dates) {
        SCOPED_TRACE(date.toString(Qt::ISODateWithMs).toStdString());
        const auto result = roundTrip(makeArray({ArchiveDate{date}}));
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        const auto &decoded = std::get<ArchiveDate>(std::get<ArrayPtr>(result.root)->items[0]).instant;
        EXPECT_EQ(decoded.toMSecsSinceEpoch(), date.toMSecsSinceEpoch());
    }
}

TEST(KeyedArchiveEncode, RefusesGraphsItCouldNotReadBack)
{
    auto selfReferring = makeObject(QStringLiteral("Loop"));
    selfReferring->set(QStringLiteral("me"), selfReferring);
    auto outer = makeArray({});
    outer->items.append(makeDictionary({{QStringLiteral("back"), outer}}));
    ArchiveRef chain = text("bottom");
    for (int i = 0; i < 999; ++i)
        chain = makeArray({chain});
    ASSERT_TRUE(roundTrip(chain).ok); // 1000 levels with the text are fine, one more is not
    auto manyKeys = makeObject(QStringLiteral("Wide"));
    for (int i = 0; i < 100; ++i)
        manyKeys->set(QStringLiteral("key%1").arg(i), qint64(i));
    const struct
    {
        const char *name;
        ArchiveRef graph;
    } cases[] = {
        {"object refers to itself", selfReferring},
        {"cycle through an array and a dictionary", outer},
        {"nested too deeply", makeArray({chain})},
        {"invalid date", ArchiveDate{QDateTime()}},
        {"array of unknown class", makeArray({}, QStringLiteral("NSSet"))},
        {"object posing as a Foundation class", makeObject(QStringLiteral("NSDate"))},
        {"object with more keys than a reader accepts", manyKeys},
        {"text with a null character", ArchiveRef(QStringLiteral("a") + QChar(0) + QStringLiteral("b"))},
    };
    for (const auto &testCase : cases) {
        SCOPED_TRACE(testCase.name);
        QString error;
        EXPECT_TRUE(KeyedArchive::encode(testCase.graph, &error).isEmpty());
        EXPECT_FALSE(error.isEmpty());
    }
}


// What the independent reader below cannot see: equal strings are stored once, each class has
// one description, and every other dictionary names one.
TEST(KeyedArchiveLayout, SharesStringsAndClassDescriptions)
{
    const QByteArray bytes = KeyedArchive::encode(sampleGraph());
    plist_t parsed = nullptr;
    plist_from_bin(bytes.constData(), uint32_t(bytes.size()), &parsed);
    const std::unique_ptr<void, void (*)(plist_t)> archive(parsed, plist_free);
    ASSERT_TRUE(PLIST_IS_DICT(parsed));
    plist_t objects = plist_dict_get_item(parsed, "$objects");
    ASSERT_TRUE(PLIST_IS_ARRAY(objects));
    QStringList strings;
    QStringList classNames;
    for (uint32_t i = 1; i < plist_array_get_size(objects); ++i) {
        plist_t entry = plist_array_get_item(objects, i);
        if (PLIST_IS_STRING(entry))
            strings << QString::fromUtf8(plist_get_string_ptr(entry, nullptr));
        if (!PLIST_IS_DICT(entry))
            continue;
        if (plist_t name = plist_dict_get_item(entry, "$classname")) {
            classNames << QString::fromUtf8(plist_get_string_ptr(name, nullptr));
        } else {
            uint64_t classIndex = 0;
            plist_get_uid_val(plist_dict_get_item(entry, "$class"), &classIndex);
            EXPECT_TRUE(plist_dict_get_item(plist_array_get_item(objects, uint32_t(classIndex)), "$classname")) << i;
        }
    }
    EXPECT_EQ(strings.count(QStringLiteral("C123456789EE")), 1);
    EXPECT_EQ(QSet<QString>(strings.begin(), strings.end()).size(), strings.size());
    EXPECT_EQ(QSet<QString>(classNames.begin(), classNames.end()).size(), classNames.size());
}

TEST(KeyedArchiveIndependentReader, PythonSeesTheSameGraph)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        GTEST_SKIP() << "python3 is not installed";
    const QString path = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/sample.bondportfolio"),
                                                KeyedArchive::encode(sampleGraph()));
    QProcess reader;
    reader.start(python, {TestSupport::sourcePath(QStringLiteral("tests/core/document/read_keyed_archive.py")), path});
    ASSERT_TRUE(reader.waitForFinished(60000));
    ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    const QJsonObject json = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();

    EXPECT_EQ(json["format"].toString(), QStringLiteral("binary"));
    EXPECT_EQ(json["topKeys"].toArray(), QJsonArray({"$archiver", "$objects", "$top", "$version"}));
    EXPECT_EQ(json["archiver"].toString(), QStringLiteral("NSKeyedArchiver"));
    EXPECT_EQ(json["version"].toInteger(), 100000);
    EXPECT_EQ(json["null"].toString(), QStringLiteral("$null"));
    EXPECT_EQ(json["classDictionaryCount"].toInt(), 8);
    const QJsonObject hierarchies = json["hierarchies"].toObject();
    EXPECT_EQ(hierarchies.keys(), QStringList({"Holding", "NSArray", "NSDate", "NSDictionary", "NSMutableArray",
                                               "NSMutableDictionary", "Person", "Series"}));
    EXPECT_EQ(hierarchies["NSMutableArray"].toArray(), QJsonArray({"NSMutableArray", "NSArray", "NSObject"}));
    EXPECT_EQ(hierarchies["NSMutableDictionary"].toArray(), QJsonArray({"NSMutableDictionary", "NSDictionary", "NSObject"}));
    EXPECT_EQ(hierarchies["NSDate"].toArray(), QJsonArray({"NSDate", "NSObject"}));
    EXPECT_EQ(hierarchies["Holding"].toArray(), QJsonArray({"Holding", "NSObject"}));

    const QJsonObject root = json["root"].toObject();
    EXPECT_EQ(root.keys(), QStringList({"empty", "holdings", "nothing", "titleHolders"}));
    EXPECT_TRUE(root["nothing"].isNull());
    EXPECT_EQ(root["empty"].toObject(), QJsonObject());
    const QJsonArray holdings = root["holdings"].toArray();
    ASSERT_EQ(holdings.size(), 3);
    const QJsonObject first = holdings[0].toObject();
    EXPECT_EQ(first["$class"].toString(), QStringLiteral("Holding"));
    EXPECT_EQ(first["quantity"].toInteger(), 2);
    EXPECT_EQ(first["faceValue"].toInteger(), Int64Max);
    EXPECT_EQ(first["lowest"].toInteger(), Int64Min);
    EXPECT_EQ(first["minusOne"].toInteger(), -1);
    EXPECT_EQ(first["paper"], QJsonValue(false));
    EXPECT_EQ(first["checked"], QJsonValue(true));
    EXPECT_EQ(first["rate"].toDouble(), 0.0325);
    EXPECT_EQ(first["issueDate"]["$date"].toString(), QStringLiteral("2004-03-01T00:00:01.250+00:00"));
    EXPECT_EQ(first["serialNumber"].toString(), QStringLiteral("C123456789EE"));
    EXPECT_TRUE(first["coOwner"].isNull());
    EXPECT_EQ(first["$$price"].toString(), QStringLiteral("Ünïcode €"));
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

} // namespace
