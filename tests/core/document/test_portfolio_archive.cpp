// Holdings and people onto the archive's object graph and back: people this machine does not know,
// and graphs of the wrong shape.
#include "../PeopleFixture.h"
#include "../QtPrinters.h"
#include "document/PortfolioArchive.h"

#include <gtest/gtest.h>

namespace {

using ObjectPtr = std::shared_ptr<ArchiveObject>;
using ArrayPtr = std::shared_ptr<ArchiveArray>;

class PortfolioArchiveMapping : public ::testing::Test
{
protected:
    PortfolioArchiveMapping()
    {
        first->setOwner(ann);
        first->setCoOwner(bob);
    }

    PeopleFixture people;
    PersonRef ann = people.person("Ann", "Smith"), bob = people.person("Bob", "Jones");
    HoldingRef first = Holding::create();
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

ArchiveRef &holdingsEntry(ArchiveRef &root) { return std::get<std::shared_ptr<ArchiveDictionary>>(root)->entries[0].second; }
ArrayPtr holdingList(ArchiveRef &root) { return std::get<ArrayPtr>(holdingsEntry(root)); }
ObjectPtr firstHolding(ArchiveRef &root) { return std::get<ObjectPtr>(holdingList(root)->items[0]); }

TEST_F(PortfolioArchiveMapping, RefusesGraphsOfTheWrongShape)
{
    const std::pair<const char *, std::function<void(ArchiveRef &)>> cases[] = {
        {"root is a string", [](ArchiveRef &r) { r = QStringLiteral("hello"); }},
        {"holdings not a list", [](ArchiveRef &r) { holdingsEntry(r) = QStringLiteral("x"); }},
        {"holding of another class", [](ArchiveRef &r) { firstHolding(r)->className = QStringLiteral("NSObject"); }},
        {"quantity too large", [](ArchiveRef &r) { firstHolding(r)->set("quantity", qint64(1) << 33); }},
        {"face value is text", [](ArchiveRef &r) { firstHolding(r)->set("faceValue", ArchiveRef(QStringLiteral("5000"))); }},
        {"owner is a holding", [](ArchiveRef &r) { firstHolding(r)->set("owner", firstHolding(r)); }},
        {"holding listed twice", [](ArchiveRef &r) { const auto list = holdingList(r); list->items << ArchiveRef(list->items[0]); }},
    };
    for (const auto &[name, spoil] : cases) {
        SCOPED_TRACE(name);
        ArchiveRef root = PortfolioArchive::encodePortfolio({first}, {ann, bob});
        spoil(root);
        const auto decoded = PortfolioArchive::decodePortfolio(root, people.store);
        EXPECT_FALSE(decoded.ok);
        EXPECT_FALSE(decoded.error.isEmpty());
        EXPECT_TRUE(decoded.holdings.isEmpty());
    }
    EXPECT_EQ(ann->ownerHoldingsCount(), QVariant(1)) << "the originals are untouched";
}

} // namespace
