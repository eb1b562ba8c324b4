#include "ValueChartDialog.h"

#include "document/BondPortfolio.h"
#include "document/HoldingPresentation.h"
#include "base/Series.h"
#include "valuation/BondAssessor.h"
#include "valuation/MonthIndex.h"

#include <QChartView>
#include <QDateTimeAxis>
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

ValueChartDialog::ValueChartDialog(const BondPortfolio &portfolio, HoldingRef holding, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    const QString issued = HoldingPresentation::issueMonthText(holding->issueDate());
    setWindowTitle(tr("Value of %1 %2 issued %3").arg(holding->quantity()).arg(holding->series()->label(), issued));

    auto *values = new QLineSeries;
    values->setName(tr("Redemption value"));
    auto *marked = new QScatterSeries;
    marked->setName(tr("Value as of %1").arg(HoldingPresentation::monthText(portfolio.valueOfMonth())));
    const int first = holding->issueDate().index();
    const int last = MonthIndex::of(portfolio.assessor().maximumRedemptionDate());
    const int valuation = portfolio.valueOfMonth().index();
    const HoldingFigures figures = portfolio.figuresOf(*holding);
    qreal top = 0;
    for (int month = first; first != MonthIndex::None && month <= last; ++month) {
        const Pennies value = figures.absoluteValueAsOfMonth(Month::fromIndex(month)) * holding->countedQuantity();
        // Months without a price (not yet redeemable, or missing data) are left out, not drawn as 0.
        if (value <= 0)
            continue;
        const qreal dollars = qreal(value) / 100.0;
        values->append(monthTime(month), dollars);
        if (month == valuation)
            marked->append(monthTime(month), dollars);
        top = std::max(top, dollars);
    }

    m_chart = new QChart;
    m_chart->addSeries(values);
    m_chart->addSeries(marked);
    auto *time = new QDateTimeAxis;
    time->setFormat(QStringLiteral("yyyy"));
    time->setTitleText(tr("Redemption month"));
    auto *dollars = new QValueAxis;
    dollars->setLabelFormat(QStringLiteral("$%.0f"));
    dollars->setRange(0, top > 0 ? top * 1.05 : 1);
    dollars->setTitleText(tr("Value"));
    m_chart->addAxis(time, Qt::AlignBottom);
    m_chart->addAxis(dollars, Qt::AlignLeft);
    for (QAbstractSeries *series : m_chart->series()) {
        series->attachAxis(time);
        series->attachAxis(dollars);
    }
    if (values->count() == 0)
        m_chart->setTitle(tr("The database holds no values for this bond."));

    auto *view = new QChartView(m_chart, this);
    view->setRenderHint(QPainter::Antialiasing);
    view->setMinimumSize(640, 400);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view);
}
