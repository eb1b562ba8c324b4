// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli export-finance: writes the GnuCash and KMyMoney files of a portfolio into a
// directory, as the portfolio window's export for them does for all holdings.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/FinanceExport.h"

namespace {

int run(const QStringList &arguments)
{
    return runDirectoryExport(
        arguments,
        CliText::tr("Writes Bonds.qif (securities, purchases with their cost, monthly prices) and BondPrices.csv "
                    "(the prices again, for GnuCash's price import) for a portfolio into a directory; numbered "
                    "names (Bonds-1.qif, ...) when either is already there. Prices run from each bond's issue to "
                    "the valuation month."),
        CliText::tr("export-finance needs a portfolio file and a directory (see --help)"),
        [](const ValuedPortfolio &portfolio, const QString &directory) {
            const FinanceExport::Outcome outcome = FinanceExport::exportToDirectory(
                portfolio.displayName(), portfolio.holdings(), portfolio.valuationContext(), directory);
            const ExchangeAlert alert = ExchangeAlerts::of(outcome);
            if (!outcome.succeeded)
                return cliFail(QStringLiteral("%1 (%2)").arg(alert.message, outcome.detail));
            cliOut() << alert.title << ": " << alert.message << '\n'
                     << "  " << outcome.paths.qif << '\n'
                     << "  " << outcome.paths.priceCsv << '\n'
                     << CliText::tr("Securities: %1; prices in each file: %2").arg(outcome.securities).arg(outcome.prices)
                     << '\n' << alert.informative << '\n';
            return 0;
        });
}

const CliCommand::Registration registration({QStringLiteral("export-finance"),
                                             QT_TRANSLATE_NOOP("CliText", "export-finance FILE DIR [--as-of YYYY-MM] [--people FILE]   write a QIF and price CSV for GnuCash and KMyMoney"),
                                             run});

} // namespace
