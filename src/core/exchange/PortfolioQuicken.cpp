// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PortfolioQuicken.h"

#include "model/Portfolio.h"
#include "valuation/BondAssessor.h"
#include "valuation/HoldingFigures.h"
#include "exchange/ExportText.h"
#include "exchange/HoldingQuicken.h"

#include <QDir>
#include <QHash>
#include <QFileInfo>

using ExportText::latin1Bytes;

namespace PortfolioQuicken {

namespace {
using FlushIfFull = std::function<void()>;

// Holdings of one series and issue month share their price lines, symbol included; both files of
// an export write them, so each bond's lines are made once.
class PriceLines
{
public:
    explicit PriceLines(const ValuationContext &valuation) : m_valuation(valuation) {}

    const QByteArray &of(const Holding &holding)
    {
        const QString symbol = holding.security();
        auto found = m_lines.find(symbol);
        if (found == m_lines.end()) {
            found = m_lines.insert(symbol, QByteArray());
            HoldingFigures(m_valuation, holding.facts()).appendValuesSinceIssue(*found);
        }
        return *found;
    }
    const BondAssessor &database() const { return *m_valuation.assessor; }

private:
    ValuationContext m_valuation;
    QHash<QString, QByteArray> m_lines;
};

void appendPriceList(QByteArray &out, const QList<HoldingRef> &holdings, const FlushIfFull &flushIfFull,
                     PriceLines &lines)
{
    const BondAssessor::ReadBatch batch(lines.database());
    Portfolio::prefetchValues(lines.database(), holdings);
    out += "!Type:Prices\r";
    for (const HoldingRef &holding : holdings) {
        out += lines.of(*holding);
        flushIfFull();
    }
    out += "^\r";
}

void appendPortfolio(QByteArray &out, const QString &accountName, const QList<HoldingRef> &holdings,
                     const FlushIfFull &flushIfFull, PriceLines &lines)
{
    out += "!Type:Security\r";
    for (const HoldingRef &holding : holdings) {
        out += latin1Bytes(QLatin1Char('N') + HoldingQuicken::quickenName(*holding) + QStringLiteral("\rS")
                           + HoldingQuicken::security(*holding) + QStringLiteral("\rTBond\r^\r"));
        flushIfFull();
    }
    out += "!Account\r";
    out += latin1Bytes(QLatin1Char('N') + accountName + QStringLiteral("\rD") + QLatin1String(AccountDescription)
                       + QStringLiteral("\rTPort\r^\r"));
    out += "!Type:Invst\r";
    for (const HoldingRef &holding : holdings) {
        out += latin1Bytes(HoldingQuicken::asQuickenTransaction(*holding));
        flushIfFull();
    }
    appendPriceList(out, holdings, flushIfFull, lines);
}
} // namespace

QByteArray quickenPriceListRepresentation(const ValuationContext &valuation, const QList<HoldingRef> &holdings)
{
    QByteArray bytes;
    PriceLines lines(valuation);
    appendPriceList(bytes, holdings, [] {}, lines);
    return bytes;
}

QByteArray quickenPortfolioRepresentation(const QString &accountName, const ValuationContext &valuation,
                                          const QList<HoldingRef> &holdings)
{
    QByteArray bytes;
    PriceLines lines(valuation);
    appendPortfolio(bytes, accountName, holdings, [] {}, lines);
    return bytes;
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

Outcome exportToQuickenFileSet(const QString &accountName, const QList<HoldingRef> &all, const QList<HoldingRef> &chosen,
                               const ValuationContext &valuation, const QString &directory)
{
    Outcome outcome;
    outcome.paths = pathsInDirectory(directory);
    // The price list always covers the whole portfolio; the positions only the chosen holdings.
    using ExportText::writeFileAtomically;
    PortfolioQuicken::PriceLines lines(valuation);
    outcome.succeeded =
        writeFileAtomically(
            outcome.paths.priceList,
            [&](QByteArray &out, const PortfolioQuicken::FlushIfFull &flushIfFull) { PortfolioQuicken::appendPriceList(out, all, flushIfFull, lines); },
            &outcome.detail)
        && writeFileAtomically(
            outcome.paths.positions,
            [&](QByteArray &out, const PortfolioQuicken::FlushIfFull &flushIfFull) {
                PortfolioQuicken::appendPortfolio(out, accountName, chosen, flushIfFull, lines);
            },
            &outcome.detail);
    outcome.directory = QDir(directory).absolutePath();
    return outcome;
}

} // namespace QuickenFileSet
