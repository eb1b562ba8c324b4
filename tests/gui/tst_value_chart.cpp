// The value chart of one selected bond: a point per priced month from issue to the database's
// latest month, and the marked point is the value the bond table shows.
#include "GuiTestMain.h"
#include "BondTableView.h"
#include "ValueChartDialog.h"
#include "valuation/BondAssessor.h"
#include "valuation/MonthIndex.h"

#include <QAction>
#include <QChart>
#include <QLineSeries>
#include <QScatterSeries>

class ValueChartTest : public QObject
{
    Q_OBJECT

private slots:
    void chartsTheSelectedBond()
    {
        PortfolioWindow *window = GuiTest::openSample();
        QVERIFY(window);
        QAction *item = window->action(PortfolioWindow::ActionId::ValueChart);
        QVERIFY(!item->isEnabled());
        window->bondTable()->selectRow(0);
        QVERIFY(item->isEnabled());
        item->trigger();
        auto *dialog = window->findChild<ValueChartDialog *>();
        QVERIFY(dialog);

        const HoldingRef holding = window->selectedHoldings().constFirst();
        const BondPortfolio &portfolio = *window->portfolio();
        const auto series = dialog->chart()->series();
        QCOMPARE(series.size(), 2);
        auto *values = qobject_cast<QLineSeries *>(series.at(0));
        auto *marked = qobject_cast<QScatterSeries *>(series.at(1));
        QVERIFY(values && marked);
        const int months = MonthIndex::of(portfolio.assessor().maximumRedemptionDate()) - holding->issueDate().index() + 1;
        QVERIFY(values->count() > 0 && values->count() <= months);
        QCOMPARE(values->at(values->count() - 1).x(),
                 qreal(QDateTime(portfolio.assessor().maximumRedemptionDate().date().addDays(
                                     1 - portfolio.assessor().maximumRedemptionDate().date().day()), QTime(0, 0))
                           .toMSecsSinceEpoch()));
        for (const QPointF &point : values->points())
            QVERIFY(point.y() > 0);
        QCOMPARE(marked->count(), 1);
        QCOMPARE(qRound64(marked->at(0).y() * 100), portfolio.figuresOf(*holding).value());
        delete window;
    }
};

QUILLMERE_GUI_TEST_MAIN(ValueChartTest)
#include "tst_value_chart.moc"
