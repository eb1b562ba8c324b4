#include "exchange/CsvImportFormat.h"

namespace CsvImportFormats {

CsvImportFormat fromRow(int row)
{
    return row == 0 ? CsvImportFormat::Own : CsvImportFormat::SavingsBondWizard;
}

QString lineSeparator(CsvImportFormat format)
{
    return format == CsvImportFormat::Own ? QStringLiteral("\n") : QStringLiteral("\r\n");
}

QString producerName(CsvImportFormat format)
{
    return format == CsvImportFormat::Own ? QStringLiteral("Quillmere")
                                          : QStringLiteral("the Treasury Department's Savings Bond Wizard");
}

QSet<QString> csvColumnsForFormat(CsvImportFormat format)
{
    if (format == CsvImportFormat::Own) {
        return {QLatin1String(CsvColumn::BondSeries), QLatin1String(CsvColumn::Quantity),
                QLatin1String(CsvColumn::IssueDate), QLatin1String(CsvColumn::FaceValue),
                QLatin1String(CsvColumn::SerialNumber)};
    }
    return {QLatin1String(CsvColumn::Series), QLatin1String(CsvColumn::Denomination),
            QLatin1String(CsvColumn::SerialNumber), QLatin1String(CsvColumn::IssueDate)};
}

} // namespace CsvImportFormats
