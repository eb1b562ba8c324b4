// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/CsvHoldingReader.h"

#include "exchange/CsvFieldReader.h"
#include "base/Series.h"
#include "model/EntryRules.h"

#include <QCoreApplication>
#include <algorithm>

CsvHoldingReader::CsvHoldingReader(QStringView headerLine, CsvImportFormat format)
    : CsvHoldingReader(CsvFieldReader::fields(headerLine), format, CsvForm::Plain)
{
}

CsvHoldingReader::CsvHoldingReader(const QList<QStringView> &names, CsvImportFormat format, CsvForm form)
    : m_format(format), m_form(form)
{
    const QList<CsvImportColumn> known = CsvImportFormats::csvColumnsForFormat(format);
    m_fieldCount = names.size();
    for (qsizetype index = 0; index < names.size(); ++index) {
        const QStringView name = CsvFieldReader::withoutSurroundingQuotes(names.at(index));
        for (const CsvImportColumn &column : known) {
            if (name == QLatin1String(column.name))
                m_columns.append({index, column.field});
        }
    }
}

HoldingRef CsvHoldingReader::holdingForLine(QStringView line, QString *problem, Names *names) const
{
    return holdingForFields(CsvFieldReader::fields(line), problem, names);
}

HoldingRef CsvHoldingReader::holdingForFields(const QList<QStringView> &fields, QString *problem, Names *names) const
{
    if (fields.size() != m_fieldCount) {
        if (problem)
            *problem = fields.size() == 1 && fields.first().trimmed().isEmpty()
                           ? QCoreApplication::translate("CsvHoldingReader", "empty line")
                           : QCoreApplication::translate("CsvHoldingReader", "wrong number of fields (%1 where the header has %2)")
                                 .arg(fields.size())
                                 .arg(m_fieldCount);
        return nullptr;
    }
    QStringView seriesText;
    std::optional<Pennies> issuePrice;
    HoldingRef holding = Holding::create();
    const Series *series = nullptr;
    for (const auto &[index, field] : m_columns) {
        const QStringView text = fields.at(index);
        switch (field) {
        case CsvHoldingField::FaceValue:
            holding->setFaceValue(CsvFieldReader::faceValue(text));
            break;
        case CsvHoldingField::IssuePrice:
            issuePrice = CsvFieldReader::faceValue(text);
            break;
        case CsvHoldingField::SerialNumber:
            holding->setSerialNumber(text.toString());
            break;
        case CsvHoldingField::IssueDate:
            holding->setIssueDate(issueMonth(text));
            break;
        case CsvHoldingField::Owner:
        case CsvHoldingField::CoOwner:
        case CsvHoldingField::Beneficiary:
            if (names) {
                QString &name = field == CsvHoldingField::Owner     ? names->owner
                                : field == CsvHoldingField::CoOwner ? names->coOwner
                                                                    : names->beneficiary;
                name = text.trimmed().toString();
            }
            break;
        case CsvHoldingField::Quantity:
            holding->setQuantity(CsvFieldReader::integerValue(text));
            break;
        case CsvHoldingField::Series:
            // The last series column decides whether the line is taken.
            series = CsvFieldReader::series(text);
            seriesText = CsvFieldReader::withoutSurroundingQuotes(text).trimmed();
            if (series)
                holding->setSeries(series);
            break;
        }
    }
    if (!series) {
        if (problem)
            *problem = seriesText.startsWith(QLatin1String("HH"))
                           ? QCoreApplication::translate("CsvHoldingReader", "HH bond")
                           : QCoreApplication::translate("CsvHoldingReader", "no series this program knows (\"%1\")")
                                 .arg(seriesText.toString());
        return nullptr;
    }
    decideKind(*holding, issuePrice);
    if (const EntryRefusal refusal = EntryRules::check(*holding); refusal != EntryRefusal::None) {
        if (problem)
            *problem = EntryRules::describe(refusal, series);
        return nullptr;
    }
    return holding;
}

Month CsvHoldingReader::issueMonth(QStringView text) const
{
    const QString written = text.toString();
    const Month iso = m_form == CsvForm::Spreadsheet ? CsvFieldReader::isoIssueMonth(written) : Month();
    return iso.isNull() ? CsvFieldReader::issueMonth(written) : iso;
}

void CsvHoldingReader::decideKind(Holding &holding, std::optional<Pennies> issuePrice) const
{
    // A series or month never sold electronically makes the bond paper, whatever the preference.
    if (m_format == CsvImportFormat::SavingsBondWizard
        || EntryRules::checkElectronic(holding.series(), holding.issueDate()) != EntryRefusal::None) {
        holding.setPaper(true);
        return;
    }
    const Pennies face = holding.faceValue();
    const bool ee = holding.series() == Series::eeBond();
    if (ee && issuePrice && *issuePrice * 2 == face) {
        holding.setPaper(true);
    } else if ((ee && issuePrice && *issuePrice == face)
               || (EntryRules::checkFaceValue(face, true) != EntryRefusal::None
                   && EntryRules::checkFaceValue(face, false) == EntryRefusal::None)) {
        holding.setPaper(false);
    }
}

bool CsvHoldingReader::readsSeries() const
{
    return std::ranges::any_of(m_columns, [](const auto &column) { return column.second == CsvHoldingField::Series; });
}
