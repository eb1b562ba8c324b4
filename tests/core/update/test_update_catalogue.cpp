// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue in every form, where files are looked for, automatic checks at most daily and only while values lack.
#include "../QtPrinters.h"
#include "HandMadePlist.h"
#include "IndependentReaders.h"
#include "PriceUpdateTestData.h"
#include "base/UserDefaults.h"
#include "update/AutomaticUpdateCheck.h"
#include "update/UpdateCatalogue.h"
#include "update/UpdateLocation.h"

// The catalogue as libplist, which the program does not use, writes it in either form.
QByteArray libplistCatalogue(const QStringList &entries, bool binary)
{
    const PlistPtr root(plist_new_array());
    for (const QString &entry : entries)
        plist_array_append_item(root.get(), plist_new_string(entry.toUtf8().constData()));
    return binary ? libplistBinary(root.get()) : libplistXml(root.get());
}

QByteArray xml(const char *body)
{
    return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">") + body + "</plist>";
}

// Arrays inside arrays, far deeper than any parser's stack allows for by recursion.
QByteArray deeplyNestedXml(int levels)
{
    return xml((QByteArray("<array>").repeated(levels) + QByteArray("</array>").repeated(levels)).constData());
}

// Arrays each referring `width` times to the next: expanded, width^levels values.
QByteArray fanningOutBinary(int levels, int width) { return HandMadePlist::binary(HandMadePlist::chainOfArrays(levels, width)); }

struct CatalogueCase
{
    const char *name;
    QByteArray data;
    UpdateCatalogue::Status status;
    QStringList entries;
    const char *errorMentions = "";
};

class CatalogueParsing : public ::testing::TestWithParam<CatalogueCase> {};

TEST_P(CatalogueParsing, ReadsOrRefuses)
{
    const UpdateCatalogue catalogue = UpdateCatalogue::parse(GetParam().data);
    EXPECT_EQ(catalogue.status(), GetParam().status);
    EXPECT_EQ(catalogue.entries(), GetParam().entries);
    EXPECT_EQ(catalogue.error().isEmpty(), GetParam().status != UpdateCatalogue::Status::Corrupt);
    EXPECT_TRUE(catalogue.error().contains(QLatin1String(GetParam().errorMentions))) << catalogue.error().toStdString();
}

using Status = UpdateCatalogue::Status;
const QStringList names = {QStringLiteral("sb202112.bin"), QStringLiteral("more/it's.bin"),
                           QStringLiteral("https://example.org/x.bin"), QString::fromUtf8("caf\u00e9.bin")};

// Replies too deep or wide for the parser are refused before parsing; the same shapes read when small.
INSTANTIATE_TEST_SUITE_P(
    Forms, CatalogueParsing,
    ::testing::Values(
        CatalogueCase{"Published", UpdateCatalogue::encode(names), Status::Valid, names},
        CatalogueCase{"Binary", libplistCatalogue(names, true), Status::Valid, names},
        CatalogueCase{"EmptyArray", xml("<array/>"), Status::Valid, {}},
        CatalogueCase{"NoData", QByteArray(), Status::Unavailable, {}},
        CatalogueCase{"Html", "<html><body>Not found</body></html>", Status::Corrupt, {}},
        CatalogueCase{"TruncatedXml", UpdateCatalogue::encode(names).left(60), Status::Corrupt, {}},
        CatalogueCase{"TopLevelString", xml("<string>a.bin</string>"), Status::Corrupt, {}},
        CatalogueCase{"NumberInArray", xml("<array><string>a.bin</string><integer>3</integer></array>"), Status::Corrupt, {}},
        CatalogueCase{"EmptyName", xml("<array><string>a.bin</string><string></string></array>"), Status::Corrupt, {}},
        CatalogueCase{"ShallowXml", deeplyNestedXml(3), Status::Corrupt, {}, "entry 0 is not a string"},
        CatalogueCase{"NarrowBinary", fanningOutBinary(3, 2), Status::Corrupt, {}, "entry 0 is not a string"},
        CatalogueCase{"DeepXml", deeplyNestedXml(1'000'000), Status::Corrupt, {}, "nested"},
        CatalogueCase{"DeepBinary", fanningOutBinary(200, 1), Status::Corrupt, {}, "nested"},
        CatalogueCase{"WideBinary", fanningOutBinary(4, 200), Status::Corrupt, {}, "more than"}),
    [](const auto &info) { return std::string(info.param.name); });

// What is published is, byte for byte, the XML other property-list tools write.
TEST(CataloguePublishing, WritesWhatLibplistWrites)
{
    for (const QStringList &entries : {QStringList(), names + QStringList{QStringLiteral("a&b<c>d\"e.bin")}})
        EXPECT_EQ(UpdateCatalogue::encode(entries), libplistCatalogue(entries, false));
}

// The Fiscal Data service is asked over HTTP or HTTPS only.
TEST(UpdateLocation, FiscalDataRootTakesOnlyWebAddresses)
{
    const QByteArray kept = qgetenv(UpdateLocation::FiscalDataRootEnvironmentVariable);
    qputenv(UpdateLocation::FiscalDataRootEnvironmentVariable, "ftp://127.0.0.1/fiscal");
    EXPECT_EQ(UpdateLocation::fiscalDataRoot(), QUrl(QString::fromLatin1(UpdateLocation::DefaultFiscalDataRoot)));
    qputenv(UpdateLocation::FiscalDataRootEnvironmentVariable, kept);
}

const QDateTime Now(QDate(2026, 11, 23), QTime(12, 0), Qt::UTC);

struct TimingCase { const char *name; bool enabled; qint64 lastCheckSecondsAgo; bool due; }; // -1 seconds ago: never

class CheckTiming : public ::testing::TestWithParam<TimingCase> {};

TEST_P(CheckTiming, IsDueOnlyWhenEnabledAndADayHasPassed)
{
    QSettings settings = UserDefaults::settings();
    settings.clear();
    if (!GetParam().enabled)
        AutomaticUpdateCheck::setEnabled(false);
    if (GetParam().lastCheckSecondsAgo != -1)
        AutomaticUpdateCheck::noteCheck(Now.addSecs(-GetParam().lastCheckSecondsAgo));
    EXPECT_EQ(AutomaticUpdateCheck::isTimeForCheck(Now), GetParam().due);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, CheckTiming,
    ::testing::Values(TimingCase{"NeverChecked", true, -1, true}, TimingCase{"TurnedOff", false, -1, false},
                      TimingCase{"CheckedAnHourAgo", true, 3600, false}, TimingCase{"CheckedADayAgo", true, 24 * 3600, true},
                      TimingCase{"CheckedAlmostADayAgo", true, 24 * 3600 - 60, false},
                      TimingCase{"TurnedOffAfterAWeek", false, 7 * 24 * 3600, false},
                      TimingCase{"CheckNotedInTheFuture", true, -3600, true}),
    [](const auto &info) { return std::string(info.param.name); });

// Lacking until every series has official values of the month (the shipped database's EE ones end 11/2021).
TEST(CurrentValues, LackedUntilEverySeriesHasTheMonth)
{
    EXPECT_TRUE(AutomaticUpdateCheck::lacksCurrentValues(TestSupport::copyOfShippedDatabase(), Now));
    const QString database = TestSupport::emptyDatabase();
    QList<PriceRecord> records;
    for (const char series : {'E', 'N', 'I', 'S'})
        records << PriceUpdateTestData::record(series, 2026, 11, 2000, 3000);
    ASSERT_TRUE(PriceUpdateTestData::installOfficial(database, {"current", records}).ok());
    EXPECT_FALSE(AutomaticUpdateCheck::lacksCurrentValues(database, Now));
    EXPECT_TRUE(AutomaticUpdateCheck::lacksCurrentValues(database, Now.addMonths(1)));
    EXPECT_FALSE(AutomaticUpdateCheck::lacksCurrentValues(TestSupport::temporaryDirectory() + "/none.bvdb", Now));
}
