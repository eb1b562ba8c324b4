// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "RedeemDialog.h"

#include "TypedDollars.h"
#include "base/ValidationError.h"
#include "document/BondPortfolio.h"
#include "document/TaxYearText.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>


RedeemDialog::RedeemDialog(BondPortfolio &portfolio, QList<HoldingRef> holdings, QWidget *parent)
    : QDialog(parent)
    , m_portfolio(portfolio)
    , m_holdings(std::move(holdings))
{
    setWindowTitle(tr("Redeem Bonds"));
    const bool one = m_holdings.size() == 1;
    auto *what = new QLabel(one ? TaxYearText::bondText(*m_holdings.constFirst())
                                : tr("%1 holdings, all of their bonds").arg(m_holdings.size()),
                            this);
    what->setWordWrap(true);

    m_month = new QLineEdit(this);
    m_month->setPlaceholderText(tr("MM/YYYY"));
    m_month->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,2}/?\\d{0,4}")), m_month));
    m_quantity = new QSpinBox(this);
    m_quantity->setRange(1, one ? std::max(1, m_holdings.constFirst()->quantity()) : 1);
    m_quantity->setValue(m_quantity->maximum());
    m_quantity->setSuffix(one ? tr(" of %1").arg(m_holdings.constFirst()->quantity()) : QString());
    m_quantity->setEnabled(one && m_quantity->maximum() > 1);
    m_amount = new QLineEdit(this);
    m_amount->setAlignment(Qt::AlignRight);
    // Several holdings are each paid their own database value; only one can take a typed amount.
    m_amount->setReadOnly(!one);
    m_amount->setToolTip(tr("What the bank paid. It starts at the value in the database for the month."));
    m_refusal = new QLabel(this);
    m_refusal->setWordWrap(true);
    QPalette warning = m_refusal->palette();
    warning.setColor(QPalette::WindowText, QColor(0xb0, 0, 0));
    m_refusal->setPalette(warning);

    auto *form = new QFormLayout;
    form->addRow(tr("Redemption month:"), m_month);
    form->addRow(tr("Bonds redeemed:"), m_quantity);
    form->addRow(one ? tr("Amount received:") : tr("Amount received in all:"), m_amount);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Redeem"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(what);
    layout->addLayout(form);
    layout->addWidget(m_refusal);
    layout->addWidget(m_buttons);
    setMinimumWidth(420);

    connect(m_buttons, &QDialogButtonBox::accepted, this, [this] {
        if (redeem())
            accept();
    });
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_month, &QLineEdit::textChanged, this, &RedeemDialog::followAmount);
    connect(m_quantity, &QSpinBox::valueChanged, this, &RedeemDialog::followAmount);
    connect(m_amount, &QLineEdit::textEdited, this, [this] {
        m_amountTyped = true;
        follow();
    });
    setMonth(portfolio.valueOfMonth());
    followAmount();
}

Month RedeemDialog::month() const
{
    return Month::fromString(m_month->text(), Month::Form::Slash);
}

void RedeemDialog::setMonth(Month month)
{
    m_month->setText(month.toString(Month::Style::Slash));
}

qint32 RedeemDialog::quantity() const
{
    return m_quantity->value();
}

void RedeemDialog::setQuantity(qint32 quantity)
{
    m_quantity->setValue(quantity);
}

Pennies RedeemDialog::amount() const
{
    return typedDollars(m_amount->text());
}

void RedeemDialog::setAmountText(const QString &text)
{
    m_amount->setText(text);
    m_amountTyped = true;
    follow();
}

QString RedeemDialog::refusal() const
{
    return m_refusal->text();
}

QPushButton *RedeemDialog::okButton() const
{
    return m_buttons->button(QDialogButtonBox::Ok);
}

void RedeemDialog::followAmount()
{
    if (!m_amountTyped) {
        Pennies total = 0;
        for (const HoldingRef &holding : std::as_const(m_holdings))
            total += m_portfolio.redemptionValue(*holding, m_holdings.size() == 1 ? quantity() : holding->quantity(), month());
        m_amount->setText(plainDollars(total));
    }
    follow();
}

void RedeemDialog::follow()
{
    QString why = month().isNull() ? tr("Type the redemption month as MM/YYYY, such as 03/2021.") : QString();
    for (qsizetype i = 0; i < m_holdings.size() && why.isEmpty(); ++i) {
        ValidationError error;
        if (!m_portfolio.validateRedemption(*m_holdings.at(i), month(), &error))
            why = m_holdings.size() == 1 ? error.message
                                         : tr("Holding %1 of %2: %3").arg(i + 1).arg(m_holdings.size()).arg(error.message);
    }
    if (why.isEmpty() && amount() < 0)
        why = tr("Type the amount received in dollars, such as 1,234.56.");
    m_refusal->setText(why);
    m_refusal->setVisible(!why.isEmpty());
    okButton()->setEnabled(why.isEmpty() && !m_holdings.isEmpty());
}

bool RedeemDialog::redeem()
{
    follow();
    if (!okButton()->isEnabled())
        return false;
    UndoStep step(m_portfolio, UndoActionName::Redeem);
    bool done = true;
    for (const HoldingRef &holding : std::as_const(m_holdings)) {
        const bool one = m_holdings.size() == 1;
        const qint32 count = one ? quantity() : holding->quantity();
        const Pennies paid = one ? amount() : m_portfolio.redemptionValue(*holding, count, month());
        done = m_portfolio.redeem(holding, count, month(), paid) && done;
    }
    return done;
}
