// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/HoldingCsv.h"

#include "exchange/ExportText.h"
#include "model/Portfolio.h"
#include "valuation/BondAssessor.h"

namespace {

QString nameOf(const PersonRef &person)
{
    return person ? person->name() : QString();
}

QString dollars(Pennies pennies)
{
    return ExportText::fixedPoint(ExportText::singlePrecisionDollars(pennies), 2);
}

// Every field quoted only where it needs to be, the month as the date of its first day.
QString spreadsheetLine(const Holding &holding, const HoldingFigures &figures)
{
    const Month issued = holding.issueDate();
    const QStringList fields{holding.series()->label(),
                             QString::number(holding.quantity()),
                             issued.isNull() ? QString() : issued.toString(Month::Style::Iso) + QStringLiteral("-01"),
                             dollars(holding.issuePrice()),
                             dollars(holding.faceValue()),
                             dollars(figures.interestEarned()),
                             dollars(figures.value()),
                             holding.serialNumber(),
                             nameOf(holding.owner()),
                             nameOf(holding.coOwner()),
                             nameOf(holding.beneficiary())};
    QStringList quoted;
    for (const QString &field : fields)
        quoted << SpreadsheetCsv::quotedField(field);
    return quoted.join(QLatin1Char(',')) + QLatin1Char('\n');
}

} // namespace

namespace HoldingCsv {

QString csvHeader()
{
    return QStringLiteral("Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,"
                          "Serial Number,Owner,Co-owner,Beneficiary\n");
}

QString asCSV(const Holding &holding, const ValuationContext &context, CsvForm form)
{
    const HoldingFigures figures(context, holding.facts());
    if (form == CsvForm::Spreadsheet)
        return spreadsheetLine(holding, figures);
    const Month issued = holding.issueDate();
    const int month = issued.isNull() ? 0 : issued.month();
    const int year = issued.isNull() ? 0 : issued.year();
    const QChar comma = QLatin1Char(',');
    return QLatin1Char('"') + holding.series()->label() + QLatin1Char('"') + comma
        + QString::number(holding.quantity()) + comma
        + QString::number(month) + QLatin1Char('/') + QString::number(year) + comma
        + dollars(holding.issuePrice()) + comma
        + dollars(holding.faceValue()) + comma
        + dollars(figures.interestEarned()) + comma
        + dollars(figures.value()) + comma
        + holding.serialNumber() + comma
        + nameOf(holding.owner()) + comma
        + nameOf(holding.coOwner()) + comma
        + nameOf(holding.beneficiary()) + QLatin1Char('\n');
}

} // namespace HoldingCsv

namespace PortfolioCsv {

namespace {
QByteArray bytesOf(const QString &text, CsvForm form)
{
    return form == CsvForm::Spreadsheet ? text.normalized(QString::NormalizationForm_C).toUtf8() : ExportText::latin1Bytes(text);
}

void appendCsv(QByteArray &buffer, const ValuationContext &context, const QList<HoldingRef> &holdings, CsvForm form,
               const std::function<void()> &flushIfFull)
{
    const BondAssessor::ReadBatch batch(*context.assessor);
    Portfolio::prefetchValues(*context.assessor, holdings);
    if (form == CsvForm::Spreadsheet)
        buffer += SpreadsheetCsv::ByteOrderMark;
    buffer += bytesOf(HoldingCsv::csvHeader(), form);
    for (const HoldingRef &holding : holdings) {
        buffer += bytesOf(HoldingCsv::asCSV(*holding, context, form), form);
        flushIfFull();
    }
}
}

QByteArray csvRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings, CsvForm form)
{
    QByteArray bytes;
    appendCsv(bytes, valuation, holdings, form, [] {});
    return bytes;
}

ExchangeOutcome exportToCommaSeparatedValues(const QString &path, const ValuationContext &valuation,
                                             const QList<HoldingRef> &holdings, CsvForm form)
{
    ExchangeOutcome outcome;
    outcome.succeeded = ExportText::writeFileAtomically(
        path, [&](QByteArray &buffer, const std::function<void()> &flushIfFull) { appendCsv(buffer, valuation, holdings, form, flushIfFull); },
        &outcome.detail);
    return outcome;
}

} // namespace PortfolioCsv
