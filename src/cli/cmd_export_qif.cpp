// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli export-qif: writes the Quicken price list and positions of a portfolio into a
// directory, as the portfolio window's QIF export does for all holdings.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/PortfolioQuicken.h"

namespace {

int run(const QStringList &arguments)
{
    // The price history does not depend on the valuation month, but the option is accepted (and
    // checked) so that the export commands take the same arguments.
    return runDirectoryExport(
        arguments,
        CliText::tr("Writes PriceList.qif and Positions.qif for a portfolio into a directory; numbered names "
                    "(PriceList-1.qif, ...) when a price list is already there."),
        CliText::tr("export-qif needs a portfolio file and a directory (see --help)"),
        [](const ValuedPortfolio &portfolio, const QString &directory) {
            const QuickenFileSet::Outcome outcome = QuickenFileSet::exportToQuickenFileSet(
                portfolio.displayName(), portfolio.holdings(), portfolio.holdings(), portfolio.valuationContext(),
                directory);
            const ExchangeAlert alert = ExchangeAlerts::of(outcome);
            if (!outcome.succeeded)
                return cliFail(QStringLiteral("%1 (%2)").arg(alert.message, outcome.detail));
            cliOut() << alert.title << ": " << alert.message << '\n'
                     << "  " << outcome.paths.priceList << '\n'
                     << "  " << outcome.paths.positions << '\n';
            return 0;
        });
}

const CliCommand::Registration registration({QStringLiteral("export-qif"),
                                             QT_TRANSLATE_NOOP("CliText", "export-qif FILE DIR [--as-of YYYY-MM] [--people FILE]   write Quicken price list and positions"),
                                             run});

} // namespace
