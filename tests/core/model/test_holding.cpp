// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "../QtPrinters.h"
#include "../PortfolioFixture.h"
#include "model/Holding.h"
#include "base/UserDefaults.h"

#include <gtest/gtest.h>

// The last role wins, the owner holds no second role. Steps: Owner, Co-owner, Beneficiary, Delete; a, b, - (none).
TEST(Holding, RolesStayConsistentAndMakeTheRegistration)
{
    const struct { const char *steps, *owner, *coOwner, *beneficiary, *registration; } cases[] = {
        {"O=a C=b B=b", "a", "", "b", "Ann Smith POD Bob Jones"},
        {"O=a B=b C=b", "a", "b", "", "Ann Smith OR Bob Jones"},
        {"O=a B=b O=b", "b", "", "", "Bob Jones"},
        {"O=a C=b O=b", "b", "", "", "Bob Jones"},
        {"O=a C=a", "", "a", "", ""},
        {"O=a B=a", "", "", "a", ""}, // no owner, no registration
        {"O=b C=a D=a", "b", "", "", "Bob Jones"},
        {"O=a B=b O=- B=-", "", "", "", ""}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.steps);
        PeopleFixture people;
        const PersonRef a = people.person("Ann", "Smith"), b = people.person("Bob", "Jones");
        Holding h;
        for (const QString &step : QString::fromLatin1(c.steps).split(u' ')) {
            const PersonRef who = step.at(2) == u'a' ? a : step.at(2) == u'b' ? b : nullptr;
            switch (step.at(0).toLatin1()) {
            case 'O': h.setOwner(who); break;
            case 'C': h.setCoOwner(who); break;
            case 'B': h.setBeneficiary(who); break;
            default: h.deleteTitleHolder(who.get());
            }
        }
        auto name = [&](const PersonRef &p) { return p == a ? "a" : p == b ? "b" : ""; };
        EXPECT_STREQ(name(h.owner()), c.owner);
        EXPECT_STREQ(name(h.coOwner()), c.coOwner);
        EXPECT_STREQ(name(h.beneficiary()), c.beneficiary);
        EXPECT_EQ(h.registration(), QString::fromLatin1(c.registration));
        EXPECT_EQ(h.registration().isNull(), !*c.registration);
        for (const PersonRef &p : {a, b}) { // the back-references agree with the roles
            EXPECT_EQ(p->ownerHoldings().contains(&h), h.owner() == p);
            EXPECT_EQ(p->coOwnerHoldings().contains(&h), h.coOwner() == p);
            EXPECT_EQ(p->beneficiaryHoldings().contains(&h), h.beneficiary() == p);
        }
    }
}

// Undo records what valueChanged announces, one step per changesCompleted; a non-change announces nothing.
TEST(Holding, AnnouncesKeyOldValueAndDerivedFigures)
{
    Holding h;
    QList<std::pair<HoldingProperty, QVariant>> changes;
    int derived = 0, completed = 0;
    QObject::connect(&h, &Holding::valueChanged, [&](HoldingProperty p, const QVariant &old) { changes.append({p, old}); });
    QObject::connect(&h, &Holding::derivedValuesChanged, [&] { ++derived; });
    QObject::connect(&h, &Holding::changesCompleted, [&] { ++completed; });
    h.setFaceValue(5000);
    h.setQuantity(3);
    h.setQuantity(3);
    h.setSerialNumber(QStringLiteral("Q1"));
    h.setSerialNumber(QStringLiteral("Q1"));
    EXPECT_EQ(changes, (QList<std::pair<HoldingProperty, QVariant>>{
                           {HoldingProperty::FaceValue, qint64(0)}, {HoldingProperty::Quantity, 1}, {HoldingProperty::SerialNumber, QVariant()}}));
    EXPECT_EQ(derived, 2) << "serial number changes no figure";
    EXPECT_EQ(completed, 3);
}

TEST(Holding, JoiningAPortfolioSwapsInItsPeopleAndEnlistsAnUnknownOwner)
{
    PeopleFixture people;
    const PersonRef listedAnn = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones"), cy = people.person("Cy", "Young");
    BondPortfolio portfolio(&people.store, ValueTable().finish());
    portfolio.setTitleHolders({listedAnn, cy});
    const PersonRef cyCopy = Person::create(cy->record());

    // Pasted holding: its people are equal objects from elsewhere.
    Holding pasted;
    pasted.setOwner(Person::create(listedAnn->record()));
    pasted.setBeneficiary(cyCopy);
    portfolio.adopt(pasted);
    EXPECT_EQ(pasted.owner(), listedAnn);
    EXPECT_EQ(pasted.beneficiary(), cy);
    EXPECT_TRUE(cyCopy->beneficiaryHoldings().isEmpty());

    Holding unknownOwner;
    const PersonRef strangerCoOwner = people.person("Dan", "Brown");
    unknownOwner.setOwner(bob);
    unknownOwner.setCoOwner(strangerCoOwner);
    portfolio.adopt(unknownOwner);
    EXPECT_EQ(unknownOwner.owner(), nullptr) << "an unlisted owner leaves the bond";
    EXPECT_EQ(unknownOwner.coOwner(), strangerCoOwner) << "an unlisted co-owner stays and is not listed";
    QStringList listed;
    for (const PersonRef &p : portfolio.titleHolders())
        listed << p->name();
    EXPECT_EQ(listed, (QStringList{"Ann Smith", "Bob Jones", "Cy Young"}));
}

TEST(Holding, IssueDateValidationAsksTheDatabaseForTheSeries)
{
    PortfolioFixture fixture(ValueTable().add("E", 2005, 1, 1980, 6, 9000), BondAssessor::monthDate(2005, 1));
    const HoldingRef h = fixture.make("E", 0, 0, 2500);
    ValidationError error;
    EXPECT_TRUE(h->validateIssueDate(Month(1980, 6), fixture.portfolio->assessor(), &error));
    h->setSeries(Series::seriesForCode(QStringLiteral("I")));
    EXPECT_FALSE(h->validateIssueDate(Month(1980, 6), fixture.portfolio->assessor(), &error));
    EXPECT_EQ(error.domain, QStringLiteral("HoldingIssueDate"));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.message, QStringLiteral("No pricing data available for bonds with that issue date. Do you need to update your bond values?"));
}
