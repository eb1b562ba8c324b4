#pragma once
// A portfolio on a small hand-made value table, valued January 2000, with its own people store.
#include "../PeopleFixture.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"

#include <memory>

class ExchangeFixture
{
public:
    ExchangeFixture()
    {
        ValueTable values; // $25 paper EE of March 1995, out of order, with a 0 and a -1 row
        values.add("N", 2000, 1, 1995, 3, 3000).add("N", 1999, 12, 1995, 3, 2990).add("N", 1995, 4, 1995, 3, -1)
            .add("N", 1995, 5, 1995, 3, 0).add("N", 1996, 4, 1995, 3, 2004).add("I", 2000, 1, 1999, 7, 2600);
        portfolio = std::make_unique<BondPortfolio>(&people.store, values.finish());
        portfolio->setValueOfDate(BondAssessor::monthDate(2000, 1));
    }

    // A paper holding attached to the portfolio but not in its list; year 0: no issue date.
    HoldingRef make(const char *code, int year, int month, Pennies face, int quantity = 1, const QString &serial = {})
    {
        auto holding = Holding::create();
        holding->setSeries(Series::seriesForCode(QLatin1String(code)));
        if (year)
            holding->setIssueDate(BondAssessor::monthDate(year, month));
        holding->setFaceValue(face);
        holding->setQuantity(quantity);
        holding->setPaper(true);
        holding->setSerialNumber(serial);
        holding->setPortfolio(portfolio.get());
        return holding;
    }

    static QByteArray contents(const QString &path) { return TestSupport::readFile(path); }
    static QString write(const QString &path, const QByteArray &bytes) { return TestSupport::writeFile(path, bytes); }

    PeopleFixture people;
    std::unique_ptr<BondPortfolio> portfolio;
};
