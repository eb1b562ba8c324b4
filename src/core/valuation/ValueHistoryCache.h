// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Keeps the redemption values of each bond (series and issue month) that has been asked for, read
// with one range query (or one row, where the database keeps the bond's values packed), so that
// valuing every holding for every month costs array look-ups rather than one SQL statement (and
// one read transaction) each.
//
// The cache never answers from an older state of the database: before answering it asks SQLite
// whether any other connection (the updater, another process) has committed since it was filled
// (PRAGMA data_version), and forgets everything when one has. Inside a batch that question is
// asked once, when the batch begins, and a read transaction keeps the batch on one state.
#include "valuation/MonthIndex.h"
#include "valuation/ValueHistory.h"

#include <QHash>
#include <QList>
#include <QtGlobal>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

class ValueHistoryCache
{
public:
    explicit ValueHistoryCache(sqlite3 *db);
    ~ValueHistoryCache();
    ValueHistoryCache(const ValueHistoryCache &) = delete;
    ValueHistoryCache &operator=(const ValueHistoryCache &) = delete;

    // The values of the bond of this series code and issue month (never null; empty when the
    // database has none). Valid until the next call that may find the database changed.
    const ValueHistory &history(char seriesCode, int issueMonth);
    // Makes sure the histories of these bonds (series code, issue month) are at hand: one by one
    // when they are few, else every bond's at once with one pass over the table, which costs
    // less than a range query for each of a few hundred bonds.
    void prefetch(const QList<std::pair<char, int>> &bonds);
    // Whether any bond has data for the redemption month.
    bool hasRedemptionMonth(int month);
    // The summary tables' earliest and latest redemption months.
    std::optional<int> minimumMonth();
    std::optional<int> maximumMonth();

    void beginBatch();
    void endBatch();

private:
    struct Summary
    {
        std::optional<int> minimum;
        std::optional<int> maximum;
    };
    void refreshIfChanged(); // outside a batch only
    void forgetIfChanged();
    const Summary &summary();
    void prepareHistoryStatement();
    void loadEveryHistory();
    bool loadEveryPackedHistory();
    void adoptEveryHistory(QHash<quint32, std::shared_ptr<ValueHistory>> &&loaded);
    std::shared_ptr<ValueHistory> readRange(char seriesCode, int issueMonth);
    std::shared_ptr<ValueHistory> readPacked(quint32 key);
    std::optional<int> readSummaryTable(const char *sql) const;

    sqlite3 *m_db;
    sqlite3_stmt *m_historyStmt = nullptr;
    sqlite3_stmt *m_packedStmt = nullptr; // null when the database keeps no packed histories
    bool m_historyKnowsDerived = false;
    sqlite3_stmt *m_monthStmt = nullptr;
    sqlite3_stmt *m_versionStmt = nullptr;
    qint64 m_dataVersion = -1;
    int m_batchDepth = 0;
    bool m_inTransaction = false;
    QHash<quint32, std::shared_ptr<ValueHistory>> m_histories;
    QHash<int, bool> m_redemptionMonths;
    bool m_everyHistoryLoaded = false;
    std::optional<Summary> m_summary;
};
