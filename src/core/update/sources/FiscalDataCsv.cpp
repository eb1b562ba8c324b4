// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/sources/FiscalDataCsv.h"

#include "update/sources/SourceText.h"
#include "valuation/BondAssessor.h"

#include <QHash>
#include <array>
#include <limits>
#include <QCoreApplication>

namespace FiscalDataCsv {

namespace {

enum Column { SeriesColumn, RedemptionYear, RedemptionMonth, IssueYear, IssueMonth, Value, ColumnCount };
const char *const ColumnNames[ColumnCount] = {"series", "redemption_year", "redemption_month",
                                              "issue_year", "issue_month", "value"};

QList<QByteArrayView> cells(QByteArrayView line)
{
    QList<QByteArrayView> result;
    for (;;) {
        const qsizetype comma = line.indexOf(',');
        QByteArrayView cell = SourceText::trimmed(comma < 0 ? line : line.first(comma));
        if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"')
            cell = cell.sliced(1, cell.size() - 2);
        result.append(cell);
        if (comma < 0)
            return result;
        line = line.sliced(comma + 1);
    }
}

// The series code in a cell: the one-letter codes, and "EE" for the EE series.
char seriesCode(QByteArrayView cell)
{
    if (cell == QByteArrayView("EE"))
        return 'N';
    return cell.size() == 1 && SourceText::isSeriesCode(cell.front()) ? cell.front() : '\0';
}

} // namespace

PriceSourceContents read(const QByteArray &data, const QString &fileName)
{
    const QList<QByteArrayView> lines = SourceText::lines(data);
    int headerIndex = 0;
    while (headerIndex < lines.size() && SourceText::isBlank(lines.at(headerIndex)))
        ++headerIndex;
    if (headerIndex == lines.size())
        return PriceSourceContents::refused(fileName, 0, QCoreApplication::translate("FiscalDataCsv", "no header line"));

    std::array<int, ColumnCount> position;
    position.fill(-1);
    const QList<QByteArrayView> header = cells(lines.at(headerIndex));
    for (int i = 0; i < header.size(); ++i) {
        for (int c = 0; c < ColumnCount; ++c) {
            if (header.at(i).compare(QByteArrayView(ColumnNames[c]), Qt::CaseInsensitive) == 0)
                position[c] = i;
        }
    }
    for (int c = 0; c < ColumnCount; ++c) {
        if (position[c] < 0)
            return PriceSourceContents::refused(fileName, headerIndex + 1,
                                                QCoreApplication::translate("FiscalDataCsv", "the header lacks the column '%1'").arg(QLatin1String(ColumnNames[c])));
    }

    PriceSourceContents contents;
    QHash<quint64, qsizetype> recordOfGroup;
    QHash<quint64, int> lineOfValue;
    for (int index = headerIndex + 1; index < lines.size(); ++index) {
        const int lineNumber = index + 1;
        if (SourceText::isBlank(lines.at(index)))
            continue;
        auto refuse = [&](const QString &what) { return PriceSourceContents::refused(fileName, lineNumber, what); };
        const QList<QByteArrayView> row = cells(lines.at(index));
        if (row.size() != header.size())
            return refuse(QCoreApplication::translate("FiscalDataCsv", "short line: %1 fields where the header has %2").arg(row.size()).arg(header.size()));

        const char series = seriesCode(row.at(position[SeriesColumn]));
        if (!series)
            return refuse(QCoreApplication::translate("FiscalDataCsv", "bad series letter %1 (expected E, N, I or S)")
                              .arg(SourceText::quoted(row.at(position[SeriesColumn]))));
        std::array<qint64, ColumnCount> number{};
        for (int c : {RedemptionYear, RedemptionMonth, IssueYear, IssueMonth, Value}) {
            const QByteArrayView cell = row.at(position[c]);
            const auto parsed = c == Value ? SourceText::signedInteger(cell) : SourceText::digits(cell);
            if (!parsed)
                return refuse(QCoreApplication::translate("FiscalDataCsv", "non-numeric %1 %2").arg(QLatin1String(ColumnNames[c]), SourceText::quoted(cell)));
            number[c] = *parsed;
        }
        for (int c : {RedemptionYear, IssueYear}) {
            if (number[c] < 1900 || number[c] > 9999)
                return refuse(QCoreApplication::translate("FiscalDataCsv", "bad %1 %2").arg(QLatin1String(ColumnNames[c])).arg(number[c]));
        }
        for (int c : {RedemptionMonth, IssueMonth}) {
            if (number[c] < 1 || number[c] > 12)
                return refuse(QCoreApplication::translate("FiscalDataCsv", "bad %1 %2").arg(QLatin1String(ColumnNames[c])).arg(number[c]));
        }
        if (number[RedemptionYear] > SourceText::latestRedemptionYear())
            return refuse(QCoreApplication::translate("FiscalDataCsv", "redemption_year %1 is beyond next year").arg(number[RedemptionYear]));
        if (number[IssueYear] > number[RedemptionYear])
            return refuse(QCoreApplication::translate("FiscalDataCsv", "issue year %1 is after redemption year %2").arg(number[IssueYear]).arg(number[RedemptionYear]));
        if (number[Value] < RedemptionMarker::NoPricingData || number[Value] > std::numeric_limits<qint32>::max())
            return refuse(QCoreApplication::translate("FiscalDataCsv", "value %1 is out of range").arg(number[Value]));

        const quint64 group = (quint64(quint8(series)) << 40) | (quint64(number[RedemptionYear]) << 24)
                              | (quint64(number[RedemptionMonth]) << 16) | quint64(number[IssueYear]);
        const quint64 cell = (group << 4) | quint64(number[IssueMonth]);
        if (const auto earlier = lineOfValue.constFind(cell); earlier != lineOfValue.constEnd())
            return refuse(QCoreApplication::translate("FiscalDataCsv", "repeats the value of line %1").arg(*earlier));
        lineOfValue.insert(cell, lineNumber);

        auto found = recordOfGroup.constFind(group);
        if (found == recordOfGroup.constEnd()) {
            PriceRecord record;
            record.series = series;
            record.ryr = static_cast<quint16>(number[RedemptionYear]);
            record.rmo = static_cast<quint8>(number[RedemptionMonth]);
            record.iyr = static_cast<quint16>(number[IssueYear]);
            record.value.fill(static_cast<qint32>(RedemptionMarker::NoPricingData));
            found = recordOfGroup.insert(group, contents.records.size());
            contents.records.append(record);
        }
        contents.records[*found].value[number[IssueMonth] - 1] = static_cast<qint32>(number[Value]);
    }
    return contents;
}

} // namespace FiscalDataCsv
