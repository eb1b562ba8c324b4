// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The file panels and alerts of the export and import commands. The window asks through this
// interface, so that tests can answer in place of the user without a modal loop.
#include "exchange/ExchangeAlerts.h"

#include <QString>
#include <optional>

class QWidget;

class ExchangePanels
{
public:
    // What the user chose in a panel: a path, the row of its option control and, in the CSV
    // export's panel, whether the file is written for spreadsheets.
    struct Choice
    {
        QString path;
        int row = 0;
        bool forSpreadsheets = false;
    };

    virtual ~ExchangePanels() = default;

    // The save panel of the CSV export. The all/selected control is shown only when
    // offerSelection is true; row is the row it starts on. The spreadsheet check box is always
    // shown, starting as forSpreadsheets says. Empty when cancelled.
    virtual std::optional<Choice> chooseCsvExportFile(QWidget *parent, bool offerSelection, int row, bool forSpreadsheets);
    // The directory panel of the QIF export, with the same control under the same rule.
    virtual std::optional<Choice> chooseQifExportDirectory(QWidget *parent, bool offerSelection, int row);
    // The directory panel of the export for GnuCash and KMyMoney (always of every holding).
    virtual std::optional<QString> chooseFinanceExportDirectory(QWidget *parent);
    // The open panel of the import, always with the format control (row 0 own format).
    virtual std::optional<Choice> chooseCsvImportFile(QWidget *parent, int row);
    // The open panel for a list saved from the Treasury's Savings Bond Calculator (an HTML page).
    virtual std::optional<QString> chooseCalculatorPage(QWidget *parent);
    // A modal alert with the single button "Continue"; warning shows the caution icon.
    virtual void alert(QWidget *parent, const ExchangeAlert &alert, bool warning);
    virtual void beep();
};
