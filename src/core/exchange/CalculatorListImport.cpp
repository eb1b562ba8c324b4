// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/CalculatorListImport.h"

#include "base/Series.h"
#include "document/BondPortfolio.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>

namespace CalculatorListImport {

namespace {

// The few character references a form field's value can carry.
QString decodedEntities(QString text)
{
    static const QRegularExpression numeric(QStringLiteral("&#(x?)([0-9A-Fa-f]+);"));
    QRegularExpressionMatch match;
    qsizetype from = 0;
    while ((match = numeric.match(text, from)).hasMatch()) {
        bool ok = false;
        const uint code = match.captured(2).toUInt(&ok, match.captured(1).isEmpty() ? 10 : 16);
        const QString replacement = ok && code > 0 && code < 0x110000 ? QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1)
                                                                      : QString();
        text.replace(match.capturedStart(), match.capturedLength(), replacement);
        from = match.capturedStart() + replacement.size();
    }
    return text.replace(QLatin1String("&quot;"), QLatin1String("\"")).replace(QLatin1String("&#39;"), QLatin1String("'"))
        .replace(QLatin1String("&lt;"), QLatin1String("<")).replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

// name -> value of every <input> with both, wherever it stands in the page.
QHash<QString, QString> formFields(const QString &page)
{
    static const QRegularExpression input(QStringLiteral("<input\\b([^>]*)>"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression attribute(QStringLiteral("([A-Za-z-]+)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s\"'>]+))"));
    QHash<QString, QString> fields;
    for (auto tag = input.globalMatch(page); tag.hasNext();) {
        QString name, value;
        bool hasValue = false;
        for (auto pair = attribute.globalMatch(tag.next().captured(1)); pair.hasNext();) {
            const QRegularExpressionMatch a = pair.next();
            const QString text = a.captured(2) + a.captured(3) + a.captured(4);
            if (a.captured(1).compare(QLatin1String("name"), Qt::CaseInsensitive) == 0)
                name = text;
            else if (a.captured(1).compare(QLatin1String("value"), Qt::CaseInsensitive) == 0)
                value = decodedEntities(text), hasValue = true;
        }
        if (!name.isEmpty() && hasValue)
            fields.insert(name, value);
    }
    return fields;
}

// "EE;I;" as {"EE", "I"}: every value is followed by ";".
QStringList listOf(const QString &field)
{
    QStringList values = field.split(QLatin1Char(';'));
    if (!values.isEmpty() && values.last().trimmed().isEmpty())
        values.removeLast();
    return values;
}

const Series *seriesOf(const QString &code)
{
    static const QHash<QString, QString> codes{{QStringLiteral("E"), QStringLiteral("E")}, {QStringLiteral("EE"), QStringLiteral("N")},
                                               {QStringLiteral("I"), QStringLiteral("I")}, {QStringLiteral("SN"), QStringLiteral("S")}};
    return Series::seriesForCode(codes.value(code.trimmed().toUpper()));
}

// "500", "500.00" or "$1,000.00" in pennies; -1 for anything else.
Pennies amountOf(QString text)
{
    text = text.trimmed().remove(QLatin1Char('$')).remove(QLatin1Char(','));
    static const QRegularExpression amount(QStringLiteral("^(\\d{1,7})(?:\\.(\\d{1,2}))?$"));
    const QRegularExpressionMatch match = amount.match(text);
    if (!match.hasMatch())
        return -1;
    return match.captured(1).toLongLong() * 100 + match.captured(2).leftJustified(2, QLatin1Char('0')).toInt();
}

} // namespace

Month monthOfNumber(int number)
{
    return Month::fromIndex(number + 1941 * 12 + 3);
}

Page read(const QByteArray &html)
{
    Page page;
    const QHash<QString, QString> fields = formFields(QString::fromUtf8(html));
    for (const char *needed : {"SeriesList", "IssueDateList", "DenominationList"}) {
        if (!fields.contains(QLatin1String(needed))) {
            page.error = QCoreApplication::translate("CalculatorListImport",
                                                     "This is not a list saved from the Treasury's Savings Bond Calculator: "
                                                     "it has no %1 field.")
                             .arg(QLatin1String(needed));
            return page;
        }
    }
    const QStringList series = listOf(fields.value(QStringLiteral("SeriesList")));
    const QStringList issues = listOf(fields.value(QStringLiteral("IssueDateList")));
    const QStringList denominations = listOf(fields.value(QStringLiteral("DenominationList")));
    const QStringList serials = listOf(fields.value(QStringLiteral("SerialNumList")));
    for (qsizetype i = 0; i < series.size(); ++i) {
        const auto skip = [&](const QString &why) {
            page.skipped << QCoreApplication::translate("CalculatorListImport", "bond %1: %2").arg(i + 1).arg(why);
        };
        Bond bond;
        bond.series = seriesOf(series.at(i));
        bool numberOk = false;
        const int number = issues.value(i).trimmed().toInt(&numberOk);
        bond.faceValue = amountOf(denominations.value(i));
        if (!bond.series) {
            skip(QCoreApplication::translate("CalculatorListImport", "unknown series \"%1\"").arg(series.at(i).trimmed()));
            continue;
        }
        if (!numberOk || number < 1) {
            skip(QCoreApplication::translate("CalculatorListImport", "no issue month"));
            continue;
        }
        if (bond.faceValue <= 0) {
            skip(QCoreApplication::translate("CalculatorListImport", "no denomination"));
            continue;
        }
        bond.issue = monthOfNumber(number);
        if (const QString serial = serials.value(i).trimmed(); !serial.isEmpty())
            bond.serialNumber = serial;
        page.bonds << bond;
    }
    if (page.bonds.isEmpty() && page.skipped.isEmpty())
        page.error = QCoreApplication::translate("CalculatorListImport", "The calculator's list is empty.");
    return page;
}

Outcome importInto(BondPortfolio &portfolio, const QByteArray &html)
{
    Outcome outcome;
    const Page page = read(html);
    outcome.error = page.error;
    outcome.skipped = page.skipped;
    if (!page.ok())
        return outcome;
    QList<HoldingRef> added;
    for (qsizetype i = 0; i < page.bonds.size(); ++i) {
        const Bond &bond = page.bonds.at(i);
        const HoldingRef holding = Holding::create();
        holding->setSeries(bond.series);
        holding->setIssueDate(bond.issue);
        holding->setFaceValue(bond.faceValue);
        holding->setSerialNumber(bond.serialNumber);
        holding->setPaper(true);
        portfolio.adopt(*holding);
        if (!portfolio.assessor().isValidIssueDate(bond.issue, bond.series))
            outcome.withoutValues << QCoreApplication::translate("CalculatorListImport", "%1 of %2: the database has no values for them")
                                         .arg(bond.series->bondsName(), bond.issue.toString(Month::Style::Slash));
        added << holding;
    }
    portfolio.appendHoldings(added);
    outcome.imported = int(added.size());
    return outcome;
}

}
