// Where a holding's value comes from, and what to tell a user whose bond has none.
#include "model/Holding.h"

#include "valuation/ValueHistoryCache.h"

bool Holding::isValueDerived() const
{
    const BondAssessor *reader = assessor();
    return reader && m_issueDate.isValid() && rawValueAsOfValuationDate() > 0
        && reader->history(series(), issueMonth()).isDerived(valuationMonth());
}

QString Holding::derivedValueNote()
{
    return QStringLiteral("computed by this program, not published by the Treasury: Series EE bonds issued since "
                          "May 2005 from their fixed rate, matured bonds from their value at final maturity");
}

QString Holding::noPricingDataAdvice()
{
    return QStringLiteral("the database has no value for this bond in that month; the Treasury publishes newer "
                          "value files (sbYYYYMM.asc), which \"quillmere-cli install-treasury-file FILE\" installs");
}
