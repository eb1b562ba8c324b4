// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/DerivedValues.h"

#include "base/Month.h"
#include "valuation/RedemptionDatabase.h"

#include "base/Money.h"
#include "base/Series.h"
#include "update/GapMonthFill.h"
#include "update/MaturedValueCompletion.h"
#include "valuation/IBondRates.h"
#include "valuation/BondAssessor.h"

#include <QStringList>
#include <limits>
#include <sqlite3.h>
#include <QCoreApplication>

namespace DerivedValues {

namespace {

constexpr qint32 NoData = static_cast<qint32>(RedemptionMarker::NoPricingData);
constexpr qint32 NotRedeemableMark = static_cast<qint32>(RedemptionMarker::NotRedeemable);

int monthIndex(int year, int month) { return year * 12 + month - 1; }

QString monthText(int year, int month) { return Month(year, month).toString(Month::Style::Iso); }

QString valueText(qint32 value)
{
    if (value == RedemptionMarker::NotRedeemable)
        return QCoreApplication::translate("DerivedValues", "not redeemable");
    if (value == NoData)
        return QStringLiteral("blank");
    return formatDollars(value);
}

bool fail(sqlite3 *db, QString *error)
{
    *error = QString::fromUtf8(sqlite3_errmsg(db));
    return false;
}

// A cell to be given a derived value.
struct Cell
{
    char series;
    int ryr, rmo, iyr, imo;
    qint32 value;
};

bool write(sqlite3 *db, const QList<Cell> &cells, QString *error)
{
    // A -2 row is a cell without data, as much as a missing row; anything else is kept.
    sqlite3_stmt *value = nullptr;
    sqlite3_stmt *mark = nullptr;
    const bool prepared =
        sqlite3_prepare_v2(db,
                           "insert into bond_value (series, ryr, rmo, iyr, imo, value) values (?, ?, ?, ?, ?, ?)"
                           " on conflict (series, iyr, imo, ryr, rmo) do update set value = excluded.value"
                           " where bond_value.value = -2",
                           -1, &value, nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(db, "insert or ignore into derived_value (series, ryr, rmo, iyr, imo) values (?, ?, ?, ?, ?)",
                              -1, &mark, nullptr) == SQLITE_OK;
    bool ok = prepared;
    for (int i = 0; ok && i < cells.size(); ++i) {
        const Cell &cell = cells.at(i);
        const char series[2] = {cell.series, '\0'};
        for (sqlite3_stmt *stmt : {value, mark})
            RedemptionDatabase::bindCell(stmt, series, cell.ryr, cell.rmo, cell.iyr, cell.imo);
        sqlite3_bind_int(value, 6, cell.value);
        ok = sqlite3_step(value) == SQLITE_DONE && sqlite3_step(mark) == SQLITE_DONE;
    }
    if (!ok)
        fail(db, error);
    sqlite3_finalize(value);
    sqlite3_finalize(mark);
    return ok;
}

// Months holding any official value, by series: a value not listed in derived_value.
QHash<char, QSet<int>> officialMonths(const QHash<quint64, PriceRecord> &records, const QHash<quint64, qint32> &derived)
{
    QHash<char, QSet<int>> months;
    for (const PriceRecord &record : records) {
        for (int k = 0; k < 12; ++k) {
            if (record.value[k] != NoData && !derived.contains(cellKey(record.series, record.iyr, k + 1, record.ryr, record.rmo))) {
                months[record.series].insert(monthIndex(record.ryr, record.rmo));
                break;
            }
        }
    }
    return months;
}

int fillRuns(QHash<quint64, PriceRecord> &records, const QHash<char, QSet<int>> &official)
{
    int filled = 0;
    for (const GapMonthFill::Run &run : GapMonthFill::runs(official))
        filled += GapMonthFill::fill(records, run);
    return filled;
}

// The cells records holds a value in and before did not, as cells to write.
QList<Cell> addedCells(const QHash<quint64, PriceRecord> &before, const QHash<quint64, PriceRecord> &records)
{
    QList<Cell> cells;
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        const auto had = before.constFind(record.key());
        for (int k = 0; k < 12; ++k) {
            if ((had == before.cend() || had->value[k] == NoData) && record->value[k] != NoData)
                cells << Cell{record->series, record->ryr, record->rmo, record->iyr, k + 1, record->value[k]};
        }
    }
    return cells;
}

} // namespace

bool ensureTable(sqlite3 *db, QString *error)
{
    char *message = nullptr;
    if (sqlite3_exec(db, CreateTable, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    *error = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
    sqlite3_free(message);
    return false;
}

quint64 cellKey(char series, int iyr, int imo, int ryr, int rmo)
{
    return (quint64(quint8(series)) << 48) | (quint64(quint32(monthIndex(iyr, imo))) << 24)
           | quint64(quint32(monthIndex(ryr, rmo)) & 0xffffffu);
}

QHash<quint64, qint32> load(sqlite3 *db, QString *error)
{
    QHash<quint64, qint32> cells;
    if (!RedemptionDatabase::hasTable(db, "derived_value"))
        return cells;
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db,
                           "select d.series, d.iyr, d.imo, d.ryr, d.rmo, b.value from derived_value d join bond_value b"
                           " on b.series = d.series and b.iyr = d.iyr and b.imo = d.imo and b.ryr = d.ryr and b.rmo = d.rmo",
                           -1, &stmt, nullptr) != SQLITE_OK) {
        fail(db, error);
        sqlite3_finalize(stmt);
        return cells;
    }
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto *code = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        cells.insert(cellKey(code ? code[0] : '\0', sqlite3_column_int(stmt, 1), sqlite3_column_int(stmt, 2),
                             sqlite3_column_int(stmt, 3), sqlite3_column_int(stmt, 4)),
                     sqlite3_column_int(stmt, 5));
    }
    sqlite3_finalize(stmt);
    return cells;
}

QString describe(const Difference &d)
{
    const Series *series = Series::seriesForCode(QString(QLatin1Char(d.series)));
    return QCoreApplication::translate("DerivedValues", "%1 issued %2, redeemed %3: derived %4, official %5")
        .arg(series ? series->label() : QString(QLatin1Char(d.series)), monthText(d.iyr, d.imo), monthText(d.ryr, d.rmo),
             valueText(d.derived), valueText(d.official));
}

QString report(const QString &fileName, const QList<Difference> &differences)
{
    if (differences.isEmpty())
        return {};
    constexpr int Shown = 5;
    QStringList shown;
    for (int i = 0; i < differences.size() && i < Shown; ++i)
        shown << describe(differences.at(i));
    if (differences.size() > Shown)
        shown << QCoreApplication::translate("DerivedValues", "and %1 more").arg(differences.size() - Shown);
    return QCoreApplication::translate("DerivedValues", "%1: %2 official value(s) differ from the derived ones they replace: %3")
        .arg(fileName).arg(differences.size()).arg(shown.join(QLatin1String("; ")));
}

// Lowers *last to the latest official month and drops the records beyond it: only Series I
// bonds, whose rates the program knows, are computed past it (forecastSeriesI).
static void boundToOfficialMonths(QHash<quint64, PriceRecord> &records, const QHash<quint64, qint32> &derived, int *last)
{
    int latestOfficial = std::numeric_limits<int>::min();
    for (const PriceRecord &record : std::as_const(records)) {
        const int month = record.ryr * 12 + record.rmo - 1;
        for (int k = 0; k < 12 && month > latestOfficial; ++k) {
            if (record.value[k] >= NotRedeemableMark && !derived.contains(cellKey(record.series, record.iyr, k + 1, record.ryr, record.rmo)))
                latestOfficial = month;
        }
    }
    if (latestOfficial == std::numeric_limits<int>::min())
        return;
    *last = std::min(*last, latestOfficial);
    for (auto record = records.begin(); record != records.end();) {
        if (record->ryr * 12 + record->rmo - 1 > *last)
            record = records.erase(record);
        else
            ++record;
    }
}

bool extend(sqlite3 *db, const EeFixedRates::Table &rates, Extension *added, QString *error, Scope scope)
{
    *added = {};
    if (!ensureTable(db, error))
        return false;
    int first = std::numeric_limits<int>::max(), last = std::numeric_limits<int>::min();
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, "select min(ryr * 12 + rmo - 1), max(ryr * 12 + rmo - 1) from bond_value", -1, &stmt, nullptr)
            != SQLITE_OK
        || sqlite3_step(stmt) != SQLITE_ROW) {
        sqlite3_finalize(stmt);
        return fail(db, error);
    }
    if (sqlite3_column_type(stmt, 0) != SQLITE_NULL) {
        first = sqlite3_column_int(stmt, 0);
        last = sqlite3_column_int(stmt, 1);
    }
    sqlite3_finalize(stmt);

    QHash<quint64, PriceRecord> records;
    const QByteArray select = QByteArray("select series, ryr, rmo, iyr, imo, value from bond_value")
                              + (scope == Scope::Everything ? "" : " where series = 'N' and iyr >= ?");
    if (sqlite3_prepare_v2(db, select.constData(), -1, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return fail(db, error);
    }
    sqlite3_bind_int(stmt, 1, rates.firstMonth() / 12);
    bool holdsEe = false;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto *code = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        const char series = code ? code[0] : '\0';
        const int imo = sqlite3_column_int(stmt, 4), rmo = sqlite3_column_int(stmt, 2);
        if (rmo < 1 || rmo > 12 || imo < 1 || imo > 12)
            continue;
        holdsEe = holdsEe || series == 'N';
        MaturedValueCompletion::recordFor(records, series, sqlite3_column_int(stmt, 1), rmo, sqlite3_column_int(stmt, 3))
            .value[imo - 1] = sqlite3_column_int(stmt, 5);
    }
    sqlite3_finalize(stmt);
    if (records.isEmpty())
        return true;

    // Derived values reach at most a year past the latest official month: whatever a damaged
    // source slipped in, the work and the rows stay bounded. (The build, which reads only EE rows
    // here, derives from the repository's own sources.)
    QHash<quint64, qint32> derived;
    if (scope == Scope::Everything) {
        QString loadError;
        derived = load(db, &loadError);
        if (!loadError.isEmpty()) {
            *error = loadError;
            return false;
        }
        boundToOfficialMonths(records, derived, &last);
    }
    QList<Cell> cells;
    QHash<quint64, PriceRecord> completed = records;
    if (scope == Scope::Everything) {
        added->carried = MaturedValueCompletion::complete(completed);
        added->filled = fillRuns(completed, officialMonths(records, derived));
        if (added->carried + added->filled > 0)
            cells = addedCells(records, completed);
    }

    for (int issue = rates.firstMonth(); holdsEe && issue <= rates.lastMonth(); ++issue) {
        const std::optional<int> rate = rates.basisPointsFor(issue);
        if (!rate)
            continue;
        const int iyr = issue / 12, imo = issue % 12 + 1;
        for (int redemption = std::max(issue, first); redemption <= last; ++redemption) {
            const int ryr = redemption / 12, rmo = redemption % 12 + 1;
            const auto record = completed.constFind(MaturedValueCompletion::recordKey('N', ryr, rmo, iyr));
            if (record != completed.cend() && record->value[imo - 1] != NoData)
                continue;
            cells << Cell{'N', ryr, rmo, iyr, imo, EeFixedRates::valueAt(*rate, redemption - issue)};
            ++added->computed;
        }
    }
    if (!write(db, cells, error))
        return false;
    int forecast = 0;
    if (scope == Scope::Everything && !forecastSeriesI(db, &forecast, error))
        return false;
    added->computed += forecast;
    return true;
}

bool forecastSeriesI(sqlite3 *db, int *computed, QString *error)
{
    *computed = 0;
    sqlite3_stmt *stmt = nullptr;
    const bool hasDerived = RedemptionDatabase::hasTable(db, "derived_value");
    const QByteArray latest = QByteArray("select max(ryr * 12 + rmo - 1) from bond_value b where series = 'I' and value >= -1")
                              + (hasDerived ? " and not exists (select 1 from derived_value d where d.series = b.series"
                                              " and d.iyr = b.iyr and d.imo = b.imo and d.ryr = b.ryr and d.rmo = b.rmo)"
                                            : "");
    if (sqlite3_prepare_v2(db, latest.constData(), -1, &stmt, nullptr) != SQLITE_OK || sqlite3_step(stmt) != SQLITE_ROW) {
        sqlite3_finalize(stmt);
        return fail(db, error);
    }
    const bool holdsSeriesI = sqlite3_column_type(stmt, 0) != SQLITE_NULL;
    const int lastOfficial = sqlite3_column_int(stmt, 0);
    sqlite3_finalize(stmt);
    if (!holdsSeriesI)
        return true;
    // Each bond up to the end of the rate period that follows the latest official month, as far
    // as the rate tables reach; official values replace these when they arrive.
    // What the database holds from the latest official month on: a bond is computed further
    // only when the rates reproduce its official value there, and cells holding a value are kept.
    QSet<quint64> present;
    QHash<int, qint32> latestValues; // by issue month
    if (sqlite3_prepare_v2(db, "select iyr, imo, ryr, rmo, value from bond_value where series = 'I' and value <> -2"
                               " and ryr * 12 + rmo - 1 >= ?", -1, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return fail(db, error);
    }
    sqlite3_bind_int(stmt, 1, lastOfficial);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const int iyr = sqlite3_column_int(stmt, 0), imo = sqlite3_column_int(stmt, 1);
        const int ryr = sqlite3_column_int(stmt, 2), rmo = sqlite3_column_int(stmt, 3);
        if (monthIndex(ryr, rmo) == lastOfficial)
            latestValues.insert(monthIndex(iyr, imo), sqlite3_column_int(stmt, 4));
        else
            present.insert(cellKey('I', iyr, imo, ryr, rmo));
    }
    sqlite3_finalize(stmt);
    QList<Cell> cells;
    const int lastIssue = std::min(lastOfficial, IBondRates::fixedRates().lastMonth());
    for (int issue = IBondRates::fixedRates().firstMonth(); issue <= lastIssue; ++issue) {
        const auto latest = latestValues.constFind(issue);
        if (latest == latestValues.cend() || IBondRates::valueAt(issue, lastOfficial) != *latest)
            continue;
        const int end = IBondRates::periodStart(issue, lastOfficial + 1) + 5;
        for (int redemption = lastOfficial + 1; redemption <= end; ++redemption) {
            const std::optional<qint32> value = IBondRates::valueAt(issue, redemption);
            if (!value)
                break;
            if (!present.contains(cellKey('I', issue / 12, issue % 12 + 1, redemption / 12, redemption % 12 + 1)))
                cells << Cell{'I', redemption / 12, redemption % 12 + 1, issue / 12, issue % 12 + 1, *value};
        }
    }
    *computed = int(cells.size());
    return ensureTable(db, error) && write(db, cells, error);
}

bool fillGaps(sqlite3 *db, int *filled, QString *error)
{
    *filled = 0;
    QString loadError;
    const QHash<quint64, qint32> derived = load(db, &loadError);
    if (!loadError.isEmpty()) {
        *error = loadError;
        return false;
    }
    QHash<quint64, PriceRecord> records;
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, "select series, ryr, rmo, iyr, imo, value from bond_value where series in ('E', 'N', 'S')", -1,
                           &stmt, nullptr)
        != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return fail(db, error);
    }
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto *code = reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0));
        const int imo = sqlite3_column_int(stmt, 4), rmo = sqlite3_column_int(stmt, 2);
        if (!code || rmo < 1 || rmo > 12 || imo < 1 || imo > 12)
            continue;
        MaturedValueCompletion::recordFor(records, code[0], sqlite3_column_int(stmt, 1), rmo, sqlite3_column_int(stmt, 3))
            .value[imo - 1] = sqlite3_column_int(stmt, 5);
    }
    sqlite3_finalize(stmt);
    QHash<quint64, PriceRecord> completed = records;
    *filled = fillRuns(completed, officialMonths(records, derived));
    return *filled == 0 || write(db, addedCells(records, completed), error);
}

} // namespace DerivedValues
