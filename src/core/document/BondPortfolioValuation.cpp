// The valuation date, the current interest period and the interest summary of a portfolio.
#include "document/BondPortfolio.h"

#include "valuation/MonthIndex.h"

#include <QtGlobal>
#include <algorithm>
#include <vector>

bool BondPortfolio::setValueOfDate(const QDateTime &date)
{
    if (!date.isValid())
        return false;
    if (date == m_valueOfDate && date.timeSpec() == m_valueOfDate.timeSpec())
        return true;
    storeValueOfDate(date);
    emit valueOfDateChanged();
    emit interestSummaryChanged();
    return true;
}

void BondPortfolio::storeValueOfDate(const QDateTime &date)
{
    m_valueOfDate = date.toLocalTime();
    m_valueOfMonth = MonthIndex::of(m_valueOfDate);
}

bool BondPortfolio::validateValueOfDate(const QDateTime &proposed, ValidationError *error) const
{
    if (proposed.isValid() && m_assessor->isValidValueOfDate(proposed))
        return true;
    if (error)
        *error = {QString::fromLatin1(ValueOfDateErrorDomain), 1, QString::fromLatin1(NoValuationDataMessage)};
    return false;
}

QDateTime BondPortfolio::initialValueOfDate() const
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime latest = m_assessor->maximumRedemptionDate();
    if (!latest.isValid())
        return now;
    return latest < now ? latest : now;
}

std::pair<int, int> BondPortfolio::currentInterestPeriodMonths() const
{
    if (m_valueOfMonth == MonthIndex::None)
        return {MonthIndex::None, MonthIndex::None};
    const int year = MonthIndex::yearOf(m_valueOfMonth);
    const int month = MonthIndex::monthOf(m_valueOfMonth);
    if (month <= 4)
        return {MonthIndex::of(year - 1, 11), MonthIndex::of(year, 5)};
    if (month <= 10)
        return {MonthIndex::of(year, 5), MonthIndex::of(year, 11)};
    return {MonthIndex::of(year, 11), MonthIndex::of(year + 1, 5)};
}

void BondPortfolio::setSummaryMode(SummaryMode mode)
{
    m_summaryMode = mode;
    emit summaryModeChanged();
    emit interestSummaryChanged();
}

void BondPortfolio::prefetchValues(const QList<HoldingRef> &holdings) const
{
    QList<std::pair<const Series *, int>> bonds;
    bonds.reserve(holdings.size());
    for (const HoldingRef &holding : holdings) {
        if (holding->issueDate().isValid())
            bonds.append({holding->series(), holding->issueMonth()});
    }
    m_assessor->prefetch(bonds);
}

QMap<int, Pennies> BondPortfolio::yearsWithInterestEarnedCumulative(bool cumulative) const
{
    QMap<int, Pennies> years;
    BondAssessor::ReadBatch batch(*m_assessor);
    const std::optional<int> latest = m_assessor->maximumRedemptionMonth();
    if (!latest)
        return years;
    // Only years whose December the database holds are summarised.
    const int lastYear = MonthIndex::monthOf(*latest) < 12 ? MonthIndex::yearOf(*latest) - 1 : MonthIndex::yearOf(*latest);
    const QList<HoldingRef> shown = shownHoldings();
    int firstYear = lastYear + 1;
    for (const HoldingRef &holding : shown) {
        if (holding->issueDate().isValid())
            firstYear = std::min(firstYear, holding->issueDate().date().year());
    }
    if (firstYear > lastYear)
        return years;
    prefetchValues(shown);
    // Every year from the earliest issue to the last is some holding's, so a dense table holds them.
    std::vector<Pennies> sums(size_t(lastYear - firstYear + 1), 0);
    for (const HoldingRef &holding : shown) {
        const int issueYear = holding->issueDate().isValid() ? holding->issueDate().date().year() : lastYear + 1;
        if (issueYear > lastYear)
            continue;
        holding->addCumulativeInterestByDecember(issueYear, lastYear, sums.data() + (issueYear - firstYear));
    }
    for (int year = firstYear; year <= lastYear; ++year)
        years.insert(year, sums[size_t(year - firstYear)]);
    if (cumulative)
        return years;
    const QList<int> keys = years.keys();
    for (qsizetype k = keys.size() - 1; k >= 1; --k)
        years[keys.at(k)] -= years.value(keys.at(k - 1));
    return years;
}

QList<InterestSummaryRow> BondPortfolio::interestSummary() const
{
    const QMap<int, Pennies> years = yearsWithInterestEarnedCumulative(m_summaryMode == SummaryMode::Cumulative);
    QList<InterestSummaryRow> rows;
    for (auto it = years.cbegin(); it != years.cend(); ++it) {
        if (rows.isEmpty() && it.value() == 0)
            continue;
        rows.append({it.key(), it.value()});
    }
    return rows;
}
