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
    // Ticks on whole years (every 1, 2, 5 or 10, at most a dozen) and on round dollar amounts.
    auto *time = new QDateTimeAxis;
    time->setFormat(QStringLiteral("yyyy"));
    time->setTitleText(tr("Redemption month"));
    if (first != MonthIndex::None) {
        const int firstYear = MonthIndex::yearOf(first), lastYear = MonthIndex::yearOf(std::max(first, last)) + 1;
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
    for (QAbstractSeries *series : m_chart->series()) {
        series->attachAxis(time);
        series->attachAxis(dollars);
    }
    m_chart->setTitle(values->count() == 0 ? tr("The database holds no values for this bond.") : bond);

    auto *view = new QChartView(m_chart, this);
    view->setRenderHint(QPainter::Antialiasing);
    view->setMinimumSize(640, 400);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view);
}
