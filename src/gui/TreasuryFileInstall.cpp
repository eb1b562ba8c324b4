// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TreasuryFileInstall.h"

#include "Alerts.h"
#include "update/InstallationSummary.h"
#include "update/TreasuryFileInstallation.h"
#include "valuation/RedemptionDatabase.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

namespace {

// A file goes in whole in one transaction: there is nothing to cancel, so the dialog stays until
// the work is done, whatever keys are pressed.
class BusyDialog : public QProgressDialog
{
public:
    using QProgressDialog::QProgressDialog;

protected:
    void reject() override {}
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

// Runs off the main thread.
TreasuryFileInstall::Result installNow(const QString &database, const QString &path)
{
    TreasuryFileInstallation installation(database);
    const TreasuryFileInstallation::FileResult result = installation.install(path);
    switch (result.failure) {
    case TreasuryFileInstallation::Failure::None:
        return {true, installationSummary(result.fileName, result.outcome)};
    case TreasuryFileInstallation::Failure::NotOpenable:
        return {false, TreasuryFileInstall::tr("The redemption value database %1 cannot be opened.").arg(database)};
    default:
        return {false, result.detail};
    }
}

} // namespace

TreasuryFileInstall::TreasuryFileInstall(QWidget *window)
    : QObject(window)
    , m_window(window)
{
}

TreasuryFileInstall::~TreasuryFileInstall()
{
    if (m_worker) {
        m_worker->wait();
        delete m_worker;
    }
    delete m_progress;
}

void TreasuryFileInstall::start(const QString &path)
{
    const TreasuryFileInstallation installation(RedemptionDatabase::path());
    const QString database = installation.databasePath();
    if (installation.check() != TreasuryFileInstallation::Failure::None) {
        // Reported from the event loop, as a finished installation is, so that callers connect
        // after starting alike.
        const Result refused{false, tr("The redemption value database %1 cannot be written.").arg(database)};
        QTimer::singleShot(0, this, [this, refused] { emit finished(refused); });
        return;
    }
    m_progress = new BusyDialog(tr("Installing %1…").arg(QFileInfo(path).fileName()), QString(), 0, 0, m_window);
    m_progress->setWindowTitle(tr("Install Treasury Value File"));
    m_progress->setWindowModality(Qt::ApplicationModal);
    m_progress->setMinimumDuration(0);
    m_progress->show();
    m_worker = QThread::create([this, database, path] { m_result = installNow(database, path); });
    connect(m_worker, &QThread::finished, this, &TreasuryFileInstall::workerFinished);
    m_worker->start();
}

void TreasuryFileInstall::workerFinished()
{
    m_worker->wait();
    delete m_worker;
    m_worker = nullptr;
    delete m_progress;
    emit finished(m_result);
}

void TreasuryFileInstall::chooseAndInstall(QWidget *window)
{
    const QString path = QFileDialog::getOpenFileName(window, tr("Install Treasury Value File"), QString(),
                                                      tr("Treasury value files (*.asc *.csv);;All files (*)"));
    if (path.isEmpty())
        return;
    auto *install = new TreasuryFileInstall(window);
    const QString name = QFileInfo(path).fileName();
    connect(install, &TreasuryFileInstall::finished, window, [window, name](const Result &result) {
        if (result.installed)
            Alerts::inform(window, tr("Value file installed"), result.text);
        else
            Alerts::warn(window, tr("Nothing was installed"), tr("%1 was not installed: %2").arg(name, result.text));
    });
    connect(install, &TreasuryFileInstall::finished, install, &QObject::deleteLater);
    install->start(path);
}
