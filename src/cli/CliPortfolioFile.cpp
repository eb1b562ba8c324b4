#include "CliPortfolioFile.h"

#include "valuation/RedemptionDatabase.h"

#include <QFileInfo>
#include <QRegularExpression>

std::unique_ptr<BondPortfolio> openPortfolioFile(const QString &path, QString *error)
{
    if (!QFileInfo(path).isFile()) {
        *error = QStringLiteral("%1: no such portfolio file").arg(path);
        return nullptr;
    }
    auto portfolio = newPortfolio();
    QString reason;
    if (!portfolio->readFromFile(path, &reason)) {
        *error = QStringLiteral("%1: cannot open the portfolio: %2").arg(path, reason);
        return nullptr;
    }
    return portfolio;
}

std::unique_ptr<BondPortfolio> newPortfolio()
{
    return std::make_unique<BondPortfolio>(nullptr, RedemptionDatabase::path());
}

QCommandLineOption valuationMonthOption()
{
    return QCommandLineOption(QStringLiteral("as-of"),
                              QStringLiteral("Valuation month, YYYY-MM (default: the latest month with values, "
                                             "or this month if earlier)."),
                              QStringLiteral("month"));
}

bool applyValuationMonth(BondPortfolio &portfolio, const QString &text, QString *error)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*([0-9]{4})-([0-9]{1,2})\\s*$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const int month = match.hasMatch() ? match.captured(2).toInt() : 0;
    if (month < 1 || month > 12) {
        *error = QStringLiteral("the valuation month must be written YYYY-MM, not '%1'").arg(text);
        return false;
    }
    const QDateTime date = BondAssessor::monthDate(match.captured(1).toInt(), month);
    ValidationError refusal;
    if (!portfolio.validateValueOfDate(date, &refusal) || !portfolio.setValueOfDate(date)) {
        *error = QStringLiteral("%1: %2").arg(text, refusal.message);
        return false;
    }
    return true;
}
