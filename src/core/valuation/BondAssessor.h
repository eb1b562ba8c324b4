// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Read side of the redemption value database: the value of a $25 paper bond for every series,
// issue month and redemption month, scaled to a bond's face value.
#include "base/Money.h"
#include "valuation/MonthIndex.h"

#include <QDateTime>
#include <QString>
#include <QList>
#include <QStringList>
#include <optional>

#include <memory>

struct sqlite3;
class Series;
class ValueHistory;
class ValueHistoryCache;

// Results below zero are markers, never prices.
namespace RedemptionMarker {
inline constexpr Pennies NoPricingData = -2;
inline constexpr Pennies NotRedeemable = -1;
inline constexpr Pennies NoIssueDate = 0;
}

// What the assessor needs to know of a holding.
struct BondTerms
{
    const Series *series = nullptr;
    Month issueMonth;              // null: no issue date
    Pennies faceValue = 0;
    int pricingCorrectionFactor = 1; // 2 for an electronic EE bond
    QString security;              // the security name used in the price history lines
};

class BondAssessor
{
public:
    enum class State { Open, Missing, Unreadable };

    // Opens the working database (or the given file) and prepares the value lookup.
    explicit BondAssessor(const QString &databasePath = QString());
    ~BondAssessor();
    BondAssessor(const BondAssessor &) = delete;
    BondAssessor &operator=(const BondAssessor &) = delete;

    // Reads made while a batch lives see one state of the database, and changes installed by
    // other connections are looked for once, when the batch begins. Bulk readers (a whole table,
    // a sort, the interest summary, a report) hold one; single reads need none. Batches nest.
    class ReadBatch
    {
    public:
        explicit ReadBatch(const BondAssessor &assessor);
        ~ReadBatch();
        ReadBatch(const ReadBatch &) = delete;
        ReadBatch &operator=(const ReadBatch &) = delete;

    private:
        ValueHistoryCache *m_cache;
    };

    State state() const { return m_state; }
    QString databasePath() const { return m_path; }
    // "Unable to load essential resources from <path>" when the file exists but cannot be opened.
    QString errorMessage() const;

    // Day 1, 00:00:01 local time: how months read from the database are built.
    static QDateTime monthDate(int year, int month);

    QDateTime minimumRedemptionDate() const; // invalid when the table has no row
    QDateTime maximumRedemptionDate() const;
    bool isValidValueOfDate(Month month) const;
    bool isValidIssueDate(Month month, const Series *series) const;

    // Stored value times the correction factor, or a marker.
    qint64 unadjustedValue(const BondTerms &bond, Month asOf) const;
    // Pennies for one bond of the given face value, or a marker.
    qint64 valueOf(const BondTerms &bond, Month asOf) const;
    // "security,dollars,MM/1/YYYY\r" for every redemption month with a positive stored value.
    QStringList valuesSinceIssue(const BondTerms &bond) const;
    // The same lines appended as bytes (the security is ASCII), for exports of many holdings.
    void appendValuesSinceIssue(QByteArray &out, const Series *series, int issueMonth, QByteArrayView security) const;

    // The same with months as counts (MonthIndex), for callers that value many months.
    // The stored values of one bond by redemption month; valid until the next read outside a
    // batch (which may find the database changed).
    const ValueHistory &history(const Series *series, int issueMonth) const;
    // A stored value as a holding reads it: times the correction factor, or a marker.
    static qint64 adjusted(qint32 stored, int pricingCorrectionFactor);
    // Pennies for one bond of the face value, from an adjusted value; markers pass unchanged.
    static qint64 scaled(qint64 unadjusted, Pennies faceValue)
    {
        return unadjusted <= 0 ? unadjusted : unadjusted * faceValue / 2500;
    }
    std::optional<int> maximumRedemptionMonth() const;
    // Readies the values of many bonds (series, issue month) at once, ahead of a bulk read.
    void prefetch(const QList<std::pair<const Series *, int>> &bonds) const;
    // True when the stored value was derived by the program (a matured bond's value carried
    // forward, a fixed-rate EE bond's computed value) rather than published by the Treasury.
    bool isDerivedValue(const BondTerms &bond, Month asOf) const;

    // Row count of bond_value and the installed file names (for reports).
    qint64 valueCount() const;
    QStringList installedFiles() const;

private:
    QString m_path;
    State m_state = State::Missing;
    sqlite3 *m_db = nullptr;
    // Reading fills it, so const readers change it; one thread uses an assessor at a time.
    std::unique_ptr<ValueHistoryCache> m_cache;
};
