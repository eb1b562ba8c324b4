// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The household's inventory on paper: a title with the portfolio's name, the valuation month and
// the date printed; one table of every held bond, grouped by owner, each group with its subtotal,
// then the household's total; what the marks and notes mean under it. The column titles start
// every page, with the owner's name when a group goes on from the page before, and "Page 1 of 3"
// stands at the foot of every page. Landscape, so that every column has room on Letter and A4.
#include "document/InventoryReport.h"

#include <QCoreApplication>
#include <QDate>
#include <QPageLayout>
#include <QString>

class QPagedPaintDevice;

class InventoryPrint
{
    Q_DECLARE_TR_FUNCTIONS(InventoryPrint)
public:
    InventoryPrint(const InventoryReport &report, const QString &portfolioName, QDate printed)
        : m_report(report), m_portfolioName(portfolioName), m_printed(printed)
    {
    }

    // The paper's page in landscape, with the margins the inventory is laid out for.
    static QPageLayout pageLayout(const QPageSize &paper);
    // "Savings Bond Inventory: Family", the document's name in a print queue or a PDF's title.
    QString title() const;
    // Paints every page onto the device; false when it cannot be painted.
    bool print(QPagedPaintDevice &device) const;
    // Writes a PDF on the paper, replacing the file only once it is whole; false, with *error
    // saying why, when it could not be written.
    bool writePdf(const QString &path, const QPageSize &paper, QString *error) const;

private:
    const InventoryReport &m_report;
    QString m_portfolioName;
    QDate m_printed;
};
