// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TaxYearPrint.h"

#include "TaxYearTable.h"
#include "document/TaxYearText.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>
#include <memory>

namespace {

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

// Room under the text for the page number, in points.
constexpr qreal FooterHeight = 24;

// One piece of a page: a paragraph, or a line of one of the report's two tables (whose opening,
// with its column titles, starts every page the table continues on).
struct Piece
{
    QString html;
    QString tableOpening; // empty for a paragraph
};

QString mainTableOpening()
{
    static const int widths[] = {19, 30, 27, 12, 12};
    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\" border=\"0.5\"><tr>");
    const QStringList titles = TaxYearText::columnTitles();
    for (qsizetype column = 0; column < titles.size(); ++column)
        html += QStringLiteral("<th align=\"left\" bgcolor=\"#e8e8e8\" width=\"%1%\">%2</th>").arg(widths[column]).arg(escaped(titles.at(column)));
    return html + QStringLiteral("</tr>");
}

QList<Piece> piecesOf(const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    QList<Piece> pieces;
    const QString title = QCoreApplication::translate("TaxYearPrint", "Savings Bond Interest for Tax Year %1").arg(report.year);
    pieces << Piece{QStringLiteral("<h2>%1</h2><p>%2<br>%3</p>")
                        .arg(escaped(title), escaped(QCoreApplication::translate("TaxYearPrint", "Portfolio: %1").arg(portfolioName)),
                             escaped(QCoreApplication::translate("TaxYearPrint", "Printed %1")
                                         .arg(QLocale().toString(printed, QLocale::LongFormat)))),
                    QString()};
    const QString opening = mainTableOpening();
    for (const TaxYearLine &line : TaxYearTable::linesOf(report)) {
        const QString weight = line.kind != TaxYearLine::Kind::Item ? QStringLiteral(" style=\"font-weight:bold\"") : QString();
        const QString owner = line.firstOfOwner || line.kind == TaxYearLine::Kind::HouseholdTotal ? line.owner : QString();
        pieces << Piece{QStringLiteral("<tr%1><td>%2</td><td>%3</td><td>%4</td><td align=\"right\" nowrap>%5</td><td>%6</td></tr>")
                            .arg(weight, escaped(owner), escaped(line.bonds), escaped(line.event),
                                 escaped(formatDollars(line.interest)), escaped(line.note)),
                        opening};
    }
    pieces << Piece{QStringLiteral("<p>&nbsp;</p><p>%1</p><p>&nbsp;</p>").arg(escaped(TaxYearText::stateTaxNote())), QString()};
    if (!report.nextYear.isEmpty()) {
        const QString plan = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\"><tr>"
                                            "<th align=\"left\" colspan=\"2\">%1</th></tr>")
                                 .arg(escaped(TaxYearText::nextYearHeading(report)));
        for (const NextYearMaturity &maturity : report.nextYear)
            pieces << Piece{QStringLiteral("<tr><td width=\"50%\">%1</td><td>%2</td></tr>")
                                .arg(escaped(TaxYearText::bondText(*maturity.holding)), escaped(TaxYearTable::nextYearText(maturity))),
                            plan};
    }
    return pieces;
}

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
        }
        html += piece.html;
    }
    return openTable.isEmpty() ? html : html + QStringLiteral("</table>");
}

std::unique_ptr<QTextDocument> layOut(const QString &html, QPaintDevice &device, qreal width)
{
    auto document = std::make_unique<QTextDocument>();
    document->documentLayout()->setPaintDevice(&device);
    QFont font = document->defaultFont();
    font.setPointSizeF(9.5);
    document->setDefaultFont(font);
    document->setDocumentMargin(0);
    document->setHtml(html);
    document->setTextWidth(width);
    return document;
}

} // namespace

namespace TaxYearPrint {

bool print(QPagedPaintDevice &device, const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    const qreal pixelsPerPoint = device.logicalDpiY() / 72.0;
    const QRectF paintRect = device.pageLayout().paintRectPixels(device.logicalDpiY());
    const qreal footer = FooterHeight * pixelsPerPoint;
    const QSizeF body(paintRect.width(), paintRect.height() - footer);

    // Each page takes the pieces that fit it, laid out as they will be printed.
    QList<QList<Piece>> pages{{}};
    for (const Piece &piece : piecesOf(report, portfolioName, printed)) {
        QList<Piece> tried = pages.last();
        tried << piece;
        if (!pages.last().isEmpty() && layOut(pageHtml(tried), device, body.width())->size().height() > body.height()) {
            pages << QList<Piece>{piece};
            if (layOut(pageHtml(pages.last()), device, body.width())->size().height() > body.height())
                return false;
        } else {
            pages.last() = tried;
        }
    }

    QPainter painter;
    if (!painter.begin(&device))
        return false;
    QFont footerFont = painter.font();
    footerFont.setPointSizeF(8.5);
    for (qsizetype page = 0; page < pages.size(); ++page) {
        if (page > 0)
            device.newPage();
        layOut(pageHtml(pages.at(page)), device, body.width())->drawContents(&painter, QRectF(QPointF(0, 0), body));
        painter.setFont(footerFont);
        painter.drawText(QRectF(0, body.height(), body.width(), footer), Qt::AlignHCenter | Qt::AlignBottom,
                         QCoreApplication::translate("TaxYearPrint", "Page %1 of %2").arg(page + 1).arg(pages.size()));
    }
    return painter.end();
}

bool writePdf(const QString &path, const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPageMargins(QMarginsF(54, 54, 54, 40), QPageLayout::Point);
    printer.setDocName(QCoreApplication::translate("TaxYearPrint", "Savings Bond Interest for Tax Year %1").arg(report.year));
    return print(printer, report, portfolioName, printed);
}

} // namespace TaxYearPrint
