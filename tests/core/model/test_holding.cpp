#include "../QtPrinters.h"
#include "../PeopleFixture.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"
#include "model/Holding.h"
#include "model/UserDefaults.h"

#include <gtest/gtest.h>

namespace {

TEST(Holding, NewHoldingTakesTheDefaults)
{
    UserDefaults::remove(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
    Holding plain;
    EXPECT_EQ(plain.quantity(), 1);
    EXPECT_EQ(plain.faceValue(), 0);
    EXPECT_FALSE(plain.issueDate().isValid());
    EXPECT_TRUE(plain.serialNumber().isNull());
    EXPECT_EQ(plain.series(), Series::eeBond());
    EXPECT_TRUE(plain.isPaper());
    EXPECT_TRUE(plain.registration().isNull());

    UserDefaults::setValue(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), false);
    Series::setDefaultSeries(Series::seriesForCode(QStringLiteral("I")));
    Holding electronic;
    EXPECT_FALSE(electronic.isPaper());
    EXPECT_EQ(electronic.series()->code(), QStringLiteral("I"));
    UserDefaults::remove(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
    UserDefaults::remove(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey));

    electronic.setSeries(nullptr);
    EXPECT_EQ(electronic.series(), Series::eeBond()) << "an empty series reads as EE";
}

// Role rules: the role set last wins, and the owner never holds a second role.
struct RoleCase
{
    const char *name;
    std::function<void(Holding &, const PersonRef &ann, const PersonRef &bob)> act;
    const char *owner, *coOwner, *beneficiary; // "ann", "bob" or ""
};

class HoldingRoles : public ::testing::TestWithParam<RoleCase>
{
};

TEST_P(HoldingRoles, KeepTheRegistrationConsistent)
{
    PeopleFixture people;
    const PersonRef ann = people.person("Ann", "Smith");
    const PersonRef bob = people.person("Bob", "Jones");
    Holding holding;
    GetParam().act(holding, ann, bob);
    auto who = [&](const PersonRef &p) { return p == ann ? "ann" : p == bob ? "bob" : ""; };
    EXPECT_STREQ(who(holding.owner()), GetParam().owner);
    EXPECT_STREQ(who(holding.coOwner()), GetParam().coOwner);
    EXPECT_STREQ(who(holding.beneficiary()), GetParam().beneficiary);
    // The back-references agree with the roles.
    for (const PersonRef &p : {ann, bob}) {
        EXPECT_EQ(p->ownerHoldings().contains(&holding), holding.owner() == p);
        EXPECT_EQ(p->coOwnerHoldings().contains(&holding), holding.coOwner() == p);
        EXPECT_EQ(p->beneficiaryHoldings().contains(&holding), holding.beneficiary() == p);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Setters, HoldingRoles,
    ::testing::Values(
        RoleCase{"beneficiary_drops_co_owner", [](Holding &h, auto a, auto b) { h.setOwner(a); h.setCoOwner(b); h.setBeneficiary(b); }, "ann", "", "bob"},
        RoleCase{"co_owner_drops_beneficiary", [](Holding &h, auto a, auto b) { h.setOwner(a); h.setBeneficiary(b); h.setCoOwner(b); }, "ann", "bob", ""},
        RoleCase{"owner_taken_from_beneficiary", [](Holding &h, auto a, auto b) { h.setOwner(a); h.setBeneficiary(b); h.setOwner(b); }, "bob", "", ""},
        RoleCase{"owner_taken_from_co_owner", [](Holding &h, auto a, auto b) { h.setOwner(a); h.setCoOwner(b); h.setOwner(b); }, "bob", "", ""},
        RoleCase{"co_owner_leaves_owner_role", [](Holding &h, auto a, auto) { h.setOwner(a); h.setCoOwner(a); }, "", "ann", ""},
        RoleCase{"beneficiary_leaves_owner_role", [](Holding &h, auto a, auto) { h.setOwner(a); h.setBeneficiary(a); }, "", "", "ann"},
        RoleCase{"delete_title_holder_clears_every_role", [](Holding &h, auto a, auto b) { h.setOwner(b); h.setCoOwner(a); h.deleteTitleHolder(a.get()); }, "bob", "", ""},
        RoleCase{"clearing_unlinks", [](Holding &h, auto a, auto b) { h.setOwner(a); h.setBeneficiary(b); h.setOwner(nullptr); h.setBeneficiary(nullptr); }, "", "", ""}),
    [](const ::testing::TestParamInfo<RoleCase> &info) { return std::string(info.param.name); });

TEST(Holding, RegistrationText)
{
    PeopleFixture people;
    const PersonRef ann = people.person("Ann", "Smith");
    const PersonRef bob = people.person("Bob", "Jones");
    Holding h;
    h.setBeneficiary(bob);
    EXPECT_TRUE(h.registration().isNull()) << "no owner, no registration";
    h.setOwner(ann);
    EXPECT_EQ(h.registration(), QStringLiteral("Ann Smith POD Bob Jones"));
    h.setCoOwner(bob);
    EXPECT_EQ(h.registration(), QStringLiteral("Ann Smith OR Bob Jones"));
    h.setCoOwner(nullptr);
    EXPECT_EQ(h.registration(), QStringLiteral("Ann Smith"));
}

TEST(Holding, AnnouncesKeyOldValueAndDerivedFigures)
{
    Holding h;
    QList<std::pair<QString, QVariant>> changes;
    int derived = 0, completed = 0;
    QObject::connect(&h, &Holding::valueChanged, [&](const QString &k, const QVariant &old) { changes.append({k, old}); });
    QObject::connect(&h, &Holding::derivedValuesChanged, [&] { ++derived; });
    QObject::connect(&h, &Holding::changesCompleted, [&] { ++completed; });
    h.setFaceValue(5000);
    h.setQuantity(3);
    h.setSerialNumber(QStringLiteral("Q1"));
    h.setSerialNumber(QStringLiteral("Q1")); // unchanged object: nothing
    EXPECT_EQ(changes, (QList<std::pair<QString, QVariant>>{{"faceValue", qint64(0)}, {"quantity", 1}, {"serialNumber", QVariant()}}));
    EXPECT_EQ(derived, 2) << "serial number changes no figure";
    EXPECT_EQ(completed, 3);

    PeopleFixture people;
    const PersonRef ann = people.person("Ann", "Smith");
    h.setOwner(ann);
    changes.clear();
    completed = 0;
    h.setCoOwner(ann); // takes ann out of the owner role: two keys, one completed change
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes.at(0).first, QStringLiteral("coOwner"));
    EXPECT_EQ(changes.at(1).first, QStringLiteral("owner"));
    EXPECT_EQ(changes.at(1).second.value<PersonRef>(), ann);
    EXPECT_EQ(completed, 1);
}

TEST(Holding, JoiningAPortfolioSwapsInItsPeopleAndEnlistsAnUnknownOwner)
{
    PeopleFixture people;
    const PersonRef listedAnn = people.person("Ann", "Smith");
    const PersonRef bob = people.person("Bob", "Jones");
    const PersonRef cy = people.person("Cy", "Young");
    BondPortfolio portfolio(&people.store, ValueTable().finish());
    portfolio.setTitleHolders({listedAnn, cy});
    const PersonRef cyCopy = Person::create(cy->record());

    // Pasted holding: its people are equal objects from elsewhere.
    Holding pasted;
    pasted.setOwner(Person::create(listedAnn->record()));
    pasted.setBeneficiary(cyCopy);
    pasted.setPortfolio(&portfolio);
    EXPECT_EQ(pasted.owner(), listedAnn);
    EXPECT_EQ(pasted.beneficiary(), cy);
    EXPECT_TRUE(cyCopy->beneficiaryHoldings().isEmpty());

    Holding unknownOwner;
    unknownOwner.setOwner(bob);
    const PersonRef strangerCoOwner = people.person("Dan", "Brown");
    unknownOwner.setCoOwner(strangerCoOwner);
    unknownOwner.setPortfolio(&portfolio);
    EXPECT_EQ(unknownOwner.owner(), nullptr) << "an unlisted owner leaves the bond";
    EXPECT_EQ(unknownOwner.coOwner(), strangerCoOwner) << "an unlisted co-owner stays and is not listed";
    QStringList listed;
    for (const PersonRef &p : portfolio.titleHolders())
        listed << p->name();
    EXPECT_EQ(listed, (QStringList{"Ann Smith", "Bob Jones", "Cy Young"}));
}

TEST(Holding, IssueDateValidationAsksTheDatabaseForTheSeries)
{
    ValueTable values;
    values.add("E", 2005, 1, 1980, 6, 9000);
    PeopleFixture people;
    BondPortfolio portfolio(&people.store, values.finish());
    Holding h;
    h.setPortfolio(&portfolio);
    h.setSeries(Series::seriesForCode(QStringLiteral("E")));
    ValidationError error;
    EXPECT_TRUE(h.validateIssueDate(BondAssessor::monthDate(1980, 6), &error));
    h.setSeries(Series::seriesForCode(QStringLiteral("I")));
    EXPECT_FALSE(h.validateIssueDate(BondAssessor::monthDate(1980, 6), &error));
    EXPECT_EQ(error.domain, QStringLiteral("HoldingIssueDate"));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.message, QStringLiteral("No pricing data available for bonds with that issue date. Do you need to update your bond values?"));
}

} // namespace
