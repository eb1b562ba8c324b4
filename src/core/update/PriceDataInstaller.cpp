// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/PriceDataInstaller.h"

#include "valuation/RedemptionDatabase.h"

#include "update/PriceDataFile.h"
#include "valuation/RedemptionDateRangeNotifier.h"
#include "update/ValueHistoryPacking.h"
#include "valuation/BondAssessor.h"

#include <QtDebug>
#include <sqlite3.h>
#include <QCoreApplication>

PriceDataInstaller::PriceDataInstaller(sqlite3 *db, Feedback feedback)
    : m_db(db)
    , m_feedback(std::move(feedback))
{
}

void PriceDataInstaller::setStatus(const QString &status)
{
    if (m_feedback.status)
        m_feedback.status(status);
}

void PriceDataInstaller::setProgress(double value)
{
    m_progressValue = value;
    if (m_feedback.progress)
        m_feedback.progress(m_progressValue, m_progressMaximum);
}

// Runs a statement; on failure logs it with the given prefix and keeps the error text.
bool PriceDataInstaller::execute(const char *sql, const char *logFormat)
{
    char *error = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &error) == SQLITE_OK)
        return true;
    m_lastError = QString::fromUtf8(error ? error : sqlite3_errmsg(m_db));
    if (logFormat)
        qWarning().noquote() << QString::fromLatin1(logFormat).arg(m_lastError);
    sqlite3_free(error);
    return false;
}

bool PriceDataInstaller::updatePricingDataWithData(const QByteArray &data, const QString &fileName)
{
    return updatePricingDataWithData(data, fileName, {});
}

bool PriceDataInstaller::updatePricingDataWithData(const QByteArray &data, const QString &fileName,
                                                   const std::function<bool()> &beforeRecords)
{
    return install(data, fileName, beforeRecords, false);
}

bool PriceDataInstaller::updateDerivedDataWithData(const QByteArray &data, const QString &fileName)
{
    return install(data, fileName, {}, true);
}

bool PriceDataInstaller::prepareDerivedStatements()
{
    if (!DerivedValues::ensureTable(m_db, &m_lastError))
        return false;
    m_derived = DerivedValues::load(m_db, &m_lastError);
    if (!m_lastError.isEmpty())
        return false;
    static const char *const key = " where series = ?1 and ryr = ?2 and rmo = ?3 and iyr = ?4 and imo = ?5";
    const bool prepared =
        sqlite3_prepare_v2(m_db, "insert into derived_value (series, ryr, rmo, iyr, imo) values (?, ?, ?, ?, ?)", -1,
                           &m_markStmt, nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(m_db, (QByteArray("delete from derived_value") + key).constData(), -1, &m_unmarkStmt,
                              nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(m_db, (QByteArray("update bond_value set value = ?6") + key).constData(), -1,
                              &m_replaceStmt, nullptr) == SQLITE_OK;
    if (!prepared)
        m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
    return prepared;
}

bool PriceDataInstaller::install(const QByteArray &data, const QString &fileName,
                                 const std::function<bool()> &beforeRecords, bool derived)
{
    m_differences.clear();
    m_extension = {};
    m_lastError.clear();
    // A writer takes the write lock at once, so that it waits (the busy time-out) for another
    // writer instead of failing when it finds its snapshot outdated. Inside a caller's
    // transaction the file is a savepoint of it.
    const bool outermost = sqlite3_get_autocommit(m_db) != 0;
    if (!execute(outermost ? "BEGIN IMMEDIATE" : "SAVEPOINT install_file", "updatePricingDataWithData >>: %1")) {
        setStatus(QCoreApplication::translate("PriceDataInstaller", "Unable to begin price update"));
        return false;
    }
    setStatus(QCoreApplication::translate("PriceDataInstaller", "Installing updated prices..."));
    static const char insert[] = "insert into bond_value (series, ryr, rmo, iyr, imo, value) values(?, ?, ?, ?, ?, ?);";
    sqlite3_prepare_v2(m_db, insert, sizeof insert - 1, &m_insertStmt, nullptr);
    m_installingDerived = derived;

    bool success = prepareDerivedStatements() && (!beforeRecords || beforeRecords()) && processData(data, fileName);
    if (success && m_extendsDerivedValues && !derived)
        success = DerivedValues::extend(m_db, EeFixedRates::shipped(), &m_extension, &m_lastError);
    for (sqlite3_stmt **stmt : {&m_markStmt, &m_unmarkStmt, &m_replaceStmt}) {
        sqlite3_finalize(*stmt);
        *stmt = nullptr;
    }
    m_derived.clear();
    if (success) {
        if (!execute(outermost ? "COMMIT" : "RELEASE install_file", "<<updatePricingDataWithData: %1")) {
            // The transaction stays open, as it always has: a busy database may yet let it commit.
            setStatus(QCoreApplication::translate("PriceDataInstaller", "Unable to commit price update"));
            success = false;
        } else if (!m_differences.isEmpty()) {
            qWarning().noquote() << DerivedValues::report(fileName, m_differences);
        }
    } else {
        m_differences.clear();
        m_extension = {};
        const QString cause = m_lastError;
        execute(outermost ? "ROLLBACK" : "ROLLBACK TO install_file; RELEASE install_file", "updatePricingDataWithData rb: %1");
        m_lastError = cause;
        setStatus(QCoreApplication::translate("PriceDataInstaller", "Data inconsistency; update canceled"));
    }
    sqlite3_finalize(m_insertStmt);
    m_insertStmt = nullptr;
    setProgress(success ? m_progressMaximum : 0.0);
    return success;
}

bool PriceDataInstaller::processData(const QByteArray &data, const QString &fileName)
{
    const int count = PriceDataFile::recordCount(data);
    m_progressMaximum = static_cast<double>(count / 10);
    setProgress(0.0);
    if (!m_insertStmt) {
        m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (!insertPosition(data.constData() + i * PriceRecord::Size))
            return false;
        if (i % 10 == 0)
            setProgress(m_progressValue + 1.0);
        if (m_feedback.records)
            m_feedback.records(i + 1, count);
    }
    return updateDataFileTable(fileName);
}

// An official value where a derived one stands takes its place; a blank official cell leaves it.
bool PriceDataInstaller::replaceDerived(const char *series, const PriceRecord &record, int month)
{
    const quint64 key = DerivedValues::cellKey(record.series, record.iyr, month, record.ryr, record.rmo);
    const qint32 derived = m_derived.value(key);
    const qint32 official = record.value[month - 1];
    if (official == RedemptionMarker::NoPricingData)
        return true;
    for (sqlite3_stmt *stmt : {m_replaceStmt, m_unmarkStmt})
        RedemptionDatabase::bindCell(stmt, series, record.ryr, record.rmo, record.iyr, month);
    sqlite3_bind_int(m_replaceStmt, 6, official);
    if (sqlite3_step(m_replaceStmt) != SQLITE_DONE || sqlite3_step(m_unmarkStmt) != SQLITE_DONE) {
        m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
        return false;
    }
    m_derived.remove(key);
    if (derived != official && derived != RedemptionMarker::NoPricingData)
        m_differences.append({record.series, record.iyr, month, record.ryr, record.rmo, derived, official});
    return true;
}

bool PriceDataInstaller::insertPosition(const char *bytes)
{
    const PriceRecord record = PriceRecord::decode(bytes);
    const char series[2] = {record.series, '\0'};
    for (int month = 1; month <= 12; ++month) {
        if (!m_installingDerived && !m_derived.isEmpty()
            && m_derived.contains(DerivedValues::cellKey(record.series, record.iyr, month, record.ryr, record.rmo))) {
            if (!replaceDerived(series, record, month))
                return false;
            continue;
        }
        RedemptionDatabase::bindCell(m_insertStmt, series, record.ryr, record.rmo, record.iyr, month);
        sqlite3_bind_int(m_insertStmt, 6, record.value[month - 1]);
        if (sqlite3_step(m_insertStmt) != SQLITE_DONE) {
            m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
            sqlite3_reset(m_insertStmt);
            return false;
        }
        if (m_installingDerived) {
            sqlite3_reset(m_markStmt);
            sqlite3_bind_text(m_markStmt, 1, series, 1, SQLITE_TRANSIENT);
            sqlite3_bind_int(m_markStmt, 2, record.ryr);
            sqlite3_bind_int(m_markStmt, 3, record.rmo);
            sqlite3_bind_int(m_markStmt, 4, record.iyr);
            sqlite3_bind_int(m_markStmt, 5, month);
            if (sqlite3_step(m_markStmt) != SQLITE_DONE) {
                m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
                return false;
            }
        }
    }
    return true;
}

bool PriceDataInstaller::updateDataFileTable(const QString &fileName)
{
    char *sql = sqlite3_mprintf("insert into data_file values('%q')", fileName.toUtf8().constData());
    const bool ok = execute(sql, "Error updating data file table: %1");
    sqlite3_free(sql);
    return ok;
}

bool PriceDataInstaller::rebuildSummaryTables()
{
    // Rows below −1 are fillers of blank cells: a month that only they reach holds no price data.
    // The latest month is the latest official one: Series I values computed past it are a
    // forecast, shown as such, not a month every bond can be valued in.
    static const char script[] =
        "drop table max_rdate; drop table min_rdate; "
        "create table max_rdate as select ryr,rmo from bond_value b where value >= -1 and not exists ("
        "select 1 from derived_value d where d.series = b.series and d.iyr = b.iyr and d.imo = b.imo and d.ryr = b.ryr and d.rmo = b.rmo) "
        "order by ryr desc, rmo desc limit 1; "
        "insert into max_rdate select ryr,rmo from bond_value where value >= -1 and not exists (select 1 from max_rdate) "
        "order by ryr desc, rmo desc limit 1; "
        "create table min_rdate as select ryr,rmo from bond_value where value >= -1 and ryr = (select min(ryr) from bond_value where value >= -1) order by ryr asc, rmo asc limit 1; ";
    return DerivedValues::ensureTable(m_db, &m_lastError) && execute(script, "Could not update summary tables: %1");
}

bool PriceDataInstaller::updateRedemptionDateSummaryTables(QDateTime *minimum, QDateTime *maximum,
                                                           bool postNotification, bool rebuild)
{
    setStatus(QCoreApplication::translate("PriceDataInstaller", "Optimizing pricing data..."));
    if (rebuild) {
        // Dropped and made again in one step: readers see the old tables or the new ones.
        if (!execute("SAVEPOINT summary", "Could not update summary tables: %1"))
            return false;
        if (!rebuildSummaryTables()) {
            const QString cause = m_lastError;
            execute("ROLLBACK TO summary; RELEASE summary", nullptr);
            m_lastError = cause;
            return false;
        }
        if (!execute("RELEASE summary", "Could not update summary tables: %1"))
            return false;
    }
    // Packing only makes reading faster: a failure leaves the changed bonds read row by row.
    QString packingError;
    if (!ValueHistoryPacking::refresh(m_db, &packingError))
        qWarning().noquote() << QStringLiteral("Could not pack value histories: %1").arg(packingError);

    // Read the range back the way every portfolio will, through a connection of its own.
    const char *file = sqlite3_db_filename(m_db, "main");
    BondAssessor assessor(QString::fromUtf8(file ? file : ""));
    const QDateTime first = assessor.minimumRedemptionDate();
    const QDateTime last = assessor.maximumRedemptionDate();
    if (minimum)
        *minimum = first;
    if (maximum)
        *maximum = last;
    if (postNotification)
        RedemptionDateRangeNotifier::instance()->post(nullptr, first, last);
    return true;
}
