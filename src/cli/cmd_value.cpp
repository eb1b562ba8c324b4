// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli value: the value of one bond in one month, its issue price and the interest earned.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "HoldingNotes.h"
#include "document/HoldingPresentation.h"
#include "model/Holding.h"
#include "base/Money.h"
#include "valuation/ValuationMonth.h"
#include "base/Series.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace {

// The names people use for a series: the codes, E/EE/I/SN, and the labels, in any case.
const Series *seriesNamed(QString name)
{
    name = name.toUpper().remove(QRegularExpression(QStringLiteral("[\\s_-]")));
    if (name.startsWith(QLatin1String("SERIES")))
        name = name.mid(6);
    if (name.endsWith(QLatin1String("BOND")))
        name.chop(4);
    static const QList<std::pair<QString, const char *>> names = {
        {QStringLiteral("E"), "E"},  {QStringLiteral("EE"), "N"},         {QStringLiteral("N"), "N"},
        {QStringLiteral("I"), "I"},  {QStringLiteral("SN"), "S"},         {QStringLiteral("S"), "S"},
        {QStringLiteral("SAVINGSNOTE"), "S"}, {QStringLiteral("SAVINGSNOTES"), "S"}};
    for (const auto &[known, code] : names) {
        if (name == known)
            return Series::seriesForCode(QString::fromLatin1(code));
    }
    return nullptr;
}

// The value with its markers as words.
QString valueText(const HoldingFigures &holding)
{
    if (!holding.isValidIssue())
        return CliText::tr("no pricing data");
    if (!holding.isRedeemableIssue())
        return CliText::tr("not yet redeemable");
    return formatDollars(holding.value());
}

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("The value of one savings bond as of a month."));
    const QCommandLineOption seriesOption(QStringLiteral("series"), CliText::tr("E, EE, I or SN (Savings Note)."), QStringLiteral("series"));
    const QCommandLineOption faceOption(QStringLiteral("face"), CliText::tr("Face value in dollars."), QStringLiteral("dollars"));
    const QCommandLineOption issuedOption(QStringLiteral("issued"), CliText::tr("Issue month, YYYY-MM."), QStringLiteral("month"));
    const QCommandLineOption asOfOption = valuationMonthOption();
    const QCommandLineOption electronicOption(QStringLiteral("electronic"), CliText::tr("The bond was bought electronically, not on paper."));
    parser.addOptions({seriesOption, faceOption, issuedOption, asOfOption, electronicOption});
    int status = 0;
    if (!parseArguments(parser, arguments, PositionalCount::none(),
                        CliText::tr("--series S --face DOLLARS --issued YYYY-MM [options]"), &status))
        return status;
    for (const QCommandLineOption &required : {seriesOption, faceOption, issuedOption}) {
        if (!parser.isSet(required))
            return cliFail(CliText::tr("--%1 is required").arg(required.names().first()));
    }

    const Series *series = seriesNamed(parser.value(seriesOption));
    if (!series)
        return cliFail(CliText::tr("unknown series '%1' (use E, EE, I or SN)").arg(parser.value(seriesOption)));
    bool numeric = false;
    const double dollars = QString(parser.value(faceOption)).remove(QLatin1Char('$')).remove(QLatin1Char(',')).toDouble(&numeric);
    const Pennies faceValue = numeric ? dollarsToPennies(dollars) : 0;
    if (faceValue <= 0)
        return cliFail(CliText::tr("the face value must be a positive number of dollars, not '%1'").arg(parser.value(faceOption)));
    // Slashes too: people write months both ways.
    const QDateTime issued = monthFromText(parser.value(issuedOption), MonthSeparators::DashOrSlash);
    if (!issued.isValid())
        return cliFail(CliText::tr("the issue month must be written YYYY-MM, not '%1'").arg(parser.value(issuedOption)));
    QString error;
    QDateTime asOf;
    if (!readValuationMonth(parser, asOfOption, &asOf, &error, MonthSeparators::DashOrSlash))
        return cliFail(error);
    const auto database = openRedemptionDatabase(&error);
    if (!database)
        return cliFail(error);

    // One bond, valued exactly as a portfolio values its holdings: its facts against the database
    // as of the month.
    const QDateTime valuedAsOf = (asOf.isValid() ? asOf : ValuationMonth::initial(*database)).toLocalTime();
    const HoldingRef bond = Holding::create();
    bond->setSeries(series);
    bond->setFaceValue(faceValue);
    bond->setIssueDate(Month::of(issued));
    bond->setPaper(!parser.isSet(electronicOption));
    const HoldingFigures figures({database.get(), Month::of(valuedAsOf)}, bond->facts());

    cliOut() << (bond->isPaper() ? CliText::tr("Series:          %1 (paper)\n")
                                 : CliText::tr("Series:          %1 (electronic)\n"))
                    .arg(series->label())
             << CliText::tr("Face value:      %1\n").arg(formatDollars(faceValue))
             << CliText::tr("Issued:          %1\n").arg(monthText(issued))
             << CliText::tr("Value as of:     %1\n").arg(monthText(valuedAsOf))
             << CliText::tr("Issue price:     %1\n").arg(formatDollars(bond->issuePrice()))
             << CliText::tr("Value:           %1\n").arg(valueText(figures))
             << CliText::tr("Interest earned: %1\n").arg(formatDollars(figures.interestEarned()));
    if (figures.isValueDerived())
        cliOut() << CliText::tr("Computed:        %1\n").arg(HoldingPresentation::derivedValueNote());
    else if (const QString note = HoldingNotes::noPricingData(figures); !note.isEmpty())
        cliOut() << CliText::tr("Note:            %1\n").arg(note);
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("value"),
                                             QT_TRANSLATE_NOOP("CliText", "value --series S --face DOLLARS --issued YYYY-MM [--as-of YYYY-MM] [--electronic]"),
                                             run});

} // namespace
