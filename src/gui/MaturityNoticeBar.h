// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bar above a portfolio window's tables that warns when held bonds reach final maturity in
// the valuation month's year: how many stop earning, how much interest that year's return must
// carry, and a link to the tax report. Looks like the bar that offers new values; never modal.
#include <QFrame>

class BondPortfolio;
class QLabel;
class QToolButton;

class MaturityNoticeBar : public QFrame
{
    Q_OBJECT
public:
    explicit MaturityNoticeBar(BondPortfolio &portfolio, QWidget *parent = nullptr);

    QLabel *message() const { return m_message; }
    QToolButton *closeButton() const { return m_close; }
    // Reads the portfolio again now rather than on the next turn of the event loop.
    void follow();

signals:
    void taxReportRequested();

private:
    void scheduleFollow();

    BondPortfolio &m_portfolio;
    QLabel *m_message = nullptr;
    QToolButton *m_close = nullptr;
    bool m_pending = false;
    // Put away by the user for this year; a new year's maturities bring it back.
    int m_closedForYear = 0;
};
