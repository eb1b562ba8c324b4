// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/TaxYearText.h"

#include "base/Series.h"

#include <QCoreApplication>

namespace TaxYearText {

QString ownerText(const OwnerTaxYear &owner)
{
    if (!owner.owner)
        return QCoreApplication::translate("TaxYearText", "No owner");
    return owner.reportsYearly ? QCoreApplication::translate("TaxYearText", "%1 (reports interest every year)").arg(owner.owner->name())
                               : owner.owner->name();
}

QString itemText(const TaxYearItem &item)
{
    const QString month = item.month.toString(Month::Style::Slash);
    switch (item.kind) {
    case TaxYearItem::Kind::Redeemed:
        return QCoreApplication::translate("TaxYearText", "Redeemed %1").arg(month);
    case TaxYearItem::Kind::Matured:
        return QCoreApplication::translate("TaxYearText", "Final maturity %1, reportable even if not cashed").arg(month);
    case TaxYearItem::Kind::Accrued:
        return QCoreApplication::translate("TaxYearText", "Earned in %1").arg(item.month.year());
    }
    return {};
}

QString bondText(const Holding &holding)
{
    QString text = QCoreApplication::translate("TaxYearText", "%1, %2 × %3, issued %4")
                       .arg(holding.series()->bondsName())
                       .arg(holding.quantity())
                       .arg(formatDollars(holding.faceValue()), holding.issueDate().toString(Month::Style::Slash));
    if (!holding.serialNumber().isEmpty())
        text += QCoreApplication::translate("TaxYearText", ", serial %1").arg(holding.serialNumber());
    return text;
}

QString estimateNote(const TaxYearItem &item)
{
    return item.estimated ? QCoreApplication::translate("TaxYearText", "estimated from the latest month the database has") : QString();
}

QString stateTaxNote()
{
    return QCoreApplication::translate("TaxYearText", "Savings bond interest is exempt from state and local income tax.");
}

QString nextYearHeading(const TaxYearReport &report)
{
    const qsizetype count = report.nextYear.size();
    return count == 1 ? QCoreApplication::translate("TaxYearText", "Plan for next year: 1 holding reaches final maturity in %1").arg(report.year + 1)
                      : QCoreApplication::translate("TaxYearText", "Plan for next year: %1 holdings reach final maturity in %2")
                            .arg(count)
                            .arg(report.year + 1);
}

QStringList columnTitles()
{
    return {QCoreApplication::translate("TaxYearText", "Owner"), QCoreApplication::translate("TaxYearText", "Bonds"),
            QCoreApplication::translate("TaxYearText", "Event"), QCoreApplication::translate("TaxYearText", "Interest"),
            QCoreApplication::translate("TaxYearText", "Note")};
}

} // namespace TaxYearText
