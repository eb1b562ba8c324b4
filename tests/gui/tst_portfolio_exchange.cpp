// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Export and import driven as the user does: all/selected rows offered, what is written, exact alert texts.
#include "GuiTestMain.h"
#include "BondTableView.h"
#include "ExchangePanels.h"
#include "base/UserDefaults.h"

#include <QAction>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

// Answers every panel with a prepared path and row, and keeps what the window asked and said.
struct ScriptedPanels : ExchangePanels
{
    QString path;
    int row = 0;
    bool forSpreadsheets = false;            // the answer
    bool offeredSpreadsheets = false;        // how the panel's check box started
    bool offeredSelection = false;
    QStringList alerts; // "title|message"
    int beeps = 0;

    std::optional<Choice> answer(bool offer)
    {
        offeredSelection = offer;
        return Choice{path, row, forSpreadsheets};
    }
    std::optional<Choice> chooseCsvExportFile(QWidget *, bool offer, int, bool spreadsheets) override
    {
        offeredSpreadsheets = spreadsheets;
        return answer(offer);
    }
    std::optional<Choice> chooseQifExportDirectory(QWidget *, bool offer, int) override { return answer(offer); }
    std::optional<Choice> chooseCsvImportFile(QWidget *, int) override { return answer(false); }
    std::optional<QString> chooseCalculatorPage(QWidget *) override { return path; }
    std::optional<QString> chooseFinanceExportDirectory(QWidget *) override { return path; }
    void alert(QWidget *, const ExchangeAlert &shown, bool) override { alerts << shown.title + u'|' + shown.message; }
    void beep() override { ++beeps; }
};

// Rows selected, the panel's row chosen, the selection offered, only the selection written, written for spreadsheets.
using ExportCase = std::tuple<int, int, bool, bool, bool>;
// The import chosen, the file's contents, the panel's row (own format, the Wizard's), bonds added, the alert.
using ImportCase = std::tuple<PortfolioWindow::ActionId, QByteArray, int, int, QString>;

class PortfolioExchangeTest : public QObject
{
    Q_OBJECT

    PortfolioWindow *m_window = nullptr;
    ScriptedPanels *m_panels = nullptr;

private slots:
    void init()
    {
        QVERIFY((m_window = GuiTest::openSample()));
        m_panels = new ScriptedPanels;
        m_window->setExchangePanels(std::unique_ptr<ExchangePanels>(m_panels));
    }

    void cleanup() { GuiTest::discardWindows(); }

    void csvExportWritesWhatTheRowsChoose_data()
    {
        QTest::addColumn<ExportCase>("c");
        QTest::newRow("no selection") << ExportCase{0, 1, false, false, false};
        QTest::newRow("selection, all bonds") << ExportCase{2, 0, true, false, false};
        QTest::newRow("selection, selected only, for spreadsheets") << ExportCase{2, 1, true, true, true};
    }
    void csvExportWritesWhatTheRowsChoose()
    {
        QFETCH(ExportCase, c);
        const auto &[selected, row, offered, onlySelected, spreadsheets] = c;
        UserDefaults::remove(QStringLiteral("csvExportForSpreadsheets"));
        m_panels->forSpreadsheets = spreadsheets;
        GuiTest::selectRows(m_window->bondTable(), selected ? QList<int>{0, 1} : QList<int>{});
        m_panels->path = GuiTest::path(QStringLiteral("export.csv"));
        m_panels->row = row;
        m_window->action(PortfolioWindow::ActionId::ExportCsv)->trigger();
        QCOMPARE(m_panels->offeredSelection, offered);
        const qsizetype lines = GuiTest::readFile(m_panels->path).count('\n');
        QCOMPARE(lines - 1, onlySelected ? selected : m_window->portfolio()->holdings().size());
        QCOMPARE(GuiTest::readFile(m_panels->path).startsWith("\xEF\xBB\xBF"), spreadsheets);
        static const QRegularExpression isoIssueDate(QStringLiteral("\n[^,\n]*,[0-9]+,[0-9]{4}-[0-9]{2}-01,"));
        QCOMPARE(isoIssueDate.match(QString::fromUtf8(GuiTest::readFile(m_panels->path))).hasMatch(), spreadsheets);
        QVERIFY(m_panels->alerts.isEmpty());
        QVERIFY(!m_window->portfolio()->isEdited());
        // The next export's panel starts as this one was left; the spreadsheet form starts off.
        QVERIFY(!m_panels->offeredSpreadsheets);
        m_window->action(PortfolioWindow::ActionId::ExportCsv)->trigger();
        QCOMPARE(m_panels->offeredSpreadsheets, spreadsheets);
    }

    // Each import is one undo step, its alert saying what was read and skipped.
    void importIsOneEditWithItsAlert_data()
    {
        QTest::addColumn<ImportCase>("c");
        const QByteArray csv = "Bond Series,Quantity,Issue Date,Face Value,Serial Number\n"
                               "\"EE Bond\",1,3/1995,50.00,Q1\n\"I Bond\",2,5/2001,100.00,\n";
        const QByteArray list = "<input type=hidden name=SeriesList value='EE;HH;'><input type=hidden name=IssueDateList "
                                "value='585;600;'><input type=hidden name=DenominationList value='100;500;'>";
        using Id = PortfolioWindow::ActionId;
        QTest::newRow("own format") << ImportCase{Id::ImportCsv, csv, 0, 2,
            "Import Complete|Imported 2 out of 2 bonds. (HH/H bonds not supported)"};
        QTest::newRow("read as the Wizard's") << ImportCase{Id::ImportCsv, csv, 1, 0, "Import file corrupt|The file you "
            "selected does not appear to be a CSV file produced by the Treasury Department's Savings Bond Wizard.  "
            "Please verify your choice and try again."};
        QTest::newRow("the calculator's list") << ImportCase{Id::ImportCalculator, list, 0, 1,
            "Import Complete|Imported 1 of 2 bonds from the calculator's list, as paper bonds."};
        QTest::newRow("another page") << ImportCase{Id::ImportCalculator, "<html>no list</html>", 0, 0, "Import Failed|"
            "This is not a list saved from the Treasury's Savings Bond Calculator: it has no SeriesList field."};
    }
    void importIsOneEditWithItsAlert()
    {
        QFETCH(ImportCase, c);
        const auto &[action, contents, format, added, alert] = c;
        m_panels->path = GuiTest::writeFile(QStringLiteral("import"), contents);
        QVERIFY(!m_panels->path.isEmpty());
        const qsizetype before = m_window->portfolio()->holdings().size();
        m_panels->row = format;
        m_window->action(action)->trigger();
        QCOMPARE(m_panels->alerts, QStringList{alert});
        QCOMPARE(m_window->portfolio()->holdings().size(), before + added);
        QCOMPARE(m_window->portfolio()->isEdited(), added > 0);
        if (added == 0)
            return;
        QAction *undo = m_window->action(PortfolioWindow::ActionId::Undo);
        QCOMPARE(undo->text(), QStringLiteral("Undo Insert Holding"));
        undo->trigger();
        QCOMPARE(m_window->portfolio()->holdings().size(), before);
        QVERIFY(!m_window->portfolio()->isEdited());
        m_window->action(PortfolioWindow::ActionId::Redo)->trigger();
        QCOMPARE(m_window->portfolio()->holdings().size(), before + added);
    }

    // GnuCash's and KMyMoney's files: the quantities times the prices on the month's last day make the window's value.
    void financeExportPricesTheBondsAtTheirValue()
    {
        m_panels->path = QFileInfo(GuiTest::path(QStringLiteral("x"))).absolutePath();
        m_window->action(PortfolioWindow::ActionId::ExportFinance)->trigger();
        QCOMPARE(m_panels->alerts, QStringList{QStringLiteral("Export complete|Wrote Bonds.qif and BondPrices.csv in %1.")
                                                   .arg(QDir(m_panels->path).absolutePath())});
        const Month month = m_window->portfolio()->valuationContext().month;
        const QString day = QDate(month.year(), month.month(), 1).addMonths(1).addDays(-1).toString(QStringLiteral("MM/dd/yyyy"));
        QHash<QString, double> price; // by symbol
        for (const QByteArray &line : GuiTest::readFile(m_panels->path + QStringLiteral("/BondPrices.csv")).split('\n')) {
            const QList<QByteArray> cells = line.split(',');
            if (cells.size() == 5 && cells[0] == day.toLatin1())
                price[QString::fromLatin1(cells[3])] = cells[1].toDouble();
        }
        QHash<QString, QString> symbol; // by security name
        QString name;
        double worth = 0;
        for (const QByteArray &line : GuiTest::readFile(m_panels->path + QStringLiteral("/Bonds.qif")).split('\n')) {
            const QString field = QString::fromUtf8(line.mid(1));
            if (line.startsWith('N') || line.startsWith('Y'))
                name = field;
            else if (line.startsWith('S'))
                symbol[name] = field;
            else if (line.startsWith('Q'))
                worth += field.toDouble() * price.value(symbol.value(name));
        }
        Pennies value = 0;
        for (const HoldingRef &holding : m_window->portfolio()->holdings())
            value += m_window->portfolio()->figuresOf(*holding).value();
        QVERIFY(value > 0);
        QCOMPARE(qRound64(worth * 100), value);
    }
};

QUILLMERE_GUI_TEST_MAIN(PortfolioExchangeTest)
#include "tst_portfolio_exchange.moc"
