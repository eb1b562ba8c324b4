// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's actions, built once from one table, and the menus and toolbar that show them.
#include "BondTableColumns.h"
#include "BondTableView.h"
#include "DocumentManager.h"
#include "HoldingsFilterModel.h"
#include "HelpWindow.h"
#include "PortfolioWindow.h"
#include "PreferencesDialog.h"
#include "RedeemedBondsPanel.h"
#include "TreasuryFileInstall.h"
#include "UpdaterWindow.h"
#include "ValuationMonthPicker.h"
#include "document/BondPortfolio.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

namespace {

struct ActionEntry
{
    PortfolioWindow::ActionId id;
    const char *text;
    QKeySequence::StandardKey key;
    const char *icon; // resource name, or nullptr
    const char *toolTip;
};

using Id = PortfolioWindow::ActionId;

// Toolbar texts are the user's: "Comma Separate Values" and "titleholder's" stand as written.
const ActionEntry ActionTable[] = {
    {Id::New, QT_TRANSLATE_NOOP("PortfolioWindow", "&New"), QKeySequence::New, nullptr, nullptr},
    {Id::Open, QT_TRANSLATE_NOOP("PortfolioWindow", "&Open…"), QKeySequence::Open, nullptr, nullptr},
    {Id::Close, QT_TRANSLATE_NOOP("PortfolioWindow", "&Close"), QKeySequence::Close, nullptr, nullptr},
    {Id::Save, QT_TRANSLATE_NOOP("PortfolioWindow", "&Save"), QKeySequence::Save, nullptr, nullptr},
    {Id::SaveAs, QT_TRANSLATE_NOOP("PortfolioWindow", "Save &As…"), QKeySequence::SaveAs, nullptr, nullptr},
    {Id::Revert, QT_TRANSLATE_NOOP("PortfolioWindow", "&Revert to Saved"), QKeySequence::UnknownKey, nullptr, nullptr},
    {Id::Print, QT_TRANSLATE_NOOP("PortfolioWindow", "Print"), QKeySequence::Print, "print",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Print your portfolio")},
    {Id::PrintPreview, QT_TRANSLATE_NOOP("PortfolioWindow", "Print Pre&view…"), QKeySequence::UnknownKey, nullptr,
     nullptr},
    {Id::ExportPdf, QT_TRANSLATE_NOOP("PortfolioWindow", "Export as P&DF…"), QKeySequence::UnknownKey, nullptr,
     nullptr},
    {Id::PrintInventory, QT_TRANSLATE_NOOP("PortfolioWindow", "Print Inven&tory…"), QKeySequence::UnknownKey, nullptr,
     nullptr},
    {Id::ExportInventoryPdf, QT_TRANSLATE_NOOP("PortfolioWindow", "Export Inventor&y as PDF…"), QKeySequence::UnknownKey,
     nullptr, nullptr},
    {Id::Quit, QT_TRANSLATE_NOOP("PortfolioWindow", "&Quit"), QKeySequence::Quit, nullptr, nullptr},
    {Id::Cut, QT_TRANSLATE_NOOP("PortfolioWindow", "Cu&t"), QKeySequence::Cut, nullptr, nullptr},
    {Id::Copy, QT_TRANSLATE_NOOP("PortfolioWindow", "&Copy"), QKeySequence::Copy, nullptr, nullptr},
    {Id::Paste, QT_TRANSLATE_NOOP("PortfolioWindow", "&Paste"), QKeySequence::Paste, nullptr, nullptr},
    {Id::Delete, QT_TRANSLATE_NOOP("PortfolioWindow", "&Delete"), QKeySequence::Delete, nullptr, nullptr},
    {Id::AddBond, QT_TRANSLATE_NOOP("PortfolioWindow", "Add Bond"), QKeySequence::UnknownKey, "add",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Add a new bond")},
    {Id::RemoveBond, QT_TRANSLATE_NOOP("PortfolioWindow", "Remove Bond"), QKeySequence::UnknownKey, "delete",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Remove selected bond")},
    {Id::Redeem, QT_TRANSLATE_NOOP("PortfolioWindow", "Redeem…"), QKeySequence::UnknownKey, "redeem",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Record the selected bonds as cashed")},
    {Id::TaxReport, QT_TRANSLATE_NOOP("PortfolioWindow", "&Tax Year…"), QKeySequence::UnknownKey, nullptr, nullptr},
    {Id::ExportCsv, QT_TRANSLATE_NOOP("PortfolioWindow", "Export CSV"), QKeySequence::UnknownKey, "yellow-arrow",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Export portfolio to Comma Separate Values (CSV) file")},
    {Id::ExportQif, QT_TRANSLATE_NOOP("PortfolioWindow", "Export QIF"), QKeySequence::UnknownKey, "purple-arrow",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Export portfolio to Quicken Interchange Format (QIF) file")},
    {Id::ImportCsv, QT_TRANSLATE_NOOP("PortfolioWindow", "Import CSV"), QKeySequence::UnknownKey, "import",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Import bonds from a CSV file")},
    {Id::AddPerson, QT_TRANSLATE_NOOP("PortfolioWindow", "Add Person"), QKeySequence::UnknownKey, "AddPerson",
     QT_TRANSLATE_NOOP("PortfolioWindow", "Add people to your portfolio titleholder's list")},
    {Id::Preferences, QT_TRANSLATE_NOOP("PortfolioWindow", "Pr&eferences…"), QKeySequence::Preferences, nullptr,
     nullptr},
    {Id::UpdatePrices, QT_TRANSLATE_NOOP("PortfolioWindow", "&Update Redemption Values…"),
     QKeySequence::UnknownKey, nullptr, nullptr},
    {Id::InstallTreasuryFile, QT_TRANSLATE_NOOP("PortfolioWindow", "&Install Treasury Value File…"),
     QKeySequence::UnknownKey, nullptr, nullptr},
    {Id::ValueChart, QT_TRANSLATE_NOOP("PortfolioWindow", "Value &Chart…"), QKeySequence::UnknownKey, nullptr, nullptr},
    {Id::StoppedEarning, QT_TRANSLATE_NOOP("PortfolioWindow", "Stopped earning"), QKeySequence::UnknownKey,
     "stopped-earning", QT_TRANSLATE_NOOP("PortfolioWindow", "Show only the bonds past final maturity, which no longer earn interest")},
    {Id::ImportCalculator, QT_TRANSLATE_NOOP("PortfolioWindow", "Import Treasury Calculator List…"), QKeySequence::UnknownKey,
     nullptr, nullptr},
    {Id::ExportFinance, QT_TRANSLATE_NOOP("PortfolioWindow", "For &GnuCash or KMyMoney…"), QKeySequence::UnknownKey,
     nullptr, nullptr},
    {Id::Help, QT_TRANSLATE_NOOP("PortfolioWindow", "Quillmere &Help"), QKeySequence::HelpContents, nullptr, nullptr},
    {Id::About, QT_TRANSLATE_NOOP("PortfolioWindow", "&About Quillmere"), QKeySequence::UnknownKey, nullptr, nullptr},
};

// The platform's keys for the command, then each of the others it lacks.
void withKeys(QAction *action, QKeySequence::StandardKey standard, const QList<QKeySequence> &others)
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
    for (const QKeySequence &key : others) {
        if (!keys.contains(key))
            keys << key;
    }
    action->setShortcuts(keys);
}

} // namespace

void PortfolioWindow::createActions()
{
    for (const ActionEntry &entry : ActionTable) {
        auto *action = new QAction(tr(entry.text), this);
        if (entry.key != QKeySequence::UnknownKey)
            action->setShortcut(entry.key);
        if (entry.icon)
            action->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(entry.icon))));
        if (entry.toolTip)
            action->setToolTip(tr(entry.toolTip));
        m_actions.insert(entry.id, action);
    }
    // Undo and Redo are the document's own stack's, named after the step they take back.
    QUndoStack *stack = m_portfolio->undoStack();
    QAction *undo = stack->createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction *redo = stack->createRedoAction(this, tr("Redo"));
    // Both keys desktops use for Redo, and Save As, even where the platform's table has none.
    withKeys(redo, QKeySequence::Redo, {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    withKeys(action(Id::SaveAs), QKeySequence::SaveAs, {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)});
    m_actions.insert(Id::Undo, undo);
    m_actions.insert(Id::Redo, redo);
    action(Id::AddBond)->setShortcut(QKeySequence(Qt::Key_Insert));
    // Menu items that open a panel say so; the toolbar keeps the short names.
    for (Id id : {Id::Print, Id::ExportCsv, Id::ExportQif, Id::ImportCsv}) {
        action(id)->setIconText(action(id)->text());
        action(id)->setText(action(id)->text() + QStringLiteral("…"));
    }
    action(Id::Quit)->setMenuRole(QAction::QuitRole);
    action(Id::About)->setMenuRole(QAction::AboutRole);
    action(Id::Preferences)->setMenuRole(QAction::PreferencesRole);
    if (action(Id::Preferences)->shortcut().isEmpty()) // desktops without a standard key for it
        action(Id::Preferences)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    connect(action(Id::Preferences), &QAction::triggered, this, &PreferencesDialog::showPreferences);
    // One updater window at a time: every window's item is off while one is open.
    UpdaterSession &updater = UpdaterSession::instance();
    connect(action(Id::UpdatePrices), &QAction::triggered, this, [this] { UpdaterSession::instance().showUpdater(this); });
    connect(&updater, &UpdaterSession::showingChanged, action(Id::UpdatePrices), &QAction::setDisabled);
    action(Id::UpdatePrices)->setDisabled(updater.isShowing());
    connect(action(Id::InstallTreasuryFile), &QAction::triggered, this,
            [this] { TreasuryFileInstall::chooseAndInstall(this); });

    DocumentManager &documents = DocumentManager::instance();
    connect(action(Id::New), &QAction::triggered, this, [] { DocumentManager::instance().newDocument(); });
    connect(action(Id::Open), &QAction::triggered, this, [this, &documents] { documents.openWithDialog(this); });
    connect(action(Id::Close), &QAction::triggered, this, &QWidget::close);
    connect(action(Id::Save), &QAction::triggered, this, &PortfolioWindow::save);
    connect(action(Id::SaveAs), &QAction::triggered, this, [this] { saveAs(); });
    connect(action(Id::Revert), &QAction::triggered, this, &PortfolioWindow::revertToSaved);
    connect(action(Id::Print), &QAction::triggered, this, &PortfolioWindow::print);
    connect(action(Id::Quit), &QAction::triggered, this, [] {
        if (DocumentManager::instance().closeAll())
            QApplication::quit();
    });
    connect(action(Id::Cut), &QAction::triggered, this, &PortfolioWindow::cut);
    connect(action(Id::Copy), &QAction::triggered, this, &PortfolioWindow::copy);
    connect(action(Id::Paste), &QAction::triggered, this, &PortfolioWindow::paste);
    connect(action(Id::Delete), &QAction::triggered, this, &PortfolioWindow::deleteSelection);
    connect(action(Id::AddBond), &QAction::triggered, this, &PortfolioWindow::addBond);
    connect(action(Id::RemoveBond), &QAction::triggered, this, &PortfolioWindow::removeSelectedBonds);
    action(Id::Redeem)->setIconText(tr("Redeem"));
    connect(action(Id::Redeem), &QAction::triggered, this, &PortfolioWindow::redeemSelectedBonds);
    connect(action(Id::TaxReport), &QAction::triggered, this, &PortfolioWindow::showTaxReport);
    connect(action(Id::ExportCsv), &QAction::triggered, this, &PortfolioWindow::exportCsv);
    connect(action(Id::ExportQif), &QAction::triggered, this, &PortfolioWindow::exportQif);
    connect(action(Id::ImportCsv), &QAction::triggered, this, &PortfolioWindow::importCsv);
    connect(action(Id::ImportCalculator), &QAction::triggered, this, &PortfolioWindow::importCalculatorList);
    connect(action(Id::ExportFinance), &QAction::triggered, this, &PortfolioWindow::exportForFinancePrograms);
    connect(action(Id::ValueChart), &QAction::triggered, this, &PortfolioWindow::showValueChart);
    action(Id::StoppedEarning)->setCheckable(true);
    connect(action(Id::StoppedEarning), &QAction::toggled, m_filterModel, &HoldingsFilterModel::setStoppedEarningOnly);
    connect(action(Id::PrintPreview), &QAction::triggered, this, &PortfolioWindow::printPreview);
    connect(action(Id::ExportPdf), &QAction::triggered, this, &PortfolioWindow::exportPdf);
    connect(action(Id::PrintInventory), &QAction::triggered, this, &PortfolioWindow::printInventory);
    connect(action(Id::ExportInventoryPdf), &QAction::triggered, this, [this] { exportInventoryPdf(); });
    connect(action(Id::AddPerson), &QAction::triggered, this, &PortfolioWindow::addPeople);
    if (action(Id::Help)->shortcut().isEmpty()) // desktops without a standard key for it
        action(Id::Help)->setShortcut(QKeySequence(Qt::Key_F1));
    connect(action(Id::Help), &QAction::triggered, this, [this] { HelpWindow::show(this); });
    connect(action(Id::About), &QAction::triggered, this, [this] {
        QMessageBox::about(this, tr("About Quillmere"),
                           tr("<h3>Quillmere %1</h3><p>Keeps track of a household's United States savings "
                              "bonds, valued from the Treasury's redemption values.</p>"
                              "<p>Free software under the GNU General Public License, version 3 or later: "
                              "you may share and change it; it comes with no warranty.</p>"
                              "<p>Redemption values and rates: the United States Department of the Treasury "
                              "(its savings bond value files and Fiscal Data service), public domain as works "
                              "of the United States government.</p>")
                               .arg(QApplication::applicationVersion()));
    });
    // What Delete acts on follows the focus: the people table, or else the bonds.
    connect(qApp, &QApplication::focusChanged, this, [this] { updateActions(); });
    connect(stack, &QUndoStack::cleanChanged, this, [this] { updateActions(); });
}

void PortfolioWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(action(Id::New));
    file->addAction(action(Id::Open));
    m_recentMenu = file->addMenu(tr("Open &Recent"));
    connect(m_recentMenu, &QMenu::aboutToShow, this, &PortfolioWindow::updateRecentMenu);
    file->addSeparator();
    file->addAction(action(Id::Close));
    file->addAction(action(Id::Save));
    file->addAction(action(Id::SaveAs));
    file->addAction(action(Id::Revert));
    file->addSeparator();
    QMenu *import = file->addMenu(tr("&Import"));
    import->addAction(action(Id::ImportCsv));
    import->addAction(action(Id::ImportCalculator));
    QMenu *exportMenu = file->addMenu(tr("&Export"));
    exportMenu->addAction(action(Id::ExportCsv));
    exportMenu->addAction(action(Id::ExportQif));
    exportMenu->addAction(action(Id::ExportFinance));
    file->addSeparator();
    file->addAction(action(Id::Print));
    file->addAction(action(Id::PrintPreview));
    file->addAction(action(Id::ExportPdf));
    file->addAction(action(Id::PrintInventory));
    file->addAction(action(Id::ExportInventoryPdf));
    file->addSeparator();
    file->addAction(action(Id::Quit));

    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    edit->addAction(action(Id::Undo));
    edit->addAction(action(Id::Redo));
    edit->addSeparator();
    edit->addAction(action(Id::Cut));
    edit->addAction(action(Id::Copy));
    edit->addAction(action(Id::Paste));
    edit->addAction(action(Id::Delete));
    edit->addSeparator();
    edit->addAction(action(Id::Preferences));

    // The same menu as the bond table's header offers.
    QMenu *view = menuBar()->addMenu(tr("&View"));
    m_columns->columnMenu()->setTitle(tr("&Columns"));
    view->addMenu(m_columns->columnMenu());
    view->addAction(action(Id::ValueChart));
    view->addAction(action(Id::StoppedEarning));

    QMenu *portfolio = menuBar()->addMenu(tr("&Portfolio"));
    portfolio->addAction(action(Id::AddBond));
    portfolio->addAction(action(Id::RemoveBond));
    portfolio->addAction(action(Id::Redeem));
    portfolio->addAction(action(Id::AddPerson));

    QMenu *reports = menuBar()->addMenu(tr("&Reports"));
    reports->addAction(action(Id::TaxReport));

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    tools->addAction(action(Id::UpdatePrices));
    tools->addAction(action(Id::InstallTreasuryFile));

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(action(Id::Help));
    help->addSeparator();
    help->addAction(action(Id::About));
}

void PortfolioWindow::updateRecentMenu()
{
    m_recentMenu->clear();
    const QStringList files = DocumentManager::instance().recentFiles();
    for (const QString &path : files) {
        QAction *item = m_recentMenu->addAction(QFileInfo(path).fileName());
        item->setToolTip(path);
        connect(item, &QAction::triggered, this, [this, path] { DocumentManager::instance().openFile(path, this); });
    }
    if (files.isEmpty())
        m_recentMenu->addAction(tr("No recent portfolios"))->setEnabled(false);
}

void PortfolioWindow::createToolbar()
{
    QToolBar *toolbar = addToolBar(tr("Toolbar"));
    toolbar->setObjectName(QString::fromLatin1(ToolbarName));
    toolbar->setMovable(false);
    toolbar->setFloatable(false);
    toolbar->toggleViewAction()->setEnabled(false);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolbar->setIconSize(QSize(32, 32));
    toolbar->addAction(action(Id::AddBond));
    toolbar->addAction(action(Id::RemoveBond));
    toolbar->addAction(action(Id::Redeem));
    toolbar->addSeparator();
    toolbar->addAction(action(Id::Print));
    auto space = [toolbar](bool flexible) {
        auto *gap = new QWidget(toolbar);
        if (flexible)
            gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        else
            gap->setFixedWidth(16);
        toolbar->addWidget(gap);
    };
    space(false);
    toolbar->addAction(action(Id::ExportCsv));
    toolbar->addAction(action(Id::ExportQif));
    toolbar->addAction(action(Id::ImportCsv));
    space(false);
    toolbar->addAction(action(Id::AddPerson));
    space(false);
    toolbar->addAction(action(Id::StoppedEarning));
    space(true);

    // The picker with its label under it, like the other items.
    auto *item = new QWidget(toolbar);
    item->setToolTip(tr("Date as of which values are calculated"));
    auto *layout = new QVBoxLayout(item);
    layout->setContentsMargins(0, 0, 4, 0);
    layout->setSpacing(2);
    m_picker = new ValuationMonthPicker(item);
    m_picker->setObjectName(QStringLiteral("Value As Of Date Toolbar Item Identifier"));
    m_picker->setToolTip(item->toolTip());
    m_picker->setFixedSize(80, 32);
    m_picker->followRange([portfolio = m_portfolio.get()] {
        return std::pair{portfolio->assessor().minimumRedemptionDate(), portfolio->assessor().maximumRedemptionDate()};
    });
    m_picker->showMonth(m_portfolio->valueOfDate());
    auto *label = new QLabel(tr("Value as of"), item);
    label->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_picker, 0, Qt::AlignHCenter);
    layout->addWidget(label);
    toolbar->addWidget(item);
    connect(m_picker, &ValuationMonthPicker::monthPicked, this, &PortfolioWindow::requestValueOfDate);
    // Values another process installed: the figures follow the range.
    connect(m_picker, &ValuationMonthPicker::rangeMoved, m_portfolio.get(), &BondPortfolio::redemptionValuesChanged);
    connect(m_portfolio.get(), &BondPortfolio::valueOfDateChanged, this,
            [this] { m_picker->showMonth(m_portfolio->valueOfDate()); });
}

void PortfolioWindow::updateActions()
{
    if (!m_bondTable || m_actions.isEmpty())
        return;
    // The held bonds' commands wait while the redeemed view is shown; Delete acts on what is shown.
    const bool redeemedShown = isShowingRedeemed();
    const bool bondsSelected = !redeemedShown && m_bondTable->selectionModel()->hasSelection();
    const bool redeemedSelected = redeemedShown && m_redeemedPanel->table()->selectionModel()->hasSelection();
    const bool peopleSelected = m_peopleTable->selectionModel()->hasSelection();
    const bool hasHoldings = !m_portfolio->holdings().isEmpty();
    const bool peopleFocused = m_peopleTable->hasFocus();
    action(Id::Cut)->setEnabled(bondsSelected && !peopleFocused);
    action(Id::Copy)->setEnabled(bondsSelected && !peopleFocused);
    action(Id::Delete)->setEnabled(peopleFocused ? peopleSelected : bondsSelected || redeemedSelected);
    action(Id::Redeem)->setEnabled(bondsSelected);
    action(Id::Paste)->setEnabled(true);
    action(Id::AddBond)->setEnabled(true);
    action(Id::RemoveBond)->setEnabled(bondsSelected);
    action(Id::ValueChart)->setEnabled(!redeemedShown && m_bondTable->selectionModel()->selectedRows().size() == 1);
    action(Id::Print)->setEnabled(hasHoldings);
    action(Id::PrintPreview)->setEnabled(hasHoldings);
    action(Id::ExportPdf)->setEnabled(hasHoldings);
    action(Id::PrintInventory)->setEnabled(hasHoldings);
    action(Id::ExportInventoryPdf)->setEnabled(hasHoldings);
    action(Id::ImportCsv)->setEnabled(true);
    action(Id::ExportCsv)->setEnabled(hasHoldings);
    action(Id::ExportQif)->setEnabled(hasHoldings);
    action(Id::ExportFinance)->setEnabled(hasHoldings);
    action(Id::AddPerson)->setEnabled(true);
    action(Id::Revert)->setEnabled(!m_portfolio->fileName().isEmpty() && m_portfolio->isEdited());
}
