// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
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

QList<CsvImportColumn> csvColumnsForFormat(CsvImportFormat format)
{
    // The Wizard's files have no quantity: its bonds keep a new holding's quantity of 1.
    if (format == CsvImportFormat::Own) {
        return {{"Bond Series", CsvHoldingField::Series}, {"Quantity", CsvHoldingField::Quantity},
                {"Issue Date", CsvHoldingField::IssueDate}, {"Face Value", CsvHoldingField::FaceValue},
                {"Serial Number", CsvHoldingField::SerialNumber}, {"Issue Price", CsvHoldingField::IssuePrice},
                {"Owner", CsvHoldingField::Owner}, {"Co-owner", CsvHoldingField::CoOwner},
                {"Beneficiary", CsvHoldingField::Beneficiary}};
    }
    return {{"Series", CsvHoldingField::Series}, {"Denomination", CsvHoldingField::FaceValue},
            {"Serial Number", CsvHoldingField::SerialNumber}, {"Issue Date", CsvHoldingField::IssueDate}};
}

} // namespace CsvImportFormats
