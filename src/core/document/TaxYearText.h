// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tax report's words, shared by the window, its exports and the command line.
#include "document/TaxYearReport.h"

#include <QString>
#include <QStringList>

namespace TaxYearText {
// "Alice Smith", "Alice Smith (reports interest every year)", or "No owner".
QString ownerText(const OwnerTaxYear &owner);
// "Redeemed 03/2026", "Final maturity 05/2026, reportable even if not cashed", "Earned in 2026".
QString itemText(const TaxYearItem &item);
// "Series EE bonds, 2 × $1,000.00, issued 01/1996, serial C123".
QString bondText(const Holding &holding);
// "estimated from the latest month the database has" when an item's value is; "" otherwise.
QString estimateNote(const TaxYearItem &item);
QString stateTaxNote();
// "Plan for next year: 3 bonds reach final maturity in 2027".
QString nextYearHeading(const TaxYearReport &report);
// Column titles of the report's table and of its CSV: Owner, Bonds, Event, Interest, Note.
QStringList columnTitles();
}
