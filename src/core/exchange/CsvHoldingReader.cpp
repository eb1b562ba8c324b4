#include "exchange/CsvHoldingReader.h"

#include "exchange/CsvFieldText.h"

namespace CsvHoldingReader {

CsvFieldMap fieldMapForHeader(const QString &headerLine, CsvImportFormat format)
{
    const QSet<QString> columns = CsvImportFormats::csvColumnsForFormat(format);
    const QStringList fields = headerLine.split(QLatin1Char(','));
    CsvFieldMap map;
    for (int index = 0; index < fields.size(); ++index) {
        const QString name = CsvField::withoutSurroundingQuotes(fields.at(index));
        if (columns.contains(name))
            map.insert(index, name);
    }
    return map;
}

int fieldCount(const QString &line)
{
    return int(line.count(QLatin1Char(','))) + 1;
}

HoldingRef holdingForCSVLine(const QString &line, int promisedFieldCount, const CsvFieldMap &fieldMap)
{
    // Counting first spares building a holding for a line that is rejected anyway.
    if (fieldCount(line) != promisedFieldCount)
        return nullptr;
    const QStringList fields = line.split(QLatin1Char(','));
    HoldingRef holding = Holding::create();
    const Series *series = nullptr;
    for (auto column = fieldMap.cbegin(); column != fieldMap.cend(); ++column) {
        if (column.key() < 0 || column.key() >= fields.size())
            continue;
        const QString &text = fields.at(column.key());
        const QString &name = column.value();
        if (name == QLatin1String(CsvColumn::Denomination) || name == QLatin1String(CsvColumn::FaceValue)) {
            holding->setFaceValue(CsvField::faceValue(text));
        } else if (name == QLatin1String(CsvColumn::SerialNumber)) {
            holding->setSerialNumber(text);
        } else if (name == QLatin1String(CsvColumn::IssueDate)) {
            holding->setIssueDate(CsvField::issueMonth(text));
        } else if (name == QLatin1String(CsvColumn::Quantity)) {
            holding->setQuantity(CsvField::integerValue(text));
        } else {
            series = SeriesCsv::seriesForCSVCode(CsvField::withoutSurroundingQuotes(text));
            if (series)
                holding->setSeries(series);
        }
    }
    return series ? holding : nullptr;
}

} // namespace CsvHoldingReader
