// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/fiscaldata/FiscalDataPage.h"

#include "update/PriceDataFile.h"
#include "update/sources/SourceText.h"
#include "valuation/BondAssessor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <optional>
#include <QCoreApplication>

namespace FiscalDataFields {

QString amountField(int month)
{
    static const char *const names[12] = {"jan", "feb", "mar", "apr", "may", "jun",
                                          "jul", "aug", "sep", "oct", "nov", "dec"};
    return QStringLiteral("issue_%1_amt").arg(QLatin1String(names[month - 1]));
}

std::optional<qint32> amountCents(const QString &text)
{
    const QString cell = text.trimmed();
    if (cell.isEmpty() || cell == QLatin1String("null"))
        return qint32(RedemptionMarker::NoPricingData);
    if (cell.compare(QLatin1String("NO PAY"), Qt::CaseInsensitive) == 0)
        return qint32(RedemptionMarker::NotRedeemable);
    // Dollars with at most two decimals; whole cents only, so no rounding can creep in.
    static const QRegularExpression dollars(QStringLiteral("^([0-9]{1,7})(?:\\.([0-9]{1,2}))?$"));
    const QRegularExpressionMatch match = dollars.match(cell);
    if (!match.hasMatch())
        return std::nullopt;
    QString fraction = match.captured(2);
    fraction = fraction.leftJustified(2, QLatin1Char('0'));
    const qint32 cents = match.captured(1).toInt() * 100 + fraction.toInt();
    return cents == 0 ? qint32(RedemptionMarker::NotRedeemable) : cents;
}

} // namespace FiscalDataFields

namespace {

// A field as text: strings as they stand, JSON numbers with two decimals, null empty; nothing
// when the field is missing or of another kind.
std::optional<QString> fieldText(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = object.value(key);
    if (value.isString())
        return value.toString();
    if (value.isNull())
        return QString();
    if (value.isDouble())
        return QString::number(value.toDouble(), 'f', 2);
    return std::nullopt;
}

std::optional<int> wholeNumber(const QJsonValue &value)
{
    if (value.isDouble()) {
        const double number = value.toDouble();
        if (number == double(qint64(number)) && number >= 0 && number <= 1e9)
            return int(number);
        return std::nullopt;
    }
    if (!value.isString())
        return std::nullopt;
    const QByteArray text = value.toString().toLatin1();
    const std::optional<qint64> digits = SourceText::digits(text);
    if (!digits || *digits > 1000000000)
        return std::nullopt;
    return int(*digits);
}

QString quoted(const QJsonValue &value)
{
    if (value.isString())
        return QLatin1Char('"') + value.toString().left(40) + QLatin1Char('"');
    if (value.isUndefined())
        return QStringLiteral("nothing");
    return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact)).mid(1).chopped(1).left(40);
}

// Reads one record; on refusal returns the reason.
QString readRecord(const QJsonObject &object, PriceRecord *record)
{
    const QJsonValue series = object.value(QLatin1String("series_cd"));
    const QString code = series.toString();
    if (!series.isString() || code.size() != 1 || !SourceText::isSeriesCode(code.at(0).toLatin1()))
        return QCoreApplication::translate("FiscalDataPage", "series_cd %1 is not E, N, I or S").arg(quoted(series));
    record->series = code.at(0).toLatin1();

    // The month comes as redemp_period ("2022-08") and as its year and month; either will do,
    // but both must agree when both are there.
    std::optional<int> year, month;
    const QJsonValue period = object.value(QLatin1String("redemp_period"));
    if (!period.isUndefined()) {
        static const QRegularExpression shape(QStringLiteral("^([0-9]{4})-([0-9]{1,2})$"));
        const QRegularExpressionMatch match = shape.match(period.toString());
        if (!period.isString() || !match.hasMatch())
            return QCoreApplication::translate("FiscalDataPage", "redemp_period %1 is not a month").arg(quoted(period));
        year = match.captured(1).toInt();
        month = match.captured(2).toInt();
    }
    for (const auto &[key, target] : {std::pair{"redemption_year", &year}, std::pair{"redemption_month", &month}}) {
        const QJsonValue field = object.value(QLatin1String(key));
        if (field.isUndefined())
            continue;
        const std::optional<int> number = wholeNumber(field);
        if (!number)
            return QCoreApplication::translate("FiscalDataPage", "%1 %2 is not a number").arg(QLatin1String(key), quoted(field));
        if (*target && **target != *number)
            return QCoreApplication::translate("FiscalDataPage", "%1 %2 disagrees with redemp_period %3").arg(QLatin1String(key), quoted(field), quoted(period));
        *target = number;
    }
    if (!year || !month)
        return QCoreApplication::translate("FiscalDataPage", "the redemption month is missing (redemp_period, or redemption_year and redemption_month)");
    const int latestYear = SourceText::latestRedemptionYear();
    if (*year < 1941 || *year > latestYear || *month < 1 || *month > 12)
        return QCoreApplication::translate("FiscalDataPage", "redemption month %1-%2 is out of range").arg(*year).arg(*month, 2, 10, QLatin1Char('0'));
    record->ryr = quint16(*year);
    record->rmo = quint8(*month);

    const QJsonValue issueYear = object.value(QLatin1String("issue_year"));
    const std::optional<int> iyr = wholeNumber(issueYear);
    if (!iyr)
        return QCoreApplication::translate("FiscalDataPage", "issue_year %1 is not a year").arg(quoted(issueYear));
    if (*iyr < 1941 || *iyr > *year)
        return QCoreApplication::translate("FiscalDataPage", "issue_year %1 is out of range for redemption month %2-%3")
            .arg(*iyr).arg(*year).arg(*month, 2, 10, QLatin1Char('0'));
    record->iyr = quint16(*iyr);

    for (int m = 1; m <= 12; ++m) {
        const QString key = FiscalDataFields::amountField(m);
        // Every month is there, null when no bond was issued: a missing one is a damaged record.
        const std::optional<QString> text = fieldText(object, key);
        const std::optional<qint32> cents = text ? FiscalDataFields::amountCents(*text) : std::nullopt;
        if (!cents)
            return QCoreApplication::translate("FiscalDataPage", "%1 %2 is not an amount").arg(key, quoted(object.value(key)));
        // The installer refuses larger values; say so here, where the field can be named.
        if (*cents > PriceDataFile::LargestValue)
            return QCoreApplication::translate("FiscalDataPage", "%1 %2 is out of range").arg(key, quoted(object.value(key)));
        record->value[m - 1] = *cents;
    }
    return {};
}

} // namespace

FiscalDataPage FiscalDataPage::parse(const QByteArray &json)
{
    FiscalDataPage page;
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        page.error = QCoreApplication::translate("FiscalDataPage", "the reply is not JSON (%1 at byte %2)").arg(parseError.errorString()).arg(parseError.offset);
        return page;
    }
    const QJsonObject top = document.object();
    const QJsonValue data = top.value(QLatin1String("data"));
    const QJsonObject meta = top.value(QLatin1String("meta")).toObject();
    if (!document.isObject() || !data.isArray()) {
        page.error = QCoreApplication::translate("FiscalDataPage", "the reply has no list of records (\"data\")");
        return page;
    }
    const std::optional<int> pages = wholeNumber(meta.value(QLatin1String("total-pages")));
    const std::optional<int> count = wholeNumber(meta.value(QLatin1String("total-count")));
    if (!pages || !count) {
        page.error = QCoreApplication::translate("FiscalDataPage", "the reply lacks its page count (\"meta\": \"total-pages\", \"total-count\")");
        return page;
    }
    page.totalPages = *pages;
    page.totalCount = *count;

    const QJsonArray rows = data.toArray();
    page.records.reserve(rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        PriceRecord record;
        const QString why = rows.at(i).isObject() ? readRecord(rows.at(i).toObject(), &record)
                                                  : QCoreApplication::translate("FiscalDataPage", "it is not an object");
        if (!why.isEmpty()) {
            page.error = QCoreApplication::translate("FiscalDataPage", "record %1: %2").arg(i + 1).arg(why);
            page.records.clear();
            return page;
        }
        page.records.append(record);
    }
    return page;
}
