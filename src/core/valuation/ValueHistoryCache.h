#pragma once
// Keeps the redemption values of each bond (series and issue month) that has been asked for, read
// with one range query, so that valuing every holding for every month costs array look-ups rather
// than one SQL statement (and one read transaction) each.
//
// The cache never answers from an older state of the database: before answering it asks SQLite
// whether any other connection (the updater, another process) has committed since it was filled
// (PRAGMA data_version), and forgets everything when one has. Inside a batch that question is
// asked once, when the batch begins, and a read transaction keeps the batch on one state.
#include "valuation/MonthIndex.h"

#include <QHash>
#include <QList>
#include <QtGlobal>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

// Stored values of one bond, by redemption month. Rows holding no price data (the −2 fillers of
// blank cells) read exactly like missing rows.
class ValueHistory
{
public:
    static constexpr qint32 Missing = -2;

    qint32 at(int redemptionMonth) const
    {
        const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
        return offset >= 0 && offset < qsizetype(m_values.size()) ? m_values[size_t(offset)] : Missing;
    }
    // Whether the month's value was derived by the program rather than published.
    bool isDerived(int redemptionMonth) const
    {
        const qsizetype offset = qsizetype(redemptionMonth) - m_firstMonth;
        return offset >= 0 && offset < qsizetype(m_derived.size()) && m_derived[size_t(offset)];
    }
    bool isEmpty() const { return m_values.empty(); }
    int firstMonth() const { return m_firstMonth; }
    int lastMonth() const { return m_firstMonth + int(m_values.size()) - 1; }

    void append(int redemptionMonth, qint32 value, bool derived);
    void markDerived(int redemptionMonth);

private:
    int m_firstMonth = 0;
    std::vector<qint32> m_values;
    std::vector<bool> m_derived;
};

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
    std::optional<int> readSummaryTable(const char *sql) const;

    sqlite3 *m_db;
    sqlite3_stmt *m_historyStmt = nullptr;
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
