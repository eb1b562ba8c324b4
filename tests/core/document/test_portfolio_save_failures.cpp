// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// A failed save says why and leaves the old file as it was; stale temporary copies go on the next good save.
#include "../PortfolioFixture.h"
#include "document/DocumentFileWriter.h"

#include <QDir>
#include <gtest/gtest.h>

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

struct InjectedCase
{
    int systemError;
    FileWriteFailure expected;
};

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
    for (const QString &copy : {stale, othersCopy}) {
        QFile file(copy);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(before);
    }
    ::chmod(QFile::encodeName(path).constData(), 0640);
    ASSERT_TRUE(fixture.portfolio->saveToFile(path));
    EXPECT_NE(TestSupport::readFile(path), before);
    EXPECT_TRUE(temporaryCopies(path).isEmpty());
    EXPECT_TRUE(QFile::exists(othersCopy));
    struct stat status{};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u) << "the document keeps its permissions";
}
