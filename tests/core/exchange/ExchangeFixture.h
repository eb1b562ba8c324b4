#pragma once
// A portfolio on a small hand-made value table, valued January 2000, with its own people store,
// for the import and export tests.
#include "../PeopleFixture.h"
#include "../ValueTableFixture.h"
#include "document/BondPortfolio.h"
#include "model/Holding.h"
#include "model/Series.h"

#include <QFile>
#include <memory>

class ExchangeFixture
{
public:
    ExchangeFixture()
    {
        ValueTable values;
        // $25 paper EE issued March 1995: three redemption months, one without a price and one
        // marked not redeemable, added out of order.
        values.add("N", 2000, 1, 1995, 3, 3000)
            .add("N", 1999, 12, 1995, 3, 2990)
            .add("N", 1995, 4, 1995, 3, -1)
            .add("N", 1995, 5, 1995, 3, 0)
            .add("N", 1996, 4, 1995, 3, 2004)
            .add("I", 2000, 1, 1999, 7, 2600);
        portfolio = std::make_unique<BondPortfolio>(&people.store, values.finish());
        portfolio->setValueOfDate(BondAssessor::monthDate(2000, 1));
    }

    static const Series *series(const char *code) { return Series::seriesForCode(QString::fromLatin1(code)); }

    // A holding attached to the portfolio but not in its list.
    HoldingRef make(const char *code, int year, int month, Pennies face, int quantity = 1,
                    const QString &serial = QString())
    {
        auto holding = Holding::create();
        holding->setSeries(series(code));
        if (year)
            holding->setIssueDate(BondAssessor::monthDate(year, month));
        holding->setFaceValue(face);
        holding->setQuantity(quantity);
        holding->setPaper(true);
        if (!serial.isNull())
            holding->setSerialNumber(serial);
        holding->setPortfolio(portfolio.get());
        return holding;
    }

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }

    PeopleFixture people;
    std::unique_ptr<BondPortfolio> portfolio;
};
