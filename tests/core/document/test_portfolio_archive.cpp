#include "../PeopleFixture.h"
#include "../QtPrinters.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"
#include "document/PortfolioArchive.h"

#include <gtest/gtest.h>

namespace {

using ObjectPtr = std::shared_ptr<ArchiveObject>;

ObjectPtr objectAt(const ArchiveRef &ref)
{
    const auto *p = std::get_if<ObjectPtr>(&ref);
    return p ? *p : nullptr;
}

class PortfolioArchiveMapping : public ::testing::Test
{
protected:
    PortfolioArchiveMapping()
    {
        ann = people.person("Ann", "Smith");
        bob = people.person("Bob", "Jones");
        first = Holding::create();
        first->setSeries(Series::seriesForCode(QStringLiteral("E")));
        first->setQuantity(3);
        first->setFaceValue(Pennies(1) << 40);
        first->setIssueDate(BondAssessor::monthDate(1980, 6));
        first->setSerialNumber(QStringLiteral("C123"));
        first->setOwner(ann);
        first->setCoOwner(bob);
        first->setPaper(true);
        second = Holding::create();
        second->setPaper(false);
        second->setOwner(bob);
        second->setBeneficiary(ann);
    }

    PeopleFixture people;
    PersonRef ann, bob;
    HoldingRef first, second;
};

TEST_F(PortfolioArchiveMapping, PersonMissingFromTheStoreVanishesFromListAndRoles)
{
    PeopleFixture otherMachine; // knows nobody
    const PersonRef kept = Person::create(otherMachine.store.createRecord(*ann->record()));
    const auto decoded = PortfolioArchive::decodePortfolio(
        PortfolioArchive::encodePortfolio({first}, {ann, bob}), otherMachine.store);
    ASSERT_TRUE(decoded.ok);
    EXPECT_EQ(decoded.missingPeople, 1) << "Bob, in the list and on a holding, counts once";
    ASSERT_EQ(decoded.titleHolders.size(), 1);
    EXPECT_TRUE(samePerson(decoded.titleHolders.at(0).get(), kept.get()));
    EXPECT_EQ(decoded.holdings.at(0)->coOwner(), nullptr);
    EXPECT_EQ(decoded.holdings.at(0)->owner(), decoded.titleHolders.at(0));
}

TEST_F(PortfolioArchiveMapping, OlderRootIsABareListAndPaperDefaultsToTrue)
{
    const ArchiveRef list = PortfolioArchive::encodeHoldings({second});
    objectAt(std::get<std::shared_ptr<ArchiveArray>>(list)->items.at(0))->fields.removeLast(); // no "paper"
    const auto decoded = PortfolioArchive::decodePortfolio(list, people.store);
    ASSERT_TRUE(decoded.ok);
    EXPECT_FALSE(decoded.hasTitleHolders);
    EXPECT_TRUE(decoded.holdings.at(0)->isPaper());
}

TEST_F(PortfolioArchiveMapping, RefusesGraphsOfTheWrongShape)
{
    struct Case { const char *name; std::function<void(ArchiveRef &)> spoil; };
    const Case cases[] = {
        {"root is a string", [](ArchiveRef &r) { r = QStringLiteral("hello"); }},
        {"holdings not a list", [](ArchiveRef &r) { std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second = QStringLiteral("x"); }},
        {"holding of another class", [](ArchiveRef &r) {
             auto h = std::get<std::shared_ptr<ArchiveArray>>(std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second);
             objectAt(h->items[0])->className = QStringLiteral("NSObject"); }},
        {"quantity too large", [](ArchiveRef &r) {
             auto h = std::get<std::shared_ptr<ArchiveArray>>(std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second);
             objectAt(h->items[0])->set("quantity", qint64(1) << 33); }},
        {"face value is text", [](ArchiveRef &r) {
             auto h = std::get<std::shared_ptr<ArchiveArray>>(std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second);
             objectAt(h->items[0])->set("faceValue", ArchiveRef(QStringLiteral("5000"))); }},
        {"owner is a holding", [](ArchiveRef &r) {
             auto h = std::get<std::shared_ptr<ArchiveArray>>(std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second);
             objectAt(h->items[0])->set("owner", h->items[0]); }},
        {"holding listed twice", [](ArchiveRef &r) {
             auto h = std::get<std::shared_ptr<ArchiveArray>>(std::get<std::shared_ptr<ArchiveDictionary>>(r)->entries[0].second);
             h->items << h->items[0]; }},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        ArchiveRef root = PortfolioArchive::encodePortfolio({first}, {ann, bob});
        c.spoil(root);
        const auto decoded = PortfolioArchive::decodePortfolio(root, people.store);
        EXPECT_FALSE(decoded.ok);
        EXPECT_FALSE(decoded.error.isEmpty());
        EXPECT_TRUE(decoded.holdings.isEmpty());
    }
    EXPECT_EQ(ann->ownerHoldingsCount(), QVariant(1)) << "the originals are untouched";
}

} // namespace
