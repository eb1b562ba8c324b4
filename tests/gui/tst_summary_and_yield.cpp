// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Figures not overstated: an unknown current yield is no figure and sorts last; summary rows say what they are.
#include "GuiTestMain.h"

#include "BondTableView.h"
#include "HoldingColumns.h"
#include "InterestSummaryModel.h"

class SummaryAndYieldTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { GuiTest::discardWindows(); }

    // At 10/2026 (period 05-11/2026) the 03/2026 I bond lacked a start value; the 01/1997 I bond has none at all.
    void aYieldWithoutDataIsBlankAndSortsLast_data()
    {
        QTest::addColumn<Qt::SortOrder>("order");
        QTest::newRow("ascending") << Qt::AscendingOrder;
        QTest::newRow("descending") << Qt::DescendingOrder;
    }

    void aYieldWithoutDataIsBlankAndSortsLast()
    {
        QFETCH(Qt::SortOrder, order);
        PortfolioWindow *window = GuiTest::openSample();
        QVERIFY(window->portfolio()->setValueOfDate(Month(2026, 10).toDateTime()));
        window->bondTable()->sortByColumn(HoldingColumns::CurrentYield, order);
        QAbstractItemModel *shown = window->shownHoldingsModel();
        QStringList yields;
        for (int row = 0; row < shown->rowCount(); ++row)
            yields << shown->index(row, HoldingColumns::CurrentYield).data().toString();
        QCOMPARE(yields.count(QString()), 2);
        QCOMPARE(yields.mid(yields.size() - 2), QStringList({QString(), QString()}));
        QVERIFY(yields.first().endsWith(QLatin1Char('%')));
        const double first = yields.first().chopped(1).toDouble(), next = yields.at(1).chopped(1).toDouble();
        QVERIFY(order == Qt::AscendingOrder ? first <= next : first >= next);
    }

    void summaryRowsSayWhatTheyCover()
    {
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        // An E bond whose six-month period 09/2001 to 02/2002 has no official value at all.
        HoldingRef bond = Holding::create();
        bond->setSeries(Series::seriesForCode(QStringLiteral("E")));
        bond->setIssueDate(Month(1975, 9));
        bond->setFaceValue(10000);
        window->portfolio()->appendHolding(bond);
        InterestSummaryModel *summary = window->summaryModel();
        QTRY_VERIFY(summary->rowCount() > 0);
        QCOMPARE(summary->index(0, InterestSummaryModel::TaxYear).data().toString(), QStringLiteral("1992 and before"));
        QStringList incomplete;
        for (int row = 0; row < summary->rowCount(); ++row) {
            const QModelIndex interest = summary->index(row, InterestSummaryModel::Interest);
            if (interest.data().toString().endsWith(QLatin1String(" (incomplete)")))
                incomplete << summary->index(row, InterestSummaryModel::TaxYear).data().toString();
            QCOMPARE(interest.data(Qt::ToolTipRole).isValid(), interest.data().toString().endsWith(QLatin1String(" (incomplete)")));
        }
        QCOMPARE(incomplete, QStringList{QStringLiteral("2001")});
    }
};

QUILLMERE_GUI_TEST_MAIN(SummaryAndYieldTest)
#include "tst_summary_and_yield.moc"
