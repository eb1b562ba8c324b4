// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/InstallationSummary.h"

#include "base/Month.h"

#include <QCoreApplication>

QString installationSummary(const QString &fileName, const OfficialSourceInstaller::Outcome &outcome)
{
    auto month = [](const QDateTime &date) {
        return date.isValid() ? Month::of(date).toString(Month::Style::Iso)
                              : QCoreApplication::translate("InstallationSummary", "none");
    };
    QString text = QCoreApplication::translate("InstallationSummary",
                                               "Installed %1: %2 new records, %3 already installed, %4 completed, %5 "
                                               "derived values replaced by official ones, %6 values of matured bonds "
                                               "carried forward, %7 values of fixed-rate EE bonds computed; redemption "
                                               "months %8 to %9")
                       .arg(fileName, QString::number(outcome.installedRecords),
                            QString::number(outcome.unchangedRecords), QString::number(outcome.filledRecords),
                            QString::number(outcome.replacedDerivedValues), QString::number(outcome.carriedValues),
                            QString::number(outcome.computedValues), month(outcome.minimum), month(outcome.maximum));
    if (!outcome.derivedDifferences.isEmpty())
        text += QLatin1Char('\n') + QCoreApplication::translate("InstallationSummary", "Note: %1").arg(outcome.derivedDifferences);
    return text;
}
