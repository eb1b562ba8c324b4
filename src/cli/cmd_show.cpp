// quillmere-cli show: a portfolio file as the window shows it, with totals and the interest summary.
#include "CliCommand.h"
#include "CliDatabase.h"
#include "PortfolioReport.h"
#include "document/BondPortfolio.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QDateTime monthFromText(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*(\\d{4})-(\\d{1,2})\\s*$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    const int month = match.captured(2).toInt();
    if (month < 1 || month > 12)
        return {};
    return BondAssessor::monthDate(match.captured(1).toInt(), month);
}

// Which people file names the portfolio's people: --people, else QUILLMERE_PEOPLE, else a
// people.vcf beside the portfolio (how examples travel), else the user's own store.
QString peoplePath(const QString &option, const QString &portfolioPath)
{
    if (!option.isEmpty())
        return option;
    if (!qEnvironmentVariableIsEmpty(PeopleStore::PathEnvironmentVariable))
        return PeopleStore::defaultPath();
    const QString beside = QFileInfo(portfolioPath).absoluteDir().filePath(QString::fromLatin1(PeopleStore::FileName));
    if (QFileInfo(beside).isFile())
        return beside;
    return PeopleStore::defaultPath();
}

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows a portfolio: every holding's figures, totals and the interest summary."));
    parser.addHelpOption();
    const QCommandLineOption asOfOption(QStringLiteral("as-of"),
                                        QStringLiteral("Valuation month, YYYY-MM (default: this month, or the latest "
                                                       "month with values if earlier)."),
                                        QStringLiteral("month"));
    const QCommandLineOption yearlyOption(QStringLiteral("yearly"), QStringLiteral("Interest earned within each year instead of cumulative."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Print JSON for scripts (money in pennies)."));
    const QCommandLineOption peopleOption(QStringLiteral("people"),
                                          QStringLiteral("vCard file that names the people (default: $QUILLMERE_PEOPLE, "
                                                         "else people.vcf beside the portfolio, else your own people file)."),
                                          QStringLiteral("file"));
    parser.addOptions({asOfOption, yearlyOption, jsonOption, peopleOption});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The portfolio (.%1).").arg(QLatin1String(PortfolioFile::Extension)));
    if (!parser.parse(arguments))
        return cliFail(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        cliOut() << parser.helpText();
        return 0;
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1)
        return cliFail(files.isEmpty() ? QStringLiteral("which portfolio? Give one file") : QStringLiteral("give one portfolio file only"));
    QDateTime asOf;
    if (parser.isSet(asOfOption)) {
        asOf = monthFromText(parser.value(asOfOption));
        if (!asOf.isValid())
            return cliFail(QStringLiteral("the valuation month must be written YYYY-MM, not '%1'").arg(parser.value(asOfOption)));
    }

    QString error;
    const auto database = openRedemptionDatabase(&error);
    if (!database)
        return cliFail(error);
    PeopleStore people(peoplePath(parser.value(peopleOption), files.first()));
    BondPortfolio portfolio(&people, database->databasePath());
    if (!portfolio.readFromFile(files.first(), &error))
        return cliFail(error);
    if (asOf.isValid()) {
        ValidationError refused;
        if (!portfolio.validateValueOfDate(asOf, &refused))
            return cliFail(QStringLiteral("%1 (%2)").arg(refused.message, parser.value(asOfOption)));
        portfolio.setValueOfDate(asOf);
    }
    portfolio.setSummaryMode(parser.isSet(yearlyOption) ? 1 : 0);
    if (parser.isSet(jsonOption))
        cliOut() << QString::fromUtf8(PortfolioReport::json(portfolio));
    else
        cliOut() << PortfolioReport::text(portfolio);
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("show"),
                                             QStringLiteral("show FILE [--as-of YYYY-MM] [--yearly] [--json] [--people FILE]"),
                                             run});

} // namespace
