// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TaxYearPrint.h"

#include "PagedHtml.h"
#include "TaxYearTable.h"
#include "document/TaxYearText.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPrinter>

namespace {

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

using PagedHtml::Piece;

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
                    {}, {}};
    const QString opening = mainTableOpening();
    for (const TaxYearLine &line : TaxYearTable::linesOf(report)) {
        const QString weight = line.kind != TaxYearLine::Kind::Item ? QStringLiteral(" style=\"font-weight:bold\"") : QString();
        const QString owner = line.firstOfOwner || line.kind == TaxYearLine::Kind::HouseholdTotal ? line.owner : QString();
        pieces << Piece{QStringLiteral("<tr%1><td>%2</td><td>%3</td><td>%4</td><td align=\"right\" nowrap>%5</td><td>%6</td></tr>")
                            .arg(weight, escaped(owner), escaped(line.bonds), escaped(line.event),
                                 escaped(formatDollars(line.interest)), escaped(line.note)),
                        opening, {}};
    }
    pieces << Piece{QStringLiteral("<p>&nbsp;</p><p>%1</p><p>&nbsp;</p>").arg(escaped(TaxYearText::stateTaxNote())), {}, {}};
    if (!report.nextYear.isEmpty()) {
        const QString plan = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\"><tr>"
                                            "<th align=\"left\" colspan=\"2\">%1</th></tr>")
                                 .arg(escaped(TaxYearText::nextYearHeading(report)));
        for (const NextYearMaturity &maturity : report.nextYear)
            pieces << Piece{QStringLiteral("<tr><td width=\"50%\">%1</td><td>%2</td></tr>")
                                .arg(escaped(TaxYearText::bondText(*maturity.holding)), escaped(TaxYearTable::nextYearText(maturity))),
                            plan, {}};
    }
    return pieces;
}

} // namespace

namespace TaxYearPrint {

bool print(QPagedPaintDevice &device, const TaxYearReport &report, const QString &portfolioName, QDate printed)
{
    return PagedHtml::print(device, piecesOf(report, portfolioName, printed));
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
