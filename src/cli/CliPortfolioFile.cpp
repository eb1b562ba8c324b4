#include "CliPortfolioFile.h"

#include "valuation/RedemptionDatabase.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

// Sets the valuation month when one is given; refuses months without values.
bool applyValuationMonth(BondPortfolio &portfolio, const QDateTime &month, QString *error)
{
    if (!month.isValid())
        return true;
    ValidationError refusal;
    if (!portfolio.validateValueOfDate(month, &refusal) || !portfolio.setValueOfDate(month)) {
        *error = QStringLiteral("%1: %2").arg(monthText(month), refusal.message);
        return false;
    }
    return true;
}

} // namespace

std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error, PeopleStore *people)
{
    if (!QFileInfo(path).isFile()) {
        *error = QStringLiteral("%1: no such portfolio file").arg(path);
        return nullptr;
    }
    auto portfolio = newPortfolio(people);
    QString reason;
    if (!portfolio->readFromFile(path, &reason)) {
        *error = QStringLiteral("%1: cannot open the portfolio: %2").arg(path, reason);
        return nullptr;
    }
    return portfolio;
}

std::unique_ptr<BondPortfolio> newPortfolio(PeopleStore *people)
{
    return std::make_unique<BondPortfolio>(people, RedemptionDatabase::path());
}

QCommandLineOption valuationMonthOption()
{
    return QCommandLineOption(QStringLiteral("as-of"),
                              QStringLiteral("Valuation month, YYYY-MM (default: the latest month with values, "
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
    *error = QStringLiteral("the valuation month must be written YYYY-MM, not '%1'").arg(text);
    return false;
}

std::unique_ptr<BondPortfolio> openValuedPortfolio(const QString &path, const QCommandLineParser &parser,
                                                   const QCommandLineOption &valuationMonth, QString *error,
                                                   PeopleStore *people)
{
    QDateTime month;
    if (!readValuationMonth(parser, valuationMonth, &month, error) || !openRedemptionDatabase(error))
        return nullptr;
    auto portfolio = openPortfolioFile(path, error, people);
    if (!portfolio || !applyValuationMonth(*portfolio, month, error))
        return nullptr;
    return portfolio;
}
