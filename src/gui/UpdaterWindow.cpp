// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdaterWindow.h"

#include "update/PriceUpdateRun.h"
#include "update/PriceUpdater.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

UpdaterWindow::UpdaterWindow(PriceUpdater *updater, QWidget *parent)
    : QDialog(parent)
    , m_updater(updater)
{
    m_updater->setParent(this);
    setObjectName(QStringLiteral("UpdatePricesWindow"));
    setWindowTitle(tr("Update Redemption Values"));
    auto *intro = new QLabel(m_updater->source() == UpdateLocation::Source::FiscalData
                                 ? tr("Check the Treasury's Fiscal Data service for redemption values your database "
                                      "lacks and install them.")
                                 : tr("Check the update directory %1 for new redemption values and install them.")
                                       .arg(m_updater->baseUrl().toDisplayString()),
                             this);
    intro->setWordWrap(true);
    m_status = new QLabel(this);
    // A failure says why on a second line.
    m_status->setWordWrap(true);
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_status->setMinimumWidth(fontMetrics().horizontalAdvance(UpdateStatus::text(UpdateStatus::Unavailable)));
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, 1);
    m_progress->setValue(0);
    m_progress->setTextVisible(false);
    m_check = new QPushButton(tr("Check for Updates"), this);
    m_install = new QPushButton(tr("Install Updates"), this);
    auto *close = new QPushButton(tr("Close"), this);
    m_check->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_check);
    buttons->addWidget(m_install);
    buttons->addStretch();
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_status);
    layout->addWidget(m_progress);
    layout->addLayout(buttons);

    connect(m_check, &QPushButton::clicked, m_updater, &PriceUpdater::checkForUpdates);
    connect(m_install, &QPushButton::clicked, m_updater, &PriceUpdater::updatePriceData);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_updater, &PriceUpdater::statusTextChanged, m_status, &QLabel::setText);
    connect(m_updater, &PriceUpdater::updateAvailableChanged, this, &UpdaterWindow::updateButtons);
    connect(m_updater, &PriceUpdater::checkingForUpdatesChanged, this, &UpdaterWindow::updateButtons);
    connect(m_updater, &PriceUpdater::updatingPriceDataChanged, this, &UpdaterWindow::updateButtons);
    connect(m_updater, &PriceUpdater::downloadingChanged, this, &UpdaterWindow::showDownloading);
    connect(m_updater, &PriceUpdater::progressChanged, this, &UpdaterWindow::showProgress);
    m_status->setText(m_updater->statusText());
    updateButtons();
}

void UpdaterWindow::updateButtons()
{
    const bool busy = m_updater->checkingForUpdates() || m_updater->updatingPriceData();
    m_check->setEnabled(!busy);
    m_install->setEnabled(!busy && m_updater->updateAvailable());
}

void UpdaterWindow::showDownloading(bool downloading)
{
    // A range of 0 to 0 is Qt's animated bar for work of unknown length.
    if (downloading)
        m_progress->setRange(0, 0);
    else
        m_progress->setRange(0, std::max(1, m_installMaximum));
}

void UpdaterWindow::showProgress(double value, double maximum)
{
    m_installMaximum = int(maximum);
    m_progress->setRange(0, std::max(1, m_installMaximum));
    m_progress->setValue(int(value));
}

UpdaterSession &UpdaterSession::instance()
{
    static UpdaterSession session;
    return session;
}

void UpdaterSession::showUpdater(QWidget *parent)
{
    if (m_showing)
        return;
    if (!PriceUpdater::canPerformUpdate()) {
        QMessageBox box(QMessageBox::Warning, tr(NotWritableTitle), tr(NotWritableMessage), QMessageBox::NoButton,
                        parent);
        QPushButton *quit = box.addButton(tr(QuitButton), QMessageBox::AcceptRole);
        box.addButton(tr(CancelButton), QMessageBox::RejectRole);
        box.setDefaultButton(quit);
        box.exec();
        if (box.clickedButton() == quit)
            QApplication::quit();
        else
            QApplication::beep();
        return;
    }
    m_showing = true;
    emit showingChanged(true);
    // Closing ends the modal session at once; the window and its updater go once the current
    // event is handled, and a worker still running keeps its own hold on the database.
    auto *window = new UpdaterWindow(new PriceUpdater, parent);
    window->exec();
    window->deleteLater();
    m_showing = false;
    emit showingChanged(false);
}
