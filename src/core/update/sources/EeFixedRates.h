#pragma once
// The fixed rate every Series EE bond issued from May 2005 earns for life, by issue month, and the
// redemption values that follow from it. The table is data (data/rates/ee-fixed-rates.csv, built
// into the program), so rates announced later extend the computed bonds without a code change.
#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

namespace EeFixedRates {

struct Range
{
    int firstIssue; // month index: year * 12 + month - 1
    int lastIssue;  // included
    int basisPoints; // hundredths of a percent: 3.50 % is 350
};

struct Table
{
    QList<Range> ranges; // ordered by issue month, without overlaps
    QString error;       // "file:line: what is wrong" when the table was refused
    bool ok() const { return error.isEmpty(); }
    // The rate of an issue month, or nothing when the table does not cover it.
    std::optional<int> basisPointsFor(int issueMonthIndex) const;
    int firstIssue() const { return ranges.isEmpty() ? 0 : ranges.first().firstIssue; }
    int lastIssue() const { return ranges.isEmpty() ? -1 : ranges.last().lastIssue; }
};

// Reads "first_issue_month,last_issue_month,fixed_rate_percent" with months as YYYY-MM.
Table read(const QByteArray &data, const QString &fileName);
// The table built into the program.
const Table &shipped();

// Months from issue to final maturity, after which a bond earns nothing.
inline constexpr int MonthsToFinalMaturity = 30 * 12;

// Cents per $25 face value, priced as a paper bond (bought for $12.50), of a bond earning the
// given rate, redeemed the given number of months after its issue month; -1 (not redeemable)
// in the first twelve months.
qint32 valueAt(int basisPoints, int monthsSinceIssue);

}
