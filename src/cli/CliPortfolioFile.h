#pragma once
// Opening a portfolio document for an import or export sub-command, and its --as-of option.
#include "document/BondPortfolio.h"

#include <QCommandLineOption>
#include <QString>
#include <memory>

// A portfolio on the working redemption value database, read from the file.
// nullptr with *error set when the file cannot be read.
std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error);
// An empty portfolio on the working database, to be saved under a new name.
std::unique_ptr<BondPortfolio> newPortfolio();

// The --as-of option, "YYYY-MM".
QCommandLineOption valuationMonthOption();
// Sets the valuation month from "YYYY-MM"; refuses malformed text and months without values.
bool applyValuationMonth(BondPortfolio &portfolio, const QString &text, QString *error);
