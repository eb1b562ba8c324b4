// The money figures and rates of a holding. All money is 64-bit pennies; the two rates keep
// their single-precision steps so that shown figures agree to the last digit.
#include "model/Holding.h"

#include "document/BondPortfolio.h"

#include <cmath>

const BondAssessor *Holding::assessor() const
{
    return m_portfolio ? &m_portfolio->assessor() : nullptr;
}

QDateTime Holding::valuationDate() const
{
    return m_portfolio ? m_portfolio->valueOfDate() : QDateTime();
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

Pennies Holding::absoluteValueAsOfDate(const QDateTime &date) const
{
    const BondAssessor *reader = assessor();
    if (!reader)
        return 0;
    const qint64 value = reader->valueOf(bondTerms(), date);
    return value < 0 ? 0 : value;
}

qint64 Holding::rawValueAsOfValuationDate() const
{
    const BondAssessor *reader = assessor();
    if (!reader)
        return RedemptionMarker::NoPricingData;
    return reader->valueOf(bondTerms(), valuationDate());
}

Pennies Holding::value() const
{
    return absoluteValueAsOfDate(valuationDate()) * static_cast<qint64>(m_quantity);
}

Pennies Holding::cumulativeInterestEarnedAsOfDate(const QDateTime &date) const
{
    const Pennies cost = issuePrice() * static_cast<qint64>(m_quantity);
    const Pennies worth = absoluteValueAsOfDate(date) * static_cast<qint64>(m_quantity);
    return cost < worth ? worth - cost : 0;
}

Pennies Holding::interestEarned() const
{
    return cumulativeInterestEarnedAsOfDate(valuationDate());
}

bool Holding::isValidIssue() const
{
    return rawValueAsOfValuationDate() != RedemptionMarker::NoPricingData;
}

bool Holding::isRedeemableIssue() const
{
    return rawValueAsOfValuationDate() != RedemptionMarker::NotRedeemable;
}

Holding::LineColor Holding::myColor() const
{
    if (value() != 0)
        return LineColor::Black;
    if (!isValidIssue())
        return LineColor::Red;
    if (!isRedeemableIssue())
        return LineColor::Blue;
    return LineColor::Black;
}

qint32 Holding::monthsHeld() const
{
    const QDateTime asOf = valuationDate();
    if (!m_issueDate.isValid() || !asOf.isValid() || !(m_issueDate < asOf))
        return 0;
    const QDate issued = m_issueDate.date();
    const QDate valued = asOf.date();
    return (valued.year() - issued.year()) * 12 + (valued.month() - issued.month());
}

float Holding::currentYield() const
{
    if (!m_portfolio)
        return 0.0f;
    const DateRange period = m_portfolio->currentInterestPeriod();
    const Pennies start = absoluteValueAsOfDate(period.start);
    const Pennies end = absoluteValueAsOfDate(period.end);
    if (start == 0 || end == 0)
        return 0.0f;
    const float growth = static_cast<float>(end - start) / static_cast<float>(start);
    const float percent = growth * 100.0f;
    return percent * 2.0f; // a half year's growth, annualised
}

float Holding::compoundAnnualGrowthRate() const
{
    if (m_quantity == 0)
        return 0.0f;
    const Pennies price = issuePrice();
    const Pennies perBond = value() / static_cast<qint64>(m_quantity);
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
