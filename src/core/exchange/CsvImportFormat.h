// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The two kinds of comma-separated file the import reads: this program's own export and the
// export of the Treasury Department's Savings Bond Wizard 4.10. The user picks one by number
// (the import panel's row); 0 is the own format and every other number the Wizard.
#include <QList>
#include <QString>

enum class CsvImportFormat { Own = 0, SavingsBondWizard = 1 };

// What a column of an imported file sets in the new holding. The formats name some of them
// differently ("Bond Series" and "Series", "Face Value" and "Denomination") but read them alike.
// The own format's issue price tells paper from electronic EE bonds (sold at half and at full face value).
// Its people's names are matched against the people store.
enum class CsvHoldingField { Series, Quantity, IssueDate, FaceValue, SerialNumber, IssuePrice, Owner, CoOwner, Beneficiary };

struct CsvImportColumn
{
    const char *name;
    CsvHoldingField field;
};

namespace CsvImportFormats {
CsvImportFormat fromRow(int row);
// "\n" for the own format, "\r\n" for the Wizard.
QString lineSeparator(CsvImportFormat format);
// The header names the import reads and what each sets; every other column is ignored.
QList<CsvImportColumn> csvColumnsForFormat(CsvImportFormat format);
}
