// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Cashing bonds from the window: the Held / Redeemed switch above the bond table, the redemption
// dialog, and the tax report.
#include "Alerts.h"
#include "BondTableView.h"
#include "PortfolioWindow.h"
#include "RedeemDialog.h"
#include "RedeemedBondsPanel.h"
#include "TaxYearDialog.h"
#include "document/BondPortfolio.h"

#include <QAction>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {
enum View { Held, Redeemed };
}

QWidget *PortfolioWindow::createHeldAndRedeemed(QWidget *held)
{
    auto *panel = new QWidget(this);
    auto *heldButton = new QRadioButton(tr("Held"), panel);
    auto *redeemedButton = new QRadioButton(tr("Redeemed"), panel);
    heldButton->setToolTip(tr("The bonds the household holds"));
    redeemedButton->setToolTip(tr("The bonds cashed, with what was received and the interest to report"));
    heldButton->setChecked(true);
    m_viewSwitch = new QButtonGroup(panel);
    m_viewSwitch->addButton(heldButton, Held);
    m_viewSwitch->addButton(redeemedButton, Redeemed);
    auto *switchRow = new QHBoxLayout;
    switchRow->setContentsMargins(4, 2, 4, 2);
    switchRow->addWidget(heldButton);
    switchRow->addWidget(redeemedButton);
    switchRow->addStretch();

    m_redeemedPanel = new RedeemedBondsPanel(m_portfolio.get(), panel);
    connect(m_redeemedPanel, &RedeemedBondsPanel::editRefused, this,
            [this](const QString &title, const QString &message) { Alerts::warn(this, title, message); });
    m_heldOrRedeemed = new QStackedWidget(panel);
    m_heldOrRedeemed->addWidget(held);
    m_heldOrRedeemed->addWidget(m_redeemedPanel);
    connect(m_viewSwitch, &QButtonGroup::idToggled, this, [this](int id, bool on) {
        if (on)
            m_heldOrRedeemed->setCurrentIndex(id);
        updateActions();
    });
    connect(m_redeemedPanel->table()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PortfolioWindow::updateActions);

    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(switchRow);
    layout->addWidget(m_heldOrRedeemed, 1);
    return panel;
}

bool PortfolioWindow::isShowingRedeemed() const
{
    return m_viewSwitch && m_viewSwitch->checkedId() == Redeemed;
}

void PortfolioWindow::showRedeemed(bool redeemed)
{
    m_viewSwitch->button(redeemed ? Redeemed : Held)->setChecked(true);
}

void PortfolioWindow::redeemSelectedBonds()
{
    const QList<HoldingRef> holdings = selectedHoldings();
    if (holdings.isEmpty() || isShowingRedeemed())
        return;
    auto *dialog = new RedeemDialog(*m_portfolio, holdings, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->open();
}

TaxYearDialog *PortfolioWindow::showTaxReport()
{
    if (!m_taxReport)
        m_taxReport = new TaxYearDialog(*m_portfolio, this);
    m_taxReport->show();
    m_taxReport->raise();
    m_taxReport->activateWindow();
    return m_taxReport;
}
