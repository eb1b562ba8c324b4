// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A table of rates by month, as the rate files under data/rates/ hold them: either ranges of
// issue months ("first,last,rate") or announcements that hold from their month until the next
// ("start,rate"). Rates are kept in hundredths of a percent so that every rule stays exact.
#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

struct RateTable
{
    struct Range
    {
        int first;       // month index: year * 12 + month - 1
        int last;        // included
        int basisPoints; // 3.50 % is 350; may be negative where the rate is
    };
    QList<Range> ranges; // ordered by month, without overlaps
    QString error;       // "file:line: what is wrong" when the table was refused

    bool ok() const { return error.isEmpty(); }
    // The rate that holds in a month, or nothing when the table does not cover it.
    std::optional<int> basisPointsFor(int monthIndex) const;
    int firstMonth() const { return ranges.isEmpty() ? 0 : ranges.first().first; }
    int lastMonth() const { return ranges.isEmpty() ? -1 : ranges.last().last; }

    // "first_issue_month,last_issue_month,..." rows; ranges may leave months out but not overlap.
    static RateTable readRanges(const QByteArray &data, const QString &fileName, QByteArrayView header);
    // "start,..." rows: each holds until the next starts, the last for lastSpan months.
    static RateTable readAnnouncements(const QByteArray &data, const QString &fileName, QByteArrayView header,
                                       int lastSpan);
    // A table carried in the program's resources (":/rates/<name>").
    static RateTable resource(const QString &name, bool announcements, QByteArrayView header, int lastSpan = 0);
};
