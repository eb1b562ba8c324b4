#include "update/OfficialSourceInstaller.h"

#include "update/MaturedValueCompletion.h"
#include "update/PriceDataInstaller.h"
#include "update/sources/MaturedBondCarryForward.h"
#include "valuation/BondAssessor.h"

#include <QHash>
#include <QSet>
#include <algorithm>
#include <tuple>
#include <sqlite3.h>

namespace OfficialSourceInstaller {

namespace {

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
    return QStringLiteral("series %1, redemption month %2-%3, issue year %4")
        .arg(QLatin1Char(record.series))
        .arg(record.ryr, 4, 10, QLatin1Char('0'))
        .arg(record.rmo, 2, 10, QLatin1Char('0'))
        .arg(record.iyr);
}

// One issue month of an installed record that held no data and gets a value.
struct Fill
{
    PriceRecord record;
    int month;
    qint32 value;
};

bool applyFills(sqlite3 *db, const QList<Fill> &fills, QString *error)
{
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db,
                           "update bond_value set value = ? where series = ? and ryr = ? and rmo = ? and iyr = ?"
                           " and imo = ? and value = -2",
                           -1, &stmt, nullptr)
        != SQLITE_OK) {
        *error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        return false;
    }
    bool ok = true;
    for (const Fill &fill : fills) {
        const char series[2] = {fill.record.series, '\0'};
        sqlite3_reset(stmt);
        sqlite3_bind_int(stmt, 1, fill.value);
        sqlite3_bind_text(stmt, 2, series, 1, SQLITE_TRANSIENT);
        sqlite3_bind_int(stmt, 3, fill.record.ryr);
        sqlite3_bind_int(stmt, 4, fill.record.rmo);
        sqlite3_bind_int(stmt, 5, fill.record.iyr);
        sqlite3_bind_int(stmt, 6, fill.month);
        if (sqlite3_step(stmt) != SQLITE_DONE || sqlite3_changes(db) != 1) {
            *error = QStringLiteral("cannot fill in %1, issue month %2: %3")
                         .arg(describe(fill.record)).arg(fill.month).arg(QString::fromUtf8(sqlite3_errmsg(db)));
            ok = false;
            break;
        }
    }
    sqlite3_finalize(stmt);
    return ok;
}

} // namespace

Outcome install(sqlite3 *db, const NamedPriceRecords &source)
{
    Outcome outcome;
    if (source.name == QLatin1String(MaturedBondCarryForward::SourceName)) {
        outcome.error = QStringLiteral("%1: this name is reserved for the derived values").arg(source.name);
        return outcome;
    }
    if (isRecorded(db, source.name)) {
        outcome.error = QStringLiteral("%1 is already installed").arg(source.name);
        return outcome;
    }
    const QHash<quint64, PriceRecord> installed = installedRecords(db, &outcome.error);
    if (!outcome.ok())
        return outcome;

    // What the database is to hold: new records whole; a record it has already may only gain
    // issue months that held no data (derived months of matured bonds leave the others empty).
    QHash<quint64, PriceRecord> combined = installed;
    for (const PriceRecord &record : source.records) {
        const auto existing = combined.find(recordKey(record));
        if (existing == combined.end()) {
            combined.insert(recordKey(record), record);
            ++outcome.installedRecords;
            continue;
        }
        bool filled = false;
        for (int k = 0; k < 12; ++k) {
            const qint32 had = existing->value[k], given = record.value[k];
            if (had == given || given == RedemptionMarker::NoPricingData)
                continue;
            if (had != RedemptionMarker::NoPricingData) {
                outcome.error = QStringLiteral("%1: the values of %2 differ from those installed")
                                    .arg(source.name, describe(record));
                return outcome;
            }
            existing->value[k] = given;
            filled = true;
        }
        filled ? ++outcome.filledRecords : ++outcome.unchangedRecords;
    }
    outcome.carriedValues = MaturedValueCompletion::complete(combined);

    // The difference goes in as one file: new records inserted, empty months filled in.
    QList<PriceRecord> added;
    QList<Fill> fills;
    for (auto record = combined.cbegin(); record != combined.cend(); ++record) {
        const auto before = installed.constFind(record.key());
        if (before == installed.cend()) {
            added << record.value();
            continue;
        }
        for (int k = 0; k < 12; ++k) {
            if (before->value[k] != record->value[k])
                fills << Fill{record.value(), k + 1, record->value[k]};
        }
    }
    std::sort(added.begin(), added.end(), [](const PriceRecord &a, const PriceRecord &b) {
        return std::tie(a.series, a.ryr, a.rmo, a.iyr) < std::tie(b.series, b.ryr, b.rmo, b.iyr);
    });

    PriceDataInstaller installer(db);
    QString fillError;
    const bool installedFile = installer.updatePricingDataWithData(
        PriceDataFile::encode(added), source.name, [&] { return applyFills(db, fills, &fillError); });
    if (!installedFile) {
        outcome.error = QStringLiteral("%1 was not installed: %2")
                            .arg(source.name, fillError.isEmpty() ? installer.lastError() : fillError);
        return outcome;
    }
    if (!installer.updateRedemptionDateSummaryTables(&outcome.minimum, &outcome.maximum))
        outcome.error = QStringLiteral("could not update summary tables: %1").arg(installer.lastError());
    return outcome;
}

} // namespace OfficialSourceInstaller
