// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Series.h"

#include <QCoreApplication>
#include <QStringList>

#include "base/UserDefaults.h"

#include <QHash>
#include <algorithm>

struct SeriesTable
{
    QHash<QString, const Series *> byCode;
    QList<const Series *> sorted;
};

Series::Series(QString label, QString code)
    : m_label(std::move(label))
    , m_code(std::move(code))
    , m_letter(m_code.size() == 1 ? m_code.at(0).toLatin1() : '\0')
{
}

const SeriesTable &Series::table()
{
    // Built once and never destroyed (not even at exit): holdings everywhere point at these objects.
    static const SeriesTable *built = [] {
        auto *t = new SeriesTable;
        for (auto [label, code] : {std::pair{"Savings Note", "S"}, std::pair{"EE Bond", "N"},
                                   std::pair{"E Bond", "E"}, std::pair{"I Bond", "I"}}) {
            const Series *series = new Series(QString::fromLatin1(label), QString::fromLatin1(code));
            t->byCode.insert(series->code(), series);
            t->sorted.append(series);
        }
        std::sort(t->sorted.begin(), t->sorted.end(),
                  [](const Series *a, const Series *b) { return a->compare(b) < 0; });
        UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey),
                                      QStringLiteral("N"));
        return t;
    }();
    return *built;
}

const QList<const Series *> &Series::allSeries()
{
    return table().sorted;
}

const Series *Series::eeBond()
{
    static const Series *const ee = table().byCode.value(QStringLiteral("N"));
    return ee;
}

const Series *Series::seriesForCode(const QString &code)
{
    return table().byCode.value(code, nullptr);
}

const Series *Series::defaultSeries()
{
    table(); // registers the fallback
    const QVariant stored = UserDefaults::value(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey));
    if (!stored.isValid())
        return eeBond();
    return seriesForCode(stored.toString());
}

void Series::setDefaultSeries(const Series *series)
{
    if (series)
        UserDefaults::setValue(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey), series->code());
}

QChar Series::kind() const
{
    return QChar::fromLatin1(m_letter);
}

double Series::sharePrice() const
{
    switch (kind().unicode()) {
    case 'I': return 25.0;
    case 'N': return 12.5;
    case 'E': return 18.75;
    default: return 20.25;
    }
}

Pennies Series::issuePriceForFaceValue(Pennies faceValue, bool paperIssue) const
{
    switch (kind().unicode()) {
    case 'I': return faceValue;
    case 'N': return paperIssue ? faceValue / 2 : faceValue;
    case 'E': return (3 * faceValue) / 4;
    default: return static_cast<Pennies>(static_cast<double>(faceValue) * 0.81);
    }
}

Month Series::firstIssue() const
{
    switch (kind().unicode()) {
    case 'I': return {1998, 9};
    case 'N': return {1980, 1};
    case 'E': return {1941, 5};
    default: return {1967, 5};
    }
}

Month Series::lastIssue() const
{
    switch (kind().unicode()) {
    case 'E': return {1980, 6};
    case 'S': return {1970, 10};
    default: return {};
    }
}

bool Series::wasIssuedIn(Month month) const
{
    if (month.isNull())
        return true;
    const Month last = lastIssue();
    return month >= firstIssue() && (last.isNull() || month <= last);
}

QString Series::bondsName() const
{
    switch (kind().unicode()) {
    case 'E': return QCoreApplication::translate("Series", "Series E bonds");
    case 'N': return QCoreApplication::translate("Series", "Series EE bonds");
    case 'I': return QCoreApplication::translate("Series", "Series I bonds");
    default: return QCoreApplication::translate("Series", "Savings Notes");
    }
}

QString Series::bondsNamesOfCodes(QStringView codes)
{
    QStringList names;
    for (const QChar code : codes) {
        const Series *series = seriesForCode(QString(code));
        names << (series ? series->bondsName() : QString(code));
    }
    return names.join(QStringLiteral(", "));
}

Month Series::finalMaturity(Month issue) const
{
    if (issue.isNull())
        return {};
    return issue.addMonths((kind() == u'E' && issue <= Month(1965, 11) ? 40 : 30) * 12);
}

int Series::compare(const Series *other) const
{
    return QString::compare(m_label, other->m_label, Qt::CaseInsensitive);
}
