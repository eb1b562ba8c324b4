// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The printed portfolio as PDF read back by poppler: pages for H and H + 1 holdings, headers, page numbers, 0s.
#include "GuiTestMain.h"
#include "PortfolioPrintLayout.h"

#include <QMenuBar>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>

class PortfolioPrintTest : public QObject
{
    Q_OBJECT

    static QString run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    // Letter with a 90-point top margin: (792 - 180) / 40 gives 15 bands a page.
    static QPageLayout letter(qreal topMargin)
    {
        return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(72, topMargin, 72, 90),
                           QPageLayout::Point);
    }

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("poppler-utils (pdfinfo, pdftotext) are not installed");
    }

    void pagesHoldBandsOfFortyPoints_data()
    {
        QTest::addColumn<int>("holdings");
        QTest::addColumn<int>("pages");
        QTest::newRow("H") << 15 << 1;
        QTest::newRow("H + 1") << 16 << 2;
    }
    void pagesHoldBandsOfFortyPoints()
    {
        QFETCH(int, holdings);
        QFETCH(int, pages);
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        BondPortfolio &portfolio = *window->portfolio();
        for (int k = 0; k < holdings; ++k)
            portfolio.addNewHolding(k);
        // One priced bond; the others keep a face value of 0, which prints as nothing.
        const HoldingRef priced = portfolio.holdings().constFirst();
        priced->setFaceValue(5000);
        priced->setIssueDate(Month(2001, 5));
        priced->setSerialNumber(QStringLiteral("Q100"));
        QVERIFY(portfolio.setValueOfDate(QDateTime(QDate(2021, 11, 1), QTime(0, 0, 1))));

        const QString pdf = GuiTest::path(QStringLiteral("print.pdf"));
        QPdfWriter writer(pdf);
        writer.setPageLayout(letter(90));
        const PortfolioPrintLayout layout(portfolio.holdings(), portfolio.valuationContext(), writer.pageLayout());
        QCOMPARE(layout.holdingsPerPage(), 15);
        QVERIFY(layout.print(writer));
        portfolio.markSaved();
        delete window;

        QVERIFY(run(QStringLiteral("pdfinfo"), {pdf}).contains(QRegularExpression(QStringLiteral("Pages:\\s+%1\\n").arg(pages))));
        const QString text = run(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        QCOMPARE(text.count(QRegularExpression(QStringLiteral("Series +Quantity +Issue Date +Face Value +Issue Price +Interest Earned +Value"))), pages);
        QCOMPARE(text.count(QRegularExpression(QStringLiteral("Serial Number +Registration"))), pages);
        for (int page = 1; page <= pages; ++page)
            QVERIFY(text.contains(QRegularExpression(QStringLiteral("\\n +- ?%1 ?-\\n").arg(page))));
        QVERIFY(text.contains(QRegularExpression(QStringLiteral("EE Bond +1 +05/2001 +\\$50\\.00 +\\$25\\.00 +\\$[0-9.]+ +\\$[0-9.]+\\n"))));
        QVERIFY(text.contains(QStringLiteral("Q100")));
        // The unpriced bonds: label and quantity, and nothing where the amounts would stand.
        QCOMPARE(text.count(QRegularExpression(QStringLiteral("EE Bond +1 *\\n"))), holdings - 1);
        QVERIFY(!text.contains(QStringLiteral("$0.00")));
    }

    // The File menu's inventory lists the whole household, whatever the table's filter shows.
    void inventoryFromTheFileMenuListsEveryHeldBond()
    {
        PortfolioWindow *window = GuiTest::openSample();
        QVERIFY(window);
        QVERIFY(window->portfolio()->setValueOfDate(QDateTime(QDate(2026, 11, 1), QTime(0, 0, 1))));
        window->action(PortfolioWindow::ActionId::StoppedEarning)->setChecked(true);
        QAction *exportAction = window->action(PortfolioWindow::ActionId::ExportInventoryPdf);
        QVERIFY(exportAction->isEnabled());
        QVERIFY(window->menuBar()->actions().constFirst()->menu()->actions().contains(exportAction));
        const QString pdf = GuiTest::path(QStringLiteral("inventory.pdf"));
        QVERIFY(window->exportInventoryPdf(pdf));
        GuiTest::discardWindows();

        const QString text = run(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        QVERIFY(text.startsWith(QStringLiteral("Savings Bond Inventory: sample\n")));
        QVERIFY(text.contains(QRegularExpression(QStringLiteral("Household total +13 +\\$1,700\\.00 +\\$1,584\\.25 +\\$1,957\\.96 +\\$3,417\\.21\\n"))));
        QVERIFY(text.contains(QStringLiteral("Page 1 of 1")));
    }
};

QUILLMERE_GUI_TEST_MAIN(PortfolioPrintTest)
#include "tst_portfolio_print.moc"
