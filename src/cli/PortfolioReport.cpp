#include "PortfolioReport.h"

#include "CliCommand.h"
#include "HoldingNotes.h"
#include "base/Month.h"

#include "model/ValuedPortfolio.h"
#include "document/HoldingPresentation.h"
#include "base/Money.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using HoldingPresentation::Remark;

QString monthKey(Month month)
{
    return month.toString(Month::Style::Iso);
}

// A rate as JSON shows it: the float's own digits, not its double expansion (3.94, not 3.9400000572).
double rateNumber(float rate)
{
    return QString::number(double(rate), 'g', 7).toDouble();
}

// The remark as the report's text words it.
QString remarkText(Remark remark)
{
    switch (remark) {
    case Remark::NoPricingData:
        return CliText::tr("no pricing data");
    case Remark::NotYetRedeemable:
        return CliText::tr("not yet redeemable");
    case Remark::Computed:
        return CliText::tr("computed");
    case Remark::None:
        break;
    }
    return {};
}

// The status as the JSON names it, whatever the language: null when the holding has a value.
QJsonValue statusKey(Remark remark)
{
    switch (remark) {
    case Remark::NoPricingData:
        return QStringLiteral("no pricing data");
    case Remark::NotYetRedeemable:
        return QStringLiteral("not yet redeemable");
    case Remark::Computed:
    case Remark::None:
        break;
    }
    return {};
}

// The summary mode as the JSON names it.
QString summaryKey(const ValuedPortfolio &portfolio)
{
    return portfolio.summaryMode() == SummaryMode::Cumulative ? QStringLiteral("cumulative") : QStringLiteral("yearly");
}

QString summaryTitle(const ValuedPortfolio &portfolio)
{
    return portfolio.summaryMode() == SummaryMode::Cumulative ? CliText::tr("cumulative") : CliText::tr("yearly");
}

// The table's column titles.
const char *const ColumnTitles[] = {
    QT_TRANSLATE_NOOP("CliText", "Series"),      QT_TRANSLATE_NOOP("CliText", "Qty"),
    QT_TRANSLATE_NOOP("CliText", "Issued"),      QT_TRANSLATE_NOOP("CliText", "Face value"),
    QT_TRANSLATE_NOOP("CliText", "Issue price"), QT_TRANSLATE_NOOP("CliText", "Interest"),
    QT_TRANSLATE_NOOP("CliText", "Value"),       QT_TRANSLATE_NOOP("CliText", "Yield"),
    QT_TRANSLATE_NOOP("CliText", "Growth"),      QT_TRANSLATE_NOOP("CliText", "Registration")};

} // namespace

using namespace HoldingPresentation;

namespace PortfolioReport {

QString text(const ValuedPortfolio &portfolio)
{
    const BondAssessor::ReadBatch batch(portfolio.assessor());
    QString out;
    out += CliText::tr("Portfolio:   %1\n").arg(portfolio.displayName());
    out += CliText::tr("Valued as of %1\n").arg(HoldingPresentation::monthText(portfolio.valueOfMonth()));
    QStringList names;
    for (const PersonRef &person : portfolio.titleHolders())
        names << person->name();
    out += CliText::tr("People:      %1\n\n").arg(names.isEmpty() ? CliText::tr("(none)") : names.join(QLatin1String(", ")));

    const QString row = QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9  %10\n");
    auto line = [&row](const QStringList &cells) {
        QString text = row.arg(cells.at(0), -13).arg(cells.at(1), 4).arg(cells.at(2), -9).arg(cells.at(3), 13)
                           .arg(cells.at(4), 13).arg(cells.at(5), 13).arg(cells.at(6), 13).arg(cells.at(7), 8)
                           .arg(cells.at(8), 8).arg(cells.at(9));
        while (text.size() > 1 && text.at(text.size() - 2) == u' ')
            text.remove(text.size() - 2, 1);
        return text;
    };
    QStringList titles;
    for (const char *title : ColumnTitles)
        titles << CliText::tr(title);
    out += line(titles);
    const HoldingTotals totals = HoldingTotals::of(portfolio.valuationContext(), portfolio.holdings());
    bool anyComputed = false;
    QStringList missing; // why bonds lack pricing data, each reason once
    for (const HoldingRef &holding : portfolio.holdings()) {
        const Holding &h = *holding;
        const HoldingFigures figures = portfolio.figuresOf(h);
        QString series = h.series()->label();
        if (!h.isPaper())
            series += QStringLiteral("*");
        QString registration = h.registration();
        const QString why = remarkText(remarkOf(figures));
        if (!why.isEmpty())
            registration = QStringLiteral("[%1] %2").arg(why, registration);
        if (h.hasQuantityBelowOne())
            registration = CliText::tr("[quantity below 1: counts as no bonds] %1").arg(registration);
        anyComputed = anyComputed || remarkOf(figures) == Remark::Computed;
        if (const QString note = HoldingNotes::noPricingData(figures); !note.isEmpty() && !missing.contains(note))
            missing << note;
        out += line({series, QString::number(h.quantity()), issueMonthText(h.issueDate()), formatDollars(h.faceValue()),
                     formatDollars(h.issuePrice()), formatDollars(figures.interestEarned()), formatDollars(figures.value()),
                     figures.hasCurrentYield() ? percentText(figures.currentYield()) : QString(),
                     percentText(figures.compoundAnnualGrowthRate()), registration.trimmed()});
    }
    out += line({CliText::tr("Total"), QString::number(totals.quantity), QString(), formatDollars(totals.faceValue),
                 formatDollars(totals.issuePrice), formatDollars(totals.interestEarned), formatDollars(totals.value),
                 QString(), QString(), QString()});
    if (const QString left = HoldingNotes::notInTotals(totals.withoutPricingData); !left.isEmpty())
        out += QStringLiteral("(%1)\n").arg(left);
    out += CliText::tr("(* electronic; face value and issue price are per bond, the totals are for all bonds)\n");
    if (anyComputed)
        out += CliText::tr("([computed] %1)\n").arg(HoldingPresentation::derivedValueNote());
    for (const QString &note : std::as_const(missing))
        out += CliText::tr("([no pricing data] %1)\n").arg(note);

    out += CliText::tr("\nInterest earned by tax year (%1):\n").arg(summaryTitle(portfolio));
    const QList<InterestSummaryRow> summary = portfolio.interestSummary();
    if (summary.isEmpty())
        out += CliText::tr("  (none)\n");
    qsizetype yearWidth = 4;
    for (const InterestSummaryRow &r : summary)
        yearWidth = std::max(yearWidth, HoldingPresentation::taxYearText(r).size());
    for (const InterestSummaryRow &r : summary) {
        const QString note = HoldingPresentation::incompleteYearNote(r);
        out += QStringLiteral("  %1 %2%3\n")
                   .arg(HoldingPresentation::taxYearText(r), -int(yearWidth))
                   .arg(formatDollars(r.interestEarned), 14)
                   .arg(note.isEmpty() ? QString() : QStringLiteral("  (%1)").arg(note));
    }
    return out;
}

QByteArray json(const ValuedPortfolio &portfolio)
{
    const BondAssessor::ReadBatch batch(portfolio.assessor());
    auto person = [](const PersonRef &p) { return p ? QJsonValue(p->name()) : QJsonValue(); };
    QJsonArray holdings;
    const HoldingTotals totals = HoldingTotals::of(portfolio.valuationContext(), portfolio.holdings());
    for (const HoldingRef &holding : portfolio.holdings()) {
        const Holding &h = *holding;
        const HoldingFigures figures = portfolio.figuresOf(h);
        holdings.append(QJsonObject{
            {"series", h.series()->label()},
            {"seriesCode", h.series()->code()},
            {"quantity", h.quantity()},
            {"countsAsNoBonds", h.hasQuantityBelowOne()},
            {"issueDate", h.issueDate().isNull() ? QJsonValue() : QJsonValue(monthKey(h.issueDate()))},
            {"faceValue", h.faceValue()},
            {"paper", h.isPaper()},
            {"serialNumber", h.serialNumber().isNull() ? QJsonValue() : QJsonValue(h.serialNumber())},
            {"issuePrice", h.issuePrice()},
            {"interestEarned", figures.interestEarned()},
            {"value", figures.value()},
            {"currentYield", rateNumber(figures.currentYield())},
            {"compoundAnnualGrowthRate", rateNumber(figures.compoundAnnualGrowthRate())},
            {"owner", person(h.owner())},
            {"coOwner", person(h.coOwner())},
            {"beneficiary", person(h.beneficiary())},
            {"registration", h.registration().isNull() ? QJsonValue() : QJsonValue(h.registration())},
            {"status", statusKey(pricingRemarkOf(figures))},
            {"computed", figures.isValueDerived()},
        });
    }
    QJsonArray people;
    for (const PersonRef &p : portfolio.titleHolders())
        people.append(QJsonObject{{"name", p->name()}, {"uid", p->uniqueId()}});
    QJsonArray summary;
    for (const InterestSummaryRow &r : portfolio.interestSummary())
        summary.append(QJsonObject{{"taxYear", r.taxYear}, {"interestEarned", r.interestEarned},
                                   {"sinceIssue", r.sinceIssue}, {"bondsWithoutValue", r.bondsWithoutValue}});
    const QJsonObject root{
        {"name", portfolio.displayName()},
        {"file", portfolio.fileName()},
        {"valueOfDate", monthKey(portfolio.valueOfMonth())},
        {"moneyUnit", "pennies"},
        {"titleHolders", people},
        {"holdings", holdings},
        {"totals", QJsonObject{{"quantity", totals.quantity}, {"faceValue", totals.faceValue},
                               {"issuePrice", totals.issuePrice}, {"interestEarned", totals.interestEarned},
                               {"value", totals.value}, {"withoutPricingData", totals.withoutPricingData}}},
        {"summaryMode", summaryKey(portfolio)},
        {"interestSummary", summary},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

} // namespace PortfolioReport
