// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The printed portfolio read back by poppler: H and H + 1 holdings' pages, headers, page numbers, 0s, apart amounts.
#include "GuiTestMain.h"
#include "../support/TaxYearPortfolio.h"
#include "PortfolioPrintLayout.h"

#include <QMenuBar>
#include <QPdfWriter>
#include <QStandardPaths>

struct Word
{
    double left, top, right;
    QString text;
};

QList<Word> wordsOf(const QString &pdf)
{
    static const QRegularExpression word(
        QStringLiteral(R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="[\d.]+">([^<]*)</word>)re"));
    QList<Word> words;
    for (const QRegularExpressionMatch &m : word.globalMatch(GuiTest::pdfText(pdf, QStringLiteral("-bbox"))))
        words.append({m.captured(1).toDouble(), m.captured(2).toDouble(), m.captured(3).toDouble(), m.captured(4)});
    return words;
}

class PortfolioPrintTest : public QObject
{
    Q_OBJECT

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
    void cleanup() { GuiTest::discardWindows(); }

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
        BondPortfolio &portfolio = *DocumentManager::instance().newDocument()->portfolio();
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
        GuiTest::discardWindows();

        QCOMPARE(GuiTest::pdfPages(pdf), pages);
        const QString text = GuiTest::pdfText(pdf);
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

    // A wide amount moves later columns and titles right (poppler's word boxes).
    void amountsKeepApart_data()
    {
        QTest::addColumn<int>("quantity");
        QTest::addColumn<Pennies>("faceValue");
        QTest::newRow("sample-size amounts") << 1 << Pennies(5000);
        QTest::newRow("wide amounts") << 500 << Pennies(1000000);
    }
    void amountsKeepApart()
    {
        QFETCH(int, quantity);
        QFETCH(Pennies, faceValue);
        BondPortfolio &portfolio = *DocumentManager::instance().newDocument()->portfolio();
        TaxYearPortfolio::addBond(portfolio, "N", Month(1990, 1), faceValue, quantity);
        QVERIFY(portfolio.setValueOfDate(Month(2021, 11).toDateTime()));
        const QString pdf = GuiTest::path(QStringLiteral("amounts.pdf"));
        {
            QPdfWriter writer(pdf);
            writer.setPageLayout(letter(90));
            QVERIFY(PortfolioPrintLayout(portfolio.holdings(), portfolio.valuationContext(), writer.pageLayout()).print(writer));
        }
        const QList<Word> words = wordsOf(pdf);
        QList<Word> amounts;
        std::copy_if(words.cbegin(), words.cend(), std::back_inserter(amounts),
                     [](const Word &w) { return w.text.startsWith(u'$'); });
        QCOMPARE(amounts.size(), 4);
        for (qsizetype i = 1; i < amounts.size(); ++i)
            QVERIFY2(amounts.at(i - 1).right + 5 < amounts.at(i).left,
                     qPrintable(amounts.at(i - 1).text + QLatin1Char(' ') + amounts.at(i).text));
        // The last title ("Value", not "Face Value") stands over its amount, however far the amounts moved.
        Word value{};
        for (const Word &w : words) {
            if (w.text == QLatin1String("Value") && w.left > value.left)
                value = w;
        }
        QVERIFY(value.left > amounts.at(2).right);
        QVERIFY(value.right > amounts.at(3).left && value.left < amounts.at(3).right);
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

        const QString text = GuiTest::pdfText(pdf);
        QVERIFY(text.startsWith(QStringLiteral("Savings Bond Inventory: sample\n")));
        QVERIFY(text.contains(QRegularExpression(QStringLiteral("Household total +13 +\\$1,700\\.00 +\\$1,584\\.25 +\\$1,957\\.96 +\\$3,417\\.21\\n"))));
        QVERIFY(text.contains(QStringLiteral("Page 1 of 1")));
    }
};

QUILLMERE_GUI_TEST_MAIN(PortfolioPrintTest)
#include "tst_portfolio_print.moc"
