// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaturityNoticeBar.h"

#include "NoticeBarLook.h"

#include "base/Series.h"
#include "document/BondPortfolio.h"
#include "document/TaxYearReport.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

MaturityNoticeBar::MaturityNoticeBar(BondPortfolio &portfolio, QWidget *parent)
    : QFrame(parent)
    , m_portfolio(portfolio)
{
    setObjectName(QStringLiteral("MaturityNoticeBar"));
    const NoticeBarLook::Parts parts = NoticeBarLook::apply(this);
    m_message = parts.message;
    m_message->setTextFormat(Qt::RichText);
    m_close = parts.close;

    connect(m_message, &QLabel::linkActivated, this, &MaturityNoticeBar::taxReportRequested);
    connect(m_close, &QToolButton::clicked, this, [this] {
        m_closedForYear = m_portfolio.valueOfMonth().year();
        hide();
    });
    for (auto signal : {&BondPortfolio::holdingsReset, &BondPortfolio::redeemedReset, &BondPortfolio::figuresChanged,
                        &BondPortfolio::yearlyInterestReportersChanged, &BondPortfolio::valueOfDateChanged})
        connect(&portfolio, signal, this, &MaturityNoticeBar::scheduleFollow);
    for (auto signal : {&BondPortfolio::holdingInserted, &BondPortfolio::holdingRemoved, &BondPortfolio::redeemedInserted,
                        &BondPortfolio::redeemedRemoved})
        connect(&portfolio, signal, this, &MaturityNoticeBar::scheduleFollow);
    connect(&portfolio, &BondPortfolio::holdingChanged, this, &MaturityNoticeBar::scheduleFollow);
    follow();
}

void MaturityNoticeBar::scheduleFollow()
{
    if (m_pending)
        return;
    m_pending = true;
    QTimer::singleShot(0, this, &MaturityNoticeBar::follow);
}

void MaturityNoticeBar::follow()
{
    m_pending = false;
    const int year = m_portfolio.valueOfMonth().year();
    qint64 bonds = 0;
    for (const HoldingRef &holding : m_portfolio.holdings()) {
        if (!holding->issueDate().isNull() && holding->series()->finalMaturity(holding->issueDate()).year() == year)
            bonds += holding->countedQuantity();
    }
    if (bonds == 0 || year == 0 || year == m_closedForYear) {
        hide();
        return;
    }
    // What becomes reportable is what the report counts as matured: a yearly reporter's bonds
    // were reported as they earned.
    Pennies reportable = 0;
    const TaxYearReport report = TaxYearReport::of(m_portfolio.data(), m_portfolio.assessor(), year);
    for (const OwnerTaxYear &owner : report.owners)
        reportable += owner.interest(TaxYearItem::Kind::Matured);
    const QString sentence =
        bonds == 1 ? tr("1 bond reaches final maturity in %1 and stops earning interest; %2 of interest becomes reportable "
                        "for %1, even if not cashed.")
                         .arg(year)
                         .arg(formatDollars(reportable))
                   : tr("%1 bonds reach final maturity in %2 and stop earning interest; %3 of interest becomes reportable "
                        "for %2, even if not cashed.")
                         .arg(bonds)
                         .arg(year)
                         .arg(formatDollars(reportable));
    m_message->setText(sentence.toHtmlEscaped() + QStringLiteral(" <a href=\"tax\">%1</a>").arg(tr("Show the tax report…")));
    show();
}
