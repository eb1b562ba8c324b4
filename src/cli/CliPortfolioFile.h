#pragma once
// Opening a portfolio document for a sub-command, and its --as-of option.
#include "CliDatabase.h"
#include "document/BondPortfolio.h"

#include <QCommandLineOption>
#include <QString>
#include <memory>

class QCommandLineParser;

// A portfolio on the working redemption value database, read from the file; its people come from
// the given store (the user's own when none is given). nullptr with *error set when the file
// cannot be read.
std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error, PeopleStore *people = nullptr);
// An empty portfolio on the working database, to be saved under a new name.
std::unique_ptr<BondPortfolio> newPortfolio(PeopleStore *people = nullptr);

// The --as-of option, "YYYY-MM".
QCommandLineOption valuationMonthOption();
// The month given with the valuation month option, or an invalid date when it is not given; false,
// with *error set, when its text is not a month.
bool readValuationMonth(const QCommandLineParser &parser, const QCommandLineOption &option, QDateTime *month,
                        QString *error, MonthSeparators separators = MonthSeparators::Dash);

// The portfolio of the file valued as of the month of the valuation month option (the default
// month when it is not given). The month is read first and then the working database checked, so
// that a malformed month or a missing database is named as such. nullptr with *error set when any
// of it fails.
std::unique_ptr<BondPortfolio> openValuedPortfolio(const QString &path, const QCommandLineParser &parser,
                                                   const QCommandLineOption &valuationMonth, QString *error,
                                                   PeopleStore *people = nullptr);
