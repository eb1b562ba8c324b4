// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// What the bond table accepts as typed or pasted; a refusal says why and keeps the old value.
#include "GuiTestMain.h"

#include "BondClipboard.h"
#include "HoldingColumns.h"
#include "base/UserDefaults.h"

#include <QClipboard>
#include <QUndoStack>

HoldingRef bond(const QString &series, Month issue, bool paper, Pennies faceValue, int quantity = 2)
{
    HoldingRef holding = Holding::create();
    holding->setSeries(Series::seriesForCode(series));
    holding->setIssueDate(issue);
    holding->setPaper(paper);
    holding->setFaceValue(faceValue);
    holding->setQuantity(quantity);
    return holding;
}

// The fields the rules touch, in one line that a failed comparison shows whole.
QString fields(const Holding &holding)
{
    return QStringLiteral("%1 x%2 %3 %4 %5")
        .arg(holding.series()->code()).arg(holding.quantity()).arg(holding.faceValue())
        .arg(holding.issueDate().toString(Month::Style::Iso), holding.isPaper() ? "paper" : "electronic");
}

class HoldingEntryTest : public QObject
{
    Q_OBJECT

    // The bond, the column typed into (or the paper box), what is typed, the refusal (empty: accepted), the bond after.
    using EntryCase = std::tuple<HoldingRef, int, QVariant, QString, QString>;

private slots:
    void cleanup() { GuiTest::discardWindows(); }

    void typedValuesFollowTheRules_data()
    {
        QTest::addColumn<EntryCase>("c");
        const auto eePaper = [] { return bond("N", Month(2005, 1), true, 10000); };
        const auto eeElectronic = [](Pennies face) { return bond("N", Month(2005, 1), false, face); };
        const auto refusal = [](EntryRefusal why, const char *series = "N") {
            return EntryRules::describe(why, Series::seriesForCode(QString::fromLatin1(series)));
        };
        const auto row = [](const char *name, const HoldingRef &holding, int column, const QVariant &typed,
                            const QString &refusal, const QString &after) {
            QTest::newRow(name) << EntryCase{holding, column, typed, refusal, after};
        };
        const int paperState = -1; // the check box rather than a typed value
        using C = HoldingColumns::Column;
        const int quantity = C::Quantity, face = C::FaceValue, month = C::IssueDate;
        const QString paperKept = "N x2 10000 2005-01 paper", electronicKept = "N x2 10000 2005-01 electronic";
        const QString electronicRange = refusal(EntryRefusal::ElectronicAmountOutOfRange);
        const QString notADenomination = refusal(EntryRefusal::NotADenomination);

        row("quantity -3", eePaper(), quantity, -3, refusal(EntryRefusal::QuantityBelowOne), paperKept);
        row("quantity 0", eePaper(), quantity, 0, refusal(EntryRefusal::QuantityBelowOne), paperKept);
        row("quantity 5", eePaper(), quantity, 5, "", "N x5 10000 2005-01 paper");
        row("face abc", eePaper(), face, "abc", refusal(EntryRefusal::NotAnAmount), paperKept);
        row("face 12.5x", eePaper(), face, "12.5x", refusal(EntryRefusal::NotAnAmount), paperKept);
        row("face $1,000 paper", eePaper(), face, "$1,000", "", "N x2 100000 2005-01 paper");
        row("face 137.45 paper", eePaper(), face, "137.45", notADenomination, paperKept);
        row("face 99,999,999,999", eePaper(), face, "99,999,999,999", notADenomination, paperKept);
        row("face 137.45 electronic", eeElectronic(10000), face, "137.45", "", "N x2 13745 2005-01 electronic");
        row("face 20 electronic", eeElectronic(10000), face, "20", electronicRange, electronicKept);
        row("face 10,000.01 electronic", eeElectronic(10000), face, "10,000.01", electronicRange, electronicKept);
        row("E bond electronic", bond("E", Month(1980, 1), true, 10000), paperState, {},
            refusal(EntryRefusal::NeverElectronic, "E"), "E x2 10000 1980-01 paper");
        row("EE 04/2003 electronic", bond("N", Month(2003, 4), true, 10000), paperState, {},
            "EE bonds were first sold electronically in 05/2003.", "N x2 10000 2003-04 paper");
        row("EE 05/2003 electronic", bond("N", Month(2003, 5), true, 10000), paperState, {}, "",
            "N x2 10000 2003-05 electronic");
        row("I 09/2002 electronic", bond("I", Month(2002, 9), true, 10000), paperState, {},
            "I bonds were first sold electronically in 10/2002.", "I x2 10000 2002-09 paper");
        row("$10 paper to electronic", bond("N", Month(2005, 1), true, 1000), paperState, {}, electronicRange,
            "N x2 1000 2005-01 paper");
        row("$137.45 electronic to paper", eeElectronic(13745), paperState, {}, notADenomination,
            "N x2 13745 2005-01 electronic");
        row("month 13/2020", eePaper(), month, "13/2020", refusal(EntryRefusal::NotAMonth), paperKept);
        const QVariant january2000 = QVariant::fromValue(Month(2000, 1));
        row("month before electronic sales turns paper", eeElectronic(10000), month, january2000, "",
            "N x2 10000 2000-01 paper");
        row("month before electronic sales, odd amount", eeElectronic(13745), month, january2000,
            "EE bonds were first sold electronically in 05/2003.", "N x2 13745 2005-01 electronic");
        row("series E turns paper", eeElectronic(10000), HoldingColumns::Series, "E", "", "E x2 10000 2005-01 paper");
    }

    void typedValuesFollowTheRules()
    {
        QFETCH(EntryCase, c);
        const auto &[holding, column, typed, refusal, after] = c;
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        window->portfolio()->appendHolding(holding);
        window->portfolio()->markSaved();
        QAbstractItemModel *model = window->shownHoldingsModel();
        const int steps = window->portfolio()->undoStack()->count();
        const bool done = column < 0 ? model->setData(model->index(0, HoldingColumns::Paper),
                                                      holding->isPaper() ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole)
                                     : model->setData(model->index(0, column), typed, Qt::EditRole);
        QCOMPARE(done, refusal.isEmpty());
        QCOMPARE(GuiTest::alertTexts(window), refusal.isEmpty() ? QStringList() : QStringList{refusal});
        QCOMPARE(fields(*holding), after);
        QCOMPARE(window->isWindowModified(), refusal.isEmpty());
        // An accepted change, even one that also turns the bond paper, is one undo step.
        if (refusal.isEmpty()) {
            QCOMPARE(window->portfolio()->undoStack()->count(), steps + 1);
            window->portfolio()->undoStack()->undo();
            QVERIFY(fields(*holding) != after);
        }
    }

    void aSeriesNeverSoldElectronicallyStartsPaper_data()
    {
        QTest::addColumn<QString>("defaultSeries");
        QTest::addColumn<bool>("paper");
        QTest::newRow("EE") << "N" << false;
        QTest::newRow("I") << "I" << false;
        QTest::newRow("E") << "E" << true;
        QTest::newRow("Savings Note") << "S" << true;
    }

    void aSeriesNeverSoldElectronicallyStartsPaper()
    {
        QFETCH(QString, defaultSeries);
        QFETCH(bool, paper);
        UserDefaults::setValue(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), false);
        Series::setDefaultSeries(Series::seriesForCode(defaultSeries));
        const bool startsPaper = Holding::create()->isPaper();
        UserDefaults::remove(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
        Series::setDefaultSeries(Series::eeBond());
        QCOMPARE(startsPaper, paper);
    }

    void pastedBondsThatBreakTheRulesStayOut()
    {
        PortfolioWindow *window = DocumentManager::instance().newDocument();
        QApplication::clipboard()->setMimeData(BondClipboard::mimeDataFor(
            {bond("N", Month(2005, 1), true, 10000), bond("N", Month(2005, 1), true, 10000, -3),
             bond("E", Month(1980, 1), false, 10000)}));
        window->paste();
        QCOMPARE(window->portfolio()->holdings().size(), 1);
        QCOMPARE(window->portfolio()->holdings().first()->quantity(), 2);
        QCOMPARE(GuiTest::alertTexts(window),
                 QStringList{QStringLiteral("Bond 2 of 3: %1\nBond 3 of 3: %2")
                                 .arg(EntryRules::describe(EntryRefusal::QuantityBelowOne),
                                      EntryRules::describe(EntryRefusal::NeverElectronic))});
        QCOMPARE(window->portfolio()->undoStack()->count(), 1);
    }
};

QUILLMERE_GUI_TEST_MAIN(HoldingEntryTest)
#include "tst_holding_entry.moc"
