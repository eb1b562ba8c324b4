// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PortfolioWindow.h"

#include "Alerts.h"
#include "BondTableColumns.h"
#include "BondTableView.h"
#include "ColorCircleDelegate.h"
#include "DocumentManager.h"
#include "ExchangePanels.h"
#include "HoldingColumns.h"
#include "HoldingDelegate.h"
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "InterestSummaryModel.h"
#include "MaturityNoticeBar.h"
#include "PeopleTableModel.h"
#include "RedeemedBondsPanel.h"
#include "TaxYearDialog.h"
#include "UpdateAvailableBar.h"
#include "UpdaterWindow.h"
#include "ValuationMonthPicker.h"
#include "document/BondPortfolio.h"
#include "document/SaveFailureReason.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QScreen>
#include <QSplitter>
#include <QUndoStack>
#include <QVBoxLayout>

PortfolioWindow::PortfolioWindow(BondPortfolio *portfolio, QWidget *parent)
    : QMainWindow(parent)
    , m_portfolio(portfolio)
    , m_panels(std::make_unique<ExchangePanels>())
{
    setObjectName(QStringLiteral("BondPortfolio"));
    m_holdingsModel = new HoldingsTableModel(portfolio, this);
    m_filterModel = new HoldingsFilterModel(portfolio, this);
    m_filterModel->setSourceModel(m_holdingsModel);
    m_peopleModel = new PeopleTableModel(portfolio, this);
    m_summaryModel = new InterestSummaryModel(portfolio, m_filterModel, this);

    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(createPeopleAndSummary());
    splitter->addWidget(createHeldAndRedeemed(createBondTable()));
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({330, 1050});
    auto *central = new QWidget(this);
    auto *centralLayout = new QVBoxLayout(central);
    centralLayout->setContentsMargins(0, 0, 0, 0);
    m_updateBar = new UpdateAvailableBar(central);
    connect(m_updateBar, &UpdateAvailableBar::updateRequested, this,
            [this] { UpdaterSession::instance().showUpdater(this); });
    centralLayout->addWidget(m_updateBar);
    m_maturityBar = new MaturityNoticeBar(*portfolio, central);
    // The notice is about the valuation month's year, so the report opens on it.
    connect(m_maturityBar, &MaturityNoticeBar::taxReportRequested, this,
            [this] { showTaxReport()->setYear(m_portfolio->valueOfMonth().year()); });
    centralLayout->addWidget(m_maturityBar);
    centralLayout->addWidget(splitter, 1);
    setCentralWidget(central);

    createActions();
    createMenus();
    createToolbar();

    connect(m_holdingsModel, &HoldingsTableModel::editRefused, this,
            [this](const QString &title, const QString &message) { Alerts::warn(this, title, message); });
    connect(portfolio, &BondPortfolio::editedChanged, this, &QWidget::setWindowModified);
    connect(portfolio, &BondPortfolio::fileNameChanged, this, &PortfolioWindow::updateTitle);
    connect(portfolio, &BondPortfolio::interestSummaryChanged, this, &PortfolioWindow::scheduleTotals);
    connect(m_filterModel, &HoldingsFilterModel::filterChanged, this, &PortfolioWindow::scheduleTotals);
    connect(portfolio, &BondPortfolio::holdingsReset, this, &PortfolioWindow::updateActions);
    connect(portfolio, &BondPortfolio::holdingInserted, this, &PortfolioWindow::updateActions);
    connect(portfolio, &BondPortfolio::holdingRemoved, this, &PortfolioWindow::updateActions);
    updateTitle();
    updateTotals();
    updateActions();
    // As large as the design wants, never larger than the screen it opens on.
    const QSize available = screen() ? screen()->availableSize() : QSize(1600, 1000);
    resize(std::min(1600, available.width()), std::min(1000, available.height()));
}

PortfolioWindow::~PortfolioWindow()
{
    // Nothing may reach the half-destroyed window (focus moves while its widgets go), and views
    // and models go before the document they watch.
    disconnect(qApp, nullptr, this, nullptr);
    m_actions.clear();
    m_bondTable = nullptr;
    m_redeemedPanel = nullptr;
    delete m_taxReport;
    m_taxReport = nullptr;
    delete centralWidget();
    // The models (and anything watching them) are the window's children, which would otherwise
    // outlive the document: its holdings, going, still announce changes to their people.
    delete m_summaryModel;
    delete m_filterModel;
    delete m_holdingsModel;
    delete m_peopleModel;
    m_summaryModel = nullptr;
    m_filterModel = nullptr;
    m_holdingsModel = nullptr;
    m_peopleModel = nullptr;
}

QWidget *PortfolioWindow::createPeopleAndSummary()
{
    auto *panel = new QWidget(this);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);

    m_peopleTable = new PeopleTableView(panel);
    m_peopleTable->setModel(m_peopleModel);
    m_peopleTable->verticalHeader()->setDefaultSectionSize(m_peopleTable->fontMetrics().height() + 8);
    m_peopleTable->setItemDelegateForColumn(PeopleTableModel::Owner, new ColorCircleDelegate(Qt::red, m_peopleTable));
    m_peopleTable->setItemDelegateForColumn(PeopleTableModel::CoOwner,
                                            new ColorCircleDelegate(QColor(0, 160, 0), m_peopleTable));
    m_peopleTable->setItemDelegateForColumn(PeopleTableModel::Beneficiary,
                                            new ColorCircleDelegate(QColor(128, 0, 160), m_peopleTable));
    m_peopleTable->horizontalHeader()->setSectionResizeMode(PeopleTableModel::Name, QHeaderView::Stretch);
    for (int column = PeopleTableModel::Owner; column < PeopleTableModel::Count; ++column)
        m_peopleTable->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    m_peopleTable->setToolTip(tr("Select people to show only their bonds. Drop bonds on a person to name "
                                 "the owner; hold Ctrl+Shift for the co-owner, Ctrl for the beneficiary."));
    connect(m_peopleTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PortfolioWindow::peopleSelectionChanged);
    connect(m_peopleTable, &PeopleTableView::bondsDropped, this, &PortfolioWindow::bondsDropped);

    auto *summaryTitle = new QLabel(tr("<b>Interest earned by tax year</b>"), panel);
    m_cumulative = new QRadioButton(tr("Cumulative"), panel);
    m_yearly = new QRadioButton(tr("Year by year"), panel);
    m_cumulative->setChecked(m_portfolio->summaryMode() == SummaryMode::Cumulative);
    m_yearly->setChecked(m_portfolio->summaryMode() == SummaryMode::Yearly);
    connect(m_cumulative, &QRadioButton::toggled, this,
            [this](bool on) { m_portfolio->setSummaryMode(on ? SummaryMode::Cumulative : SummaryMode::Yearly); });
    connect(m_portfolio.get(), &BondPortfolio::summaryModeChanged, this, [this] {
        (m_portfolio->summaryMode() == SummaryMode::Cumulative ? m_cumulative : m_yearly)->setChecked(true);
    });
    auto *modes = new QHBoxLayout;
    modes->addWidget(m_cumulative);
    modes->addWidget(m_yearly);
    modes->addStretch();

    m_summaryTable = new QTableView(panel);
    m_summaryTable->setModel(m_summaryModel);
    m_summaryTable->verticalHeader()->hide();
    m_summaryTable->verticalHeader()->setDefaultSectionSize(m_summaryTable->fontMetrics().height() + 6);
    m_summaryTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_summaryTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_summaryTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_summaryTable->setAlternatingRowColors(true);

    layout->addWidget(m_peopleTable, 3);
    layout->addWidget(summaryTitle);
    layout->addLayout(modes);
    layout->addWidget(m_summaryTable, 2);
    return panel;
}

QWidget *PortfolioWindow::createBondTable()
{
    auto *panel = new QWidget(this);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    m_bondTable = new BondTableView(panel);
    m_bondTable->setModel(m_filterModel);
    m_bondTable->setItemDelegate(new HoldingDelegate(m_portfolio.get(), m_bondTable));
    for (int column = 0; column < HoldingColumns::Count; ++column)
        m_bondTable->setColumnWidth(column, HoldingColumns::descriptor(column).width);
    m_bondTable->verticalHeader()->setDefaultSectionSize(m_bondTable->fontMetrics().height() + 8);
    m_bondTable->sortByColumn(-1, Qt::AscendingOrder);
    m_bondTable->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_bondTable, &QWidget::customContextMenuRequested, this, &PortfolioWindow::showBondContextMenu);
    connect(m_bondTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PortfolioWindow::updateActions);
    m_peopleTable->setBondSource(m_bondTable);
    m_columns = new BondTableColumns(m_bondTable);

    m_totals = new QLabel(panel);
    m_totals->setObjectName(QStringLiteral("totals"));
    m_totals->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_totals->setContentsMargins(4, 2, 4, 2);
    // Wraps rather than holding the window wider than a small screen, where the sums would be cut off.
    m_totals->setWordWrap(true);
    layout->addWidget(m_bondTable, 1);
    layout->addWidget(m_totals);
    return panel;
}

void PortfolioWindow::peopleSelectionChanged()
{
    m_filterModel->setSelectedPeople(selectedPeople());
    m_redeemedPanel->setSelectedPeople(selectedPeople());
    updateActions();
}

QList<PersonRef> PortfolioWindow::selectedPeople() const
{
    QList<PersonRef> people;
    for (const QModelIndex &index : m_peopleTable->selectionModel()->selectedRows())
        people << m_peopleModel->personAt(index.row());
    return people;
}

QList<HoldingRef> PortfolioWindow::selectedHoldings() const
{
    QModelIndexList rows = m_bondTable->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(), [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    QList<HoldingRef> holdings;
    for (const QModelIndex &index : std::as_const(rows))
        holdings << index.data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
    return holdings;
}

void PortfolioWindow::updateTitle()
{
    const QString path = m_portfolio->fileName();
    setWindowFilePath(path.isEmpty() ? m_portfolio->displayName() : path);
    setWindowModified(m_portfolio->isEdited());
}

bool PortfolioWindow::save()
{
    if (m_portfolio->fileName().isEmpty())
        return saveAs();
    if (!confirmSaveWithoutMissingPeople())
        return false;
    return saveTo(m_portfolio->fileName());
}

bool PortfolioWindow::saveAs(const QString &given)
{
    if (!confirmSaveWithoutMissingPeople())
        return false;
    QString path = given;
    if (path.isEmpty()) {
        const QString extension = QString::fromLatin1(PortfolioFile::Extension);
        const QString start = m_portfolio->fileName().isEmpty()
                                  ? m_portfolio->displayName() + QLatin1Char('.') + extension
                                  : m_portfolio->fileName();
        path = QFileDialog::getSaveFileName(this, tr("Save Portfolio"), start,
                                            tr("Savings bond portfolios (*.%1)").arg(extension));
        if (path.isEmpty())
            return false;
        if (QFileInfo(path).suffix().isEmpty())
            path += QLatin1Char('.') + extension;
    }
    if (!saveTo(path))
        return false;
    DocumentManager::instance().noteRecentFile(path);
    return true;
}

bool PortfolioWindow::saveTo(const QString &path)
{
    PortfolioSaveFailure failure;
    if (m_portfolio->saveToFile(path, &failure))
        return true;
    QString message = tr("Could not save the portfolio to %1: %2.")
                          .arg(QDir::toNativeSeparators(path), saveFailureReason(failure));
    if (QFileInfo::exists(path))
        message += QLatin1Char(' ') + tr("The file on disk is unchanged.");
    QApplication::beep();
    Alerts::warn(this, tr("The portfolio could not be saved"), message);
    return false;
}

void PortfolioWindow::revertToSaved()
{
    const QString path = m_portfolio->fileName();
    if (path.isEmpty() || !m_portfolio->isEdited())
        return;
    const auto answer = QMessageBox::question(
        this, tr("Revert to Saved"),
        tr("Do you want to revert to the most recently saved version of \"%1\"? Your current changes will be lost.")
            .arg(m_portfolio->displayName()),
        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer != QMessageBox::Yes)
        return;
    QString error;
    m_peopleTable->clearSelection();
    if (!m_portfolio->readFromFile(path, &error)) {
        Alerts::warn(this, tr("“%1” could not be opened").arg(QFileInfo(path).fileName()), error);
        return;
    }
    m_portfolio->markSaved();
}

bool PortfolioWindow::maybeSave()
{
    if (!m_portfolio->isEdited())
        return true;
    QMessageBox box(QMessageBox::Warning, tr("Save changes?"),
                    tr("Do you want to save the changes you made to \"%1\"?").arg(m_portfolio->displayName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Your changes will be lost if you don't save them."));
    box.button(QMessageBox::Discard)->setText(tr("Don't Save"));
    box.setDefaultButton(QMessageBox::Save);
    box.setWindowModality(Qt::WindowModal);
    switch (box.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void PortfolioWindow::closeEvent(QCloseEvent *event)
{
    if (maybeSave())
        event->accept();
    else
        event->ignore();
}
