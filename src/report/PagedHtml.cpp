// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PagedHtml.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <memory>

namespace PagedHtml {

namespace {

// Room under the text for the page number, in points.
constexpr qreal FooterHeight = 24;
constexpr qreal FooterPoints = 8.5;

// The pieces as one page's HTML, each table opened where its first line on the page is.
QString pageHtml(const QList<Piece> &pieces)
{
    QString html, openTable;
    for (const Piece &piece : pieces) {
        if (piece.tableOpening != openTable) {
            if (!openTable.isEmpty())
                html += QStringLiteral("</table>");
            html += piece.tableOpening;
            openTable = piece.tableOpening;
            if (&piece == &pieces.constFirst())
                html += piece.carried;
        }
        html += piece.html;
    }
    return openTable.isEmpty() ? html : html + QStringLiteral("</table>");
}

std::unique_ptr<QTextDocument> layOut(const QString &html, QPaintDevice &device, qreal width, qreal points)
{
    auto document = std::make_unique<QTextDocument>();
    document->documentLayout()->setPaintDevice(&device);
    QFont font = document->defaultFont();
    font.setPointSizeF(points);
    document->setDefaultFont(font);
    document->setDocumentMargin(0);
    document->setHtml(html);
    document->setTextWidth(width);
    return document;
}

} // namespace

bool print(QPagedPaintDevice &device, const QList<Piece> &pieces, const Style &style)
{
    const qreal pixelsPerPoint = device.logicalDpiY() / 72.0;
    const QRectF paintRect = device.pageLayout().paintRectPixels(device.logicalDpiY());
    const qreal footer = FooterHeight * pixelsPerPoint;
    const QSizeF body(paintRect.width(), paintRect.height() - footer);
    auto height = [&](const QList<Piece> &page) { return layOut(pageHtml(page), device, body.width(), style.fontPoints)->size().height(); };

    // Each page takes the pieces that fit it, laid out as they will be printed.
    QList<QList<Piece>> pages{{}};
    for (const Piece &piece : pieces) {
        QList<Piece> tried = pages.last();
        tried << piece;
        if (!pages.last().isEmpty() && height(tried) > body.height()) {
            pages << QList<Piece>{piece};
            if (height(pages.last()) > body.height())
                return false;
        } else {
            pages.last() = tried;
        }
    }

    QPainter painter;
    if (!painter.begin(&device))
        return false;
    QFont footerFont = painter.font();
    footerFont.setPointSizeF(FooterPoints);
    for (qsizetype page = 0; page < pages.size(); ++page) {
        if (page > 0)
            device.newPage();
        layOut(pageHtml(pages.at(page)), device, body.width(), style.fontPoints)->drawContents(&painter, QRectF(QPointF(0, 0), body));
        painter.setFont(footerFont);
        const QRectF foot(0, body.height(), body.width(), footer);
        // The page number in the middle, or at the right when a note takes the left.
        const Qt::Alignment numberAlignment = style.footerNote.isEmpty() ? Qt::AlignHCenter : Qt::AlignRight;
        const QString number = QCoreApplication::translate("PagedHtml", "Page %1 of %2").arg(page + 1).arg(pages.size());
        painter.drawText(foot, numberAlignment | Qt::AlignBottom, number);
        if (!style.footerNote.isEmpty()) {
            const qreal room = foot.width() - painter.fontMetrics().horizontalAdvance(number) * 2;
            painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                             painter.fontMetrics().elidedText(style.footerNote, Qt::ElideRight, int(room)));
        }
    }
    return painter.end();
}

} // namespace PagedHtml
