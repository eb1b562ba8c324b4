// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Saving and opening portfolio files: keyed archives of {"holdings", "titleHolders"}.
#include "document/BondPortfolio.h"

#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"
#include "document/PortfolioReading.h"

#include <QUndoStack>
#include <QCoreApplication>

QByteArray BondPortfolio::dataRepresentation(const QString &typeName, QString *error) const
{
    if (typeName != QLatin1String(PortfolioFile::TypeName)) {
        if (error)
            *error = QCoreApplication::translate("BondPortfolioFile", "A portfolio cannot be saved as \"%1\".").arg(typeName);
        return {};
    }
    QString encodeError;
    const QByteArray data = KeyedArchive::encode(PortfolioArchive::encodePortfolio(m_data),
                                                 &encodeError);
    if (data.isEmpty() && error)
        *error = encodeError.isEmpty() ? QCoreApplication::translate("BondPortfolioFile", "The portfolio could not be encoded.") : encodeError;
    return data;
}

bool BondPortfolio::loadDataRepresentation(const QByteArray &data, QString *error)
{
    return install(PortfolioReading::fromData(data, *m_people, m_data.titleHolders), error);
}

bool BondPortfolio::install(const PortfolioReading::Result &read, QString *error)
{
    if (!read.ok) {
        if (error)
            *error = read.error;
        return false;
    }
    // Everything read: only now does the document change.
    setTitleHolders(read.portfolio.titleHolders);
    setHoldings(read.portfolio.holdings);
    setRedeemedHoldings(read.portfolio.redeemed);
    setYearlyInterestReportersWithoutRecording(read.portfolio.yearlyInterestReporters);
    m_missingPeople = read.missingPeople;
    m_summaryMode = SummaryMode::Cumulative;
    // Loading is not an edit: nothing of it can be undone.
    m_undoStack->clear();
    return true;
}

bool BondPortfolio::saveToFile(const QString &path, PortfolioSaveFailure *failure)
{
    PortfolioSaveFailure result;
    const QByteArray data = dataRepresentation(QString::fromLatin1(PortfolioFile::TypeName), &result.encodeError);
    if (data.isEmpty()) {
        if (failure)
            *failure = result;
        return false;
    }
    result.file = DocumentFileWriter::replaceFile(path, data);
    if (!result.file.ok()) {
        if (failure)
            *failure = result;
        return false;
    }
    setFileName(path);
    markSaved();
    return true;
}

bool BondPortfolio::readFromFile(const QString &path, QString *error)
{
    if (!install(PortfolioReading::fromFile(path, *m_people, m_data.titleHolders), error))
        return false;
    setFileName(path);
    return true;
}
