// The money figures and rates of a holding. All money is 64-bit pennies; the two rates keep
// their single-precision steps so that shown figures agree to the last digit.
#include "model/Holding.h"

#include "document/BondPortfolio.h"

#include "valuation/ValueHistoryCache.h"

#include <algorithm>
#include <cmath>

const BondAssessor *Holding::assessor() const
{
    return m_portfolio ? &m_portfolio->assessor() : nullptr;
}

qint8 Holding::pricingCorrectionFactor() const
{
    // The database prices paper bonds; an electronic EE bond costs its full face value.
    return series() == Series::eeBond() && !m_isPaper ? 2 : 1;
}

QString Holding::security() const
{
    const QDate issued = m_issueDate.isValid() ? m_issueDate.date() : QDate();
    const int month = issued.isValid() ? issued.month() : 0;
    const int year = issued.isValid() ? issued.year() : 0;
    return QStringLiteral("%1%2").arg(month, 2, 10, QLatin1Char('0')).arg(year) + series()->code();
}

BondTerms Holding::bondTerms() const
{
    return {series(), m_issueDate, m_faceValue, pricingCorrectionFactor(), security()};
}

Pennies Holding::issuePrice() const
{
    if (m_faceValue == 0)
        return 0;
    return series()->issuePriceForFaceValue(m_faceValue, m_isPaper);
}

int Holding::issueMonth() const
{
    return MonthIndex::of(m_issueDate);
}

int Holding::valuationMonth() const
{
    return m_portfolio ? m_portfolio->valueOfMonth() : MonthIndex::None;
}

qint64 Holding::rawValueAsOfMonth(int month) const
{
    const BondAssessor *reader = assessor();
    if (!reader)
        return RedemptionMarker::NoPricingData;
    if (!m_issueDate.isValid())
        return RedemptionMarker::NoIssueDate;
    const qint32 stored = reader->history(series(), issueMonth()).at(month);
    return BondAssessor::scaled(BondAssessor::adjusted(stored, pricingCorrectionFactor()), m_faceValue);
}

Pennies Holding::absoluteValueAsOfMonth(int month) const
{
    if (!assessor())
        return 0;
    const qint64 value = rawValueAsOfMonth(month);
    return value < 0 ? 0 : value;
}

Pennies Holding::absoluteValueAsOfDate(const QDateTime &date) const
{
    return absoluteValueAsOfMonth(MonthIndex::of(date));
}

qint64 Holding::rawValueAsOfValuationDate() const
{
    return rawValueAsOfMonth(valuationMonth());
}

Pennies Holding::value() const
{
    return absoluteValueAsOfMonth(valuationMonth()) * countedQuantity();
}

Pennies Holding::cumulativeInterestEarnedAsOfMonth(int month) const
{
    const Pennies cost = issuePrice() * countedQuantity();
    const Pennies worth = absoluteValueAsOfMonth(month) * countedQuantity();
    return cost < worth ? worth - cost : 0;
}

Pennies Holding::cumulativeInterestEarnedAsOfDate(const QDateTime &date) const
{
    return cumulativeInterestEarnedAsOfMonth(MonthIndex::of(date));
}

void Holding::addCumulativeInterestByDecember(int fromYear, int toYear, Pennies *sums) const
{
    const BondAssessor *reader = assessor();
    if (!reader || !m_issueDate.isValid())
        return;
    // One history and one cost for every year: the same figures as asking year by year.
    const ValueHistory &values = reader->history(series(), issueMonth());
    const int factor = pricingCorrectionFactor();
    const qint64 quantity = countedQuantity();
    const Pennies cost = issuePrice() * quantity;
    for (int year = toYear; year >= fromYear; --year) {
        const qint64 perBond = BondAssessor::scaled(BondAssessor::adjusted(values.at(MonthIndex::of(year, 12)), factor),
                                                    m_faceValue);
        const Pennies worth = (perBond < 0 ? 0 : perBond) * quantity;
        sums[year - fromYear] += cost < worth ? worth - cost : 0;
    }
}

Pennies Holding::interestEarned() const
{
    return cumulativeInterestEarnedAsOfMonth(valuationMonth());
}

bool Holding::isValidIssue() const
{
    return rawValueAsOfValuationDate() != RedemptionMarker::NoPricingData;
}

bool Holding::isRedeemableIssue() const
{
    return rawValueAsOfValuationDate() != RedemptionMarker::NotRedeemable;
}

HoldingStatus Holding::status() const
{
    if (value() != 0)
        return HoldingStatus::Valued;
    if (!isValidIssue()) {
        // The series' dates and the valuation month tell a value no update will ever bring from one
        // not published yet.
        const QDate issued = m_issueDate.isValid() ? m_issueDate.date() : QDate();
        if (!series()->wasIssuedIn(issued))
            return issued < series()->firstIssue() ? HoldingStatus::BeforeSeriesBegan : HoldingStatus::AfterSeriesEnded;
        const int valued = valuationMonth();
        if (issued.isValid() && valued != MonthIndex::None && issueMonth() > valued)
            return HoldingStatus::NotIssuedYet;
        return HoldingStatus::NoPricingData;
    }
    if (!isRedeemableIssue())
        return HoldingStatus::NotYetRedeemable;
    return HoldingStatus::Valued;
}

qint32 Holding::monthsHeld() const
{
    // An issue in an earlier month is an earlier instant, and one in the same month counts 0
    // months whichever instant comes first, so the month counts alone decide.
    const int valued = valuationMonth();
    if (!m_issueDate.isValid() || valued == MonthIndex::None)
        return 0;
    return std::max(0, valued - issueMonth());
}

float Holding::currentYield() const
{
    if (!m_portfolio)
        return 0.0f;
    const auto [first, last] = m_portfolio->currentInterestPeriodMonths();
    const Pennies start = absoluteValueAsOfMonth(first);
    const Pennies end = absoluteValueAsOfMonth(last);
    if (start == 0 || end == 0)
        return 0.0f;
    const float growth = static_cast<float>(end - start) / static_cast<float>(start);
    const float percent = growth * 100.0f;
    return percent * 2.0f; // a half year's growth, annualised
}

float Holding::compoundAnnualGrowthRate() const
{
    if (countedQuantity() == 0)
        return 0.0f;
    const Pennies price = issuePrice();
    const Pennies perBond = value() / countedQuantity();
    const float years = static_cast<float>(monthsHeld()) / 12.0f;
    if (price <= 0 || perBond <= 0)
        return 0.0f;
    if (!(years > 0.0f))
        return 0.0f;
    const double exponent = static_cast<double>(1.0f / years);
    const double ratio = static_cast<double>(static_cast<float>(perBond) / static_cast<float>(price));
    const float grown = static_cast<float>(std::pow(ratio, exponent));
    return (grown - 1.0f) * 100.0f;
}

QStringList Holding::valuesSinceIssue() const
{
    const BondAssessor *reader = assessor();
    return reader ? reader->valuesSinceIssue(bondTerms()) : QStringList();
}

void Holding::appendValuesSinceIssue(QByteArray &out) const
{
    if (const BondAssessor *reader = assessor(); reader && m_issueDate.isValid())
        reader->appendValuesSinceIssue(out, series(), issueMonth(), security().toLatin1());
}
