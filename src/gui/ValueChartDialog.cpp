// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ValueChartDialog.h"

#include "document/BondPortfolio.h"
#include "document/HoldingPresentation.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/BondOutlook.h"
#include "valuation/ValueHistory.h"
#include "valuation/MonthIndex.h"

#include <QChartView>
#include <QDateTimeAxis>
#include <QGraphicsSimpleTextItem>
#include <QLegendMarker>
#include <QLineSeries>
#include <QScatterSeries>
#include <QValueAxis>
#include <QVBoxLayout>

namespace {

qreal monthTime(int month)
{
    return qreal(QDateTime(QDate(MonthIndex::yearOf(month), MonthIndex::monthOf(month), 1), QTime(0, 0))
                     .toMSecsSinceEpoch());
}

} // namespace

QString ValueChartDialog::describe(const Holding &holding)
{
    const Pennies face = holding.faceValue();
    const QString amount = face % 100 == 0 ? formatDollars(face).chopped(3) : formatDollars(face);
    const QString code = holding.series()->code();
    const QString kind = code == QLatin1String("S") ? tr("Savings Note")
                         : code == QLatin1String("E") ? tr("E bond")
                         : code == QLatin1String("I") ? tr("I bond")
                                                      : tr("EE bond");
    const QString issued = HoldingPresentation::issueMonthText(holding.issueDate());
    return holding.quantity() == 1 ? tr("%1 %2 issued %3, 1 bond").arg(amount, kind, issued)
                                   : tr("%1 %2 issued %3, %4 bonds").arg(amount, kind, issued).arg(holding.quantity());
}

ValueChartDialog::ValueChartDialog(const BondPortfolio &portfolio, HoldingRef holding, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    const QString bond = describe(*holding);
    setWindowTitle(bond);

    auto *values = new QLineSeries;
    values->setName(tr("Redemption value"));
    // Months past the database's latest, which the program computed ahead: dashed, joined to the
    // last published point.
    auto *ahead = new QLineSeries;
    ahead->setName(tr("Computed ahead"));
    auto *marked = new QScatterSeries;
    marked->setName(tr("Value as of %1").arg(HoldingPresentation::monthText(portfolio.valueOfMonth())));
    marked->setMarkerSize(10); // small enough to leave the few computed months beside it in sight
    const int first = holding->issueDate().index();
    const int latest = MonthIndex::of(portfolio.assessor().maximumRedemptionDate());
    const int last = first == MonthIndex::None
                         ? latest
                         : std::max(latest, portfolio.assessor().history(holding->series(), first).lastMonth());
    const int valuation = portfolio.valueOfMonth().index();
    const HoldingFigures figures = portfolio.figuresOf(*holding);
    qreal top = 0;
    int drawnLast = first;
    for (int month = first; first != MonthIndex::None && month <= last; ++month) {
        const Pennies value = figures.absoluteValueAsOfMonth(Month::fromIndex(month)) * holding->countedQuantity();
        // Months without a price (not yet redeemable, or missing data) are left out, not drawn as 0.
        if (value <= 0)
            continue;
        const qreal dollars = qreal(value) / 100.0;
        if (month <= latest)
            values->append(monthTime(month), dollars);
        if (month > latest && ahead->count() == 0 && values->count() > 0)
            ahead->append(values->at(values->count() - 1));
        if (month > latest)
            ahead->append(monthTime(month), dollars);
        if (month == valuation)
            marked->append(monthTime(month), dollars);
        top = std::max(top, dollars);
        drawnLast = month;
    }
    m_chart = new QChart;
    m_chart->addSeries(values);
    if (ahead->count() > 0) {
        m_chart->addSeries(ahead);
        // The published line's colour, once the chart's theme has given it one.
        QPen dashed = values->pen();
        dashed.setStyle(Qt::DashLine);
        ahead->setPen(dashed);
    } else {
        delete ahead;
    }
    m_chart->addSeries(marked);
    // Ticks on whole years (every 1, 2, 5 or 10, at most a dozen) and on round dollar amounts.
    auto *time = new QDateTimeAxis;
    time->setFormat(QStringLiteral("yyyy"));
    time->setTitleText(tr("Redemption month"));
    if (first != MonthIndex::None) {
        const int firstYear = MonthIndex::yearOf(first), lastYear = MonthIndex::yearOf(std::max(first, drawnLast)) + 1;
        int step = 1;
        for (int candidate : {1, 2, 5, 10, 20}) {
            step = candidate;
            if ((lastYear - firstYear + candidate - 1) / candidate <= 12)
                break;
        }
        const int years = (lastYear - firstYear + step - 1) / step * step;
        // From noon: evenly spaced ticks drift by up to half a day against leap years, and must not
        // fall on the last day of the year before.
        time->setRange(QDateTime(QDate(firstYear, 1, 1), QTime(12, 0)), QDateTime(QDate(firstYear + years, 1, 1), QTime(12, 0)));
        time->setTickCount(years / step + 1);
    }
    auto *dollars = new QValueAxis;
    dollars->setLabelFormat(QStringLiteral("$%.0f"));
    dollars->setRange(0, top > 0 ? top * 1.05 : 1);
    dollars->applyNiceNumbers();
    dollars->setTitleText(tr("Value"));
    m_chart->addAxis(time, Qt::AlignBottom);
    m_chart->addAxis(dollars, Qt::AlignLeft);
    // The months that change what cashing the bond is worth, where the chart reaches them.
    const BondOutlook outlook(figures.context(), figures.bond());
    if (first != MonthIndex::None) {
        addMarker(outlook.penaltyEnds(), tr("Penalty ends %1"), first, drawnLast, dollars->max());
        addMarker(outlook.finalMaturity(), tr("Final maturity %1"), first, drawnLast, dollars->max());
    }
    for (QAbstractSeries *series : m_chart->series()) {
        series->attachAxis(time);
        series->attachAxis(dollars);
    }
    m_chart->setTitle(values->count() == 0 ? tr("The database holds no values for this bond.") : bond);

    connect(m_chart, &QChart::plotAreaChanged, this, &ValueChartDialog::placeMarkerLabels);

    auto *view = new QChartView(m_chart, this);
    view->setRenderHint(QPainter::Antialiasing);
    view->setMinimumSize(640, 400);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view);
}

void ValueChartDialog::addMarker(Month month, const QString &label, int first, int last, qreal height)
{
    if (month.isNull() || month.index() < first || month.index() > last)
        return;
    auto *line = new QLineSeries;
    line->setName(label.arg(HoldingPresentation::monthText(month)));
    line->append(monthTime(month.index()), 0);
    line->append(monthTime(month.index()), height);
    QPen pen(Qt::darkGray);
    pen.setStyle(Qt::DotLine);
    line->setPen(pen);
    m_chart->addSeries(line);
    // The label says it at the line's foot; the legend need not repeat it.
    m_chart->legend()->markers(line).constFirst()->setVisible(false);
    auto *text = new QGraphicsSimpleTextItem(line->name(), m_chart);
    text->setBrush(pen.color());
    m_markerLabels.append({line, text});
}

void ValueChartDialog::placeMarkerLabels()
{
    // Beside the line near the bottom, where the value curve rarely runs; on the left of a line
    // too close to the right edge.
    const QRectF plot = m_chart->plotArea();
    for (const auto &[line, text] : std::as_const(m_markerLabels)) {
        const QPointF foot = m_chart->mapToPosition(line->at(0), line);
        const QRectF box = text->boundingRect();
        const qreal x = foot.x() + 4 + box.width() <= plot.right() ? foot.x() + 4 : foot.x() - 4 - box.width();
        text->setPos(x, foot.y() - box.height() - 4);
    }
}
