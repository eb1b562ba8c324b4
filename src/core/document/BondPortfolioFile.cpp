// Saving and opening portfolio files: keyed archives of {"holdings", "titleHolders"}.
#include "document/BondPortfolio.h"

#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"

#include <QFile>
#include <QUndoStack>

namespace {
// Far above any real portfolio; refuses to read whatever huge file was chosen by mistake.
constexpr qint64 MaximumFileSize = 64 * 1024 * 1024;
}

QByteArray BondPortfolio::dataRepresentation(const QString &typeName, QString *error) const
{
    if (typeName != QLatin1String(PortfolioFile::TypeName)) {
        if (error)
            *error = QStringLiteral("A portfolio cannot be saved as \"%1\".").arg(typeName);
        return {};
    }
    QString encodeError;
    const QByteArray data = KeyedArchive::encode(PortfolioArchive::encodePortfolio(m_holdings, m_titleHolders),
                                                 &encodeError);
    if (data.isEmpty() && error)
        *error = encodeError.isEmpty() ? QStringLiteral("The portfolio could not be encoded.") : encodeError;
    return data;
}

bool BondPortfolio::loadDataRepresentation(const QByteArray &data, QString *error)
{
    const KeyedArchive::DecodeResult archive = KeyedArchive::decode(data);
    if (!archive.ok) {
        if (error)
            *error = archive.error;
        return false;
    }
    const PortfolioArchive::Decoded decoded = PortfolioArchive::decodePortfolio(archive.root, *m_people);
    if (!decoded.ok) {
        if (error)
            *error = decoded.error;
        return false;
    }
    // Everything decoded: only now does the document change.
    if (decoded.hasTitleHolders)
        setTitleHolders(decoded.titleHolders);
    for (const HoldingRef &holding : decoded.holdings)
        adopt(*holding);
    setHoldings(decoded.holdings);
    m_missingPeople = decoded.missingPeople;
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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("Could not open %1: %2").arg(path, file.errorString());
        return false;
    }
    if (file.size() > MaximumFileSize) {
        if (error)
            *error = QStringLiteral("%1 is far too large to be a portfolio.").arg(path);
        return false;
    }
    if (!loadDataRepresentation(file.readAll(), error))
        return false;
    setFileName(path);
    return true;
}
