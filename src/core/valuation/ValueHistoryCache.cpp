// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/ValueHistoryCache.h"

#include "valuation/PackedValueHistories.h"
#include "valuation/RedemptionDatabase.h"

#include <QSet>
#include <sqlite3.h>

namespace {

// Values below −1 are the fillers of blank cells: no price data, the same as no row at all.
constexpr const char *HistorySql =
    "select ryr, rmo, value, 0 from bond_value where series = ? and iyr = ? and imo = ? and value >= -1 "
    "order by ryr asc, rmo asc";
// The same, telling which values the program derived (databases made before that was recorded
// lack the table).
constexpr const char *HistoryWithProvenanceSql =
    "select b.ryr, b.rmo, b.value, d.ryr is not null from bond_value b left join derived_value d"
    " on d.series = b.series and d.iyr = b.iyr and d.imo = b.imo and d.ryr = b.ryr and d.rmo = b.rmo"
    " where b.series = ? and b.iyr = ? and b.imo = ? and b.value >= -1 order by b.ryr asc, b.rmo asc";
constexpr const char *MonthSql =
    "select exists (select 1 from bond_value where ryr = ? and rmo = ? and value >= -1)";

constexpr int ManyBonds = 150;

// Without derived_value the database has nothing derived, whatever flags were packed before it went.
std::shared_ptr<ValueHistory> unpackedRow(sqlite3_stmt *stmt, int firstColumn, bool knowsDerived)
{
    const auto *values = static_cast<const char *>(sqlite3_column_blob(stmt, firstColumn + 1));
    const qsizetype valueBytes = sqlite3_column_bytes(stmt, firstColumn + 1);
    const auto *derived = static_cast<const char *>(sqlite3_column_blob(stmt, firstColumn + 2));
    const qsizetype derivedBytes = knowsDerived ? sqlite3_column_bytes(stmt, firstColumn + 2) : 0;
    return std::make_shared<ValueHistory>(ValueHistory::unpacked(sqlite3_column_int(stmt, firstColumn), values,
                                                                 valueBytes, derived, derivedBytes));
}

const ValueHistory &emptyHistory()
{
    static const ValueHistory empty;
    return empty;
}

} // namespace

ValueHistoryCache::ValueHistoryCache(sqlite3 *db)
    : m_db(db)
{
    if (!m_db)
        return;
    sqlite3_prepare_v2(m_db, MonthSql, -1, &m_monthStmt, nullptr);
    sqlite3_prepare_v2(m_db, "pragma data_version", -1, &m_versionStmt, nullptr);
}

ValueHistoryCache::~ValueHistoryCache()
{
    if (m_inTransaction)
        sqlite3_exec(m_db, "commit", nullptr, nullptr, nullptr);
    sqlite3_finalize(m_historyStmt);
    sqlite3_finalize(m_packedStmt);
    sqlite3_finalize(m_monthStmt);
    sqlite3_finalize(m_versionStmt);
}

void ValueHistoryCache::beginBatch()
{
    if (m_batchDepth++ > 0 || !m_db)
        return;
    // Deferred: the read transaction starts with the version check just below and pins the batch
    // to the state that check saw.
    m_inTransaction = sqlite3_get_autocommit(m_db)
                      && sqlite3_exec(m_db, "begin", nullptr, nullptr, nullptr) == SQLITE_OK;
    forgetIfChanged();
}

void ValueHistoryCache::endBatch()
{
    if (m_batchDepth == 0 || --m_batchDepth > 0)
        return;
    if (m_inTransaction)
        sqlite3_exec(m_db, "commit", nullptr, nullptr, nullptr);
    m_inTransaction = false;
}

void ValueHistoryCache::refreshIfChanged()
{
    if (m_batchDepth == 0)
        forgetIfChanged();
}

void ValueHistoryCache::forgetIfChanged()
{
    if (!m_versionStmt)
        return;
    qint64 version = -1;
    if (sqlite3_step(m_versionStmt) == SQLITE_ROW)
        version = sqlite3_column_int64(m_versionStmt, 0);
    sqlite3_reset(m_versionStmt);
    if (version == m_dataVersion && version != -1)
        return;
    m_dataVersion = version;
    prepareHistoryStatement();
    m_histories.clear();
    m_everyHistoryLoaded = false;
    m_redemptionMonths.clear();
    m_summary.reset();
}

void ValueHistoryCache::prepareHistoryStatement()
{
    const bool knowsDerived = RedemptionDatabase::hasTable(m_db, "derived_value");
    // Another program may have added the packed histories since the last look.
    sqlite3_finalize(m_packedStmt);
    m_packedStmt = nullptr;
    if (RedemptionDatabase::hasTable(m_db, PackedValueHistories::TableName)) {
        sqlite3_prepare_v2(m_db, "select first_month, value_list, derived_list from bond_history where bond = ?", -1,
                           &m_packedStmt, nullptr);
    }
    if (m_historyStmt && knowsDerived == m_historyKnowsDerived)
        return;
    sqlite3_finalize(m_historyStmt);
    m_historyStmt = nullptr;
    m_historyKnowsDerived = knowsDerived;
    sqlite3_prepare_v2(m_db, knowsDerived ? HistoryWithProvenanceSql : HistorySql, -1, &m_historyStmt, nullptr);
}

const ValueHistory &ValueHistoryCache::history(char seriesCode, int issueMonth)
{
    refreshIfChanged();
    if (!m_historyStmt)
        return emptyHistory();
    const quint32 key = PackedValueHistories::key(seriesCode, issueMonth);
    if (const auto found = m_histories.constFind(key); found != m_histories.cend())
        return **found;
    if (m_everyHistoryLoaded)
        return emptyHistory();
    std::shared_ptr<ValueHistory> loaded = m_packedStmt ? readPacked(key) : nullptr;
    if (!loaded)
        loaded = readRange(seriesCode, issueMonth);
    return **m_histories.insert(key, std::move(loaded));
}

std::shared_ptr<ValueHistory> ValueHistoryCache::readRange(char seriesCode, int issueMonth)
{
    auto loaded = std::make_shared<ValueHistory>();
    sqlite3_bind_text(m_historyStmt, 1, &seriesCode, 1, SQLITE_TRANSIENT);
    sqlite3_bind_int(m_historyStmt, 2, MonthIndex::yearOf(issueMonth));
    sqlite3_bind_int(m_historyStmt, 3, MonthIndex::monthOf(issueMonth));
    while (sqlite3_step(m_historyStmt) == SQLITE_ROW) {
        loaded->append(MonthIndex::of(sqlite3_column_int(m_historyStmt, 0), sqlite3_column_int(m_historyStmt, 1)),
                       sqlite3_column_int(m_historyStmt, 2), sqlite3_column_int(m_historyStmt, 3) != 0);
    }
    sqlite3_reset(m_historyStmt);
    return loaded;
}

std::shared_ptr<ValueHistory> ValueHistoryCache::readPacked(quint32 key)
{
    sqlite3_bind_int64(m_packedStmt, 1, key);
    std::shared_ptr<ValueHistory> loaded;
    if (sqlite3_step(m_packedStmt) != SQLITE_ROW)
        loaded = std::make_shared<ValueHistory>(); // every bond with values has a row
    else if (sqlite3_column_type(m_packedStmt, 1) != SQLITE_NULL)
        loaded = unpackedRow(m_packedStmt, 0, m_historyKnowsDerived);
    sqlite3_reset(m_packedStmt);
    return loaded; // null while the bond's values changed since they were packed
}

void ValueHistoryCache::prefetch(const QList<std::pair<char, int>> &bonds)
{
    refreshIfChanged();
    if (m_everyHistoryLoaded || !m_historyStmt)
        return;
    QSet<quint32> missing;
    for (const auto &[code, issueMonth] : bonds) {
        const quint32 key = PackedValueHistories::key(code, issueMonth);
        if (!m_histories.contains(key))
            missing.insert(key);
    }
    if (missing.size() > ManyBonds)
        loadEveryHistory();
}

void ValueHistoryCache::loadEveryHistory()
{
    if (m_packedStmt && loadEveryPackedHistory())
        return;
    sqlite3_stmt *stmt = nullptr;
    // Month counts made by SQLite and one series at a time: the fewest column reads per row.
    const char *sql = "select iyr * 12 + imo - 1, ryr * 12 + rmo - 1, value from bond_value"
                      " where series = ? and value >= -1 order by series, iyr, imo, ryr, rmo";
    if (sqlite3_prepare_v2(m_db, sql, -1, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return;
    }
    QHash<quint32, std::shared_ptr<ValueHistory>> loaded;
    for (const char code : {'E', 'I', 'N', 'S'}) {
        sqlite3_bind_text(stmt, 1, &code, 1, SQLITE_TRANSIENT);
        int currentIssue = -1;
        ValueHistory *current = nullptr;
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            const int issueMonth = sqlite3_column_int(stmt, 0);
            if (!current || issueMonth != currentIssue) {
                auto &slot = loaded[PackedValueHistories::key(code, issueMonth)];
                slot = std::make_shared<ValueHistory>();
                current = slot.get();
                currentIssue = issueMonth;
            }
            current->append(sqlite3_column_int(stmt, 1), sqlite3_column_int(stmt, 2), false);
        }
        sqlite3_reset(stmt);
    }
    sqlite3_finalize(stmt);
    if (m_historyKnowsDerived
        && sqlite3_prepare_v2(m_db, "select series, iyr, imo, ryr, rmo from derived_value", -1, &stmt, nullptr) == SQLITE_OK) {
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            const char code = char(sqlite3_column_text(stmt, 0)[0]);
            const auto found = loaded.constFind(
                PackedValueHistories::key(code, MonthIndex::of(sqlite3_column_int(stmt, 1), sqlite3_column_int(stmt, 2))));
            if (found != loaded.cend())
                (*found)->markDerived(MonthIndex::of(sqlite3_column_int(stmt, 3), sqlite3_column_int(stmt, 4)));
        }
    }
    sqlite3_finalize(stmt);
    adoptEveryHistory(std::move(loaded));
}

bool ValueHistoryCache::loadEveryPackedHistory()
{
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(m_db, "select first_month, value_list, derived_list, bond from bond_history", -1, &stmt,
                           nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return false;
    }
    QHash<quint32, std::shared_ptr<ValueHistory>> loaded;
    QList<quint32> changed;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto key = quint32(sqlite3_column_int64(stmt, 3));
        if (sqlite3_column_type(stmt, 1) == SQLITE_NULL)
            changed << key;
        else
            loaded.insert(key, unpackedRow(stmt, 0, m_historyKnowsDerived));
    }
    sqlite3_finalize(stmt);
    // Values changed since they were packed are read from the table, unless so many changed that
    // one pass over it costs less.
    if (changed.size() > ManyBonds)
        return false;
    for (const quint32 key : std::as_const(changed)) {
        loaded.insert(key, readRange(PackedValueHistories::seriesCodeOf(key), PackedValueHistories::issueMonthOf(key)));
    }
    adoptEveryHistory(std::move(loaded));
    return true;
}

void ValueHistoryCache::adoptEveryHistory(QHash<quint32, std::shared_ptr<ValueHistory>> &&loaded)
{
    // Histories already handed out stay as they are: callers may be holding them.
    for (auto it = loaded.begin(); it != loaded.end(); ++it) {
        if (!m_histories.contains(it.key()))
            m_histories.insert(it.key(), std::move(it.value()));
    }
    m_everyHistoryLoaded = true;
}

bool ValueHistoryCache::hasRedemptionMonth(int month)
{
    if (!m_monthStmt)
        return false;
    refreshIfChanged();
    if (const auto found = m_redemptionMonths.constFind(month); found != m_redemptionMonths.cend())
        return *found;
    sqlite3_bind_int(m_monthStmt, 1, MonthIndex::yearOf(month));
    sqlite3_bind_int(m_monthStmt, 2, MonthIndex::monthOf(month));
    const bool present = sqlite3_step(m_monthStmt) == SQLITE_ROW && sqlite3_column_int(m_monthStmt, 0) != 0;
    sqlite3_reset(m_monthStmt);
    m_redemptionMonths.insert(month, present);
    return present;
}

std::optional<int> ValueHistoryCache::readSummaryTable(const char *sql) const
{
    sqlite3_stmt *stmt = nullptr;
    std::optional<int> month;
    if (sqlite3_prepare_v2(m_db, sql, -1, &stmt, nullptr) == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW)
        month = MonthIndex::of(sqlite3_column_int(stmt, 0), sqlite3_column_int(stmt, 1));
    sqlite3_finalize(stmt);
    return month;
}

const ValueHistoryCache::Summary &ValueHistoryCache::summary()
{
    refreshIfChanged();
    if (!m_summary)
        m_summary = Summary{readSummaryTable("select ryr, rmo from min_rdate;"),
                            readSummaryTable("select ryr, rmo from max_rdate;")};
    return *m_summary;
}

std::optional<int> ValueHistoryCache::minimumMonth()
{
    return m_db ? summary().minimum : std::nullopt;
}

std::optional<int> ValueHistoryCache::maximumMonth()
{
    return m_db ? summary().maximum : std::nullopt;
}
