// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Keyed archives: refusal of graphs that could not be read back, and what Python's reader sees in a written file.
#include "document/KeyedArchive.h"

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

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int msec = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second, msec), QTimeZone::utc());
}

// A portfolio-like graph with every kind of value, shared objects and a nil.
ArchiveRef sampleGraph()
{
    auto person = makeObject("Person", {{"uid", text("5F1C-ABCD:ABPerson")}});
    auto series = makeObject("Series", {{"code", text("N")}});
    auto first = makeObject("Holding", {{"series", series}, {"quantity", qint64(2)}, {"faceValue", Int64Max},
                                        {"lowest", Int64Min}, {"minusOne", qint64(-1)},
                                        {"issueDate", ArchiveDate{utc(2004, 3, 1, 0, 0, 1, 250)}},
                                        {"serialNumber", text("C123456789EE")}, {"owner", person},
                                        {"coOwner", ArchiveRef()}, {"paper", false}, {"checked", true},
                                        {"rate", 0.0325}, {"$price", text("Ünïcode €")}});
    auto second = makeObject("Holding", {{"series", series}, {"serialNumber", text("C123456789EE")}, {"owner", person}});
    return makeDictionary({{"holdings", makeArray({first, second, first})},
                           {"titleHolders", makeArray({person}, "NSArray")},
                           {"nothing", ArchiveRef()},
                           {"empty", makeDictionary({}, "NSDictionary")}});
}

KeyedArchive::DecodeResult roundTrip(const ArchiveRef &root)
{
    QString error;
    const QByteArray bytes = KeyedArchive::encode(root, &error);
    EXPECT_FALSE(bytes.isEmpty()) << error.toStdString();
    return KeyedArchive::decode(bytes);
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
    ASSERT_TRUE(roundTrip(chain).ok); // 1000 levels with the text are fine, one more is not
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
