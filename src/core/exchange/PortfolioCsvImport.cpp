// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PortfolioCsvImport.h"

#include "document/BondPortfolio.h"
#include "exchange/CsvHoldingReader.h"
#include "model/PeopleStore.h"

#include <QMultiHash>

#include <QFile>
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

CsvImportOutcome importCSVLines(BondPortfolio &portfolio, const std::optional<QStringList> &lines, CsvImportFormat format)
{
    if (!lines || lines->size() < 2)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "fewer than two lines after splitting at the line separator"));
    if (lines->size() > MaximumLineCount)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "more than %1 lines").arg(MaximumLineCount));

    const CsvHoldingReader reader(lines->first(), format);
    const CsvImportFormat other = format == CsvImportFormat::Own ? CsvImportFormat::SavingsBondWizard : CsvImportFormat::Own;
    if (!reader.readsSeries() && CsvHoldingReader(lines->first(), other).readsSeries()) {
        CsvImportOutcome outcome = corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the header is that of the other format"));
        outcome.headerOfOtherFormat = true;
        return outcome;
    }

    QList<HoldingRef> added;
    int rejected = 0;
    QStringList skipped;
    PeopleByName people(portfolio.peopleStore(), portfolio.titleHolders());
    for (qsizetype index = 1; index < lines->size(); ++index) {
        QString problem;
        CsvHoldingReader::Names names;
        HoldingRef holding = reader.holdingForLine(lines->at(index), &problem, &names);
        if (!holding) {
            ++rejected;
            const bool lastAndEmpty = index == lines->size() - 1 && lines->at(index).trimmed().isEmpty();
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

CsvImportOutcome importCSVData(BondPortfolio &portfolio, const QByteArray &data, CsvImportFormat format)
{
    if (data.size() > MaximumFileSize)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the file is larger than %1 bytes").arg(MaximumFileSize));
    if (looksBinary(data))
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "the file holds binary data, not text"));
    const QString separator = CsvImportFormats::lineSeparator(format);
    if (data.count(separator.toLatin1()) >= MaximumLineCount)
        return corruptFileOutcome(format, QCoreApplication::translate("PortfolioCsvImport", "more than %1 lines").arg(MaximumLineCount));
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
