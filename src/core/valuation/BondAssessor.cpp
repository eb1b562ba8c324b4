#include "valuation/BondAssessor.h"

#include "model/Series.h"
#include "valuation/RedemptionDatabase.h"

#include <QFileInfo>
#include <sqlite3.h>
#include <utility>

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

void bindCode(sqlite3_stmt *stmt, int index, const Series *series)
{
    const QByteArray code = series ? series->code().toUtf8() : QByteArray();
    sqlite3_bind_text(stmt, index, code.constData(), code.size(), SQLITE_TRANSIENT);
}

} // namespace

BondAssessor::BondAssessor(const QString &databasePath)
    : m_path(databasePath.isEmpty() ? RedemptionDatabase::path() : databasePath)
{
    if (m_path.isEmpty() || !QFileInfo(m_path).isFile())
        return; // no file: every lookup answers "nothing"
    const QByteArray native = QFileInfo(m_path).absoluteFilePath().toUtf8();
    // Read-only: a reader leaves the file as it found it. Configured before the first read: a
    // writer on another connection may hold the file for a moment (a checkpoint as it closes), and
    // the first read must wait for it, not fail.
    if (sqlite3_open_v2(native.constData(), &m_db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK)
        RedemptionDatabase::configureReader(m_db);
    else
        sqlite3_close(std::exchange(m_db, nullptr));
    if (!m_db || sqlite3_exec(m_db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_close(m_db);
        m_db = nullptr;
        m_state = State::Unreadable;
        return;
    }
    sqlite3_prepare_v2(m_db,
                       "select value from bond_value where series = ? and ryr = ? and rmo = ? and iyr = ? and imo = ?",
                       -1, &m_stmt, nullptr);
    m_state = State::Open;
}

BondAssessor::ReadBatch::ReadBatch(const BondAssessor &assessor)
    : m_assessor(assessor)
{
}

BondAssessor::ReadBatch::~ReadBatch() = default;

BondAssessor::~BondAssessor()
{
    sqlite3_finalize(m_stmt);
    sqlite3_close(m_db);
}

QString BondAssessor::errorMessage() const
{
    if (m_state == State::Unreadable)
        return QStringLiteral("Unable to load essential resources from %1").arg(m_path);
    return {};
}

QDateTime BondAssessor::monthDate(int year, int month)
{
    return QDateTime(QDate(year, month, 1), QTime(0, 0, 1), Qt::LocalTime);
}

QDateTime BondAssessor::redemptionDateFromTable(const char *table) const
{
    Statement stmt(m_db, QByteArray("select ryr, rmo from ") + table + ';');
    if (!stmt.step())
        return {};
    return monthDate(sqlite3_column_int(stmt.handle, 0), sqlite3_column_int(stmt.handle, 1));
}

QDateTime BondAssessor::minimumRedemptionDate() const
{
    return redemptionDateFromTable("min_rdate");
}

QDateTime BondAssessor::maximumRedemptionDate() const
{
    return redemptionDateFromTable("max_rdate");
}

bool BondAssessor::validateDate(const QDateTime &date, const char *yearName, const char *monthName,
                                const Series *series) const
{
    if (!date.isValid())
        return false;
    QByteArray sql = QByteArray("select count(*) from bond_value where ") + yearName + " = ? and "
                     + monthName + " = ?";
    if (series)
        sql += " and series = ?";
    Statement stmt(m_db, sql);
    if (!stmt.handle)
        return false;
    const QDate day = date.date();
    sqlite3_bind_int(stmt.handle, 1, day.year());
    sqlite3_bind_int(stmt.handle, 2, day.month());
    if (series)
        bindCode(stmt.handle, 3, series);
    return stmt.step() && sqlite3_column_int(stmt.handle, 0) > 0;
}

bool BondAssessor::isValidValueOfDate(const QDateTime &date) const
{
    return validateDate(date, "ryr", "rmo", nullptr);
}

bool BondAssessor::isValidIssueDate(const QDateTime &date, const Series *series) const
{
    return validateDate(date, "iyr", "imo", series);
}

qint64 BondAssessor::unadjustedValue(const BondTerms &bond, const QDateTime &asOf) const
{
    if (!bond.issueDate.isValid())
        return RedemptionMarker::NoIssueDate;
    if (!m_stmt || !asOf.isValid())
        return RedemptionMarker::NoPricingData;
    const QDate redeemed = asOf.date();
    const QDate issued = bond.issueDate.date();
    bindCode(m_stmt, 1, bond.series);
    sqlite3_bind_int(m_stmt, 2, redeemed.year());
    sqlite3_bind_int(m_stmt, 3, redeemed.month());
    sqlite3_bind_int(m_stmt, 4, issued.year());
    sqlite3_bind_int(m_stmt, 5, issued.month());
    qint64 result = RedemptionMarker::NoPricingData;
    if (sqlite3_step(m_stmt) == SQLITE_ROW)
        result = static_cast<qint64>(sqlite3_column_int(m_stmt, 0)) * bond.pricingCorrectionFactor;
    sqlite3_reset(m_stmt);
    return result;
}

qint64 BondAssessor::valueOf(const BondTerms &bond, const QDateTime &asOf) const
{
    const qint64 unadjusted = unadjustedValue(bond, asOf);
    if (unadjusted <= 0)
        return unadjusted;
    return unadjusted * bond.faceValue / 2500;
}

QStringList BondAssessor::valuesSinceIssue(const BondTerms &bond) const
{
    QStringList lines;
    if (!bond.issueDate.isValid())
        return lines;
    Statement stmt(m_db, "select ryr, rmo, value from bond_value where series = ? and iyr = ? and imo = ? "
                         "and value > 0 order by ryr asc, rmo asc");
    if (!stmt.handle)
        return lines;
    bindCode(stmt.handle, 1, bond.series);
    sqlite3_bind_int(stmt.handle, 2, bond.issueDate.date().year());
    sqlite3_bind_int(stmt.handle, 3, bond.issueDate.date().month());
    while (stmt.step()) {
        const int year = sqlite3_column_int(stmt.handle, 0);
        const int month = sqlite3_column_int(stmt.handle, 1);
        const int value = sqlite3_column_int(stmt.handle, 2);
        lines << QString::asprintf("%s,%.2f,%02d/1/%04d\r", bond.security.toUtf8().constData(),
                                   value / 100.0, month, year);
    }
    return lines;
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
