// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The printed portfolio: two text lines per holding in a 40-point band, a bold two-line column
// header in the top margin of every page and "- n -" centred in the bottom margin. Geometry is
// worked out in points from the page's paper size and margins; painting scales to the device.
#include "model/Holding.h"
#include "valuation/HoldingFigures.h"

#include <QFont>
#include <QList>
#include <QPageLayout>
#include <QRectF>
#include <QTextOption>

class QPagedPaintDevice;
class QPaintDevice;
class QPainter;

class PortfolioPrintLayout
{
public:
    static constexpr float BandHeight = 40.0f;

    // Figures as of the context, which must outlive the layout.
    PortfolioPrintLayout(QList<HoldingRef> holdings, const ValuationContext &valuation, const QPageLayout &page);

    // Bands that fit between the top margin and a bottom margin as tall as the top one; 0 when
    // the page is too short, and then nothing may be printed.
    int holdingsPerPage() const;
    int pageCount() const;
    // The band of a holding on its page, in points from the paper's top-left corner.
    QRectF rectForHolding(int index) const;

    // Paints the pages (all when toPage is 0) onto the device with its own page layout. False,
    // with nothing painted, when no band fits on a page.
    bool print(QPagedPaintDevice &device, int fromPage = 1, int toPage = 0) const;

private:
    struct TabSet
    {
        QList<QTextOption::Tab> line1, line2, header1, header2;
    };
    TabSet tabStops(const QPaintDevice &device) const;
    void paintPage(QPainter &painter, const QPaintDevice &device, const TabSet &tabs, int page) const;
    void drawText(QPainter &painter, const QPaintDevice &device, const QString &text, const QFont &font,
                  const QList<QTextOption::Tab> &tabs, QPointF topLeft) const;

    QList<HoldingRef> m_holdings;
    ValuationContext m_valuation;
    float m_paperWidth;
    float m_paperHeight;
    float m_leftMargin;
    float m_topMargin;
    float m_bottomMargin;
    QFont m_bodyFont;
    QFont m_headerFont;
    QFont m_pageNumberFont;
    mutable double m_scale = 1.0; // device units per point while printing
};
