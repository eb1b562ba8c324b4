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

} // namespace

namespace HoldingCsv {

QString csvHeader()
{
    return QStringLiteral("Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,"
                          "Serial Number,Owner,Co-owner,Beneficiary\n");
}

QString asCSV(const Holding &holding, const ValuationContext &context)
{
    const HoldingFigures figures(context, holding.facts());
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
void appendCsv(QByteArray &buffer, const ValuationContext &context, const QList<HoldingRef> &holdings,
               const std::function<void()> &flushIfFull)
{
    const BondAssessor::ReadBatch batch(*context.assessor);
    Portfolio::prefetchValues(*context.assessor, holdings);
    buffer += ExportText::latin1Bytes(HoldingCsv::csvHeader());
    for (const HoldingRef &holding : holdings) {
        buffer += ExportText::latin1Bytes(HoldingCsv::asCSV(*holding, context));
        flushIfFull();
    }
}
}

QByteArray csvRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings)
{
    QByteArray bytes;
    appendCsv(bytes, valuation, holdings, [] {});
    return bytes;
}

ExchangeOutcome exportToCommaSeparatedValues(const QString &path, const ValuationContext &valuation,
                                             const QList<HoldingRef> &holdings)
{
    ExchangeOutcome outcome;
    outcome.succeeded = ExportText::writeFileAtomically(
        path, [&](QByteArray &buffer, const std::function<void()> &flushIfFull) { appendCsv(buffer, valuation, holdings, flushIfFull); },
        &outcome.detail);
    return outcome;
}

} // namespace PortfolioCsv
