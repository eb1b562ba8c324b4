#include "PortfolioReport.h"

#include "document/BondPortfolio.h"
#include "model/Money.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace {

QString issueMonth(const Holding &holding)
{
    return holding.issueDate().isValid() ? holding.issueDate().toString(QStringLiteral("MM/yyyy"))
                                         : QStringLiteral("mm/yyyy");
}

QString monthKey(const QDateTime &date)
{
    return date.toString(QStringLiteral("yyyy-MM"));
}

// Why a holding shows no value, in the words of the value command; empty when it has one.
QString status(const Holding &holding)
{
    if (holding.value() != 0)
        return {};
    if (!holding.isValidIssue())
        return QStringLiteral("no pricing data");
    if (!holding.isRedeemableIssue())
        return QStringLiteral("not yet redeemable");
    return {};
}

// The bracketed remark before a holding's registration: why it shows no value, or that its value
// was computed.
QString remark(const Holding &holding)
{
    const QString why = status(holding);
    if (!why.isEmpty())
        return why;
    return holding.isValueDerived() ? QStringLiteral("computed") : QString();
}

// A rate as JSON shows it: the float's own digits, not its double expansion (3.94, not 3.9400000572).
double rateNumber(float rate)
{
    return QString::number(double(rate), 'g', 7).toDouble();
}

QString percent(float rate)
{
    return QString::asprintf("%.2f%%", double(rate));
}

struct Totals
{
    qint64 quantity = 0;
    Pennies faceValue = 0;
    Pennies issuePrice = 0;
    Pennies interest = 0;
    Pennies value = 0;

    void add(const Holding &h)
    {
        quantity += h.quantity();
        faceValue += h.faceValue() * h.quantity();
        issuePrice += h.issuePrice() * h.quantity();
        interest += h.interestEarned();
        value += h.value();
    }
};

QString summaryTitle(const BondPortfolio &portfolio)
{
    return portfolio.summaryMode() == 0 ? QStringLiteral("cumulative") : QStringLiteral("yearly");
}

} // namespace

namespace PortfolioReport {

QString text(const BondPortfolio &portfolio)
{
    const BondAssessor::ReadBatch batch(portfolio.assessor());
    QString out;
    out += QStringLiteral("Portfolio:   %1\n").arg(portfolio.displayName());
    out += QStringLiteral("Valued as of %1\n").arg(portfolio.valueOfDate().toString(QStringLiteral("MM/yyyy")));
    QStringList names;
    for (const PersonRef &person : portfolio.titleHolders())
        names << person->name();
    out += QStringLiteral("People:      %1\n\n").arg(names.isEmpty() ? QStringLiteral("(none)") : names.join(QLatin1String(", ")));

    const QString row = QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9  %10\n");
    auto line = [&row](const QStringList &cells) {
        QString text = row.arg(cells.at(0), -13).arg(cells.at(1), 4).arg(cells.at(2), -9).arg(cells.at(3), 13)
                           .arg(cells.at(4), 13).arg(cells.at(5), 13).arg(cells.at(6), 13).arg(cells.at(7), 8)
                           .arg(cells.at(8), 8).arg(cells.at(9));
        while (text.size() > 1 && text.at(text.size() - 2) == u' ')
            text.remove(text.size() - 2, 1);
        return text;
    };
    out += line({"Series", "Qty", "Issued", "Face value", "Issue price", "Interest", "Value", "Yield", "Growth",
                 "Registration"});
    Totals totals;
    QSet<QString> remarks;
    for (const HoldingRef &holding : portfolio.holdings()) {
        const Holding &h = *holding;
        totals.add(h);
        QString series = h.series()->label();
        if (!h.isPaper())
            series += QStringLiteral("*");
        QString registration = h.registration();
        const QString why = remark(h);
        if (!why.isEmpty())
            registration = QStringLiteral("[%1] %2").arg(why, registration);
        remarks.insert(why);
        out += line({series, QString::number(h.quantity()), issueMonth(h), formatDollars(h.faceValue()),
                     formatDollars(h.issuePrice()), formatDollars(h.interestEarned()), formatDollars(h.value()),
                     percent(h.currentYield()), percent(h.compoundAnnualGrowthRate()), registration.trimmed()});
    }
    out += line({"Total", QString::number(totals.quantity), QString(), formatDollars(totals.faceValue),
                 formatDollars(totals.issuePrice), formatDollars(totals.interest), formatDollars(totals.value),
                 QString(), QString(), QString()});
    out += QStringLiteral("(* electronic; face value and issue price are per bond, the totals are for all bonds)\n");
    if (remarks.contains(QStringLiteral("computed")))
        out += QStringLiteral("([computed] %1)\n").arg(Holding::derivedValueNote());
    if (remarks.contains(QStringLiteral("no pricing data")))
        out += QStringLiteral("([no pricing data] %1)\n").arg(Holding::noPricingDataAdvice());

    out += QStringLiteral("\nInterest earned by tax year (%1):\n").arg(summaryTitle(portfolio));
    const QList<InterestSummaryRow> summary = portfolio.interestSummary();
    if (summary.isEmpty())
        out += QStringLiteral("  (none)\n");
    for (const InterestSummaryRow &r : summary)
        out += QStringLiteral("  %1 %2\n").arg(r.taxYear).arg(formatDollars(r.interestEarned), 14);
    return out;
}

QByteArray json(const BondPortfolio &portfolio)
{
    const BondAssessor::ReadBatch batch(portfolio.assessor());
    auto person = [](const PersonRef &p) { return p ? QJsonValue(p->name()) : QJsonValue(); };
    QJsonArray holdings;
    Totals totals;
    for (const HoldingRef &holding : portfolio.holdings()) {
        const Holding &h = *holding;
        totals.add(h);
        const QString why = status(h);
        holdings.append(QJsonObject{
            {"series", h.series()->label()},
            {"seriesCode", h.series()->code()},
            {"quantity", h.quantity()},
            {"issueDate", h.issueDate().isValid() ? QJsonValue(monthKey(h.issueDate())) : QJsonValue()},
            {"faceValue", h.faceValue()},
            {"paper", h.isPaper()},
            {"serialNumber", h.serialNumber().isNull() ? QJsonValue() : QJsonValue(h.serialNumber())},
            {"issuePrice", h.issuePrice()},
            {"interestEarned", h.interestEarned()},
            {"value", h.value()},
            {"currentYield", rateNumber(h.currentYield())},
            {"compoundAnnualGrowthRate", rateNumber(h.compoundAnnualGrowthRate())},
            {"owner", person(h.owner())},
            {"coOwner", person(h.coOwner())},
            {"beneficiary", person(h.beneficiary())},
            {"registration", h.registration().isNull() ? QJsonValue() : QJsonValue(h.registration())},
            {"status", why.isEmpty() ? QJsonValue() : QJsonValue(why)},
            {"computed", h.isValueDerived()},
        });
    }
    QJsonArray people;
    for (const PersonRef &p : portfolio.titleHolders())
        people.append(QJsonObject{{"name", p->name()}, {"uid", p->uniqueId()}});
    QJsonArray summary;
    for (const InterestSummaryRow &r : portfolio.interestSummary())
        summary.append(QJsonObject{{"taxYear", r.taxYear}, {"interestEarned", r.interestEarned}});
    const QJsonObject root{
        {"name", portfolio.displayName()},
        {"file", portfolio.fileName()},
        {"valueOfDate", monthKey(portfolio.valueOfDate())},
        {"moneyUnit", "pennies"},
        {"titleHolders", people},
        {"holdings", holdings},
        {"totals", QJsonObject{{"quantity", totals.quantity}, {"faceValue", totals.faceValue},
                               {"issuePrice", totals.issuePrice}, {"interestEarned", totals.interest},
                               {"value", totals.value}}},
        {"summaryMode", summaryTitle(portfolio)},
        {"interestSummary", summary},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

} // namespace PortfolioReport
