// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CliDatabase.h"

#include "CliCommand.h"

#include "valuation/RedemptionDatabase.h"

#include "base/Month.h"

std::unique_ptr<BondAssessor> openRedemptionDatabase(QString *error)
{
    const QString path = RedemptionDatabase::path();
    if (path.isEmpty()) {
        *error = CliText::tr("no redemption value database found: the program's own copy (%1) is missing "
                                "and %2 is not set")
                     .arg(QLatin1String(RedemptionDatabase::FileName), QLatin1String(RedemptionDatabase::PathEnvironmentVariable));
        return nullptr;
    }
    auto assessor = std::make_unique<BondAssessor>(path);
    switch (assessor->state()) {
    case BondAssessor::State::Missing:
        *error = CliText::tr("the redemption value database %1 does not exist").arg(path);
        return nullptr;
    case BondAssessor::State::Unreadable:
        *error = assessor->errorMessage();
        return nullptr;
    case BondAssessor::State::Open:
        break;
    }
    if (!assessor->maximumRedemptionDate().isValid()) {
        *error = CliText::tr("%1 is not a redemption value database (it holds no redemption months)").arg(path);
        return nullptr;
    }
    return assessor;
}

QString monthText(const QDateTime &date)
{
    return date.isValid() ? Month::of(date).toString(Month::Style::Iso) : CliText::tr("none");
}

QDateTime monthFromText(const QString &text, MonthSeparators separators)
{
    return Month::fromString(text, separators == MonthSeparators::Dash ? Month::Form::Iso : Month::Form::IsoOrSlash)
        .toDateTime();
}
