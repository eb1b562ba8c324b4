// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ExchangeAlerts.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ExchangeAlerts {

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("ExchangeAlerts", source);
}

} // namespace

ExchangeAlert of(const CsvImportOutcome &outcome)
{
    if (outcome.succeeded) {
        // The texts of the original alerts, their quirks kept: "out of" counts the bonds again.
        ExchangeAlert alert{text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Import Complete")),
                            text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Imported %1 out of %2 bonds. (HH/H bonds not supported)"))
                                .arg(QString::number(outcome.importedCount), QString::number(outcome.importedCount)),
                            {}};
        if (!outcome.skipped.isEmpty()) {
            constexpr qsizetype Listed = 20;
            QStringList lines = outcome.skipped.mid(0, Listed);
            if (outcome.skipped.size() > Listed)
                lines << QCoreApplication::translate("ExchangeAlerts", "and %n more", nullptr, int(outcome.skipped.size() - Listed));
            alert.informative = QCoreApplication::translate("ExchangeAlerts", "Skipped %n line(s):", nullptr,
                                                            int(outcome.skipped.size()))
                                + QLatin1Char('\n') + lines.join(QLatin1Char('\n'));
        }
        if (outcome.unmatchedNames > 0) {
            if (!alert.informative.isEmpty())
                alert.informative += QLatin1Char('\n');
            alert.informative += QCoreApplication::translate(
                "ExchangeAlerts", "%n name(s) matched no one person in your people and were left off the bonds.", nullptr,
                outcome.unmatchedNames);
        }
        return alert;
    }
    const QString producer = outcome.format == CsvImportFormat::Own
                                 ? text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Quillmere"))
                                 : text(QT_TRANSLATE_NOOP("ExchangeAlerts", "the Treasury Department's Savings Bond Wizard"));
    ExchangeAlert alert{text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Import file corrupt")),
                        text(QT_TRANSLATE_NOOP("ExchangeAlerts", "The file you selected does not appear to be a CSV file produced "
                                                                 "by %1.  Please verify your choice and try again."))
                            .arg(producer),
                        {}};
    if (outcome.headerOfOtherFormat)
        alert.informative = outcome.format == CsvImportFormat::Own
                                ? text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Its columns are those of a Savings Bond Wizard "
                                                                           "file: import it as one."))
                                : text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Its columns are those of a Quillmere file: "
                                                                           "import it as one."));
    return alert;
}

ExchangeAlert of(const QuickenFileSet::Outcome &outcome)
{
    if (!outcome.succeeded)
        return {text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Alert")),
                text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Unable to export data")), {}};
    return {text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Export complete")),
            text(QT_TRANSLATE_NOOP("ExchangeAlerts",
                                   "You may now import your portfolio positions and pricelist from the files in %1"))
                .arg(outcome.directory),
            {}};
}

ExchangeAlert of(const FinanceExport::Outcome &outcome)
{
    if (!outcome.succeeded)
        return {text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Alert")),
                text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Unable to export data")), {}};
    return {text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Export complete")),
            text(QT_TRANSLATE_NOOP("ExchangeAlerts", "Wrote %1 and %2 in %3."))
                .arg(QFileInfo(outcome.paths.qif).fileName(), QFileInfo(outcome.paths.priceCsv).fileName(), outcome.directory),
            text(QT_TRANSLATE_NOOP("ExchangeAlerts",
                                   "In GnuCash or KMyMoney, import %1 with File ▸ Import ▸ QIF. GnuCash skips the prices "
                                   "of a QIF: import %2 afterwards with File ▸ Import ▸ Import Prices from a CSV file."))
                .arg(QFileInfo(outcome.paths.qif).fileName(), QFileInfo(outcome.paths.priceCsv).fileName())};
}

} // namespace ExchangeAlerts
