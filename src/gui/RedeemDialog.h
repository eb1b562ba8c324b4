// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Asks how the selected bonds were cashed: the month, how many of a holding's bonds, and what the
// bank paid. The month is checked as the document checks it, and OK stays off while it is refused.
// The amount follows the database's value until the user types one of their own.
#include "base/Money.h"
#include "base/Month.h"
#include "model/Holding.h"

#include <QDialog>

class BondPortfolio;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

class RedeemDialog : public QDialog
{
    Q_OBJECT
public:
    // The month starts at the portfolio's valuation month.
    RedeemDialog(BondPortfolio &portfolio, QList<HoldingRef> holdings, QWidget *parent = nullptr);

    Month month() const;
    void setMonth(Month month);
    // How many bonds of the one holding are cashed; each holding's whole quantity when several are.
    qint32 quantity() const;
    void setQuantity(qint32 quantity);
    // What was received for the one holding; each holding's own database value when several are.
    Pennies amount() const;
    void setAmountText(const QString &text);
    // Why the month is refused, or nothing.
    QString refusal() const;
    QPushButton *okButton() const;

    // Cashes the bonds as the dialog says, one undoable "Redeem"; false (nothing done) when refused.
    bool redeem();

private:
    void follow();
    void followAmount();

    BondPortfolio &m_portfolio;
    QList<HoldingRef> m_holdings;
    QLineEdit *m_month = nullptr;
    QSpinBox *m_quantity = nullptr;
    QLineEdit *m_amount = nullptr;
    QLabel *m_refusal = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    bool m_amountTyped = false;
};
