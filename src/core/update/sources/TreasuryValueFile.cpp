// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/TreasuryValueFile.h"

#include "update/sources/SourceText.h"
#include "valuation/BondAssessor.h"

#include <QHash>
#include <QCoreApplication>

namespace TreasuryValueFile {

namespace {

const char *const MonthNames[12] = {"January", "February", "March", "April", "May", "June", "July",
                                    "August", "September", "October", "November", "December"};

struct FieldReading
{
    qint32 value = 0;
    QString problem; // empty when the field was understood
};

FieldReading readField(QByteArrayView field)
{
    if (SourceText::isBlank(field))
        return {static_cast<qint32>(RedemptionMarker::NoPricingData), {}};
    if (field.size() < FieldWidth)
        return {0, QCoreApplication::translate("TreasuryValueFile", "field %1 is cut short").arg(SourceText::quoted(field))};
    if (field == QByteArrayView("NO PAY"))
        return {static_cast<qint32>(RedemptionMarker::NotRedeemable), {}};
    // Values are zero-padded cents; figures padded with blanks instead are read too.
    const auto cents = SourceText::digits(SourceText::trimmed(field));
    if (!cents)
        return {0, QCoreApplication::translate("TreasuryValueFile", "non-numeric value %1").arg(SourceText::quoted(field))};
    return {static_cast<qint32>(*cents), {}};
}

} // namespace

PriceSourceContents read(const QByteArray &data, const QString &fileName)
{
    PriceSourceContents contents;
    QHash<quint64, int> lineOfRecord; // a repeated record would only fail later, less clearly
    const QList<QByteArrayView> lines = SourceText::lines(data);
    for (int index = 0; index < lines.size(); ++index) {
        const int lineNumber = index + 1;
        const QByteArrayView line = lines.at(index);
        if (SourceText::isBlank(line))
            continue;
        auto refuse = [&](const QString &what) { return PriceSourceContents::refused(fileName, lineNumber, what); };
        if (line.size() < HeaderWidth)
            return refuse(QCoreApplication::translate("TreasuryValueFile", "short line %1: a line needs at least %2 characters "
                                         "(series, redemption year and month, issue year)")
                              .arg(SourceText::quoted(line)).arg(HeaderWidth));
        if (line.size() > LineWidth && !SourceText::isBlank(line.sliced(LineWidth)))
            return refuse(QCoreApplication::translate("TreasuryValueFile", "line is longer than %1 characters").arg(LineWidth));

        PriceRecord record;
        record.series = line.at(0);
        if (!SourceText::isSeriesCode(record.series))
            return refuse(QCoreApplication::translate("TreasuryValueFile", "bad series letter %1 (expected E, N, I or S)")
                              .arg(SourceText::quoted(line.first(1))));
        const auto redemptionYear = SourceText::digits(line.sliced(1, 4));
        const auto redemptionMonth = SourceText::digits(line.sliced(5, 2));
        const auto issueYear = SourceText::digits(line.sliced(7, 4));
        if (!redemptionYear || *redemptionYear < 1900)
            return refuse(QCoreApplication::translate("TreasuryValueFile", "bad redemption year %1").arg(SourceText::quoted(line.sliced(1, 4))));
        if (*redemptionYear > SourceText::latestRedemptionYear())
            return refuse(QCoreApplication::translate("TreasuryValueFile", "redemption year %1 is beyond next year").arg(*redemptionYear));
        if (!redemptionMonth || *redemptionMonth < 1 || *redemptionMonth > 12)
            return refuse(QCoreApplication::translate("TreasuryValueFile", "bad redemption month %1").arg(SourceText::quoted(line.sliced(5, 2))));
        if (!issueYear || *issueYear < 1900)
            return refuse(QCoreApplication::translate("TreasuryValueFile", "bad issue year %1").arg(SourceText::quoted(line.sliced(7, 4))));
        if (*issueYear > *redemptionYear)
            return refuse(QCoreApplication::translate("TreasuryValueFile", "issue year %1 is after redemption year %2").arg(*issueYear).arg(*redemptionYear));
        record.ryr = static_cast<quint16>(*redemptionYear);
        record.rmo = static_cast<quint8>(*redemptionMonth);
        record.iyr = static_cast<quint16>(*issueYear);

        bool anyValue = false;
        const QByteArrayView fields = line.sliced(HeaderWidth).first(qMin<qsizetype>(line.size() - HeaderWidth, 12 * FieldWidth));
        for (int month = 0; month < 12; ++month) {
            const qsizetype start = month * FieldWidth;
            const QByteArrayView field = start < fields.size() ? fields.sliced(start).first(qMin<qsizetype>(FieldWidth, fields.size() - start))
                                                               : QByteArrayView();
            const FieldReading reading = readField(field);
            if (!reading.problem.isEmpty())
                return refuse(QCoreApplication::translate("TreasuryValueFile", "%1 for issue month %2").arg(reading.problem, QLatin1String(MonthNames[month])));
            record.value[month] = reading.value;
            anyValue = anyValue || reading.value != RedemptionMarker::NoPricingData;
        }
        if (!anyValue)
            continue;

        const quint64 key = (quint64(quint8(record.series)) << 40) | (quint64(record.ryr) << 24)
                            | (quint64(record.rmo) << 16) | record.iyr;
        if (const auto earlier = lineOfRecord.constFind(key); earlier != lineOfRecord.constEnd())
            return refuse(QCoreApplication::translate("TreasuryValueFile", "repeats the series, redemption month and issue year of line %1").arg(*earlier));
        lineOfRecord.insert(key, lineNumber);
        contents.records.append(record);
    }
    return contents;
}

} // namespace TreasuryValueFile
