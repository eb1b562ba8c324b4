#include "exchange/PortfolioQuicken.h"

#include "document/BondPortfolio.h"
#include "exchange/ExportText.h"
#include "exchange/HoldingQuicken.h"

#include <QDir>
#include <QFileInfo>

using ExportText::latin1Bytes;

namespace PortfolioQuicken {

QByteArray quickenPriceListRepresentation(const QList<HoldingRef> &holdings)
{
    QByteArray bytes = latin1Bytes(QStringLiteral("!Type:Prices\r"));
    for (const HoldingRef &holding : holdings) {
        for (const QString &line : HoldingQuicken::valuesSinceIssue(*holding))
            bytes += latin1Bytes(line);
    }
    bytes += latin1Bytes(QStringLiteral("^\r"));
    return bytes;
}

QByteArray quickenPortfolioRepresentation(const QString &accountName, const QList<HoldingRef> &holdings)
{
    QByteArray bytes = latin1Bytes(QStringLiteral("!Type:Security\r"));
    for (const HoldingRef &holding : holdings) {
        bytes += latin1Bytes(QLatin1Char('N') + HoldingQuicken::quickenName(*holding) + QStringLiteral("\rS")
                             + HoldingQuicken::security(*holding) + QStringLiteral("\rTBond\r^\r"));
    }
    bytes += latin1Bytes(QStringLiteral("!Account\r"));
    bytes += latin1Bytes(QLatin1Char('N') + accountName + QStringLiteral("\rD") + QLatin1String(AccountDescription)
                         + QStringLiteral("\rTPort\r^\r"));
    bytes += latin1Bytes(QStringLiteral("!Type:Invst\r"));
    for (const HoldingRef &holding : holdings)
        bytes += latin1Bytes(HoldingQuicken::asQuickenTransaction(*holding));
    bytes += quickenPriceListRepresentation(holdings);
    return bytes;
}

QByteArray quickenPortfolioRepresentation(const BondPortfolio &portfolio, const QList<HoldingRef> &holdings)
{
    return quickenPortfolioRepresentation(portfolio.displayName(), holdings);
}

} // namespace PortfolioQuicken

namespace QuickenFileSet {

Paths pathsInDirectory(const QString &directory)
{
    const QDir dir(directory);
    Paths paths{dir.filePath(QStringLiteral("PriceList.qif")), dir.filePath(QStringLiteral("Positions.qif"))};
    for (int number = 1; QFileInfo::exists(paths.priceList); ++number) {
        paths.priceList = dir.filePath(QStringLiteral("PriceList-%1.qif").arg(number));
        paths.positions = dir.filePath(QStringLiteral("Positions-%1.qif").arg(number));
    }
    return paths;
}

Outcome exportToQuickenFileSet(const BondPortfolio &portfolio, const QList<HoldingRef> &chosen, const QString &directory)
{
    Outcome outcome;
    outcome.paths = pathsInDirectory(directory);
    // The price list always covers the whole portfolio; the positions only the chosen holdings.
    const QByteArray priceList = PortfolioQuicken::quickenPriceListRepresentation(portfolio.holdings());
    const QByteArray positions = PortfolioQuicken::quickenPortfolioRepresentation(portfolio, chosen);
    outcome.succeeded = ExportText::writeFileAtomically(outcome.paths.priceList, priceList, &outcome.detail)
        && ExportText::writeFileAtomically(outcome.paths.positions, positions, &outcome.detail);
    if (!outcome.succeeded) {
        outcome.title = QString::fromLatin1(FailureTitle);
        outcome.message = QString::fromLatin1(FailureMessage);
        return outcome;
    }
    outcome.title = QString::fromLatin1(SuccessTitle);
    outcome.message = QString::fromLatin1(SuccessMessage).replace(QLatin1String("%@"), QDir(directory).absolutePath());
    return outcome;
}

} // namespace QuickenFileSet
