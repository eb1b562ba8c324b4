// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CliPortfolioFile.h"

#include "document/PortfolioReading.h"

#include "CliCommand.h"
#include "document/SaveFailureReason.h"
#include "model/PeopleStore.h"
#include "valuation/RedemptionDatabase.h"

#include <QCommandLineParser>
#include <QFileInfo>

std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error, PeopleStore &people)
{
    if (!QFileInfo(path).isFile()) {
        *error = CliText::tr("%1: no such portfolio file").arg(path);
        return nullptr;
    }
    auto portfolio = newPortfolio(people);
    QString reason;
    if (!portfolio->readFromFile(path, &reason)) {
        *error = CliText::tr("%1: cannot open the portfolio: %2").arg(path, reason);
        return nullptr;
    }
    return portfolio;
}

std::unique_ptr<BondPortfolio> newPortfolio(PeopleStore &people)
{
    return std::make_unique<BondPortfolio>(&people, RedemptionDatabase::path());
}

QCommandLineOption peopleFileOption()
{
    return QCommandLineOption(QStringLiteral("people"),
                              CliText::tr("vCard file that names the portfolio's people (default: $%1, else %2 "
                                             "beside the portfolio, else your own people file).")
                                  .arg(QLatin1String(PeopleStore::PathEnvironmentVariable), QLatin1String(PeopleStore::FileName)),
                              QStringLiteral("file"));
}

QString peopleFilePath(const QCommandLineParser &parser, const QCommandLineOption &option, const QString &portfolioPath)
{
    if (parser.isSet(option))
        return parser.value(option);
    return PeopleStore::pathForPortfolio(portfolioPath);
}

QString missingPeopleText(int missing, const QString &fileName, const PeopleStore &people)
{
    if (missing == 0)
        return {};
    if (missing == 1)
        return CliText::tr("1 person named in %1 is not in %2").arg(fileName, people.path());
    return CliText::tr("%1 people named in %2 are not in %3").arg(QString::number(missing), fileName, people.path());
}

QCommandLineOption valuationMonthOption()
{
    return QCommandLineOption(QStringLiteral("as-of"),
                              CliText::tr("Valuation month, YYYY-MM (default: the latest month with values, "
                                             "or this month if earlier)."),
                              QStringLiteral("month"));
}

bool readValuationMonth(const QCommandLineParser &parser, const QCommandLineOption &option, QDateTime *month,
                        QString *error, MonthSeparators separators)
{
    *month = QDateTime();
    if (!parser.isSet(option))
        return true;
    const QString text = parser.value(option);
    *month = monthFromText(text, separators);
    if (month->isValid())
        return true;
    *error = CliText::tr("the valuation month must be written YYYY-MM, not '%1'").arg(text);
    return false;
}

std::unique_ptr<ValuedPortfolio> openValuedPortfolio(const QString &path, const QCommandLineParser &parser,
                                                     const QCommandLineOption &valuationMonth, QString *error,
                                                     PeopleStore &people)
{
    QDateTime month;
    if (!readValuationMonth(parser, valuationMonth, &month, error) || !openRedemptionDatabase(error))
        return nullptr;
    if (!QFileInfo(path).isFile()) {
        *error = CliText::tr("%1: no such portfolio file").arg(path);
        return nullptr;
    }
    const PortfolioReading::Result read = PortfolioReading::fromFile(path, people, Person::family(people));
    if (!read.ok) {
        *error = CliText::tr("%1: cannot open the portfolio: %2").arg(path, read.error);
        return nullptr;
    }
    auto portfolio = std::make_unique<ValuedPortfolio>(read.portfolio, path, RedemptionDatabase::path());
    ValidationError refusal;
    if (month.isValid() && !portfolio->setValueOfDate(month, &refusal)) {
        *error = QStringLiteral("%1: %2").arg(monthText(month), refusal.message);
        return nullptr;
    }
    if (const QString missing = missingPeopleText(read.missingPeople, path, people); !missing.isEmpty())
        cliErr() << CliText::tr("quillmere-cli: warning: %1; their names are left out (name the people file that "
                                "holds them with --people FILE)\n")
                        .arg(missing);
    return portfolio;
}

QString saveFailureText(const QString &path, const PortfolioSaveFailure &failure)
{
    const QString kept = QFileInfo::exists(path) ? CliText::tr("; the file is unchanged") : QString();
    return CliText::tr("%1: cannot save the portfolio: %2%3").arg(path, saveFailureReason(failure), kept);
}

int runDirectoryExport(const QStringList &arguments, const QString &description, const QString &usageComplaint,
                       const DirectoryExport &exportInto)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    const QCommandLineOption asOf = valuationMonthOption();
    const QCommandLineOption peopleOption = peopleFileOption();
    parser.addOptions({asOf, peopleOption});
    parser.addPositionalArgument(QStringLiteral("FILE"), CliText::tr("The portfolio document."));
    parser.addPositionalArgument(QStringLiteral("DIR"), CliText::tr("An existing directory to write into."));
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::exactly(2, usageComplaint), {}, &status))
        return status;
    const QStringList paths = parser.positionalArguments();
    if (!QFileInfo(paths.at(1)).isDir())
        return cliFail(CliText::tr("%1: no such directory").arg(paths.at(1)));
    QString error;
    PeopleStore people(peopleFilePath(parser, peopleOption, paths.at(0)));
    const auto portfolio = openValuedPortfolio(paths.at(0), parser, asOf, &error, people);
    if (!portfolio)
        return cliFail(error);
    return exportInto(*portfolio, paths.at(1));
}
