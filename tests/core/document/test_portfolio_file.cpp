#include "../PeopleFixture.h"
#include "../QtPrinters.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"
#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

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
        auto ee = Holding::create();
        ee->setIssueDate(BondAssessor::monthDate(1995, 3));
        ee->setFaceValue(10000);
        ee->setQuantity(2);
        ee->setSerialNumber(QStringLiteral("Q100"));
        ee->setOwner(ann);
        ee->setBeneficiary(bob);
        auto savingsNote = Holding::create();
        savingsNote->setSeries(Series::seriesForCode(QStringLiteral("S")));
        savingsNote->setPaper(false);
        savingsNote->setFaceValue(Pennies(1) << 40);
        savingsNote->setOwner(bob);
        savingsNote->setCoOwner(ann);
        for (const HoldingRef &h : {ee, savingsNote})
            h->setPortfolio(portfolio.get());
        portfolio->setHoldings({ee, savingsNote});
        return portfolio;
    }

    PeopleFixture people;
    QString database;
    QString folder;
    PersonRef zoe, ann, bob;
};

TEST_F(PortfolioFileTest, SaveThenOpenGivesBackEveryFieldAndOnePersonObject)
{
    const auto original = makePortfolio();
    const QString path = folder + QStringLiteral("/family.bondportfolio");
    QString error;
    ASSERT_TRUE(original->saveToFile(path, &error)) << error.toStdString();
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
        EXPECT_EQ(b.series(), a.series());
        EXPECT_EQ(b.quantity(), a.quantity());
        EXPECT_EQ(b.faceValue(), a.faceValue());
        EXPECT_EQ(b.issueDate(), a.issueDate());
        EXPECT_EQ(b.serialNumber(), a.serialNumber());
        EXPECT_EQ(b.serialNumber().isNull(), a.serialNumber().isNull());
        EXPECT_EQ(b.isPaper(), a.isPaper());
        EXPECT_EQ(b.registration(), a.registration());
        EXPECT_EQ(b.portfolio(), &opened);
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
    EXPECT_EQ(opened.holdings().at(0)->value(), 2 * 8000);
}

TEST_F(PortfolioFileTest, IndependentReaderSeesTheDocumentStructure)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        GTEST_SKIP() << "python3 is not installed";
    const QString path = folder + QStringLiteral("/check.bondportfolio");
    ASSERT_TRUE(makePortfolio()->saveToFile(path));
    QProcess reader;
    reader.start(python, {TestSupport::sourcePath(QStringLiteral("tests/core/document/read_keyed_archive.py")), path});
    ASSERT_TRUE(reader.waitForFinished(60000));
    ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    const QJsonObject out = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
    const QJsonObject root = out.value("root").toObject();
    EXPECT_EQ(root.keys(), (QStringList{"holdings", "titleHolders"}));
    const QJsonObject ee = root.value("holdings").toArray().at(0).toObject();
    EXPECT_EQ(ee.value("$class").toString(), QStringLiteral("Holding"));
    EXPECT_EQ(ee.value("quantity").toInt(), 2);
    EXPECT_EQ(ee.value("faceValue").toInt(), 10000);
    EXPECT_TRUE(ee.value("paper").isBool());
    EXPECT_EQ(ee.value("serialNumber").toString(), QStringLiteral("Q100"));
    EXPECT_EQ(ee.value("series").toObject().value("code").toString(), QStringLiteral("N"));
    EXPECT_TRUE(ee.value("coOwner").isNull());
    EXPECT_FALSE(ee.value("issueDate").toObject().value("$date").toString().isEmpty());
    const QJsonArray listed = root.value("titleHolders").toArray();
    EXPECT_EQ(listed.at(0).toObject().value("uid").toString(), ann->uniqueId());
    EXPECT_EQ(ee.value("owner").toObject().value("$id"), listed.at(0).toObject().value("$id"))
        << "a person is stored once";
}

TEST_F(PortfolioFileTest, OlderBareListOpensWithTheFamily)
{
    people.store.setMe(ann->uniqueId());
    const QByteArray data = KeyedArchive::encode(PortfolioArchive::encodeHoldings(makePortfolio()->holdings()));
    BondPortfolio opened(&people.store, database);
    QString error;
    ASSERT_TRUE(opened.loadDataRepresentation(data, &error)) << error.toStdString();
    // The family is Ann; Bob, owner of the second bond, joins the list and leaves that role.
    ASSERT_EQ(opened.titleHolders().size(), 2);
    EXPECT_EQ(opened.titleHolders().at(0)->name(), QStringLiteral("Ann Smith"));
    EXPECT_EQ(opened.titleHolders().at(1)->name(), QStringLiteral("Bob Jones"));
    ASSERT_EQ(opened.holdings().size(), 2);
    EXPECT_EQ(opened.holdings().at(0)->owner(), opened.titleHolders().at(0));
    EXPECT_EQ(opened.holdings().at(1)->owner(), nullptr);
    EXPECT_EQ(opened.holdings().at(1)->coOwner(), opened.titleHolders().at(0));
    EXPECT_FALSE(opened.isEdited());
}

TEST_F(PortfolioFileTest, UnreadableDataIsRefusedAndChangesNothing)
{
    const auto portfolio = makePortfolio();
    const QList<HoldingRef> before = portfolio->holdings();
    const QByteArray wrongShape = KeyedArchive::encode(QStringLiteral("just a string"));
    for (const QByteArray &data : {QByteArray(), QByteArray("bplist00 garbage"), wrongShape}) {
        QString error;
        EXPECT_FALSE(portfolio->loadDataRepresentation(data, &error));
        EXPECT_FALSE(error.isEmpty());
        EXPECT_EQ(portfolio->holdings(), before);
        EXPECT_EQ(portfolio->titleHolders().size(), 3);
    }
    QString error;
    EXPECT_TRUE(portfolio->dataRepresentation(QStringLiteral("Text"), &error).isEmpty());
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(PortfolioFileTest, FailedSaveKeepsTheOldFileAndTheEditedState)
{
    const auto portfolio = makePortfolio();
    const QString path = folder + QStringLiteral("/kept.bondportfolio");
    ASSERT_TRUE(portfolio->saveToFile(path));
    const QByteArray saved = TestSupport::readFile(path);
    portfolio->holdings().at(0)->setQuantity(9);
    EXPECT_TRUE(portfolio->isEdited());
    QString error;
    EXPECT_FALSE(portfolio->saveToFile(folder + QStringLiteral("/missing/folder/x.bondportfolio"), &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_TRUE(portfolio->isEdited());
    EXPECT_EQ(portfolio->fileName(), path);
    EXPECT_EQ(TestSupport::readFile(path), saved);
}

} // namespace
