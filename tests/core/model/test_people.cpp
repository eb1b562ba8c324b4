// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "../QtPrinters.h"
#include "../PeopleFixture.h"
#include "model/Holding.h"

#include <QMap>
#include <gtest/gtest.h>

TEST(PeopleStore, FamilyIsEveryLastNameStartingWithMineIgnoringCase)
{
    PeopleFixture people;
    EXPECT_TRUE(Person::family(people.store).isEmpty()) << "no me record: no family";
    const PersonRef me = people.person("Ann", "Smith");
    for (const auto &[first, last] : {std::pair{"Bob", "smith"}, {"Cy", "Smithers"}, {"Dee", "Jones"}, {"Eve", "Blacksmith"}})
        people.person(first, last);
    people.store.setMe(me->uniqueId());
    QStringList family;
    for (const PersonRef &p : Person::family(people.store))
        family << p->name();
    EXPECT_EQ(family, (QStringList{"Ann Smith", "Bob smith", "Cy Smithers"}));
}

// Which people file a portfolio's people come from, in the window and every command alike.
struct PeopleFileCase
{
    const char *name;
    bool environment;  // QUILLMERE_PEOPLE names a file
    bool besideExists; // a people.vcf lies beside the portfolio
    const char *chosen; // "environment", "beside" or "own"
};

void PrintTo(const PeopleFileCase &c, std::ostream *out) { *out << c.name; }

class PeopleFileForPortfolio : public testing::TestWithParam<PeopleFileCase> {};

TEST_P(PeopleFileForPortfolio, EnvironmentThenBesideThenTheUsersOwn)
{
    const PeopleFileCase &c = GetParam();
    const QString folder = TestSupport::temporaryDirectory(), beside = folder + QStringLiteral("/people.vcf");
    if (c.besideExists)
        TestSupport::writeFile(beside, "BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n");
    const QString named = TestSupport::temporaryDirectory() + QStringLiteral("/named.vcf");
    if (c.environment)
        qputenv(PeopleStore::PathEnvironmentVariable, named.toLocal8Bit());
    const QString chosen = PeopleStore::pathForPortfolio(folder + QStringLiteral("/family.bondportfolio"));
    qunsetenv(PeopleStore::PathEnvironmentVariable);
    const QMap<QString, QString> expected{{"environment", named}, {"beside", beside}, {"own", PeopleStore::defaultPath()}};
    EXPECT_EQ(chosen, expected.value(QString::fromLatin1(c.chosen)));
    EXPECT_EQ(&PeopleStore::shared(chosen), &PeopleStore::shared(chosen)) << "one store per file";
}

INSTANTIATE_TEST_SUITE_P(Rule, PeopleFileForPortfolio, testing::Values(
    PeopleFileCase{"environment before beside", true, true, "environment"},
    PeopleFileCase{"beside", false, true, "beside"},
    PeopleFileCase{"nothing beside", false, false, "own"}));

// Each export is imported twice: the second import must find everyone already there.
TEST(PeopleStore, ImportAddsEachUidOnceKeepsKnownPeopleAndRefusesUnreadableFiles)
{
    const struct { const char *card; int added, known; } cases[] = {
        {"UID:NEW-2\nN:Jones;Bo;;;", 1, 0}, {"UID:KNOWN-1\nN:Renamed;Anna;;;", 0, 1}, {"N:Lee;Cy;;;", 1, 0},
        // Without UID, the same name (and no e-mail on either) is the same person; an e-mail the
        // known one lacks makes another.
        {"N:;ann;;;", 0, 1}, {"N:;Ann;;;\nEMAIL:ann@example.org", 1, 0},
        {nullptr, -1, 0}}; // no such file
    const PersonRecord known{"KNOWN-1", "Ann", {}, {}, {}, {}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.card ? c.card : "missing file");
        PeopleFixture people;
        people.store.createRecord(known);
        ASSERT_TRUE(people.store.save());
        const QByteArray before = TestSupport::readFile(people.store.path());
        const QString vcf = TestSupport::temporaryDirectory() + QStringLiteral("/export.vcf");
        if (c.card)
            TestSupport::writeFile(vcf, "BEGIN:VCARD\nVERSION:3.0\n" + QByteArray(c.card) + "\nEND:VCARD\n");
        PeopleStore::ImportSummary first, second;
        QString error;
        ASSERT_EQ(people.store.importRecords(vcf, &first, &error), c.added >= 0);
        if (c.added < 0) {
            EXPECT_FALSE(error.isEmpty());
            EXPECT_EQ(TestSupport::readFile(people.store.path()), before);
            continue;
        }
        ASSERT_TRUE(people.store.importRecords(vcf, &second));
        EXPECT_EQ((std::pair{first.added, first.alreadyThere}), (std::pair{c.added, c.known}));
        EXPECT_EQ((std::pair{second.added, second.alreadyThere}), (std::pair{0, 1}));
        PeopleStore reread(people.store.path());
        EXPECT_EQ(reread.records().size(), 1 + c.added);
        EXPECT_EQ(reread.recordForUniqueId(QStringLiteral("KNOWN-1"))->firstName, QStringLiteral("Ann"));
    }
}

// A card that cannot be read is named in the summary the window shows.
TEST(PeopleStore, ImportSaysWhichCardsItSkipped)
{
    PeopleFixture people;
    const QString vcf = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/mixed.vcf"),
                                               "BEGIN:VCARD\nVERSION:9.9\nN:Old;Card;;;\nEND:VCARD\n"
                                               "BEGIN:VCARD\nVERSION:3.0\nN:Good;Card;;;\nEND:VCARD\n");
    PeopleStore::ImportSummary summary;
    ASSERT_TRUE(people.store.importRecords(vcf, &summary));
    EXPECT_EQ(summary.added, 1);
    EXPECT_EQ(summary.skipped, QStringList{"Skipped the card starting at line 1: unsupported version 9.9."});
}

TEST(Person, NameNeedsBothNamesAndIdentityIsTheRecordIdentifierAlone)
{
    PeopleFixture people;
    const struct { const char *first, *last, *expected; } cases[] = {
        {"Ann", "Smith", "Ann Smith"}, {"Ann", "", "Deleted User"}, {"", "Acme Corp", "Deleted User"}};
    for (const auto &c : cases)
        EXPECT_EQ(people.person(c.first, c.last)->name(), QString::fromLatin1(c.expected)) << c.first << '|' << c.last;
    EXPECT_EQ(Person(nullptr).name(), QStringLiteral("Deleted User"));
    const PersonRef ann = people.person("Ann", "Smith");
    EXPECT_TRUE(samePerson(ann.get(), Person::create(ann->record()).get()));
    EXPECT_FALSE(samePerson(ann.get(), people.person("Ann", "Smith").get()));
}
