#pragma once
// Installs a value file as the Treasury publishes it (sbYYYYMM.asc, or a Fiscal Data value CSV)
// into the user's database without an update server, on a worker thread while the user sees
// that work goes on, and reports what was added or why nothing was.
#include <QString>

class QWidget;

namespace TreasuryFileInstall {
struct Result
{
    bool installed = false;
    QString text; // what was added, or why nothing was
};
// Installs the file into the database in force; the window is busy meanwhile.
Result install(QWidget *parent, const QString &path);
// Asks for the file, installs it and says how it went.
void chooseAndInstall(QWidget *parent);
}
