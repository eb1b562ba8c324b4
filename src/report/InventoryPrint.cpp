// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "InventoryPrint.h"

#include "PagedHtml.h"

#include <QLocale>
#include <QPdfWriter>
#include <QSaveFile>

namespace {

using PagedHtml::Piece;
using HoldingPresentation::Remark;

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

// The table's columns: title, how cells sit, and the share of the width in percent. Sums,
// months and serial numbers are never broken over two lines: their columns grow to their widest
// cell when their share is too narrow, and the columns of words give up the room.
enum class Cell { Text, Unbroken, Sum };
struct Column
{
    const char *title;
    Cell cell;
    int percent = 0;
};
const Column Columns[] = {
    {QT_TRANSLATE_NOOP("InventoryPrint", "Series"), Cell::Text, 6},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Serial number"), Cell::Unbroken, 9},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Issued"), Cell::Unbroken, 6},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Qty"), Cell::Sum, 3},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Face value"), Cell::Sum, 7},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Issue price"), Cell::Sum, 7},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Interest"), Cell::Sum, 7},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Value"), Cell::Sum, 7},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Rate"), Cell::Text, 5},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Final maturity"), Cell::Unbroken, 6},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Next increase"), Cell::Unbroken, 6},
    {QT_TRANSLATE_NOOP("InventoryPrint", "People named"), Cell::Text, 13},
    {QT_TRANSLATE_NOOP("InventoryPrint", "Notes"), Cell::Text, 18},
};
constexpr int ColumnCount = int(std::size(Columns));

QString tableOpening()
{
    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"2\" border=\"0.5\"><tr>");
    for (const Column &column : Columns) {
        const QString width = column.percent > 0 ? QStringLiteral(" width=\"%1%\"").arg(column.percent) : QString();
        html += QStringLiteral("<th align=\"%1\" bgcolor=\"#e8e8e8\"%2>%3</th>")
                    .arg(column.cell == Cell::Sum ? QStringLiteral("right") : QStringLiteral("left"), width,
                         escaped(InventoryPrint::tr(column.title)));
    }
    return html + QStringLiteral("</tr>");
}

// One row of cells, escaped.
QString row(const QStringList &cells)
{
    QString html = QStringLiteral("<tr>");
    for (int column = 0; column < ColumnCount; ++column) {
        const QString cell = escaped(cells.value(column));
        switch (Columns[column].cell) {
        case Cell::Text: html += QStringLiteral("<td>%1</td>").arg(cell); break;
        case Cell::Unbroken: html += QStringLiteral("<td style=\"white-space:nowrap\">%1</td>").arg(cell); break;
        case Cell::Sum: html += QStringLiteral("<td align=\"right\" style=\"white-space:nowrap\">%1</td>").arg(cell); break;
        }
    }
    return html + QStringLiteral("</tr>");
}

// A row across the whole table: a group's heading.
QString wideRow(const QString &text)
{
    return QStringLiteral("<tr><td colspan=\"%1\" bgcolor=\"#f4f4f4\"><b>%2</b></td></tr>").arg(ColumnCount).arg(escaped(text));
}

QString ownerName(const InventoryGroup &group)
{
    return group.owner ? InventoryPrint::tr("Owner: %1").arg(group.owner->name()) : InventoryPrint::tr("No owner named");
}

// Everyone named on the bond: its registration, or the co-owner or beneficiary of a bond without owner.
QString peopleText(const Holding &holding)
{
    if (const QString registration = holding.registration(); !registration.isNull())
        return registration;
    QStringList names;
    for (const PersonRef &person : {holding.coOwner(), holding.beneficiary()}) {
        if (person)
            names << person->name();
    }
    return names.join(QStringLiteral(", "));
}

// The line's remarks as the window words them: why it has no value, or that the value is the
// program's; the Treasury's note; a quantity below 1. A remark the note already says is left out.
QString notesText(const InventoryLine &line)
{
    QStringList notes;
    const bool saidByNote = (line.remark == Remark::NotYetRedeemable && line.note == BondNote::NotRedeemable)
                            || (line.remark == Remark::NoPricingData && line.note == BondNote::NotIssued);
    if (!saidByNote) {
        switch (line.remark) {
        case Remark::NoPricingData: notes << InventoryPrint::tr("no pricing data"); break;
        case Remark::NotYetRedeemable: notes << InventoryPrint::tr("not yet redeemable"); break;
        case Remark::Computed: notes << InventoryPrint::tr("computed"); break;
        case Remark::None: break;
        }
    }
    if (const QString note = HoldingPresentation::noteText(line.note, line.noteUntil); !note.isEmpty())
        notes << note;
    if (line.holding->hasQuantityBelowOne())
        notes << InventoryPrint::tr("quantity below 1: counts as no bonds");
    return notes.join(QStringLiteral("; "));
}

QString lineRow(const InventoryLine &line)
{
    const Holding &holding = *line.holding;
    using namespace HoldingPresentation;
    const bool valued = line.remark != Remark::NoPricingData;
    return row({holding.series()->label() + (holding.isPaper() ? QString() : QStringLiteral("*")), holding.serialNumber(),
                issueMonthText(holding.issueDate()), QString::number(holding.quantity()), formatDollars(line.faceValue),
                formatDollars(line.issuePrice), valued ? formatDollars(line.interest) : QString(),
                valued ? formatDollars(line.value) : QString(), rateText(line.rate), monthText(line.finalMaturity),
                monthText(line.nextIncrease), peopleText(holding), notesText(line)});
}

// A total: its title across the columns before the quantity, then the sums under their columns.
QString totalRow(const QString &title, const HoldingTotals &totals)
{
    constexpr int TitleColumns = 3;
    QString html = QStringLiteral("<tr style=\"font-weight:bold\"><td colspan=\"%1\">%2</td>").arg(TitleColumns).arg(escaped(title));
    const QStringList sums{QString::number(totals.quantity), formatDollars(totals.faceValue), formatDollars(totals.issuePrice),
                           formatDollars(totals.interestEarned), formatDollars(totals.value)};
    for (const QString &sum : sums)
        html += QStringLiteral("<td align=\"right\" style=\"white-space:nowrap\">%1</td>").arg(escaped(sum));
    return html + QStringLiteral("<td colspan=\"%1\"></td></tr>").arg(ColumnCount - TitleColumns - int(sums.size()));
}

QString paragraph(const QString &text)
{
    return QStringLiteral("<p>%1</p>").arg(escaped(text));
}

QString notInTotals(qint64 bonds)
{
    // Two texts rather than "bond(s)": without a translation loaded Qt does not make English plurals.
    return bonds == 1 ? InventoryPrint::tr("1 bond without pricing data is not in these totals.")
                      : InventoryPrint::tr("%1 bonds without pricing data are not in these totals.").arg(bonds);
}

} // namespace

QPageLayout InventoryPrint::pageLayout(const QPageSize &paper)
{
    return QPageLayout(paper, QPageLayout::Landscape, QMarginsF(36, 36, 36, 30), QPageLayout::Point);
}

QString InventoryPrint::title() const
{
    return tr("Savings Bond Inventory: %1").arg(m_portfolioName);
}

bool InventoryPrint::print(QPagedPaintDevice &device) const
{
    const QString month = HoldingPresentation::monthText(m_report.valuationMonth);
    QList<Piece> pieces;
    pieces << Piece{QStringLiteral("<h2>%1</h2><p>%2<br>%3</p>")
                        .arg(escaped(title()), escaped(tr("Valued as of %1").arg(month)),
                             escaped(tr("Printed %1").arg(QLocale().toString(m_printed, QLocale::LongFormat)))),
                    {}, {}};
    const QString opening = tableOpening();
    for (const InventoryGroup &group : m_report.groups) {
        const QString owner = ownerName(group);
        const QString continued = wideRow(tr("%1 (continued)").arg(owner));
        // The heading goes with the group's first line, so that no page ends on a heading alone.
        for (const InventoryLine &line : group.lines) {
            const bool first = &line == &group.lines.constFirst();
            pieces << Piece{(first ? wideRow(owner) : QString()) + lineRow(line), opening, first ? QString() : continued};
        }
        pieces << Piece{totalRow(group.owner ? tr("Subtotal: %1").arg(group.owner->name()) : tr("Subtotal: no owner named"),
                                 group.subtotal),
                        opening, continued};
    }
    pieces << Piece{totalRow(tr("Household total"), m_report.householdTotal), opening, {}};

    QString notes = paragraph(tr("Face value and issue price are for all the bonds of a line; * marks electronic bonds."));
    if (m_report.householdTotal.withoutPricingData > 0)
        notes += paragraph(notInTotals(m_report.householdTotal.withoutPricingData));
    if (m_report.anyComputed())
        notes += paragraph(tr("computed: %1.").arg(HoldingPresentation::derivedValueNote()));
    pieces << Piece{QStringLiteral("<p>&nbsp;</p>") + notes, {}, {}};

    PagedHtml::Style style;
    style.fontPoints = 8;
    style.footerNote = tr("%1, valued as of %2").arg(title(), month);
    return PagedHtml::print(device, pieces, style);
}

bool InventoryPrint::writePdf(const QString &path, const QPageSize &paper, QString *error) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = file.errorString();
        return false;
    }
    {
        QPdfWriter writer(&file);
        writer.setPageLayout(pageLayout(paper));
        writer.setResolution(600);
        writer.setTitle(title());
        writer.setCreator(QCoreApplication::applicationName());
        if (!print(writer)) {
            *error = tr("the pages could not be painted");
            return false;
        }
    }
    if (!file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}
