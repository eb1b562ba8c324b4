// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TaxYearTable.h"

#include "TypedDollars.h"
#include "document/TaxYearText.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

// Quoted when it holds a comma, a quote or a line break, as spreadsheets read it.
QString csvField(const QString &text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) && !text.contains(QLatin1Char('\n')))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString csvLine(const QStringList &fields)
{
    QStringList written;
    for (const QString &field : fields)
        written << csvField(field);
    return written.join(QLatin1Char(',')) + QLatin1Char('\n');
}

} // namespace

namespace TaxYearTable {

QList<TaxYearLine> linesOf(const TaxYearReport &report)
{
    QList<TaxYearLine> lines;
    for (const OwnerTaxYear &owner : report.owners) {
        const QString name = TaxYearText::ownerText(owner);
        for (qsizetype i = 0; i < owner.items.size(); ++i) {
            const TaxYearItem &item = owner.items.at(i);
            lines << TaxYearLine{TaxYearLine::Kind::Item, i == 0, name, TaxYearText::bondText(*item.holding),
                                 TaxYearText::itemText(item), TaxYearText::estimateNote(item), item.interest};
        }
        lines << TaxYearLine{TaxYearLine::Kind::OwnerTotal, owner.items.isEmpty(), name, QString(),
                             owner.owner ? QCoreApplication::translate("TaxYearTable", "Total for %1").arg(owner.owner->name())
                                         : QCoreApplication::translate("TaxYearTable", "Total without an owner"),
                             QString(), owner.total()};
    }
    lines << TaxYearLine{TaxYearLine::Kind::HouseholdTotal, true, QCoreApplication::translate("TaxYearTable", "Household"), QString(),
                         QCoreApplication::translate("TaxYearTable", "Total for %1").arg(report.year), QString(), report.householdTotal()};
    return lines;
}

QString nextYearText(const NextYearMaturity &maturity)
{
    return QCoreApplication::translate("TaxYearTable", "Final maturity %1, interest so far %2")
        .arg(maturity.finalMaturity.toString(Month::Style::Slash), formatDollars(maturity.interestSoFar));
}

QByteArray csvOf(const TaxYearReport &report)
{
    QString text = csvLine(TaxYearText::columnTitles());
    for (const TaxYearLine &line : linesOf(report))
        text += csvLine({line.owner, line.bonds, line.event, plainDollars(line.interest), line.note});
    if (!report.nextYear.isEmpty()) {
        text += QLatin1Char('\n') + csvLine({TaxYearText::nextYearHeading(report)});
        for (const NextYearMaturity &maturity : report.nextYear)
            text += csvLine({QString(), TaxYearText::bondText(*maturity.holding), nextYearText(maturity),
                             plainDollars(maturity.interestSoFar), QString()});
    }
    text += QLatin1Char('\n') + csvLine({TaxYearText::stateTaxNote()});
    return text.toUtf8();
}

} // namespace TaxYearTable
