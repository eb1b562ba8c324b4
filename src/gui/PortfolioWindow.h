// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One portfolio's window: the people table and the interest summary on the left, the bond table
// with its totals line on the right, the toolbar above. The window shows the document and hands
// every change to it; the document records undo and decides what is shown.
#include "PeopleTableView.h"
#include "model/Holding.h"

#include <QHash>
#include <QMainWindow>
#include <memory>

class BondPortfolio;
class BondTableColumns;
class BondTableView;
class ExchangePanels;
class HoldingsFilterModel;
class HoldingsTableModel;
class InterestSummaryModel;
class MaturityNoticeBar;
class QButtonGroup;
class QStackedWidget;
class RedeemedBondsPanel;
class TaxYearDialog;
class PeopleTableModel;
class QAction;
class QLabel;
class QMenu;
class QPrinter;
class QRadioButton;
class QTableView;
class UpdateAvailableBar;
class ValuationMonthPicker;

class PortfolioWindow : public QMainWindow
{
    Q_OBJECT
public:
    enum class ActionId {
        New, Open, Close, Save, SaveAs, Revert, Print, PrintPreview, ExportPdf, Quit,
        Undo, Redo, Cut, Copy, Paste, Delete,
        AddBond, RemoveBond, Redeem, TaxReport, ExportCsv, ExportQif, ImportCsv, AddPerson, Preferences, UpdatePrices, InstallTreasuryFile, ValueChart, StoppedEarning, ImportCalculator, ExportFinance, PrintInventory, ExportInventoryPdf, Help, About
    };
    static constexpr const char *ToolbarName = "larchfield.QuillmereToolbar";

    // Takes ownership of the portfolio.
    explicit PortfolioWindow(BondPortfolio *portfolio, QWidget *parent = nullptr);
    ~PortfolioWindow() override;

    BondPortfolio *portfolio() const { return m_portfolio.get(); }
    QAction *action(ActionId id) const { return m_actions.value(id); }
    BondTableView *bondTable() const { return m_bondTable; }
    PeopleTableView *peopleTable() const { return m_peopleTable; }
    QTableView *summaryTable() const { return m_summaryTable; }
    HoldingsFilterModel *shownHoldingsModel() const { return m_filterModel; }
    InterestSummaryModel *summaryModel() const { return m_summaryModel; }
    BondTableColumns *columns() const { return m_columns; }
    ValuationMonthPicker *valuationPicker() const { return m_picker; }
    // Offers new redemption values when the automatic check found some.
    UpdateAvailableBar *updateBar() const { return m_updateBar; }
    // Warns of held bonds reaching final maturity in the valuation month's year.
    MaturityNoticeBar *maturityBar() const { return m_maturityBar; }
    // The redeemed side of the Held / Redeemed switch above the bond table.
    RedeemedBondsPanel *redeemedPanel() const { return m_redeemedPanel; }
    bool isShowingRedeemed() const;
    void showRedeemed(bool redeemed);
    QString totalsText() const;

    // The holdings the bond table shows, filtered and sorted as shown.
    QList<HoldingRef> arrangedHoldings() const;
    // The holdings selected in the bond table, in the order shown.
    QList<HoldingRef> selectedHoldings() const;
    QList<PersonRef> selectedPeople() const;

    // Names the person on each holding in the role, one undoable "Edit" per holding.
    void nameBonds(const QList<HoldingRef> &holdings, const PersonRef &person, PeopleTableView::Role role);
    // Sets the valuation month if the database has values for it; otherwise says so and keeps it.
    bool requestValueOfDate(const QDateTime &month);

    // Replaces the panels and alerts of the export and import commands (tests answer for the user).
    void setExchangePanels(std::unique_ptr<ExchangePanels> panels);
    void exportCsv();
    void exportQif();
    void exportForFinancePrograms();
    void importCsv();
    void importCalculatorList();
    void print();
    void printPreview();
    // A chart of the value of the one selected bond.
    void showValueChart();
    // The redemption dialog for the selected bonds (in PortfolioWindowRedemptions.cpp).
    void redeemSelectedBonds();
    // The window's one tax report, opened or raised.
    TaxYearDialog *showTaxReport();
    void exportPdf();
    // The household's inventory of every held bond, grouped by owner (in PortfolioWindowPrinting.cpp).
    void printInventory();
    // Asks where to write when no path is given; false when nothing was written.
    bool exportInventoryPdf(QString path = QString());

    bool save();
    bool saveAs(const QString &path = QString());
    void revertToSaved();
    void addBond();
    void cut();
    void copy();
    void paste();
    void deleteSelection();
    void removeSelectedBonds();
    void deleteSelectedPeople();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // Construction, in PortfolioWindowActions.cpp.
    void createActions();
    void createMenus();
    void createToolbar();
    void updateActions();
    void updateRecentMenu();
    // In PortfolioWindowEditing.cpp.
    void showBondContextMenu(const QPoint &position);
    void bondsDropped(const QList<int> &rows, int personRow, PeopleTableView::Role role);
    void addPeople();
    // In PortfolioWindowExchange.cpp.
    bool confirmSaveWithoutMissingPeople();
    // Saves to path; on failure beeps and says why in an alert.
    bool saveTo(const QString &path);
    // In PortfolioWindowPrinting.cpp: false, with a beep, when the page holds no band.
    bool printOn(QPrinter &printer);
    void scheduleTotals();
    void updateTotals();
    // In PortfolioWindow.cpp.
    QWidget *createPeopleAndSummary();
    QWidget *createBondTable();
    // In PortfolioWindowRedemptions.cpp: the switch and the two views it chooses between.
    QWidget *createHeldAndRedeemed(QWidget *held);
    void peopleSelectionChanged();
    bool maybeSave();
    void updateTitle();

    std::unique_ptr<BondPortfolio> m_portfolio;
    HoldingsTableModel *m_holdingsModel = nullptr;
    HoldingsFilterModel *m_filterModel = nullptr;
    PeopleTableModel *m_peopleModel = nullptr;
    InterestSummaryModel *m_summaryModel = nullptr;
    BondTableView *m_bondTable = nullptr;
    PeopleTableView *m_peopleTable = nullptr;
    QTableView *m_summaryTable = nullptr;
    QRadioButton *m_cumulative = nullptr;
    QRadioButton *m_yearly = nullptr;
    QLabel *m_totals = nullptr;
    bool m_totalsPending = false;
    BondTableColumns *m_columns = nullptr;
    ValuationMonthPicker *m_picker = nullptr;
    UpdateAvailableBar *m_updateBar = nullptr;
    MaturityNoticeBar *m_maturityBar = nullptr;
    RedeemedBondsPanel *m_redeemedPanel = nullptr;
    QStackedWidget *m_heldOrRedeemed = nullptr;
    QButtonGroup *m_viewSwitch = nullptr;
    TaxYearDialog *m_taxReport = nullptr;
    QMenu *m_recentMenu = nullptr;
    QHash<ActionId, QAction *> m_actions;
    std::unique_ptr<ExchangePanels> m_panels;
    // The option rows keep what the user left chosen, for the next export or import.
    int m_exportRow = 0;
    int m_importRow = 0;
};
