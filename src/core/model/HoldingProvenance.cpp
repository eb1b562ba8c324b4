// Where a holding's value comes from.
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
