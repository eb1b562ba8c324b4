// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere-cli tax-report: what each owner reports for a tax year, from a portfolio file.
#include "CliCommand.h"
#include "CliPortfolioFile.h"
#include "document/TaxYearText.h"
#include "model/PeopleStore.h"

#include <QCommandLineParser>
#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString kindKey(TaxYearItem::Kind kind)
{
    switch (kind) {
    case TaxYearItem::Kind::Redeemed: return QStringLiteral("redeemed");
    case TaxYearItem::Kind::Matured: return QStringLiteral("matured");
    case TaxYearItem::Kind::Accrued: return QStringLiteral("accrued");
    }
    return {};
}

QJsonObject bondJson(const Holding &holding)
{
    return {{"series", holding.series()->code()}, {"quantity", holding.quantity()}, {"faceValue", holding.faceValue()},
            {"issueDate", holding.issueDate().toString(Month::Style::Iso)},
            {"serialNumber", holding.serialNumber().isNull() ? QJsonValue() : QJsonValue(holding.serialNumber())}};
}

QByteArray json(const TaxYearReport &report)
{
    QJsonArray owners;
    for (const OwnerTaxYear &owner : report.owners) {
        QJsonArray items;
        for (const TaxYearItem &item : owner.items) {
            QJsonObject object = bondJson(*item.holding);
            object.insert("kind", kindKey(item.kind));
            object.insert("month", item.month.toString(Month::Style::Iso));
            object.insert("interest", item.interest);
            object.insert("estimated", item.estimated);
            items.append(object);
        }
        owners.append(QJsonObject{{"owner", owner.owner ? QJsonValue(owner.owner->name()) : QJsonValue()},
                                  {"reportsYearly", owner.reportsYearly},
                                  {"items", items},
                                  {"redeemed", owner.interest(TaxYearItem::Kind::Redeemed)},
                                  {"matured", owner.interest(TaxYearItem::Kind::Matured)},
                                  {"accrued", owner.interest(TaxYearItem::Kind::Accrued)},
                                  {"total", owner.total()}});
    }
    QJsonArray nextYear;
    for (const NextYearMaturity &maturity : report.nextYear) {
        QJsonObject object = bondJson(*maturity.holding);
        object.insert("finalMaturity", maturity.finalMaturity.toString(Month::Style::Iso));
        object.insert("interestSoFar", maturity.interestSoFar);
        nextYear.append(object);
    }
    return QJsonDocument(QJsonObject{{"year", report.year}, {"owners", owners}, {"householdTotal", report.householdTotal()},
                                     {"nextYear", nextYear}, {"note", TaxYearText::stateTaxNote()}})
        .toJson(QJsonDocument::Indented);
}

QString text(const TaxYearReport &report, const QString &portfolioName)
{
    QString out = CliText::tr("Tax year %1: %2").arg(report.year).arg(portfolioName) + QLatin1Char('\n');
    if (report.owners.isEmpty())
        out += CliText::tr("No interest to report for %1.").arg(report.year) + QLatin1Char('\n');
    for (const OwnerTaxYear &owner : report.owners) {
        out += QLatin1Char('\n') + TaxYearText::ownerText(owner) + QLatin1Char('\n');
        for (const TaxYearItem &item : owner.items) {
            const QString note = TaxYearText::estimateNote(item);
            out += QStringLiteral("  %1: %2  %3%4\n")
                       .arg(TaxYearText::itemText(item), TaxYearText::bondText(*item.holding), formatDollars(item.interest),
                            note.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(note));
        }
        out += QStringLiteral("  ") + CliText::tr("Total: %1").arg(formatDollars(owner.total())) + QLatin1Char('\n');
    }
    out += QLatin1Char('\n') + CliText::tr("Household total: %1").arg(formatDollars(report.householdTotal())) + QLatin1Char('\n');
    out += TaxYearText::stateTaxNote() + QLatin1Char('\n');
    if (!report.nextYear.isEmpty()) {
        out += QLatin1Char('\n') + TaxYearText::nextYearHeading(report) + QLatin1Char('\n');
        for (const NextYearMaturity &maturity : report.nextYear)
            out += QStringLiteral("  %1: %2\n")
                       .arg(TaxYearText::bondText(*maturity.holding),
                            CliText::tr("final maturity %1, interest so far %2")
                                .arg(maturity.finalMaturity.toString(Month::Style::Slash), formatDollars(maturity.interestSoFar)));
    }
    return out;
}

int run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(CliText::tr("Shows what each owner reports as savings bond interest for a tax year."));
    const QCommandLineOption yearOption(QStringLiteral("year"), CliText::tr("The tax year (default: this year)."), QStringLiteral("YYYY"));
    const QCommandLineOption jsonOption(QStringLiteral("json"), CliText::tr("Print JSON for scripts (money in pennies)."));
    const QCommandLineOption peopleOption = peopleFileOption();
    parser.addOptions({yearOption, jsonOption, peopleOption});
    parser.addPositionalArgument(QStringLiteral("file"), CliText::tr("The portfolio (.%1).").arg(QLatin1String(PortfolioFile::Extension)));
    int status = 0;
    if (!parseArguments(parser, arguments,
                        {1, 1, CliText::tr("which portfolio? Give one file"), CliText::tr("give one portfolio file only")}, {},
                        &status))
        return status;
    int year = QDate::currentDate().year();
    if (parser.isSet(yearOption)) {
        bool ok = false;
        year = parser.value(yearOption).toInt(&ok);
        if (!ok || year < 1941 || year > 9999)
            return cliFail(CliText::tr("'%1' is not a year; give it as YYYY").arg(parser.value(yearOption)));
    }
    const QString file = parser.positionalArguments().first();
    PeopleStore people(peopleFilePath(parser, peopleOption, file));
    QString error;
    const auto portfolio = openPortfolioFile(file, &error, people);
    if (!portfolio)
        return cliFail(error);
    const TaxYearReport report = TaxYearReport::of(portfolio->data(), portfolio->assessor(), year);
    if (parser.isSet(jsonOption))
        cliOut() << QString::fromUtf8(json(report));
    else
        cliOut() << text(report, portfolio->displayName());
    return 0;
}

const CliCommand::Registration registration({QStringLiteral("tax-report"),
                                             QT_TRANSLATE_NOOP("CliText", "tax-report FILE [--year YYYY] [--json] [--people FILE]"),
                                             run});

} // namespace
