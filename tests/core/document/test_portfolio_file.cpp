// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Portfolio files read back, refused or failing to save without harm; stale temporary copies go on the next good save.
#include "../PortfolioFixture.h"
#include "../QtPrinters.h"
#include "document/BondPortfolio.h"
#include "document/DocumentFileWriter.h"
#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"

#include "IndependentReaders.h"

#include <QDir>
#include <QUndoStack>

using ObjectPtr = std::shared_ptr<ArchiveObject>;
using ArrayPtr = std::shared_ptr<ArchiveArray>;

class PortfolioFileTest : public ::testing::Test
{
protected:
    PortfolioFileTest()
        : database(ValueTable().add("N", 2001, 1, 1995, 3, 2000).finish())
        , folder(TestSupport::temporaryDirectory())
    {
        zoe = people.person("Zoe", "Adams");
        ann = people.person("Ann", "Smith");
        bob = people.person("Bob", "Jones");
        people.store.save();
    }

    // Two holdings naming Ann and Bob; the list is given out of order.
    std::unique_ptr<BondPortfolio> makePortfolio()
    {
        auto portfolio = std::make_unique<BondPortfolio>(&people.store, database);
        portfolio->setTitleHolders({zoe, ann, bob});
        const HoldingRef ee = makeHolding(*portfolio, "N", 1995, 3, 10000, 2, QStringLiteral("Q100"));
        ee->setOwner(ann);
        ee->setBeneficiary(bob);
        const HoldingRef savingsNote = makeHolding(*portfolio, "S", 0, 0, Pennies(1) << 40, 1, {}, false);
        savingsNote->setOwner(bob);
        savingsNote->setCoOwner(ann);
        portfolio->setHoldings({ee, savingsNote});
        return portfolio;
    }

    PeopleFixture people;
    QString database, folder;
    PersonRef zoe, ann, bob;
};

TEST_F(PortfolioFileTest, SaveThenOpenGivesBackEveryFieldAndOnePersonObject)
{
    const auto original = makePortfolio();
    const QString path = folder + QStringLiteral("/family.bondportfolio");
    QString error;
    ASSERT_TRUE(original->saveToFile(path));
    EXPECT_FALSE(original->isEdited());
    EXPECT_EQ(original->displayName(), QStringLiteral("family"));

    BondPortfolio opened(&people.store, database);
    ASSERT_TRUE(opened.readFromFile(path, &error)) << error.toStdString();
    EXPECT_EQ(opened.undoStack()->count(), 0);
    EXPECT_FALSE(opened.isEdited());
    ASSERT_EQ(opened.holdings().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const Holding &a = *original->holdings().at(i);
        const Holding &b = *opened.holdings().at(i);
        SCOPED_TRACE(i);
        using P = HoldingProperty;
        for (const P property : {P::Series, P::Quantity, P::FaceValue, P::IssueDate, P::SerialNumber, P::Paper})
            EXPECT_EQ(b.value(property), a.value(property)) << HoldingKey::of(property); // a null serial stays null
        EXPECT_EQ(b.registration(), a.registration());
    }
    QStringList names;
    for (const PersonRef &p : opened.titleHolders())
        names << p->name();
    EXPECT_EQ(names, (QStringList{"Ann Smith", "Bob Jones", "Zoe Adams"}));
    const PersonRef openedAnn = opened.titleHolders().at(0);
    EXPECT_EQ(opened.holdings().at(0)->owner(), openedAnn);
    EXPECT_EQ(opened.holdings().at(1)->coOwner(), openedAnn);
    EXPECT_EQ(openedAnn->ownerHoldingsCount(), QVariant(1));
    EXPECT_EQ(openedAnn->coOwnerHoldingsCount(), QVariant(1));
    EXPECT_EQ(opened.figuresOf(*opened.holdings().at(0)).value(), 2 * 8000);
}

TEST_F(PortfolioFileTest, OlderBareListOpensWithTheFamilyAndPaperByDefault)
{
    people.store.setMe(ann->uniqueId());
    const ArchiveRef list = PortfolioArchive::encodeHoldings(makePortfolio()->holdings());
    // Older files may lack "paper" (written last); such a holding is paper.
    std::get<ObjectPtr>(std::get<ArrayPtr>(list)->items.at(1))->fields.removeLast();
    BondPortfolio opened(&people.store, database);
    QString error;
    ASSERT_TRUE(opened.loadDataRepresentation(KeyedArchive::encode(list), &error)) << error.toStdString();
    // The family is Ann; Bob, owner of the second bond, joins the list and leaves that role.
    ASSERT_EQ(opened.titleHolders().size(), 2);
    EXPECT_EQ(opened.titleHolders().at(0)->name(), QStringLiteral("Ann Smith"));
    EXPECT_EQ(opened.titleHolders().at(1)->name(), QStringLiteral("Bob Jones"));
    ASSERT_EQ(opened.holdings().size(), 2);
    EXPECT_EQ(opened.holdings().at(0)->owner(), opened.titleHolders().at(0));
    EXPECT_EQ(opened.holdings().at(1)->owner(), nullptr);
    EXPECT_EQ(opened.holdings().at(1)->coOwner(), opened.titleHolders().at(0));
    EXPECT_TRUE(opened.holdings().at(1)->isPaper());
    EXPECT_FALSE(opened.isEdited());
}

TEST_F(PortfolioFileTest, PersonMissingFromTheStoreVanishesFromListAndRoles)
{
    PeopleFixture otherMachine; // knows Ann alone
    const PersonRef kept = Person::create(otherMachine.store.createRecord(*ann->record()));
    const auto portfolio = makePortfolio();
    const auto decoded = PortfolioArchive::decodePortfolio(
        PortfolioArchive::encodePortfolio(portfolio->data()), otherMachine.store);
    ASSERT_TRUE(decoded.ok);
    EXPECT_EQ(decoded.missingPeople, 2) << "Bob, in the list and on both holdings, counts once";
    ASSERT_EQ(decoded.titleHolders.size(), 1);
    EXPECT_TRUE(samePerson(decoded.titleHolders.at(0).get(), kept.get()));
    EXPECT_EQ(decoded.holdings.at(0)->beneficiary(), nullptr);
    EXPECT_EQ(decoded.holdings.at(0)->owner(), decoded.titleHolders.at(0));
}

ArchiveRef &holdingsEntry(ArchiveRef &root) { return std::get<std::shared_ptr<ArchiveDictionary>>(root)->entries[0].second; }
ArrayPtr holdingList(ArchiveRef &root) { return std::get<ArrayPtr>(holdingsEntry(root)); }
ObjectPtr firstHolding(ArchiveRef &root) { return std::get<ObjectPtr>(holdingList(root)->items[0]); }

TEST_F(PortfolioFileTest, RefusesGraphsOfTheWrongShape)
{
    const auto portfolio = makePortfolio();
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
        ArchiveRef root = PortfolioArchive::encodePortfolio(portfolio->data());
        spoil(root);
        const auto decoded = PortfolioArchive::decodePortfolio(root, people.store);
        EXPECT_FALSE(decoded.ok);
        EXPECT_FALSE(decoded.error.isEmpty());
        EXPECT_TRUE(decoded.holdings.isEmpty());
    }
    EXPECT_EQ(ann->ownerHoldingsCount(), QVariant(1)) << "the originals are untouched";
}

class PortfolioSaveFailure_ : public ::testing::Test
{
protected:
    PortfolioSaveFailure_()
        : fixture(values.add("EE", 2001, 1, 1995, 3, 2000), BondAssessor::monthDate(2001, 1))
        , folder(TestSupport::temporaryDirectory())
    {
        fixture.portfolio->setHoldings({fixture.make("EE", 1995, 3, 10000, 2, QStringLiteral("Q100"))});
    }
    ~PortfolioSaveFailure_() override { DocumentFileWriter::failWritesForTesting(0); }

    // Saves once, then edits so that the next save would write different bytes.
    QByteArray saveThenEdit(const QString &path)
    {
        EXPECT_TRUE(fixture.portfolio->saveToFile(path));
        fixture.portfolio->holdings().at(0)->setQuantity(7);
        for (int i = 0; i < 40; ++i)
            fixture.portfolio->holdings().at(0)->setSerialNumber(QString(400, QLatin1Char('S')));
        return TestSupport::readFile(path);
    }
    QStringList temporaryCopies(const QString &path) const
    {
        const QString prefix = QFileInfo(DocumentFileWriter::temporaryPrefix(path)).fileName();
        QStringList copies = QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden);
        copies.removeIf([&](const QString &name) { return !name.startsWith(prefix); });
        return copies;
    }
    void expectRefusedAndKept(const QString &path, const QByteArray &before, FileWriteFailure expected)
    {
        PortfolioSaveFailure failure;
        EXPECT_FALSE(fixture.portfolio->saveToFile(path, &failure));
        EXPECT_EQ(failure.file.failure, expected) << failure.file.systemError;
        EXPECT_EQ(TestSupport::readFile(path), before);
        EXPECT_TRUE(fixture.portfolio->isEdited());
    }

    ValueTable values;
    PortfolioFixture fixture;
    QString folder;
};

struct InjectedCase { int systemError; FileWriteFailure expected; };

class InjectedWriteFailure : public PortfolioSaveFailure_, public ::testing::WithParamInterface<InjectedCase> {};

TEST_P(InjectedWriteFailure, NamesTheCauseAndKeepsTheOldFile)
{
    const QString path = folder + QStringLiteral("/kept.bondportfolio");
    const QByteArray before = saveThenEdit(path);
    DocumentFileWriter::failWritesForTesting(GetParam().systemError);
    expectRefusedAndKept(path, before, GetParam().expected);
    EXPECT_TRUE(temporaryCopies(path).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Errors, InjectedWriteFailure,
                         ::testing::Values(InjectedCase{ENOSPC, FileWriteFailure::DiskFull},
                                           InjectedCase{EDQUOT, FileWriteFailure::DiskFull},
                                           InjectedCase{EACCES, FileWriteFailure::PermissionDenied},
                                           InjectedCase{EPERM, FileWriteFailure::PermissionDenied},
                                           InjectedCase{EROFS, FileWriteFailure::ReadOnlyFileSystem},
                                           InjectedCase{EIO, FileWriteFailure::Other}));

TEST_F(PortfolioSaveFailure_, NextGoodSaveRemovesStaleCopiesOfThatDocumentOnly)
{
    const QString path = folder + QStringLiteral("/mine[1].bondportfolio");
    const QString other = folder + QStringLiteral("/mine1.bondportfolio");
    const QByteArray before = saveThenEdit(path);
    // What a save killed before its rename leaves behind.
    const QString stale = DocumentFileWriter::temporaryPrefix(path) + QStringLiteral("a1b2c3");
    const QString othersCopy = DocumentFileWriter::temporaryPrefix(other) + QStringLiteral("d4e5f6");
    for (const QString &copy : {stale, othersCopy})
        TestSupport::writeFile(copy, before);
    ASSERT_EQ(temporaryCopies(path), QStringList{QFileInfo(stale).fileName()});
    ::chmod(QFile::encodeName(path).constData(), 0640);
    ASSERT_TRUE(fixture.portfolio->saveToFile(path));
    EXPECT_NE(TestSupport::readFile(path), before);
    EXPECT_TRUE(temporaryCopies(path).isEmpty());
    EXPECT_TRUE(QFile::exists(othersCopy));
    struct stat status{};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u) << "the document keeps its permissions";
}
