#include "exchange/CsvHoldingReader.h"

#include "exchange/CsvFieldReader.h"

CsvHoldingReader::CsvHoldingReader(QStringView headerLine, CsvImportFormat format)
{
    const QList<CsvImportColumn> known = CsvImportFormats::csvColumnsForFormat(format);
    const QList<QStringView> names = CsvFieldReader::fields(headerLine);
    m_fieldCount = names.size();
    for (qsizetype index = 0; index < names.size(); ++index) {
        const QStringView name = CsvFieldReader::withoutSurroundingQuotes(names.at(index));
        for (const CsvImportColumn &column : known) {
            if (name == QLatin1String(column.name))
                m_columns.append({index, column.field});
        }
    }
}

HoldingRef CsvHoldingReader::holdingForLine(QStringView line) const
{
    const QList<QStringView> fields = CsvFieldReader::fields(line);
    if (fields.size() != m_fieldCount)
        return nullptr;
    HoldingRef holding = Holding::create();
    const Series *series = nullptr;
    for (const auto &[index, field] : m_columns) {
        const QStringView text = fields.at(index);
        switch (field) {
        case CsvHoldingField::FaceValue:
            holding->setFaceValue(CsvFieldReader::faceValue(text));
            break;
        case CsvHoldingField::SerialNumber:
            holding->setSerialNumber(text.toString());
            break;
        case CsvHoldingField::IssueDate:
            holding->setIssueDate(CsvFieldReader::issueMonth(text.toString()));
            break;
        case CsvHoldingField::Quantity:
            holding->setQuantity(CsvFieldReader::integerValue(text));
            break;
        case CsvHoldingField::Series:
            // The last series column decides whether the line is taken.
            series = CsvFieldReader::series(text);
            if (series)
                holding->setSeries(series);
            break;
        }
    }
    return series ? holding : nullptr;
}
