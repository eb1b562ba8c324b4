// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The people file: vCards read and written as address books have them, families, and which file a portfolio uses.
#include "../QtPrinters.h"
#include "../PeopleFixture.h"
#include "model/Holding.h"
#include "model/VCard.h"

#include <QMap>
#include <gtest/gtest.h>

// Found by argument-dependent lookup for failure messages.
void PrintTo(const LabelledEmail &email, std::ostream *out)
{
    *out << email.label.toStdString() << ':' << email.address.toStdString();
}
void PrintTo(const PersonRecord &r, std::ostream *out)
{
    *out << '{' << r.uniqueId.toStdString() << ", " << r.firstName.toStdString() << ", " << r.lastName.toStdString() << ", "
         << testing::PrintToString(r.emails) << ", " << r.otherNameParts.join(u'|').toStdString() << ", "
         << r.otherLines.join(u'|').toStdString() << '}';
}

// Exports of several address books: names, identifier and labelled emails.
TEST(VCard, ReadsNamesIdentifierAndEmails)
{
    const struct { const char *name; QByteArray text; QString uid, first, last; QList<LabelledEmail> emails; } cases[] = {
        {"v3_crlf_typed_emails",
         "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:abc-1\r\nN:Smith;Anna;;;\r\nFN:Anna Smith\r\n"
         "EMAIL;TYPE=INTERNET,HOME:anna@example.org\r\nEMAIL;TYPE=work;TYPE=pref:a.smith@corp.example\r\n"
         "END:VCARD\r\n",
         "abc-1", "Anna", "Smith",
         {{"home", "anna@example.org"}, {"work", "a.smith@corp.example"}}},
        {"v4_lf_quoted_parameters",
         "BEGIN:VCARD\nVERSION:4.0\nUID:urn:uuid:0c5b\nN:O'Neil;Brendan;;;\n"
         "EMAIL;PID=1.1;TYPE=\"home,x-sc:ratch\";PREF=1:b@example.net\nEND:VCARD\n",
         "urn:uuid:0c5b", "Brendan", "O'Neil", {{"home", "b@example.net"}}},
        {"escaped_structured_name",
         "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:e\\,1\r\nN:Dupont\\; fils;Jean\\, Paul;;;\r\nEND:VCARD\r\n",
         "e,1", "Jean, Paul", "Dupont; fils", {}},
        {"folded_lines_with_blank_and_tab",
         "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:fold\r\nN:Gonz\r\n \xc3\xa1lez;Mar\r\n\tia;;;\r\n"
         "EMAIL:maria@exa\r\n mple.com\r\nEND:VCARD\r\n",
         "fold", QString::fromUtf8("Maria"), QString::fromUtf8("Gonz\xc3\xa1lez"),
         {{"other", "maria@example.com"}}},
        {"apple_grouped_label_and_bom",
         "\xEF\xBB\xBF" "BEGIN:VCARD\rVERSION:3.0\rUID:apple\rN:Lee;Kim;;;\r"
         "item1.EMAIL;type=INTERNET:kim@example.com\ritem1.X-ABLabel:_$!<Other>!$_\rEND:VCARD\r",
         "apple", "Kim", "Lee", {{"other", "kim@example.com"}}},
        {"label_without_quotes_or_commas",
         "BEGIN:VCARD\nUID:q\nN:Q;R;;;\nitem2.EMAIL:q@example.org\nitem2.X-ABLabel:My \"Best\", Friend\n"
         "EMAIL;TYPE=\"Pref,  Old  Home\":o@example.org\nEND:VCARD\n",
         "q", "R", "Q", {{"my best friend", "q@example.org"}, {"old home", "o@example.org"}}},
        {"bare_version_2_1_types",
         "BEGIN:VCARD\nVERSION:2.1\nUID:old\nN:Ng;Li\nEMAIL;WORK;INTERNET:li@work.example\nEND:VCARD\n",
         "old", "Li", "Ng", {{"work", "li@work.example"}}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const VCard::ReadResult result = VCard::read(c.text);
        EXPECT_EQ(result.records.size(), 1) << result.warnings.join(u'\n').toStdString();
        const PersonRecord r = result.records.value(0);
        EXPECT_EQ(std::tie(r.uniqueId, r.firstName, r.lastName, r.emails), std::tie(c.uid, c.first, c.last, c.emails));
    }
}

TEST(VCard, CardWithoutIdentifierGetsTheSameOneOnEveryRead)
{
    const QByteArray text = "BEGIN:VCARD\nVERSION:3.0\nN:Nouid;Pat;;;\nEND:VCARD\n";
    const QString first = VCard::read(text).records.value(0).uniqueId;
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(VCard::read(text).records.value(0).uniqueId, first);
    EXPECT_NE(VCard::read("BEGIN:VCARD\nN:Other;Pat;;;\nEND:VCARD\n").records.value(0).uniqueId, first);
}

TEST(VCard, WrittenCardsReadBackUnchangedAndFoldAtSeventyFiveOctets)
{
    const PersonRecord a{QStringLiteral("id;with,specials\\"), QString::fromUtf8("J\xc3\xb6rg"),
                         QStringLiteral("M\u00fcller-L\u00fcdenscheidt, von der Hohen Hochebene im Sauerland und anderswo"),
                         {{"work", "j@example.de"}, {"my own label", "x@example.de"}}, {QStringLiteral("Q."), QStringLiteral("Dr.")},
                         {QStringLiteral("TEL;TYPE=CELL:+49 170 000000"), QStringLiteral("NOTE:") + QString(200, u'\u00e9')}};
    const PersonRecord b{"plain", "Only", {}, {}, {}, {}};
    const QByteArray written = VCard::write({a, b});
    for (const QByteArray &line : written.split('\n'))
        EXPECT_LE(line.size(), 76) << line.constData(); // 75 octets plus the CR
    EXPECT_FALSE(written.contains("\n\r"));
    const VCard::ReadResult back = VCard::read(written);
    EXPECT_EQ(VCard::write(back.records), written) << "a second round changes nothing";
    EXPECT_TRUE(back.warnings.isEmpty());
    EXPECT_EQ(back.records, (QList<PersonRecord>{a, b})); // the generated FN is not kept
}

// Exports of Android, Outlook, Thunderbird, Google, iOS and Evolution, as they are; read, then written without encoding.
TEST(VCard, ReadsAddressBookExportsAsWritten)
{
    const struct { const char *name; QByteArray text; QString first, last; } cases[] = {
        {"android_21_quoted_printable",
         "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Whitfield;=C3=89l=C3=A9onore;;;\r\nEND:VCARD\r\n",
         QStringLiteral("Éléonore"), "Whitfield"},
        {"outlook_21_soft_line_break",
         "BEGIN:VCARD\r\nVERSION:2.1\r\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=windows-1252:Fran=E7ois-Marie=\r\n"
         "-Delacroix;Ren=E9e\r\nEND:VCARD\r\n",
         QStringLiteral("Renée"), QStringLiteral("François-Marie-Delacroix")},
        {"windows_1252_without_charset", "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xfcller;J\xf6rg\x96Peter;;;\r\nEND:VCARD\r\n",
         QStringLiteral("Jörg–Peter"), QStringLiteral("Müller")},
        {"fold_inside_a_character", "BEGIN:VCARD\nVERSION:3.0\nN:Gonz\xc3\n \xa1lez;Ana;;;\nEND:VCARD\n", "Ana", QStringLiteral("González")},
        {"thunderbird_fn_only", "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Rosa Maria Delgado\r\nEMAIL:rosa@example.org\r\nEND:VCARD\r\n",
         "Rosa Maria", "Delgado"},
        {"ios_list_valued_given_name", "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Whitfield;Margaret,Anne;;;\r\nEND:VCARD\r\n",
         "Margaret Anne", "Whitfield"},
        {"evolution_30", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:pas-id-1\r\nN:Whitfield;Thomas;;;\r\nX-EVOLUTION-FILE-AS:Whitfield\\, Thomas\r\n"
         "END:VCARD\r\n", "Thomas", "Whitfield"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const VCard::ReadResult result = VCard::read(c.text);
        ASSERT_EQ(result.records.size(), 1) << result.warnings.join(u'\n').toStdString();
        EXPECT_EQ(result.records.first().firstName, c.first);
        EXPECT_EQ(result.records.first().lastName, c.last);
        // Written again, nothing of the transfer encoding is left to mangle the text next time.
        const QByteArray written = VCard::write({result.records.first()});
        EXPECT_FALSE(written.toUpper().contains("QUOTED-PRINTABLE")) << written.toStdString();
        EXPECT_EQ(VCard::read(written).records.first().lastName, c.last);
    }
}

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
// Whether QUILLMERE_PEOPLE names a file and a people.vcf lies beside the portfolio; "environment", "beside" or "own".
struct PeopleFileCase { const char *name; bool environment, besideExists; const char *chosen; };

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
        // Without UID, the same name and no e-mail is the same person; an e-mail the known one lacks makes another.
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
