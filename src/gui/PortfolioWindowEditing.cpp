// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// What the window's commands do: bonds added, removed, cut, copied and pasted; people named on
// bonds and removed; the valuation month; the totals line. A command on several items is one
// undo step, named as the document names each of its changes.
#include "Alerts.h"
#include "BondClipboard.h"
#include "BondTableView.h"
#include "HoldingExplanations.h"
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "PeoplePickerDialog.h"
#include "PeopleTableModel.h"
#include "PortfolioWindow.h"
#include "RedeemedBondsPanel.h"
#include "model/EntryRules.h"
#include "ValuationMonthPicker.h"
#include "ValueChartDialog.h"
#include "document/BondPortfolio.h"
#include "document/HoldingPresentation.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

void PortfolioWindow::addBond()
{
    const HoldingRef holding = m_portfolio->addNewHolding(int(m_portfolio->holdings().size()));
    m_filterModel->keepShown(holding);
    const QModelIndex source = m_holdingsModel->index(m_portfolio->indexOfHolding(holding.get()), 0);
    const QModelIndex shown = m_filterModel->mapFromSource(source);
    if (!shown.isValid())
        return;
    m_bondTable->setFocus();
    m_bondTable->selectionModel()->setCurrentIndex(
        shown, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_bondTable->scrollTo(shown);
}

void PortfolioWindow::copy()
{
    if (QMimeData *data = BondClipboard::mimeDataFor(selectedHoldings()))
        QApplication::clipboard()->setMimeData(data);
}

void PortfolioWindow::cut()
{
    const QList<HoldingRef> holdings = selectedHoldings();
    if (holdings.isEmpty())
        return;
    copy();
    removeSelectedBonds();
}

void PortfolioWindow::paste()
{
    const QList<HoldingRef> holdings =
        BondClipboard::holdingsFrom(QApplication::clipboard()->mimeData(), m_portfolio->peopleStore());
    // The pasted bonds join the portfolio (taking their people) as one "Insert Holding"; a bond
    // that no one could have entered stays out, and the user is told which and why.
    QStringList refused;
    {
        UndoStep step(*m_portfolio, UndoActionName::InsertHolding);
        for (qsizetype i = 0; i < holdings.size(); ++i) {
            const HoldingRef &holding = holdings.at(i);
            if (const EntryRefusal refusal = EntryRules::check(*holding); refusal != EntryRefusal::None) {
                refused << tr("Bond %1 of %2: %3").arg(i + 1).arg(holdings.size())
                                .arg(EntryRules::describe(refusal, holding->series()));
                continue;
            }
            m_portfolio->adopt(*holding);
            m_portfolio->appendHolding(holding);
        }
    }
    if (!refused.isEmpty())
        Alerts::warn(this, tr("%n pasted bond(s) not added", nullptr, int(refused.size())), refused.join(QLatin1Char('\n')));
}

void PortfolioWindow::deleteSelection()
{
    if (m_peopleTable->hasFocus())
        deleteSelectedPeople();
    else if (isShowingRedeemed())
        m_redeemedPanel->deleteSelected();
    else
        removeSelectedBonds();
}

void PortfolioWindow::removeSelectedBonds()
{
    // The holdings first: every removal reshapes the rows shown.
    const QList<HoldingRef> holdings = selectedHoldings();
    UndoStep step(*m_portfolio, UndoActionName::DeleteHolding);
    for (const HoldingRef &holding : holdings)
        m_portfolio->removeHoldingAt(m_portfolio->indexOfHolding(holding.get()));
}

void PortfolioWindow::deleteSelectedPeople()
{
    const QList<PersonRef> people = selectedPeople();
    UndoStep step(*m_portfolio, UndoActionName::EditPeople);
    for (const PersonRef &person : people)
        m_portfolio->deleteTitleHolderFromAllBonds(person);
}

void PortfolioWindow::nameBonds(const QList<HoldingRef> &holdings, const PersonRef &person,
                                PeopleTableView::Role role)
{
    if (!person)
        return;
    UndoStep step(*m_portfolio, UndoActionName::Edit);
    for (const HoldingRef &holding : holdings) {
        switch (role) {
        case PeopleTableView::Role::Owner:
            holding->setOwner(person);
            break;
        case PeopleTableView::Role::CoOwner:
            holding->setCoOwner(person);
            break;
        case PeopleTableView::Role::Beneficiary:
            holding->setBeneficiary(person);
            break;
        }
    }
}

void PortfolioWindow::bondsDropped(const QList<int> &rows, int personRow, PeopleTableView::Role role)
{
    // Rows are read as they were when the drag began; ones gone since are skipped.
    QList<HoldingRef> holdings;
    for (int row : rows) {
        const QModelIndex index = m_filterModel->index(row, 0);
        if (index.isValid())
            holdings << index.data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
    }
    nameBonds(holdings, m_peopleModel->personAt(personRow), role);
}

void PortfolioWindow::showBondContextMenu(const QPoint &position)
{
    QMenu menu(this);
    const QList<HoldingRef> holdings = selectedHoldings();
    const struct
    {
        const char *title;
        PeopleTableView::Role role;
    } roles[] = {{QT_TR_NOOP("Name as Owner"), PeopleTableView::Role::Owner},
                 {QT_TR_NOOP("Name as Co-owner"), PeopleTableView::Role::CoOwner},
                 {QT_TR_NOOP("Name as Beneficiary"), PeopleTableView::Role::Beneficiary}};
    for (const auto &entry : roles) {
        QMenu *people = menu.addMenu(tr(entry.title));
        people->setEnabled(!holdings.isEmpty() && !m_portfolio->titleHolders().isEmpty());
        for (const PersonRef &person : m_portfolio->titleHolders()) {
            connect(people->addAction(person->name()), &QAction::triggered, this,
                    [this, holdings, person, role = entry.role] { nameBonds(holdings, person, role); });
        }
    }
    menu.addSeparator();
    menu.addAction(action(ActionId::ValueChart));
    menu.addAction(action(ActionId::Redeem));
    menu.addSeparator();
    for (ActionId id : {ActionId::Cut, ActionId::Copy, ActionId::Paste, ActionId::RemoveBond, ActionId::AddBond})
        menu.addAction(action(id));
    menu.exec(m_bondTable->viewport()->mapToGlobal(position));
}

bool PortfolioWindow::requestValueOfDate(const QDateTime &month)
{
    ValidationError refusal;
    if (!m_portfolio->validateValueOfDate(month, &refusal)) {
        m_picker->showMonth(m_portfolio->valueOfDate());
        Alerts::warn(this, tr("Invalid valuation date"), refusal.message);
        return false;
    }
    return m_portfolio->setValueOfDate(month);
}

void PortfolioWindow::addPeople()
{
    auto *picker = new PeoplePickerDialog(*m_portfolio, this);
    picker->setAttribute(Qt::WA_DeleteOnClose);
    picker->setWindowModality(Qt::WindowModal);
    picker->open();
}

void PortfolioWindow::showValueChart()
{
    const QList<HoldingRef> holdings = selectedHoldings();
    if (holdings.size() != 1)
        return;
    auto *chart = new ValueChartDialog(*m_portfolio, holdings.constFirst(), this);
    chart->show();
}

void PortfolioWindow::scheduleTotals()
{
    if (m_totalsPending)
        return;
    m_totalsPending = true;
    QTimer::singleShot(0, this, &PortfolioWindow::updateTotals);
}

void PortfolioWindow::updateTotals()
{
    m_totalsPending = false;
    const QList<HoldingRef> shown = m_filterModel->shownHoldings();
    const HoldingTotals totals = HoldingTotals::of(m_portfolio->valuationContext(), shown);
    QString text = tr("Total of %n bond(s) shown: face value %1 · issue price %2 · interest %3 · value %4", nullptr,
                      int(totals.quantity))
                       .arg(formatDollars(totals.faceValue), formatDollars(totals.issuePrice),
                            formatDollars(totals.interestEarned), formatDollars(totals.value));
    // On a line of its own, so that a narrow window need not clip the sums to fit it.
    if (const QString left = HoldingExplanations::notInTotals(totals.withoutPricingData); !left.isEmpty())
        text += u'\n' + left;
    if (const QString stopped = HoldingPresentation::stoppedEarningText(totals.stoppedEarning, totals.stoppedEarningValue);
        !stopped.isEmpty())
        text += u'\n' + stopped;
    m_totals->setText(text);
}

QString PortfolioWindow::totalsText() const
{
    return m_totals->text();
}
