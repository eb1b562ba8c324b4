// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "valuation/BondAssessor.h"

#include "base/Series.h"
#include "valuation/RedemptionDatabase.h"
#include "valuation/ValueHistoryCache.h"

#include <QFileInfo>
#include <QVarLengthArray>
#include <algorithm>
#include <charconv>
#include <sqlite3.h>
#include <utility>
#include <QCoreApplication>

namespace {

// Statements live for one call; finalized whatever happens.
struct Statement
{
    sqlite3_stmt *handle = nullptr;
    Statement(sqlite3 *db, const QByteArray &sql)
    {
        if (db)
            sqlite3_prepare_v2(db, sql.constData(), -1, &handle, nullptr);
    }
    ~Statement() { sqlite3_finalize(handle); }
    bool step() const { return handle && sqlite3_step(handle) == SQLITE_ROW; }
};

} // namespace

BondAssessor::BondAssessor(const QString &databasePath)
    : m_path(databasePath.isEmpty() ? RedemptionDatabase::path() : databasePath)
{
    if (m_path.isEmpty() || !QFileInfo(m_path).isFile())
        return; // no file: every lookup answers "nothing"
    const QByteArray native = QFileInfo(m_path).absoluteFilePath().toUtf8();
    // Read-only: a reader leaves the file as it found it. Configured before the first read: a
    // writer on another connection may hold the file for a moment (a checkpoint as it closes), and
    // the first read must wait for it, not fail. One thread uses an assessor at a time, so the
    // connection needs no mutex of its own (it would be taken on every column read).
    if (sqlite3_open_v2(native.constData(), &m_db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK)
        RedemptionDatabase::configureReader(m_db);
    else
        sqlite3_close(std::exchange(m_db, nullptr));
    if (!m_db || sqlite3_exec(m_db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_close(m_db);
        m_db = nullptr;
        m_state = State::Unreadable;
        return;
    }
    m_cache = std::make_unique<ValueHistoryCache>(m_db);
    m_state = State::Open;
}

BondAssessor::ReadBatch::ReadBatch(const BondAssessor &assessor)
    : m_cache(assessor.m_cache.get())
{
    if (m_cache)
        m_cache->beginBatch();
}

BondAssessor::ReadBatch::~ReadBatch()
{
    if (m_cache)
        m_cache->endBatch();
}

BondAssessor::~BondAssessor()
{
    m_cache.reset();
    sqlite3_close(m_db);
}

QString BondAssessor::errorMessage() const
{
    if (m_state == State::Unreadable)
        return QCoreApplication::translate("BondAssessor", "Unable to load essential resources from %1").arg(m_path);
    return {};
}

QDateTime BondAssessor::monthDate(int year, int month)
{
    return Month(year, month).toDateTime();
}

namespace {
QDateTime monthDateOf(std::optional<int> month)
{
    return month ? BondAssessor::monthDate(MonthIndex::yearOf(*month), MonthIndex::monthOf(*month)) : QDateTime();
}

char seriesCode(const Series *series)
{
    return series ? series->letter() : '\0';
}
} // namespace

QDateTime BondAssessor::minimumRedemptionDate() const
{
    return monthDateOf(m_cache ? m_cache->minimumMonth() : std::nullopt);
}

QDateTime BondAssessor::maximumRedemptionDate() const
{
    return monthDateOf(maximumRedemptionMonth());
}

std::optional<int> BondAssessor::maximumRedemptionMonth() const
{
    return m_cache ? m_cache->maximumMonth() : std::nullopt;
}

bool BondAssessor::isValidValueOfDate(Month month) const
{
    return m_cache && !month.isNull() && m_cache->hasRedemptionMonth(month.index());
}

bool BondAssessor::isValidIssueDate(Month month, const Series *series) const
{
    return !month.isNull() && !history(series, month.index()).isEmpty();
}

const ValueHistory &BondAssessor::history(const Series *series, int issueMonth) const
{
    static const ValueHistory none;
    return m_cache ? m_cache->history(seriesCode(series), issueMonth) : none;
}

void BondAssessor::prefetch(const QList<std::pair<const Series *, int>> &bonds) const
{
    if (!m_cache)
        return;
    QList<std::pair<char, int>> keys;
    keys.reserve(bonds.size());
    for (const auto &[series, issueMonth] : bonds)
        keys.append({seriesCode(series), issueMonth});
    m_cache->prefetch(keys);
}

qint64 BondAssessor::adjusted(qint32 stored, int pricingCorrectionFactor)
{
    // Stored −1 times 2 reads as −2 (no data) for an electronic bond; kept as the original does.
    if (stored == ValueHistory::Missing)
        return RedemptionMarker::NoPricingData;
    return static_cast<qint64>(stored) * pricingCorrectionFactor;
}

qint64 BondAssessor::unadjustedValue(const BondTerms &bond, Month asOf) const
{
    if (bond.issueMonth.isNull())
        return RedemptionMarker::NoIssueDate;
    if (asOf.isNull())
        return RedemptionMarker::NoPricingData;
    const qint32 stored = history(bond.series, bond.issueMonth.index()).at(asOf.index());
    return adjusted(stored, bond.pricingCorrectionFactor);
}

bool BondAssessor::isDerivedValue(const BondTerms &bond, Month asOf) const
{
    return !bond.issueMonth.isNull() && history(bond.series, bond.issueMonth.index()).isDerived(asOf.index());
}

qint64 BondAssessor::valueOf(const BondTerms &bond, Month asOf) const
{
    return scaled(unadjustedValue(bond, asOf), bond.faceValue);
}

QStringList BondAssessor::valuesSinceIssue(const BondTerms &bond) const
{
    if (bond.issueMonth.isNull())
        return {};
    QByteArray bytes;
    appendValuesSinceIssue(bytes, bond.series, bond.issueMonth.index(), bond.security.toUtf8());
    QStringList lines;
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype end = bytes.indexOf('\r', start) + 1;
        lines << QString::fromUtf8(bytes.mid(start, end - start));
        start = end;
    }
    return lines;
}

namespace {
// Two digits with a leading zero, as "%02d" writes 0 to 99.
char *twoDigits(char *at, int number)
{
    *at++ = char('0' + number / 10 % 10);
    *at++ = char('0' + number % 10);
    return at;
}
} // namespace

void BondAssessor::appendValuesSinceIssue(QByteArray &out, const Series *series, int issueMonth,
                                          QByteArrayView security) const
{
    const ValueHistory &values = history(series, issueMonth);
    // "%s,%.2f,%02d/1/%04d\r" of cents / 100.0, written by hand: whole cents print exactly so,
    // and a price list holds millions of these lines.
    QVarLengthArray<char, 96> line(security.size() + 40);
    std::copy(security.begin(), security.end(), line.data());
    for (int month = values.firstMonth(); !values.isEmpty() && month <= values.lastMonth(); ++month) {
        const qint32 value = values.at(month);
        if (value <= 0)
            continue;
        char *at = line.data() + security.size();
        *at++ = ',';
        at = std::to_chars(at, line.data() + line.size(), value / 100).ptr;
        *at++ = '.';
        at = twoDigits(at, value % 100);
        *at++ = ',';
        at = twoDigits(at, MonthIndex::monthOf(month));
        at = std::copy_n("/1/", 3, at);
        const int year = MonthIndex::yearOf(month);
        at = twoDigits(twoDigits(at, year / 100), year % 100);
        *at++ = '\r';
        out.append(line.data(), at - line.data());
    }
}

qint64 BondAssessor::valueCount() const
{
    Statement stmt(m_db, "select count(*) from bond_value");
    return stmt.step() ? sqlite3_column_int64(stmt.handle, 0) : 0;
}

QStringList BondAssessor::installedFiles() const
{
    QStringList names;
    Statement stmt(m_db, "select name from data_file");
    while (stmt.step())
        names << QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt.handle, 0)));
    return names;
}
