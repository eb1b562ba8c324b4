// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
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

// The table's columns: title and width, negative for left-aligned; zero takes the widest cell.
struct ReportColumn
{
    const char *title;
    int width;
};
const ReportColumn Columns[] = {
    {QT_TRANSLATE_NOOP("CliText", "Series"), -13},       {QT_TRANSLATE_NOOP("CliText", "Qty"), 4},
    {QT_TRANSLATE_NOOP("CliText", "Issued"), -9},        {QT_TRANSLATE_NOOP("CliText", "Face value"), 13},
    {QT_TRANSLATE_NOOP("CliText", "Issue price"), 13},   {QT_TRANSLATE_NOOP("CliText", "Interest"), 13},
    {QT_TRANSLATE_NOOP("CliText", "Value"), 13},         {QT_TRANSLATE_NOOP("CliText", "Yield"), 8},
    {QT_TRANSLATE_NOOP("CliText", "Growth"), 8},         {QT_TRANSLATE_NOOP("CliText", "YTD interest"), 13},
    {QT_TRANSLATE_NOOP("CliText", "Rate"), 0},           {QT_TRANSLATE_NOOP("CliText", "Matures"), -9},
    {QT_TRANSLATE_NOOP("CliText", "Next rise"), -9},     {QT_TRANSLATE_NOOP("CliText", "Note"), 0},
    {QT_TRANSLATE_NOOP("CliText", "Registration"), -1}};
constexpr int NoteColumn = 13;

// Lays out rows of cells under the columns: the rate right-aligned and the note left-aligned as
// wide as their widest cell, the registration last and unpadded.
class ReportTable
{
public:
    void add(const QStringList &cells) { m_rows.append(cells); }
    qsizetype rows() const { return m_rows.size(); }
    QString text(qsizetype row) const
    {
        const QStringList &cells = m_rows.at(row);
        QString text;
        for (int column = 0; column < cells.size(); ++column) {
            int width = Columns[column].width;
            if (width == 0)
                width = widest(column) * (column == NoteColumn ? -1 : 1);
            if (column > 0)
                text += column == cells.size() - 1 ? QStringLiteral("  ") : QStringLiteral(" ");
            text += width == -1 ? cells.at(column) : cells.at(column).leftJustified(-width).rightJustified(width);
        }
        while (text.endsWith(u' '))
            text.chop(1);
        return text + u'\n';
    }

private:
    int widest(int column) const
    {
        qsizetype widest = 0;
        for (const QStringList &cells : m_rows)
            widest = std::max(widest, cells.at(column).size());
        return int(widest);
    }
    QList<QStringList> m_rows;
};

// JSON names of the rate's basis and the note, whatever the language.
QJsonValue basisKey(RateBasis basis)
{
    switch (basis) {
    case RateBasis::Composite:
        return QStringLiteral("composite");
    case RateBasis::Fixed:
        return QStringLiteral("fixed");
    case RateBasis::Implied:
        return QStringLiteral("implied");
    case RateBasis::Matured:
        return QStringLiteral("matured");
    case RateBasis::Unknown:
        break;
    }
    return {};
}

QJsonValue noteKey(BondNote note)
{
    switch (note) {
    case BondNote::NotIssued:
        return QStringLiteral("NI");
    case BondNote::NotRedeemable:
        return QStringLiteral("NE");
    case BondNote::Penalty:
        return QStringLiteral("P5");
    case BondNote::Matured:
        return QStringLiteral("MA");
    case BondNote::None:
        break;
    }
    return {};
}

QJsonValue monthValue(Month month)
{
    return month.isNull() ? QJsonValue() : QJsonValue(month.toString(Month::Style::Iso));
}

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

    ReportTable table;
    QStringList titles;
    for (const ReportColumn &column : Columns)
        titles << CliText::tr(column.title);
    table.add(titles);
    const HoldingTotals totals = HoldingTotals::of(portfolio.valuationContext(), portfolio.holdings());
    bool anyComputed = false;
    QStringList missing;              // why bonds lack pricing data, each reason once
    QList<qsizetype> stoppedEarning; // rows of the holdings past final maturity
    for (const HoldingRef &holding : portfolio.holdings()) {
        const Holding &h = *holding;
        const HoldingFigures figures = portfolio.figuresOf(h);
        const BondOutlook outlook(figures.context(), figures.bond());
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
        if (outlook.hasStoppedEarning())
            stoppedEarning << table.rows();
        table.add({series, QString::number(h.quantity()), issueMonthText(h.issueDate()), formatDollars(h.faceValue()),
                   formatDollars(h.issuePrice()), formatDollars(figures.interestEarned()), formatDollars(figures.value()),
                   figures.hasCurrentYield() ? percentText(figures.currentYield()) : QString(),
                   percentText(figures.compoundAnnualGrowthRate()), formatDollars(figures.ytdInterest()),
                   rateText(outlook.rate()), monthText(outlook.finalMaturity()), monthText(outlook.nextIncrease()),
                   noteText(outlook), registration.trimmed()});
    }
    table.add({CliText::tr("Total"), QString::number(totals.quantity), QString(), formatDollars(totals.faceValue),
               formatDollars(totals.issuePrice), formatDollars(totals.interestEarned), formatDollars(totals.value),
               QString(), QString(), formatDollars(totals.ytdInterest), QString(), QString(), QString(), QString(),
               QString()});
    for (qsizetype row = 0; row < table.rows(); ++row)
        out += table.text(row);
    if (const QString left = HoldingNotes::notInTotals(totals.withoutPricingData); !left.isEmpty())
        out += QStringLiteral("(%1)\n").arg(left);
    out += CliText::tr("(* electronic; face value and issue price are per bond, the totals are for all bonds)\n");
    if (anyComputed)
        out += CliText::tr("([computed] %1)\n").arg(HoldingPresentation::derivedValueNote());
    for (const QString &note : std::as_const(missing))
        out += CliText::tr("([no pricing data] %1)\n").arg(note);
    // The bonds that earn nothing any more, worth cashing: under the window's totals sentence.
    if (!stoppedEarning.isEmpty()) {
        out += u'\n' + stoppedEarningText(totals.stoppedEarning, totals.stoppedEarningValue) + u'\n';
        for (qsizetype row : std::as_const(stoppedEarning))
            out += table.text(row);
    }

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
        const BondOutlook outlook(figures.context(), figures.bond());
        const BondRate rate = outlook.rate();
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
            {"ytdInterest", figures.ytdInterest()},
            {"rate", rate.basis == RateBasis::Unknown ? QJsonValue() : QJsonValue(rate.basisPoints / 100.0)},
            {"rateBasis", basisKey(rate.basis)},
            {"doublesAtTwentyYears", rate.doublesAtTwentyYears},
            {"finalMaturity", monthValue(outlook.finalMaturity())},
            {"nextIncrease", monthValue(outlook.nextIncrease())},
            {"note", noteKey(outlook.note())},
            {"noteUntil", monthValue(outlook.noteUntil())},
            {"stoppedEarning", outlook.hasStoppedEarning()},
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
                               {"value", totals.value}, {"withoutPricingData", totals.withoutPricingData},
                               {"ytdInterest", totals.ytdInterest}, {"stoppedEarning", totals.stoppedEarning},
                               {"stoppedEarningValue", totals.stoppedEarningValue}}},
        {"summaryMode", summaryKey(portfolio)},
        {"interestSummary", summary},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

} // namespace PortfolioReport
