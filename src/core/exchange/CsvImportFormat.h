#pragma once
// The two kinds of comma-separated file the import reads: this program's own export and the
// export of the Treasury Department's Savings Bond Wizard 4.10. The user picks one by number
// (the import panel's row); 0 is the own format and every other number the Wizard.
#include <QSet>
#include <QString>

enum class CsvImportFormat { Own = 0, SavingsBondWizard = 1 };

namespace CsvImportFormats {
CsvImportFormat fromRow(int row);
// "\n" for the own format, "\r\n" for the Wizard.
QString lineSeparator(CsvImportFormat format);
// How messages name the program that wrote the file.
QString producerName(CsvImportFormat format);
// The header names the import reads; every other column is ignored.
QSet<QString> csvColumnsForFormat(CsvImportFormat format);
}

namespace CsvColumn {
inline constexpr const char *BondSeries = "Bond Series";
inline constexpr const char *Quantity = "Quantity";
inline constexpr const char *IssueDate = "Issue Date";
inline constexpr const char *FaceValue = "Face Value";
inline constexpr const char *SerialNumber = "Serial Number";
inline constexpr const char *Series = "Series";
inline constexpr const char *Denomination = "Denomination";
}
