// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli make-sample: writes the example portfolio and the people file that names its people.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QDir>

namespace {

struct SamplePerson
{
    const char *uid;
    const char *first;
    const char *last;
    const char *email;
};

// Fixed identifiers, so that the files come out the same on every run.
const SamplePerson People[] = {
    {"6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A01", "Margaret", "Whitfield", "margaret@whitfield.example"},
    {"6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A02", "Thomas", "Whitfield", "tom@whitfield.example"},
    {"6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A03", "Eleanor", "Whitfield", "ellie@whitfield.example"},
    {"6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A04", "Samuel", "Whitfield", "sam@whitfield.example"},
    {"6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A05", "Rosa", "Delgado", "rosa.delgado@mail.example"},
};
enum Who { Nobody = -1, Margaret, Thomas, Eleanor, Samuel, Rosa };
enum Role { Alone, CoOwner, Beneficiary };

struct SampleHolding
{
    const char *code;
    int quantity;
    Pennies faceValue;
    int year, month;
    bool paper;
    const char *serial;
    Who owner;
    Role role;
    Who other;
};

const SampleHolding Holdings[] = {
    {"N", 2, 10000, 1990, 1, true, "Q123456789EE", Margaret, CoOwner, Thomas},
    {"N", 4, 5000, 2005, 5, false, nullptr, Thomas, Beneficiary, Eleanor},
    {"E", 1, 2500, 1980, 6, true, "L987654321E", Margaret, Alone, Nobody},
    {"I", 1, 100000, 2010, 1, false, nullptr, Eleanor, Beneficiary, Rosa},
    {"I", 2, 5000, 1998, 9, true, "I000042424I", Samuel, CoOwner, Margaret},
    {"S", 1, 5000, 1967, 5, true, "S1967051234", Margaret, Beneficiary, Samuel},
    {"I", 1, 10000, 1997, 1, true, "I199701000X", Thomas, Alone, Nobody}, // before the I series: no data
    {"I", 1, 2500, 2026, 3, false, nullptr, Samuel, Alone, Nobody},       // not yet redeemable
};

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Writes sample.%1 and people.vcf into a folder.")
                                         .arg(QLatin1String(PortfolioFile::Extension)));
    parser.addPositionalArgument(QStringLiteral("folder"), CliText::tr("Where the two files go (created if needed)."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::exactly(1, CliText::tr("give the folder to write to")), {},
                        &status))
        return status;
    const QDir folder(parser.positionalArguments().first());
    if (!QDir().mkpath(folder.absolutePath()))
        return cliFail(CliText::tr("could not create %1").arg(folder.absolutePath()));

    const QString peopleFile = folder.filePath(QString::fromLatin1(PeopleStore::FileName));
    QFile::remove(peopleFile);
    PeopleStore store(peopleFile);
    QList<PersonRef> people;
    for (const SamplePerson &p : People) {
        PersonRecord fields;
        fields.uniqueId = QString::fromLatin1(p.uid);
        fields.firstName = QString::fromLatin1(p.first);
        fields.lastName = QString::fromLatin1(p.last);
        fields.emails = {{QStringLiteral("home"), QString::fromLatin1(p.email)}};
        people << Person::create(store.createRecord(fields));
    }
    QString error;
    if (!store.save(&error))
        return cliFail(error);

    BondPortfolio portfolio(&store);
    portfolio.setTitleHolders(people);
    QList<HoldingRef> holdings;
    for (const SampleHolding &s : Holdings) {
        auto h = Holding::create();
        h->setSeries(Series::seriesForCode(QString::fromLatin1(s.code)));
        h->setQuantity(s.quantity);
        h->setFaceValue(s.faceValue);
        // Noon UTC on day 1 is day 1 in every time zone, so the month reads the same everywhere.
        h->setIssueDate(Month(s.year, s.month));
        h->setPaper(s.paper);
        if (s.serial)
            h->setSerialNumber(QString::fromLatin1(s.serial));
        h->setOwner(people.at(s.owner));
        if (s.role == CoOwner)
            h->setCoOwner(people.at(s.other));
        else if (s.role == Beneficiary)
            h->setBeneficiary(people.at(s.other));
        portfolio.adopt(*h);
        holdings << h;
    }
    portfolio.setHoldings(holdings);
    const QString portfolioFile = folder.filePath(QStringLiteral("sample.") + QLatin1String(PortfolioFile::Extension));
    if (PortfolioSaveFailure failure; !portfolio.saveToFile(portfolioFile, &failure))
        return cliFail(saveFailureText(portfolioFile, failure));
    cliOut() << CliText::tr("Wrote %1 and %2").arg(portfolioFile, peopleFile) << Qt::endl;
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("make-sample"), QT_TRANSLATE_NOOP("CliText", "make-sample FOLDER"), run});

} // namespace
