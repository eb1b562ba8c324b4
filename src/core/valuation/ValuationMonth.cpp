#include "valuation/ValuationMonth.h"

#include "valuation/BondAssessor.h"

namespace ValuationMonth {

bool validate(const BondAssessor &database, const QDateTime &proposed, ValidationError *error)
{
    if (proposed.isValid() && database.isValidValueOfDate(Month::of(proposed)))
        return true;
    if (error)
        *error = {QString::fromLatin1(ErrorDomain), 1, QString::fromLatin1(NoValuationDataMessage)};
    return false;
}

QDateTime initial(const BondAssessor &database)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime latest = database.maximumRedemptionDate();
    if (!latest.isValid())
        return now;
    return latest < now ? latest : now;
}

} // namespace ValuationMonth
