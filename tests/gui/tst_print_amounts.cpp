// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Printed amounts never overlap: a wide amount moves later columns and titles right (poppler's word boxes).
#include "GuiTestMain.h"
#include "PortfolioPrintLayout.h"

#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

struct Word
{
    double left, top, right;
    QString text;
};

QList<Word> wordsOf(const QString &pdf)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    process.waitForFinished();
    static const QRegularExpression word(
        QStringLiteral(R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="[\d.]+">([^<]*)</word>)re"));
    QList<Word> words;
    for (const QRegularExpressionMatch &m : word.globalMatch(QString::fromUtf8(process.readAllStandardOutput())))
        words.append({m.captured(1).toDouble(), m.captured(2).toDouble(), m.captured(3).toDouble(), m.captured(4)});
    return words;
}

class PrintAmountsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("poppler-utils (pdftotext) are not installed");
    }

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
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        BondPortfolio &portfolio = *window->portfolio();
        HoldingRef bond = portfolio.addNewHolding(0);
        bond->setSeries(Series::eeBond());
        bond->setIssueDate(Month(1990, 1));
        bond->setPaper(true);
        bond->setFaceValue(faceValue);
        bond->setQuantity(quantity);
        QVERIFY(portfolio.setValueOfDate(Month(2021, 11).toDateTime()));
        const QString pdf = GuiTest::path(QStringLiteral("amounts.pdf"));
        {
            QPdfWriter writer(pdf);
            writer.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                             QMarginsF(72, 90, 72, 90), QPageLayout::Point));
            QVERIFY(PortfolioPrintLayout(portfolio.holdings(), portfolio.valuationContext(), writer.pageLayout()).print(writer));
        }
        const QList<Word> words = wordsOf(pdf);
        QList<Word> amounts;
        for (const Word &w : words) {
            if (w.text.startsWith(u'$'))
                amounts << w;
        }
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
        portfolio.markSaved();
        delete window;
    }
};

QUILLMERE_GUI_TEST_MAIN(PrintAmountsTest)
#include "tst_print_amounts.moc"
