#include "exchange/HoldingCsv.h"

#include "exchange/ExportText.h"

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

QString asCSV(const Holding &holding)
{
    const QDate issued = holding.issueDate().date();
    const int month = issued.isValid() ? issued.month() : 0;
    const int year = issued.isValid() ? issued.year() : 0;
    const QChar comma = QLatin1Char(',');
    return QLatin1Char('"') + holding.series()->label() + QLatin1Char('"') + comma
        + QString::number(holding.quantity()) + comma
        + QString::number(month) + QLatin1Char('/') + QString::number(year) + comma
        + dollars(holding.issuePrice()) + comma
        + dollars(holding.faceValue()) + comma
        + dollars(holding.interestEarned()) + comma
        + dollars(holding.value()) + comma
        + holding.serialNumber() + comma
        + nameOf(holding.owner()) + comma
        + nameOf(holding.coOwner()) + comma
        + nameOf(holding.beneficiary()) + QLatin1Char('\n');
}

} // namespace HoldingCsv

namespace PortfolioCsv {

namespace {
void appendCsv(QByteArray &buffer, const QList<HoldingRef> &holdings, const std::function<void()> &flushIfFull)
{
    const auto batch = ExportText::readBatchFor(holdings);
    buffer += ExportText::latin1Bytes(HoldingCsv::csvHeader());
    for (const HoldingRef &holding : holdings) {
        buffer += ExportText::latin1Bytes(HoldingCsv::asCSV(*holding));
        flushIfFull();
    }
}
}

QByteArray csvRepresentation(const QList<HoldingRef> &holdings)
{
    QByteArray bytes;
    appendCsv(bytes, holdings, [] {});
    return bytes;
}

ExchangeOutcome exportToCommaSeparatedValues(const QString &path, const QList<HoldingRef> &holdings)
{
    ExchangeOutcome outcome;
    outcome.succeeded = ExportText::writeFileAtomically(
        path, [&](QByteArray &buffer, const std::function<void()> &flushIfFull) { appendCsv(buffer, holdings, flushIfFull); },
        &outcome.detail);
    return outcome;
}

} // namespace PortfolioCsv
