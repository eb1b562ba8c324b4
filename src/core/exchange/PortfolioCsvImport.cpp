// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PortfolioCsvImport.h"

#include "document/BondPortfolio.h"
#include "exchange/CsvFieldReader.h"
#include "exchange/CsvHoldingReader.h"
#include "model/PeopleStore.h"

#include <QMultiHash>

#include <QFile>
#include <QStringDecoder>
#include <QCoreApplication>

namespace PortfolioCsvImport {

namespace {

// Bytes a text file never holds. Tab, line feed, vertical tab, form feed, carriage return and
// the DOS end-of-file mark (0x1A) can occur in exported text.
bool looksBinary(const QByteArray &data)
{
    for (const char byte : data) {
        const auto unit = static_cast<unsigned char>(byte);
        if (unit < 0x20 && !(unit >= 0x09 && unit <= 0x0D) && unit != 0x1A)
            return true;
    }
    return false;
}

// Finds the people an own-format file names: a name stands for a person of the store only when
// exactly one person has it ("First Last"), and the same person is one Person throughout.
class PeopleByName
{
public:
    PeopleByName(const PeopleStore &store, const QList<PersonRef> &titleHolders) : m_titleHolders(titleHolders)
    {
        for (const std::shared_ptr<PersonRecord> &record : store.records()) {
            if (!record->firstName.isEmpty() && !record->lastName.isEmpty())
                m_records.insert(record->firstName + QLatin1Char(' ') + record->lastName, record);
        }
    }

    PersonRef person(const QString &name)
    {
        if (name.isEmpty())
            return nullptr;
        const QList<std::shared_ptr<PersonRecord>> found = m_records.values(name);
        if (found.size() != 1) {
            ++unmatched;
            return nullptr;
        }
        for (const PersonRef &known : std::as_const(m_titleHolders)) {
            if (known->uniqueId() == found.first()->uniqueId)
                return known;
        }
        m_titleHolders << Person::create(found.first());
        return m_titleHolders.last();
    }

    // The portfolio's title holders and every person found since.
    const QList<PersonRef> &titleHolders() const { return m_titleHolders; }
    int unmatched = 0;

private:
    QMultiHash<QString, std::shared_ptr<PersonRecord>> m_records;
    QList<PersonRef> m_titleHolders;
};

} // namespace

CsvImportOutcome corruptFileOutcome(CsvImportFormat format, const QString &detail)
{
    CsvImportOutcome outcome;
    outcome.succeeded = false;
    outcome.format = format;
    outcome.detail = detail;
    return outcome;
}

namespace {

// The data lines, read by the header's reader, become the new holdings: one change to the document.
CsvImportOutcome importFieldLists(BondPortfolio &portfolio, const CsvHoldingReader &reader, qsizetype lineCount,
                                  const std::function<QList<QStringView>(qsizetype)> &fieldsOfLine, CsvImportFormat format)
{
    QList<HoldingRef> added;
    int rejected = 0;
    QStringList skipped;
    PeopleByName people(portfolio.peopleStore(), portfolio.titleHolders());
    for (qsizetype index = 1; index < lineCount; ++index) {
        QString problem;
        CsvHoldingReader::Names names;
        const QList<QStringView> fields = fieldsOfLine(index);
        HoldingRef holding = reader.holdingForFields(fields, &problem, &names);
        if (!holding) {
            ++rejected;
            const bool lastAndEmpty = index == lineCount - 1 && fields.size() == 1 && fields.first().trimmed().isEmpty();
            if (!lastAndEmpty)
                skipped << QCoreApplication::translate("PortfolioCsvImport", "line %1: %2").arg(index + 1).arg(problem);
            continue;
        }
        holding->setOwner(people.person(names.owner));
        holding->setCoOwner(people.person(names.coOwner));
        holding->setBeneficiary(people.person(names.beneficiary));
        added << holding;
    }

    // The one change to the document, made only now that every line has been read: one undoable
    // step, or for a file without bonds the document marked edited all the same.
    if (added.isEmpty()) {
        portfolio.markEdited();
    } else {
        UndoStep step(portfolio, UndoActionName::InsertHolding);
        portfolio.setTitleHolders(people.titleHolders()); // the people named join first, so their bonds keep them
        for (const HoldingRef &holding : std::as_const(added))
            portfolio.adopt(*holding);
        portfolio.appendHoldings(added);
    }

    CsvImportOutcome outcome;
    outcome.succeeded = true;
    outcome.importedCount = int(added.size());
    outcome.rejectedCount = rejected;
    outcome.skipped = skipped;
    outcome.unmatchedNames = people.unmatched;
    outcome.format = format;
    return outcome;
}

// Before any holding is read: too few or too many lines, or the header of the other format.
std::optional<CsvImportOutcome> refusal(qsizetype lineCount, const CsvHoldingReader &reader,
                                        const CsvHoldingReader &asOtherFormat, CsvImportFormat format)
{
    if (lineCount < 2)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "fewer than two lines after splitting at the line separator"));
    if (lineCount > MaximumLineCount)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "more than %1 lines").arg(MaximumLineCount));
    if (!reader.readsSeries() && asOtherFormat.readsSeries()) {
        CsvImportOutcome outcome = corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the header is that of the other format"));
        outcome.headerOfOtherFormat = true;
        return outcome;
    }
    return std::nullopt;
}

QList<QStringView> views(const QStringList &fields)
{
    return {fields.cbegin(), fields.cend()};
}

// The records of an own-format file in the spreadsheet form, or none for a plain file. The form
// is known by its byte order mark; without one (a spreadsheet saving the file again drops it) by
// an issue date written YYYY-MM-DD, which the plain form never has. Such a file is UTF-8 when it
// decodes as UTF-8, and ISO Latin 1 otherwise.
std::optional<QList<QStringList>> spreadsheetRecords(const QByteArray &data)
{
    const bool marked = data.startsWith(SpreadsheetCsv::ByteOrderMark);
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QByteArray body = SpreadsheetCsv::withoutByteOrderMark(data);
    QString text = utf8(body);
    if (utf8.hasError())
        text = QString::fromLatin1(body);
    QList<QStringList> records = SpreadsheetCsv::records(text);
    if (marked)
        return records;
    qsizetype dateColumn = -1;
    for (const CsvImportColumn &column : CsvImportFormats::csvColumnsForFormat(CsvImportFormat::Own)) {
        if (column.field == CsvHoldingField::IssueDate)
            dateColumn = records.first().indexOf(QLatin1String(column.name));
    }
    if (dateColumn < 0)
        return std::nullopt;
    for (const QStringList &record : std::as_const(records)) {
        if (!CsvFieldReader::isoIssueMonth(record.value(dateColumn)).isNull())
            return records;
    }
    return std::nullopt;
}

CsvImportOutcome importSpreadsheetRecords(BondPortfolio &portfolio, const QList<QStringList> &records)
{
    const CsvImportFormat own = CsvImportFormat::Own;
    const QList<QStringView> header = views(records.first());
    const CsvHoldingReader reader(header, own, CsvForm::Spreadsheet);
    if (auto refused = refusal(records.size(), reader, CsvHoldingReader(header, CsvImportFormat::SavingsBondWizard, CsvForm::Plain), own))
        return *refused;
    return importFieldLists(portfolio, reader, records.size(), [&](qsizetype index) { return views(records.at(index)); }, own);
}

} // namespace

CsvImportOutcome importCSVLines(BondPortfolio &portfolio, const std::optional<QStringList> &lines, CsvImportFormat format)
{
    if (!lines || lines->isEmpty())
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "fewer than two lines after splitting at the line separator"));
    const CsvHoldingReader reader(lines->first(), format);
    const CsvImportFormat other = format == CsvImportFormat::Own ? CsvImportFormat::SavingsBondWizard : CsvImportFormat::Own;
    if (auto refused = refusal(lines->size(), reader, CsvHoldingReader(lines->first(), other), format))
        return *refused;
    return importFieldLists(portfolio, reader, lines->size(),
                            [&](qsizetype index) { return CsvFieldReader::fields(lines->at(index)); }, format);
}

CsvImportOutcome importCSVData(BondPortfolio &portfolio, const QByteArray &data, CsvImportFormat format)
{
    if (data.size() > MaximumFileSize)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the file is larger than %1 bytes").arg(MaximumFileSize));
    if (looksBinary(data))
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the file holds binary data, not text"));
    const QString separator = CsvImportFormats::lineSeparator(format);
    if (data.count(separator.toLatin1()) >= MaximumLineCount)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "more than %1 lines").arg(MaximumLineCount));
    if (format == CsvImportFormat::Own) {
        if (const auto records = spreadsheetRecords(data))
            return importSpreadsheetRecords(portfolio, *records);
    }
    return importCSVLines(portfolio, QString::fromLatin1(data).split(separator), format);
}

CsvImportOutcome importCSVFileAtPath(BondPortfolio &portfolio, const QString &path, CsvImportFormat format)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "cannot read %1: %2").arg(path, file.errorString()));
    // Read one byte past the limit rather than trusting the reported size (pipes, growing files).
    const QByteArray data = file.read(MaximumFileSize + 1);
    if (file.error() != QFileDevice::NoError)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "cannot read %1: %2").arg(path, file.errorString()));
    return importCSVData(portfolio, data, format);
}

} // namespace PortfolioCsvImport
