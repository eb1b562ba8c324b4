// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A holding's redemption value month by month since its issue, up to the database's latest
// month and dashed beyond it as far as the program computed ahead, with the portfolio's valuation
// month marked and lines at the end of the early-cashing penalty and at final maturity.
#include "model/Holding.h"

#include <QDialog>

class BondPortfolio;
class QChart;
class QGraphicsSimpleTextItem;
class QLineSeries;

class ValueChartDialog : public QDialog
{
    Q_OBJECT
public:
    ValueChartDialog(const BondPortfolio &portfolio, HoldingRef holding, QWidget *parent = nullptr);

    QChart *chart() const { return m_chart; }
    // "$100 EE bond issued 01/1990, 2 bonds": the chart's and the window's title.
    static QString describe(const Holding &holding);

private:
    // A vertical line at the month, labelled, when the month lies within [first, last].
    void addMarker(Month month, const QString &label, int first, int last, qreal height);
    void placeMarkerLabels();

    QChart *m_chart = nullptr;
    QList<std::pair<QLineSeries *, QGraphicsSimpleTextItem *>> m_markerLabels;
};
