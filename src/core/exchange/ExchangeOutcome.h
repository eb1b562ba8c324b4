// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What an import or export ends with, as values: ExchangeAlerts words them for the window's alert
// (whose single button is "Continue") and the command line's output.
#include <QString>

struct ExchangeOutcome
{
    bool succeeded = false;
    // The technical reason of a failure, for the log; empty on success.
    QString detail;
};
