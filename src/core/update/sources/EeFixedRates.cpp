#include "update/sources/EeFixedRates.h"

#include "update/sources/PriceSourceContents.h"
#include "update/sources/SourceText.h"
#include "valuation/BondAssessor.h"

#include <QFile>
#include <cmath>
#include <QCoreApplication>

namespace EeFixedRates {

namespace {

constexpr qint64 PaperPrice = 1250; // cents: a $25 paper EE bond cost $12.50
constexpr qint64 FaceValue = 2500;
constexpr int MonthsToGuarantee = 20 * 12; // the bond is worth at least its face value then
constexpr int MonthsWithPenalty = 5 * 12;  // redeemed earlier, the last three months' interest is lost
constexpr int PenaltyMonths = 3;
constexpr int MonthsNotRedeemable = 12;

std::optional<int> month(QByteArrayView text)
{
    if (text.size() != 7 || text.at(4) != '-')
        return std::nullopt;
    const auto year = SourceText::digits(text.first(4));
    const auto monthOfYear = SourceText::digits(text.sliced(5));
    if (!year || !monthOfYear || *monthOfYear < 1 || *monthOfYear > 12)
        return std::nullopt;
    return int(*year) * 12 + int(*monthOfYear) - 1;
}

// "3.50" as 350: at most two decimals, so the rate stays exact.
std::optional<int> basisPoints(QByteArrayView text)
{
    const qsizetype dot = text.indexOf('.');
    const QByteArrayView whole = dot < 0 ? text : text.first(dot);
    QByteArray decimals = dot < 0 ? QByteArray() : text.sliced(dot + 1).toByteArray();
    if (decimals.size() > 2)
        return std::nullopt;
    decimals = decimals.leftJustified(2, '0');
    const auto units = SourceText::digits(whole);
    const auto hundredths = SourceText::digits(decimals);
    if (!units || !hundredths || *units > 100)
        return std::nullopt;
    return int(*units * 100 + *hundredths);
}

// x rounded to the nearest cent, halves up.
qint64 roundHalfUp(long double cents)
{
    return static_cast<qint64>(std::floor(cents + 0.5L));
}

} // namespace

std::optional<int> Table::basisPointsFor(int issueMonthIndex) const
{
    for (const Range &range : ranges) {
        if (issueMonthIndex >= range.firstIssue && issueMonthIndex <= range.lastIssue)
            return range.basisPoints;
    }
    return std::nullopt;
}

Table read(const QByteArray &data, const QString &fileName)
{
    Table table;
    const QList<QByteArrayView> lines = SourceText::lines(data);
    bool header = true;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArrayView line = SourceText::trimmed(lines.at(i));
        if (SourceText::isBlank(line))
            continue;
        const auto refuse = [&](const QString &what) {
            table.ranges.clear();
            table.error = PriceSourceContents::refused(fileName, i + 1, what).error;
            return table;
        };
        if (header) {
            header = false;
            if (line != QByteArrayView("first_issue_month,last_issue_month,fixed_rate_percent"))
                return refuse(QCoreApplication::translate("EeFixedRates", "the header must be first_issue_month,last_issue_month,fixed_rate_percent"));
            continue;
        }
        const QList<QByteArray> cells = line.toByteArray().split(',');
        if (cells.size() != 3)
            return refuse(QCoreApplication::translate("EeFixedRates", "three columns expected"));
        const auto first = month(SourceText::trimmed(cells.at(0)));
        const auto last = month(SourceText::trimmed(cells.at(1)));
        const auto rate = basisPoints(SourceText::trimmed(cells.at(2)));
        if (!first || !last || *last < *first)
            return refuse(QCoreApplication::translate("EeFixedRates", "months must be YYYY-MM, the first not after the last"));
        if (!rate)
            return refuse(QCoreApplication::translate("EeFixedRates", "the rate must be a percentage with at most two decimals"));
        if (!table.ranges.isEmpty() && *first != table.ranges.last().lastIssue + 1)
            return refuse(QCoreApplication::translate("EeFixedRates", "each range must begin the month after the previous one ends"));
        table.ranges.append({*first, *last, *rate});
    }
    if (table.ranges.isEmpty() && table.ok())
        table.error = PriceSourceContents::refused(fileName, 0, QCoreApplication::translate("EeFixedRates", "no rates")).error;
    return table;
}

const Table &shipped()
{
    static const Table table = [] {
        const QString path = QStringLiteral(":/rates/ee-fixed-rates.csv");
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return read(file.readAll(), path);
    }();
    return table;
}

qint32 valueAt(int basisPoints, int monthsSinceIssue)
{
    if (monthsSinceIssue < MonthsNotRedeemable)
        return static_cast<qint32>(RedemptionMarker::NotRedeemable);
    const int months = std::min(monthsSinceIssue, MonthsToFinalMaturity);
    const int earning = months < MonthsWithPenalty ? months - PenaltyMonths : months;
    const int periods = earning / 6;
    const int intoPeriod = earning % 6;
    // Each six-month period compounds half the annual rate on the rounded value of the last, in
    // whole cents; 2 * 10000 basis points make one (1 + rate / 2).
    qint64 value = PaperPrice;
    for (int period = 1; period <= periods; ++period) {
        value = (value * (20000 + basisPoints) + 10000) / 20000;
        if (period * 6 == MonthsToGuarantee && value < FaceValue)
            value = FaceValue;
    }
    if (intoPeriod == 0)
        return static_cast<qint32>(value);
    const long double growth = std::pow(1.0L + basisPoints / 20000.0L, intoPeriod / 6.0L);
    return static_cast<qint32>(roundHalfUp(value * growth));
}

} // namespace EeFixedRates
