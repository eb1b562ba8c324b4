// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Turns the data lines of an imported CSV file into holdings, reading them by the file's header:
// which columns the format reads, where they are, and how many fields a line must have.
#include "exchange/CsvImportFormat.h"
#include "exchange/SpreadsheetCsv.h"
#include "model/Holding.h"

#include <QList>
#include <QStringView>
#include <optional>
#include <utility>

class CsvHoldingReader
{
public:
    // Header fields are compared after their surrounding double quotes are removed; column order
    // is free, and a name that occurs twice is read at both places, left to right.
    CsvHoldingReader(QStringView headerLine, CsvImportFormat format);
    // The header's fields as the spreadsheet form's reader gave them; the spreadsheet form's
    // issue dates are read as "YYYY-MM-DD" (or as the plain form's month).
    CsvHoldingReader(const QList<QStringView> &headerFields, CsvImportFormat format, CsvForm form);

    // A new holding with its defaults, filled from the read columns in column order; nullptr when
    // the line does not have the header's number of fields or no read series text names a
    // series. Malformed numbers and dates do not reject a line: they read as 0 or no date.
    // The names a line gives its bond's people, as written; empty where it gives none.
    struct Names
    {
        QString owner, coOwner, beneficiary;
    };
    // Why a line was skipped goes to *problem, and the names it gives to *names, when given.
    HoldingRef holdingForLine(QStringView line, QString *problem = nullptr, Names *names = nullptr) const;
    // The same for a line already split into its fields.
    HoldingRef holdingForFields(const QList<QStringView> &fields, QString *problem = nullptr, Names *names = nullptr) const;

    // Whether the header has a column naming the series, without which no line is a bond.
    bool readsSeries() const;

private:
    // Paper or electronic, from what the line says: the Wizard knew paper bonds only; in the own
    // format an EE bond sold at its face value, or an EE or I bond of an amount no paper bond had,
    // was electronic, and an EE bond sold at half its face value was paper.
    void decideKind(Holding &holding, std::optional<Pennies> issuePrice) const;

    Month issueMonth(QStringView text) const;

    CsvImportFormat m_format;
    CsvForm m_form = CsvForm::Plain;
    qsizetype m_fieldCount = 0;
    QList<std::pair<qsizetype, CsvHoldingField>> m_columns; // by position in the header
};
