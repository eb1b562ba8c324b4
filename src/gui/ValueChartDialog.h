#pragma once
// A holding's redemption value month by month since its issue, up to the database's latest
// month, with the portfolio's valuation month marked.
#include "model/Holding.h"

#include <QDialog>

class BondPortfolio;
class QChart;

class ValueChartDialog : public QDialog
{
    Q_OBJECT
public:
    ValueChartDialog(const BondPortfolio &portfolio, HoldingRef holding, QWidget *parent = nullptr);

    QChart *chart() const { return m_chart; }
    // "$100 EE bond issued 01/1990, 2 bonds": the chart's and the window's title.
    static QString describe(const Holding &holding);

private:
    QChart *m_chart = nullptr;
};
