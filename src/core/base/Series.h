// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The four kinds of savings bond. Exactly four Series objects exist for the life of the process;
// identity is pointer identity, and archives store the one-letter code.
#include "base/Money.h"
#include "base/Month.h"

#include <QList>
#include <QString>

class Series
{
public:
    // All four, ordered by label: E Bond, EE Bond, I Bond, Savings Note.
    static const QList<const Series *> &allSeries();
    static const Series *eeBond();
    // Exact, case-sensitive code ("E", "N", "I", "S"); nullptr for anything else.
    static const Series *seriesForCode(const QString &code);
    // The user's default for new holdings. The setting holds a series code; when it is absent
    // the EE series is used, and an unknown code yields nullptr.
    static const Series *defaultSeries();
    static void setDefaultSeries(const Series *series);

    QString label() const { return m_label; }
    // The bonds as people name them in a sentence: "Series EE bonds", "Savings Notes".
    QString bondsName() const;
    // The same for the series of one-letter codes ("ENS"), joined by commas; unknown codes as they are.
    static QString bondsNamesOfCodes(QStringView codes);
    QString code() const { return m_code; }
    // The code as one character ('E', 'N', 'I', 'S'), for the many lookups that need no string.
    char letter() const { return m_letter; }
    // Dollars for one $25 unit of face value; a fixed constant per code, used by the Quicken export.
    double sharePrice() const;
    Pennies issuePriceForFaceValue(Pennies faceValue, bool paperIssue) const;
    // The first and the last month the Treasury sold this series in; lastIssue() is null while
    // the series is still sold. No values can exist for an issue month outside them.
    Month firstIssue() const;
    Month lastIssue() const;
    // False for a month outside those; true for a null month, which has nothing to judge.
    bool wasIssuedIn(Month month) const;
    // The month a bond issued in the month stops earning: 40 years for E bonds issued through
    // 11/1965, 30 years for every other bond. Null for a null month.
    Month finalMaturity(Month issue) const;
    // Case-insensitive comparison of labels: negative, zero or positive.
    int compare(const Series *other) const;

    Series(const Series &) = delete;
    Series &operator=(const Series &) = delete;

private:
    Series(QString label, QString code);
    QChar kind() const;
    static const struct SeriesTable &table();

    const QString m_label;
    const QString m_code;
    const char m_letter;
};
