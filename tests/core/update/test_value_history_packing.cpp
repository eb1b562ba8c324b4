// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Packed value histories read exactly like the bond_value rows they stand for, before and after plain-SQL changes.
#include "PriceUpdateTestData.h"
#include "TestSupport.h"

#include "update/ValueHistoryPacking.h"
#include "valuation/PackedValueHistories.h"
#include "valuation/ValueHistoryCache.h"

#include <QFile>
#include <gtest/gtest.h>

struct Connection
{
    sqlite3 *db = nullptr;
    explicit Connection(const QString &path) { sqlite3_open(path.toUtf8().constData(), &db); }
    ~Connection() { sqlite3_close(db); }
    void execute(const char *sql) const { ASSERT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql; }
};

qint64 unpackedRows(const QString &path)
{
    return PriceUpdateTestData::queryInt(path, QStringLiteral("select count(*) from bond_history where value_list is null"));
}

// The same database as a program without packed histories made it.
QString unpackedCopy(const QString &path)
{
    const QString copy = TestSupport::temporaryDirectory() + QStringLiteral("/unpacked.bvdb");
    QFile::remove(copy);
    EXPECT_TRUE(QFile::copy(path, copy));
    const Connection unpacked(copy);
    for (const char *table : {"bond_value", "derived_value"})
        for (const char *change : {"inserted", "deleted", "updated"})
            unpacked.execute(QByteArray("drop trigger ").append(table).append('_').append(change).constData());
    unpacked.execute("drop table bond_history");
    return copy;
}

// Every bond read three ways: singly and all at once from the packed rows, and row by row from bond_value.
void expectSameAsRows(const QString &path)
{
    const QString plainPath = unpackedCopy(path);
    Connection packed(path), plain(plainPath);
    ASSERT_TRUE(RedemptionDatabase::hasTable(packed.db, PackedValueHistories::TableName));
    ASSERT_FALSE(RedemptionDatabase::hasTable(plain.db, PackedValueHistories::TableName));
    ValueHistoryCache oneByOne(packed.db), everyBond(packed.db), rows(plain.db);
    QList<std::pair<char, int>> bonds;
    for (const QString &bond : PriceUpdateTestData::queryColumn(
             plainPath, QStringLiteral("select distinct series || (iyr * 12 + imo - 1) from bond_value")))
        bonds.append({bond.at(0).toLatin1(), bond.mid(1).toInt()});
    everyBond.prefetch(bonds);
    int withValues = 0;
    for (const auto &[code, issueMonth] : bonds) {
        const ValueHistory &expected = rows.history(code, issueMonth);
        withValues += expected.isEmpty() ? 0 : 1;
        EXPECT_TRUE(oneByOne.history(code, issueMonth) == expected) << code << ' ' << issueMonth;
        EXPECT_TRUE(everyBond.history(code, issueMonth) == expected) << code << ' ' << issueMonth;
    }
    EXPECT_GT(withValues, 1000);
}

TEST(ValueHistoryPacking, ShippedDatabaseReadsLikeItsRows)
{
    const QString path = TestSupport::copyOfShippedDatabase();
    EXPECT_EQ(unpackedRows(path), 0);
    expectSameAsRows(path);
}

// Changes made by some other program, straight into the tables.
class ChangedBySql : public testing::TestWithParam<const char *> {};

TEST_P(ChangedBySql, ReadAtOnceAndAfterPacking)
{
    const QString path = TestSupport::copyOfShippedDatabase();
    {
        Connection other(path);
        other.execute(GetParam());
    }
    EXPECT_GT(unpackedRows(path), 0);
    expectSameAsRows(path);

    Connection installer(path);
    QString error;
    ASSERT_TRUE(ValueHistoryPacking::refresh(installer.db, &error)) << error.toStdString();
    EXPECT_EQ(unpackedRows(path), 0);
    expectSameAsRows(path);
}

INSTANTIATE_TEST_SUITE_P(
    Statements, ChangedBySql,
    testing::Values(
        // a later month, with a conflict policy of its own
        "insert or ignore into bond_value values ('N', 2031, 1, 2010, 1, 99999)",
        // a month the bond skipped, so that the history gains a gap
        "insert into bond_value values ('E', 2035, 6, 1950, 6, 123456)",
        "update bond_value set value = value + 1 where series = 'I' and iyr = 2001 and imo = 3 and ryr = 2020",
        // rows moved to another bond: both are marked
        "update bond_value set iyr = 1930 where series = 'E' and iyr = 1950 and imo = 6 and ryr = 2001",
        "delete from bond_value where series = 'E' and iyr = 1950 and imo = 6 and ryr = 2000",
        // a whole bond gone, and a new one
        "delete from bond_value where series = 'S' and iyr = 1968 and imo = 2",
        "insert into bond_value values ('I', 2040, 1, 2039, 12, 2500)",
        // a blank cell's filler: no values, so no row
        "insert into bond_value values ('I', 2041, 1, 2040, 12, -2)",
        // provenance alone
        "delete from derived_value where series = 'N' and iyr = 2010 and imo = 1 and ryr = 2022",
        "insert into derived_value values ('N', 2010, 1, 2015, 1)"));

TEST(ValueHistoryPacking, OlderDatabaseGainsThePackedRows)
{
    const QString path = unpackedCopy(TestSupport::copyOfShippedDatabase());
    Connection installer(path);
    QString error;
    ASSERT_TRUE(ValueHistoryPacking::refresh(installer.db, &error)) << error.toStdString();
    EXPECT_EQ(PriceUpdateTestData::queryInt(path, QStringLiteral("select count(*) from bond_history")),
              PriceUpdateTestData::queryInt(path, QStringLiteral("select count(*) from (select distinct series, iyr, imo "
                                                                 "from bond_value where value >= -1)")));
    expectSameAsRows(path);
}
