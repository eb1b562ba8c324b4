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

private:
    QChart *m_chart = nullptr;
};
