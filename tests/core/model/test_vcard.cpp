#include "../QtPrinters.h"
#include "model/VCard.h"

#include <gtest/gtest.h>

// Found by argument-dependent lookup for failure messages.
void PrintTo(const LabelledEmail &email, std::ostream *out)
{
    *out << email.label.toStdString() << ':' << email.address.toStdString();
}

namespace {

struct ParseCase
{
    const char *name;
    QByteArray text;
    QString uid;
    QString first;
    QString last;
    QList<LabelledEmail> emails;
};

class VCardParsing : public ::testing::TestWithParam<ParseCase>
{
};

TEST_P(VCardParsing, ReadsNamesIdentifierAndEmails)
{
    const ParseCase &c = GetParam();
    const VCard::ReadResult result = VCard::read(c.text);
    ASSERT_EQ(result.records.size(), 1) << result.warnings.join(u'\n').toStdString();
    const PersonRecord &record = result.records.first();
    EXPECT_EQ(record.uniqueId, c.uid);
    EXPECT_EQ(record.firstName, c.first);
    EXPECT_EQ(record.lastName, c.last);
    EXPECT_EQ(record.emails, c.emails);
}

INSTANTIATE_TEST_SUITE_P(
    Exports, VCardParsing,
    ::testing::Values(
        ParseCase{"v3_crlf_typed_emails",
                  "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:abc-1\r\nN:Smith;Anna;;;\r\nFN:Anna Smith\r\n"
                  "EMAIL;TYPE=INTERNET,HOME:anna@example.org\r\nEMAIL;TYPE=work;TYPE=pref:a.smith@corp.example\r\n"
                  "END:VCARD\r\n",
                  "abc-1", "Anna", "Smith",
                  {{"home", "anna@example.org"}, {"work", "a.smith@corp.example"}}},
        ParseCase{"v4_lf_quoted_parameters",
                  "BEGIN:VCARD\nVERSION:4.0\nUID:urn:uuid:0c5b\nN:O'Neil;Brendan;;;\n"
                  "EMAIL;PID=1.1;TYPE=\"home,x-sc:ratch\";PREF=1:b@example.net\nEND:VCARD\n",
                  "urn:uuid:0c5b", "Brendan", "O'Neil", {{"home", "b@example.net"}}},
        ParseCase{"escaped_structured_name",
                  "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:e\\,1\r\nN:Dupont\\; fils;Jean\\, Paul;;;\r\nEND:VCARD\r\n",
                  "e,1", "Jean, Paul", "Dupont; fils", {}},
        ParseCase{"folded_lines_with_blank_and_tab",
                  "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:fold\r\nN:Gonz\r\n \xc3\xa1lez;Mar\r\n\tia;;;\r\n"
                  "EMAIL:maria@exa\r\n mple.com\r\nEND:VCARD\r\n",
                  "fold", QString::fromUtf8("Maria"), QString::fromUtf8("Gonz\xc3\xa1lez"),
                  {{"other", "maria@example.com"}}},
        ParseCase{"apple_grouped_label_and_bom",
                  "\xEF\xBB\xBF" "BEGIN:VCARD\rVERSION:3.0\rUID:apple\rN:Lee;Kim;;;\r"
                  "item1.EMAIL;type=INTERNET:kim@example.com\ritem1.X-ABLabel:_$!<Other>!$_\rEND:VCARD\r",
                  "apple", "Kim", "Lee", {{"other", "kim@example.com"}}},
        ParseCase{"label_without_quotes_or_commas",
                  "BEGIN:VCARD\nUID:q\nN:Q;R;;;\nitem2.EMAIL:q@example.org\nitem2.X-ABLabel:My \"Best\", Friend\n"
                  "EMAIL;TYPE=\"Pref,  Old  Home\":o@example.org\nEND:VCARD\n",
                  "q", "R", "Q", {{"my best friend", "q@example.org"}, {"old home", "o@example.org"}}},
        ParseCase{"bare_version_2_1_types",
                  "BEGIN:VCARD\nVERSION:2.1\nUID:old\nN:Ng;Li\nEMAIL;WORK;INTERNET:li@work.example\nEND:VCARD\n",
                  "old", "Li", "Ng", {{"work", "li@work.example"}}}),
    [](const ::testing::TestParamInfo<ParseCase> &info) { return std::string(info.param.name); });

struct MalformedCase
{
    const char *name;
    QByteArray card;
};

class VCardMalformed : public ::testing::TestWithParam<MalformedCase>
{
};

// The bad card is skipped with a warning; the good cards around it are kept.
TEST_P(VCardMalformed, SkipsOnlyTheBadCard)
{
    const QByteArray good1 = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:good-1\r\nN:One;A;;;\r\nEND:VCARD\r\n";
    const QByteArray good2 = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:good-2\r\nN:Two;B;;;\r\nEND:VCARD\r\n";
    const VCard::ReadResult result = VCard::read(good1 + GetParam().card + good2);
    QStringList ids;
    for (const PersonRecord &r : result.records)
        ids << r.uniqueId;
    EXPECT_EQ(ids, (QStringList{"good-1", "good-2"}));
    EXPECT_FALSE(result.warnings.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Cards, VCardMalformed,
    ::testing::Values(MalformedCase{"line_without_colon", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:x\r\nN Smith\r\nEND:VCARD\r\n"},
                      MalformedCase{"unclosed_quote", "BEGIN:VCARD\r\nUID:x\r\nEMAIL;TYPE=\"home:a@b\r\nEND:VCARD\r\n"},
                      MalformedCase{"unknown_version", "BEGIN:VCARD\r\nVERSION:9.9\r\nUID:x\r\nN:A;B;;;\r\nEND:VCARD\r\n"},
                      MalformedCase{"duplicate_identifier", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:good-1\r\nN:Dup;C;;;\r\nEND:VCARD\r\n"},
                      MalformedCase{"nested_begin_without_end", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:x\r\n"},
                      MalformedCase{"stray_line_outside_cards", "garbage between cards\r\n"}),
    [](const ::testing::TestParamInfo<MalformedCase> &info) { return std::string(info.param.name); });

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
    PersonRecord a;
    a.uniqueId = QStringLiteral("id;with,specials\\");
    a.firstName = QString::fromUtf8("J\xc3\xb6rg");
    a.lastName = QStringLiteral("M\u00fcller-L\u00fcdenscheidt, von der Hohen Hochebene im Sauerland und anderswo");
    a.emails = {{"work", "j@example.de"}, {"my own label", "x@example.de"}};
    a.otherNameParts = {QStringLiteral("Q."), QStringLiteral("Dr.")};
    a.otherLines = {QStringLiteral("TEL;TYPE=CELL:+49 170 000000"),
                    QStringLiteral("NOTE:") + QString(200, u'\u00e9')};
    PersonRecord b;
    b.uniqueId = QStringLiteral("plain");
    b.firstName = QStringLiteral("Only");
    const QByteArray written = VCard::write({a, b});
    for (const QByteArray &line : written.split('\n'))
        EXPECT_LE(line.size(), 76) << line.constData(); // 75 octets plus the CR
    EXPECT_FALSE(written.contains("\n\r"));
    const VCard::ReadResult back = VCard::read(written);
    EXPECT_EQ(VCard::write(back.records), written) << "a second round changes nothing";
    EXPECT_TRUE(back.warnings.isEmpty());
    ASSERT_EQ(back.records.size(), 2);
    EXPECT_EQ(back.records.at(0).uniqueId, a.uniqueId);
    EXPECT_EQ(back.records.at(0).firstName, a.firstName);
    EXPECT_EQ(back.records.at(0).lastName, a.lastName);
    EXPECT_EQ(back.records.at(0).emails, a.emails);
    EXPECT_EQ(back.records.at(0).otherNameParts, a.otherNameParts);
    EXPECT_EQ(back.records.at(0).otherLines, a.otherLines); // the generated FN is not kept
    EXPECT_EQ(back.records.at(1).firstName, QStringLiteral("Only"));
    EXPECT_TRUE(back.records.at(1).lastName.isEmpty());
}

} // namespace
