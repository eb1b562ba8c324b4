#include "TreasuryFileInstall.h"

#include "update/OfficialSourceInstaller.h"
#include "update/PriceUpdater.h"
#include "update/UpdateConnection.h"
#include "update/sources/PriceSource.h"
#include "valuation/RedemptionDatabase.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QThread>

namespace TreasuryFileInstall {

namespace {

// The whole installation, one transaction; runs off the main thread.
Result installNow(const QString &database, const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const PriceSourceContents contents = PriceSource::readFile(path);
    if (!contents.ok())
        return {false, contents.error};
    UpdateConnection connection(database);
    connection.prepareForWriting();
    if (!connection.handle())
        return {false, QApplication::translate("TreasuryFileInstall", "The redemption value database %1 cannot be opened.")
                           .arg(database)};
    const OfficialSourceInstaller::Outcome outcome =
        OfficialSourceInstaller::install(connection.handle(), {name, contents.records});
    if (!outcome.ok())
        return {false, outcome.error};
    return {true, OfficialSourceInstaller::summary(name, outcome)};
}

} // namespace

Result install(QWidget *parent, const QString &path)
{
    const QString database = RedemptionDatabase::path();
    if (database.isEmpty() || !PriceUpdater::canPerformUpdate(database))
        return {false, QApplication::translate("TreasuryFileInstall", "The redemption value database %1 cannot be written.")
                           .arg(database)};
    QProgressDialog progress(QApplication::translate("TreasuryFileInstall", "Installing %1…").arg(QFileInfo(path).fileName()),
                             QString(), 0, 0, parent);
    progress.setWindowTitle(QApplication::translate("TreasuryFileInstall", "Install Treasury Value File"));
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(0);
    progress.show();
    Result result;
    QEventLoop loop;
    QThread *worker = QThread::create([&result, database, path] { result = installNow(database, path); });
    QObject::connect(worker, &QThread::finished, &loop, &QEventLoop::quit);
    worker->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker->wait();
    delete worker;
    return result;
}

void chooseAndInstall(QWidget *parent)
{
    const QString path = QFileDialog::getOpenFileName(
        parent, QApplication::translate("TreasuryFileInstall", "Install Treasury Value File"), QString(),
        QApplication::translate("TreasuryFileInstall", "Treasury value files (*.asc *.csv);;All files (*)"));
    if (path.isEmpty())
        return;
    const Result result = install(parent, path);
    if (result.installed)
        QMessageBox::information(parent, QApplication::translate("TreasuryFileInstall", "Value file installed"), result.text);
    else
        QMessageBox::warning(parent, QApplication::translate("TreasuryFileInstall", "Nothing was installed"),
                             QApplication::translate("TreasuryFileInstall", "%1 was not installed: %2")
                                 .arg(QFileInfo(path).fileName(), result.text));
}

} // namespace TreasuryFileInstall
