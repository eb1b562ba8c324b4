// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/OfficialSourceInstaller.h"
#include "base/Series.h"

#include "update/DerivedValues.h"
#include "update/MaturedValueCompletion.h"
#include "update/PriceDataInstaller.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "valuation/BondAssessor.h"

#include <QHash>
#include <QSet>
#include <QtDebug>
#include <algorithm>
#include <tuple>
#include "valuation/RedemptionDatabase.h"

#include <sqlite3.h>
#include <QCoreApplication>

namespace OfficialSourceInstaller {

namespace {

using RedemptionDatabase::execute;

using MaturedValueCompletion::recordKey;

// Every row of bond_value regrouped into records; issue months without a row read as no data.
QHash<quint64, PriceRecord> installedRecords(sqlite3 *db, QString *error)
{
    QHash<quint64, PriceRecord> records;
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, "select series, ryr, rmo, iyr, imo, value from bond_value", -1, &stmt, nullptr)
        != SQLITE_OK) {
        *error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        return records;
    }
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto *code = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        const char series = code ? code[0] : '\0';
        const int ryr = sqlite3_column_int(stmt, 1), rmo = sqlite3_column_int(stmt, 2);
        const int iyr = sqlite3_column_int(stmt, 3), imo = sqlite3_column_int(stmt, 4);
        if (rmo < 1 || rmo > 12 || imo < 1 || imo > 12)
            continue;
        MaturedValueCompletion::recordFor(records, series, ryr, rmo, iyr).value[imo - 1] = sqlite3_column_int(stmt, 5);
    }
    sqlite3_finalize(stmt);
    return records;
}

bool isRecorded(sqlite3 *db, const QString &name)
{
    sqlite3_stmt *stmt = nullptr;
    bool recorded = false;
    const QByteArray utf8 = name.toUtf8();
    if (sqlite3_prepare_v2(db, "select count(*) from data_file where name = ?", -1, &stmt, nullptr) == SQLITE_OK) {
        sqlite3_bind_text(stmt, 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
        recorded = sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_int(stmt, 0) > 0;
    }
    sqlite3_finalize(stmt);
    return recorded;
}

QString describe(const PriceRecord &record)
{
    return QCoreApplication::translate("OfficialSourceInstaller", "%1, redemption month %2-%3, issue year %4")
        .arg(Series::bondsNamesOfCodes(QString(QLatin1Char(record.series))))
        .arg(record.ryr, 4, 10, QLatin1Char('0'))
        .arg(record.rmo, 2, 10, QLatin1Char('0'))
        .arg(record.iyr);
}

// A stored value as the Treasury's files write it: dollars per $25, or its marker's meaning.
QString valueText(qint32 value)
{
    if (value == RedemptionMarker::NotRedeemable)
        return QStringLiteral("NO PAY");
    if (value < 0)
        return QCoreApplication::translate("OfficialSourceInstaller", "no value");
    return QStringLiteral("$%1.%2").arg(value / 100).arg(value % 100, 2, 10, QLatin1Char('0'));
}

// One issue month of an installed record that gets the file's value: one that held no data (a -2
// row, or none, since derived values come without fillers), or a derived one that gives way.
struct Fill
{
    enum Kind { Empty, Derived, Blank };
    PriceRecord record;
    int month;
    qint32 value;
    Kind kind;
};

bool applyFills(sqlite3 *db, const QList<Fill> &fills, QString *error)
{
    static const char *const key = " where series = ?2 and ryr = ?3 and rmo = ?4 and iyr = ?5 and imo = ?6";
    sqlite3_stmt *empty = nullptr;
    sqlite3_stmt *derived = nullptr;
    sqlite3_stmt *unmark = nullptr;
    sqlite3_stmt *blank = nullptr;
    const bool prepared =
        sqlite3_prepare_v2(db, "insert or ignore into bond_value (value, series, ryr, rmo, iyr, imo) values (?1, ?2, ?3, ?4, ?5, ?6)",
                           -1, &blank, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(db,
                           "insert into bond_value (value, series, ryr, rmo, iyr, imo) values (?1, ?2, ?3, ?4, ?5, ?6)"
                           " on conflict (series, iyr, imo, ryr, rmo) do update set value = excluded.value"
                           " where bond_value.value = -2",
                           -1, &empty, nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(db, (QByteArray("update bond_value set value = ?1") + key).constData(), -1, &derived,
                              nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(db, (QByteArray("delete from derived_value") + key).constData(), -1,
                              &unmark, nullptr) == SQLITE_OK;
    bool ok = prepared;
    if (!prepared)
        *error = QString::fromUtf8(sqlite3_errmsg(db));
    for (int i = 0; ok && i < fills.size(); ++i) {
        const Fill &fill = fills.at(i);
        const char series[2] = {fill.record.series, '\0'};
        QList<sqlite3_stmt *> statements{fill.kind == Fill::Derived ? derived : fill.kind == Fill::Empty ? empty : blank};
        if (fill.kind == Fill::Derived)
            statements << unmark;
        for (sqlite3_stmt *stmt : statements) {
            sqlite3_reset(stmt);
            sqlite3_bind_int(stmt, 1, fill.value);
            sqlite3_bind_text(stmt, 2, series, 1, SQLITE_TRANSIENT);
            sqlite3_bind_int(stmt, 3, fill.record.ryr);
            sqlite3_bind_int(stmt, 4, fill.record.rmo);
            sqlite3_bind_int(stmt, 5, fill.record.iyr);
            sqlite3_bind_int(stmt, 6, fill.month);
            if (sqlite3_step(stmt) != SQLITE_DONE || (stmt != blank && sqlite3_changes(db) != 1)) {
                *error = QCoreApplication::translate("OfficialSourceInstaller", "cannot fill in %1, issue month %2: %3")
                             .arg(describe(fill.record)).arg(fill.month).arg(QString::fromUtf8(sqlite3_errmsg(db)));
                ok = false;
                break;
            }
        }
    }
    for (sqlite3_stmt *stmt : {empty, derived, unmark, blank})
        sqlite3_finalize(stmt);
    return ok;
}

// Everything but the transaction around it, which the caller holds.
void installWithin(sqlite3 *db, const NamedPriceRecords &source, PriceDataInstaller &installer, Outcome &outcome)
{
    if (source.name == QLatin1String(MaturedBondCarryForward::SourceName)) {
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1: this name is reserved for the derived values").arg(source.name);
        return;
    }
    // Asked inside the write transaction: of two installations of one file at once, the second
    // finds the first's.
    if (isRecorded(db, source.name)) {
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1 is already installed").arg(source.name);
        outcome.alreadyInstalled = true;
        return;
    }
    const QHash<quint64, PriceRecord> installed = installedRecords(db, &outcome.error);
    if (!outcome.ok())
        return;

    const QHash<quint64, qint32> derived = DerivedValues::load(db, &outcome.error);
    if (!outcome.ok())
        return;

    // What the database is to hold: new records whole; a record it has already may only gain
    // issue months that held no data, and its derived months take the official values.
    QList<PriceRecord> added;
    QList<Fill> fills;
    QList<DerivedValues::Difference> differences;
    QSet<quint64> seen;
    for (const PriceRecord &record : source.records) {
        const auto existing = installed.constFind(recordKey(record));
        if (existing == installed.cend()) {
            if (!seen.contains(recordKey(record)))
                added << record;
            seen.insert(recordKey(record));
            ++outcome.installedRecords;
            continue;
        }
        bool filled = false;
        for (int k = 0; k < 12; ++k) {
            const qint32 had = existing->value[k], given = record.value[k];
            if (given == RedemptionMarker::NoPricingData) {
                // The file's blank fields are kept as rows, as when its record goes in whole
                // (derived values come without such fillers).
                if (had == RedemptionMarker::NoPricingData)
                    fills << Fill{record, k + 1, given, Fill::Blank};
                continue;
            }
            const auto cell = derived.constFind(DerivedValues::cellKey(record.series, record.iyr, k + 1, record.ryr, record.rmo));
            if (cell != derived.cend()) {
                fills << Fill{record, k + 1, given, Fill::Derived};
                ++outcome.replacedDerivedValues;
                if (had != given && had != RedemptionMarker::NoPricingData)
                    differences.append({record.series, record.iyr, k + 1, record.ryr, record.rmo, had, given});
                filled = true;
                continue;
            }
            if (had == given)
                continue;
            if (had != RedemptionMarker::NoPricingData) {
                outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1: %2, issue month %3-%4, redemption month %5-%6: %7 differs "
                                               "from the installed official value %8")
                                    .arg(source.name, Series::bondsNamesOfCodes(QString(QLatin1Char(record.series))))
                                    .arg(record.iyr).arg(k + 1, 2, 10, QLatin1Char('0'))
                                    .arg(record.ryr).arg(record.rmo, 2, 10, QLatin1Char('0'))
                                    .arg(valueText(given), valueText(had));
                return;
            }
            fills << Fill{record, k + 1, given, Fill::Empty};
            filled = true;
        }
        filled ? ++outcome.filledRecords : ++outcome.unchangedRecords;
    }
    // Month by month, so that progress over the records is progress over the months.
    std::sort(added.begin(), added.end(), [](const PriceRecord &a, const PriceRecord &b) {
        return std::tie(a.ryr, a.rmo, a.series, a.iyr) < std::tie(b.ryr, b.rmo, b.series, b.iyr);
    });

    installer.setExtendsDerivedValues(true);
    QString fillError;
    const bool installedFile = installer.updatePricingDataWithData(
        PriceDataFile::encode(added), source.name, [&] { return applyFills(db, fills, &fillError); });
    if (!installedFile) {
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1 was not installed: %2")
                            .arg(source.name, fillError.isEmpty() ? installer.lastError() : fillError);
        return;
    }
    outcome.carriedValues = installer.derivedExtension().carried;
    outcome.computedValues = installer.derivedExtension().computed;
    outcome.derivedDifferences = DerivedValues::report(source.name, differences);
    // Readers never see the rows without the summary of them.
    if (!installer.rebuildSummaryTables())
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "could not update summary tables: %1").arg(installer.lastError());
}


} // namespace

Outcome install(sqlite3 *db, const NamedPriceRecords &source, const Options &options)
{
    Outcome outcome;
    if (const QString why = PriceDataFile::screen(source.records); !why.isEmpty()) {
        outcome.error = QStringLiteral("%1: %2").arg(source.name, why);
        return outcome;
    }
    // The write lock first, waiting for another writer: what is installed is read under it.
    QString error;
    if (!execute(db, "BEGIN IMMEDIATE", &error)) {
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1 was not installed: %2").arg(source.name, error);
        return outcome;
    }
    PriceDataInstaller installer(db, options.feedback);
    installWithin(db, source, installer, outcome);
    if (outcome.ok() && !execute(db, "COMMIT", &error))
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "%1 was not installed: %2").arg(source.name, error);
    if (!outcome.ok()) {
        execute(db, "ROLLBACK", nullptr);
        return outcome;
    }
    if (!outcome.derivedDifferences.isEmpty())
        qWarning().noquote() << outcome.derivedDifferences;
    // A file whose values all replace computed ones adds no record to count through: the bar
    // still ends full.
    if (options.feedback.progress && outcome.filledRecords + outcome.unchangedRecords == source.records.size())
        options.feedback.progress(1.0, 1.0);
    if (options.updateSummary
        && !installer.updateRedemptionDateSummaryTables(&outcome.minimum, &outcome.maximum, true, false))
        outcome.error = QCoreApplication::translate("OfficialSourceInstaller", "could not update summary tables: %1").arg(installer.lastError());
    return outcome;
}

} // namespace OfficialSourceInstaller
