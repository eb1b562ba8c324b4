#pragma once
// What an import or export ends with, as values the window turns into an alert (or the command
// line into its output). Every alert of these operations has the single button "Continue".
#include <QString>

struct ExchangeOutcome
{
    static constexpr const char *ButtonTitle = "Continue";

    bool succeeded = false;
    // The alert to show; both empty when nothing is shown (a failed CSV export only beeps).
    QString title;
    QString message;
    // The technical reason of a failure, for the log; empty on success.
    QString detail;
};
