// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PortfolioPrintLayout.h"

#include "document/HoldingPresentation.h"
#include "base/Money.h"
#include "base/Series.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>

// The resolution text layout takes tab positions in; it scales them to the paint device itself.
Q_GUI_EXPORT int qt_defaultDpiY();

namespace {

constexpr float Gap = 14.0f;

// The two header lines, each title after a tab; the first line's titles also size its columns.
const char *const Header1Titles[] = {QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Series"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Quantity"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Issue Date"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Face Value"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Issue Price"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Interest Earned"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Value")};
const char *const Header2Titles[] = {QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Serial Number"),
                                     QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Registration")};
// Sizes the first column instead of its title, so that the longest series label fits.
const char *const WidestSeries = QT_TRANSLATE_NOOP("PortfolioPrintLayout", "Savings Note");

QString text(const char *source)
{
    return QCoreApplication::translate("PortfolioPrintLayout", source);
}

template<std::size_t N>
QString headerLine(const char *const (&titles)[N])
{
    QString line;
    for (const char *title : titles)
        line += QLatin1Char('\t') + text(title);
    return line;
}

// An amount of nothing prints as nothing, so that empty figures stand out from small ones.
QString amountText(Pennies pennies)
{
    return pennies == 0 ? QString() : formatDollars(pennies);
}

QFont pointFont(QFont font, bool bold)
{
    font.setPointSizeF(10);
    font.setBold(bold);
    return font;
}

} // namespace

PortfolioPrintLayout::PortfolioPrintLayout(QList<HoldingRef> holdings, const ValuationContext &valuation,
                                           const QPageLayout &page)
    : m_holdings(std::move(holdings))
    , m_valuation(valuation)
    , m_bodyFont(pointFont(QFont(QStringLiteral("Helvetica")), false))
    , m_headerFont(pointFont(QFont(QStringLiteral("Helvetica")), true))
    , m_pageNumberFont(pointFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont), false))
{
    const QRectF paper = page.fullRect(QPageLayout::Point);
    const QMarginsF margins = page.margins(QPageLayout::Point);
    m_paperWidth = float(paper.width());
    m_paperHeight = float(paper.height());
    m_leftMargin = float(margins.left());
    m_topMargin = float(margins.top());
    m_bottomMargin = float(margins.bottom());
}

int PortfolioPrintLayout::holdingsPerPage() const
{
    const float bands = (m_paperHeight - 2.0f * m_topMargin) / BandHeight;
    return bands > 0.0f ? int(bands) : 0;
}

int PortfolioPrintLayout::pageCount() const
{
    const int perPage = holdingsPerPage();
    if (perPage == 0)
        return 0;
    const int count = int(m_holdings.size());
    return count / perPage + (count % perPage ? 1 : 0);
}

QRectF PortfolioPrintLayout::rectForHolding(int index) const
{
    const int row = index % holdingsPerPage();
    return QRectF(m_leftMargin, m_topMargin + float(row) * BandHeight, m_paperWidth - 2.0f * m_leftMargin,
                  BandHeight);
}

PortfolioPrintLayout::TabSet PortfolioPrintLayout::tabStops(const QPaintDevice &device) const
{
    const QFontMetricsF metrics(m_bodyFont, &device);
    auto width = [&](const QString &text) { return float(metrics.horizontalAdvance(text) / m_scale); };
    float w[7];
    w[0] = width(text(WidestSeries));
    for (int i = 1; i < 7; ++i)
        w[i] = width(text(Header1Titles[i]));
    const float decimals = width(QStringLiteral(".88"));
    // An amount wider than its title's span widens the column, so that no two amounts run into
    // each other; the titles move with their columns. Narrow amounts leave the designed stops.
    for (const HoldingRef &holding : m_holdings) {
        const HoldingFigures figures(m_valuation, holding->facts());
        const Pennies amounts[4] = {holding->faceValue(), holding->issuePrice(), figures.interestEarned(), figures.value()};
        for (int i = 3; i < 7; ++i)
            w[i] = std::max(w[i], width(amountText(amounts[i - 3])));
    }
    const double tabUnitsPerPoint = qt_defaultDpiY() / 72.0;
    auto tab = [tabUnitsPerPoint](float at, QTextOption::TabType type) {
        return QTextOption::Tab(at * tabUnitsPerPoint, type, type == QTextOption::DelimiterTab ? QChar('.') : QChar());
    };

    TabSet tabs;
    const float t1 = 0.0f + w[0] + Gap + (w[1] / 3.0f) + (w[1] / 3.0f);
    const float t2 = t1 + (w[1] / 3.0f) + Gap + w[2] * 0.5f;
    tabs.line1 << tab(t1, QTextOption::RightTab) << tab(t2, QTextOption::CenterTab);
    float right = t2 + w[2] * 0.5f + Gap;
    float decimalStops[4];
    for (int i = 3; i < 7; ++i) {
        right = right + w[i] + Gap;
        decimalStops[i - 3] = right - decimals;
        tabs.line1 << tab(decimalStops[i - 3], QTextOption::DelimiterTab);
    }
    tabs.line2 << tab(w[2] + w[1] + w[0] + 42.0f, QTextOption::LeftTab);
    float start = 0.0f;
    for (float titleWidth : w) {
        const float half = (titleWidth + Gap) * 0.5f;
        tabs.header1 << tab(start + half, QTextOption::CenterTab);
        start = start + half + half;
    }
    const float l3 = decimalStops[0];
    const float l6 = decimalStops[3];
    tabs.header2 << tab(l3 * 0.5f, QTextOption::CenterTab) << tab(l3 + (l6 - l3) * 0.5f, QTextOption::CenterTab);
    return tabs;
}

bool PortfolioPrintLayout::print(QPagedPaintDevice &device, int fromPage, int toPage) const
{
    const int pages = pageCount();
    if (holdingsPerPage() == 0)
        return false;
    // Everything is placed from the paper's corner, margins included.
    QPageLayout layout = device.pageLayout();
    layout.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(layout);
    m_scale = device.logicalDpiY() / 72.0;
    const int first = std::max(1, fromPage);
    const int last = toPage > 0 ? std::min(toPage, pages) : pages;
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const TabSet tabs = tabStops(device);
    for (int page = first; page <= last; ++page) {
        if (page > first)
            device.newPage();
        paintPage(painter, device, tabs, page);
    }
    painter.end();
    return true;
}

void PortfolioPrintLayout::paintPage(QPainter &painter, const QPaintDevice &device, const TabSet &tabs, int page) const
{
    const int perPage = holdingsPerPage();
    const int begin = (page - 1) * perPage;
    const int end = std::min(int(m_holdings.size()), begin + perPage);
    QPen pen = painter.pen();
    pen.setWidthF(m_scale); // one point
    painter.setPen(pen);
    for (int index = begin; index < end; ++index) {
        const Holding &holding = *m_holdings.at(index);
        const HoldingFigures figures(m_valuation, holding.facts());
        const QString date =
            holding.issueDate().isNull() ? QString() : HoldingPresentation::issueMonthText(holding.issueDate());
        const QString line1 = QStringLiteral("%1\t%2\t%3\t%4\t%5\t%6\t%7")
                                  .arg(holding.series()->label())
                                  .arg(holding.quantity())
                                  .arg(date, amountText(holding.faceValue()), amountText(holding.issuePrice()),
                                       amountText(figures.interestEarned()), amountText(figures.value()));
        const QString line2 = holding.serialNumber() + QLatin1Char('\t') + holding.registration();
        const QRectF band = rectForHolding(index);
        drawText(painter, device, line1, m_bodyFont, tabs.line1, band.topLeft());
        drawText(painter, device, line2, m_bodyFont, tabs.line2, band.topLeft() + QPointF(0, band.height() * 0.5));
        painter.drawLine(QPointF(band.left(), band.bottom()) * m_scale, QPointF(band.right(), band.bottom()) * m_scale);
    }

    const float lineHeight = float(QFontMetricsF(m_bodyFont, &device).height() / m_scale);
    drawText(painter, device, headerLine(Header1Titles), m_headerFont, tabs.header1, QPointF(m_leftMargin, m_topMargin - 2 * lineHeight));
    drawText(painter, device, headerLine(Header2Titles), m_headerFont, tabs.header2, QPointF(m_leftMargin, m_topMargin - lineHeight));

    const QString number = QStringLiteral("- %1 -").arg(page);
    const QFontMetricsF metrics(m_pageNumberFont, &device);
    const float numberWidth = float(metrics.horizontalAdvance(number) / m_scale);
    const float numberHeight = float(metrics.height() / m_scale);
    drawText(painter, device, number, m_pageNumberFont, {},
             QPointF((m_paperWidth - numberWidth) * 0.5f, m_paperHeight - (m_bottomMargin + numberHeight) * 0.5f));
}

void PortfolioPrintLayout::drawText(QPainter &painter, const QPaintDevice &device, const QString &text,
                                    const QFont &font, const QList<QTextOption::Tab> &tabs, QPointF topLeft) const
{
    QTextLayout layout(text, font, const_cast<QPaintDevice *>(&device));
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabs(tabs);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(m_paperWidth * m_scale);
    layout.endLayout();
    layout.draw(&painter, topLeft * m_scale);
}
