#include "TaxYearPrint.h"

#include "TaxYearTable.h"
#include "document/TaxYearText.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>

namespace {

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

// Room under the text for the page number, in points.
constexpr qreal FooterHeight = 24;

} // namespace

namespace TaxYearPrint {

QString htmlOf(const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    QString html = QStringLiteral("<h2>%1</h2><p>%2<br>%3</p>")
                       .arg(escaped(QCoreApplication::translate("TaxYearPrint", "Savings Bond Interest for Tax Year %1").arg(report.year)),
                            escaped(QCoreApplication::translate("TaxYearPrint", "Portfolio: %1").arg(portfolioName)),
                            escaped(QCoreApplication::translate("TaxYearPrint", "Printed %1")
                                        .arg(QLocale().toString(printed, QLocale::LongFormat))));
    html += QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\" border=\"0.5\"><thead><tr>");
    const QStringList titles = TaxYearText::columnTitles();
    for (const QString &title : titles)
        html += QStringLiteral("<th align=\"left\" bgcolor=\"#e8e8e8\">%1</th>").arg(escaped(title));
    html += QStringLiteral("</tr></thead>");
    for (const TaxYearLine &line : TaxYearTable::linesOf(report)) {
        const bool total = line.kind != TaxYearLine::Kind::Item;
        const QString weight = total ? QStringLiteral(" style=\"font-weight:bold\"") : QString();
        const QString owner = line.firstOfOwner || line.kind == TaxYearLine::Kind::HouseholdTotal ? line.owner : QString();
        html += QStringLiteral("<tr%1><td>%2</td><td>%3</td><td>%4</td><td align=\"right\">%5</td><td>%6</td></tr>")
                    .arg(weight, escaped(owner), escaped(line.bonds), escaped(line.event), escaped(formatDollars(line.interest)),
                         escaped(line.note));
    }
    html += QStringLiteral("</table><p>%1</p>").arg(escaped(TaxYearText::stateTaxNote()));
    if (!report.nextYear.isEmpty()) {
        html += QStringLiteral("<h3>%1</h3><ul>").arg(escaped(TaxYearText::nextYearHeading(report)));
        for (const NextYearMaturity &maturity : report.nextYear)
            html += QStringLiteral("<li>%1: %2</li>")
                        .arg(escaped(TaxYearText::bondText(*maturity.holding)), escaped(TaxYearTable::nextYearText(maturity)));
        html += QStringLiteral("</ul>");
    }
    return html;
}

bool print(QPagedPaintDevice &device, const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    const qreal pixelsPerPoint = device.logicalDpiY() / 72.0;
    const QRectF paintRect = device.pageLayout().paintRectPixels(device.logicalDpiY());
    const qreal footer = FooterHeight * pixelsPerPoint;
    const QSizeF body(paintRect.width(), paintRect.height() - footer);
    if (body.height() <= footer)
        return false;

    QTextDocument document;
    document.documentLayout()->setPaintDevice(&device);
    QFont font = document.defaultFont();
    font.setPointSizeF(9.5);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.setPageSize(body);
    document.setHtml(htmlOf(report, portfolioName, printed));
    const int pages = document.pageCount();

    QPainter painter;
    if (!painter.begin(&device))
        return false;
    QFont footerFont = font;
    footerFont.setPointSizeF(8.5);
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            device.newPage();
        painter.save();
        painter.translate(0, -page * body.height());
        document.drawContents(&painter, QRectF(QPointF(0, page * body.height()), body));
        painter.restore();
        painter.setFont(footerFont);
        painter.drawText(QRectF(0, body.height(), body.width(), footer), Qt::AlignHCenter | Qt::AlignBottom,
                         QCoreApplication::translate("TaxYearPrint", "Page %1 of %2").arg(page + 1).arg(pages));
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
