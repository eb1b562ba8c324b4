// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Installs price data files into the redemption value database: each file wholly, in one
// transaction together with its name in data_file, or not at all. Used by the build (for the
// shipped database), by the updater and by the command line.
//
// Values the program derived (see DerivedValues) give way to an official file that covers them:
// its values replace theirs instead of refusing the file, and a derived value that differs from
// the official one is reported, once, in derivedDifferences() and the log. Official rows that a
// file repeats still refuse it.
#include "update/DerivedValues.h"
#include "update/PriceDataFile.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <functional>

struct sqlite3;
struct sqlite3_stmt;

class PriceDataInstaller
{
public:
    // Where status texts and progress go; both may be called on the installing thread.
    struct Feedback
    {
        std::function<void(const QString &status)> status;
        // Determinate progress: value out of maximum.
        std::function<void(double value, double maximum)> progress;
        // After each record: how many of the file's records are in.
        std::function<void(int done, int count)> records;
    };

    // Works on a connection the caller owns and keeps open.
    explicit PriceDataInstaller(sqlite3 *db, Feedback feedback = {});
    PriceDataInstaller(const PriceDataInstaller &) = delete;
    PriceDataInstaller &operator=(const PriceDataInstaller &) = delete;

    // One file, in one transaction. False when nothing of it was installed (or the commit failed).
    bool updatePricingDataWithData(const QByteArray &data, const QString &fileName);
    // The same, with further changes made inside the file's transaction before its records go in
    // (rows that held no data filled in, say); when they report false the whole file rolls back.
    bool updatePricingDataWithData(const QByteArray &data, const QString &fileName,
                                   const std::function<bool()> &beforeRecords);
    // A file of derived values: installed the same way, every row recorded in derived_value.
    bool updateDerivedDataWithData(const QByteArray &data, const QString &fileName);

    // When set, every official file is followed, inside its transaction, by the derived values
    // that reach the new latest month (the updater and the command line set it; the build, which
    // derives once at the end, does not).
    void setExtendsDerivedValues(bool extend) { m_extendsDerivedValues = extend; }
    // Of the last file installed: derived values that differed from the official ones replacing
    // them, and the derived values added after it.
    QList<DerivedValues::Difference> derivedDifferences() const { return m_differences; }
    DerivedValues::Extension derivedExtension() const { return m_extension; }

    // Rebuilds min_rdate and max_rdate in one step, so that a reader never finds them missing,
    // packs the changed value histories, and reads the range back. On success *minimum and
    // *maximum (if given) receive the new range as the assessor reads it, and the range is posted
    // to the process-wide notifier when postNotification is set. rebuild false: the tables were
    // rebuilt already, inside the transaction that changed the rows.
    bool updateRedemptionDateSummaryTables(QDateTime *minimum = nullptr, QDateTime *maximum = nullptr,
                                           bool postNotification = true, bool rebuild = true);
    // Only the rebuilding, inside whatever transaction is open.
    bool rebuildSummaryTables();

    // The text of the last failure, for callers without a status line.
    QString lastError() const { return m_lastError; }

private:
    bool install(const QByteArray &data, const QString &fileName, const std::function<bool()> &beforeRecords,
                 bool derived);
    bool prepareDerivedStatements();
    bool replaceDerived(const char *series, const PriceRecord &record, int month);
    bool processData(const QByteArray &data, const QString &fileName);
    bool insertPosition(const char *record);
    bool updateDataFileTable(const QString &fileName);
    void setStatus(const QString &status);
    void setProgress(double value);
    bool execute(const char *sql, const char *logFormat);

    sqlite3 *m_db;
    sqlite3_stmt *m_insertStmt = nullptr;
    // While a file is installed: its derived cells and the statements that mark and replace them.
    QHash<quint64, qint32> m_derived;
    bool m_installingDerived = false;
    sqlite3_stmt *m_markStmt = nullptr;
    sqlite3_stmt *m_replaceStmt = nullptr;
    sqlite3_stmt *m_unmarkStmt = nullptr;
    bool m_extendsDerivedValues = false;
    QList<DerivedValues::Difference> m_differences;
    DerivedValues::Extension m_extension;
    Feedback m_feedback;
    double m_progressMaximum = 0.0;
    double m_progressValue = 0.0;
    QString m_lastError;
};
