// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Opening a portfolio document for a sub-command, and its --as-of option.
#include "CliDatabase.h"
#include "document/BondPortfolio.h"
#include "model/ValuedPortfolio.h"

#include <QCommandLineOption>
#include <QString>
#include <functional>
#include <memory>

class QCommandLineParser;

// A portfolio on the working redemption value database, read from the file; its people come from
// the store on peopleFilePath(), which must outlive it. nullptr with *error set when the file
// cannot be read.
std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error, PeopleStore &people);
// An empty portfolio on the working database, to be saved under a new name.
std::unique_ptr<BondPortfolio> newPortfolio(PeopleStore &people);

// The --people option, "FILE": the vCard file that names a portfolio's people.
QCommandLineOption peopleFileOption();
// Which people file names the people of the portfolio at portfolioPath: --people, else the one
// the window would read (PeopleStore::pathForPortfolio).
QString peopleFilePath(const QCommandLineParser &parser, const QCommandLineOption &option, const QString &portfolioPath);
// "PATH: cannot save the portfolio: the disk is full" and the like.
QString saveFailureText(const QString &path, const PortfolioSaveFailure &failure);
// "N people named in FILE are not in PEOPLE", or empty when the store knew everyone the file names.
QString missingPeopleText(int missing, const QString &fileName, const PeopleStore &people);

// The --as-of option, "YYYY-MM".
QCommandLineOption valuationMonthOption();
// The month given with the valuation month option, or an invalid date when it is not given; false,
// with *error set, when its text is not a month.
bool readValuationMonth(const QCommandLineParser &parser, const QCommandLineOption &option, QDateTime *month,
                        QString *error, MonthSeparators separators = MonthSeparators::Dash);

// The portfolio of the file, as data, valued as of the month of the valuation month option (the
// default month when it is not given): what read-only commands use. The month is read first and
// then the working database checked, so that a malformed month or a missing database is named as
// such. nullptr with *error set when any of it fails. People the store does not know are named in
// a warning on standard error.
std::unique_ptr<ValuedPortfolio> openValuedPortfolio(const QString &path, const QCommandLineParser &parser,
                                                   const QCommandLineOption &valuationMonth, QString *error,
                                                   PeopleStore &people);

// The body of the commands that export a portfolio into a directory, "COMMAND FILE DIR [--as-of]
// [--people FILE]": parses the arguments, checks the directory, opens the valued portfolio and
// hands both to the export, whose exit status it returns.
using DirectoryExport = std::function<int(const ValuedPortfolio &portfolio, const QString &directory)>;
int runDirectoryExport(const QStringList &arguments, const QString &description, const QString &usageComplaint,
                       const DirectoryExport &exportInto);
