// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "DocumentManager.h"

#include "Alerts.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"
#include "base/UserDefaults.h"
#include "model/PeopleStore.h"
#include "valuation/RedemptionDatabase.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

DocumentManager &DocumentManager::instance()
{
    static DocumentManager *manager = new DocumentManager;
    return *manager;
}

QString DocumentManager::databasePath() const
{
    return RedemptionDatabase::path();
}

PortfolioWindow *DocumentManager::newDocument()
{
    return show(new BondPortfolio(nullptr, databasePath()));
}

PortfolioWindow *DocumentManager::windowForFile(const QString &path) const
{
    const QString wanted = QFileInfo(path).canonicalFilePath();
    for (PortfolioWindow *window : m_windows) {
        const QString open = window->portfolio()->fileName();
        if (!open.isEmpty() && QFileInfo(open).canonicalFilePath() == wanted)
            return window;
    }
    return nullptr;
}

PortfolioWindow *DocumentManager::openFile(const QString &path, QWidget *parent)
{
    if (PortfolioWindow *open = windowForFile(path)) {
        open->show();
        open->raise();
        open->activateWindow();
        return open;
    }
    // The people come from the file the command-line program would read for this portfolio.
    auto *portfolio = new BondPortfolio(&PeopleStore::shared(PeopleStore::pathForPortfolio(path)), databasePath());
    QString error;
    if (!portfolio->readFromFile(QFileInfo(path).absoluteFilePath(), &error)) {
        delete portfolio;
        Alerts::warn(parent, tr("“%1” could not be opened").arg(QFileInfo(path).fileName()), error);
        return nullptr;
    }
    noteRecentFile(portfolio->fileName());
    return show(portfolio);
}

void DocumentManager::openWithDialog(QWidget *parent)
{
    const QStringList paths = QFileDialog::getOpenFileNames(
        parent, tr("Open Portfolio"), QString(),
        tr("Savings bond portfolios (*.%1);;All files (*)").arg(QLatin1String(PortfolioFile::Extension)));
    for (const QString &path : paths)
        openFile(path, parent);
}

PortfolioWindow *DocumentManager::show(BondPortfolio *portfolio)
{
    auto *window = new PortfolioWindow(portfolio);
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_windows.append(window);
    connect(window, &QObject::destroyed, this, [this, window] { m_windows.removeAll(window); });
    // Each new window steps a little away from the last, so that none hides another.
    const int offset = 24 * int((m_windows.size() - 1) % 8);
    window->move(window->pos() + QPoint(offset, offset));
    window->show();
    return window;
}

bool DocumentManager::closeAll()
{
    const QList<PortfolioWindow *> windows = m_windows;
    for (PortfolioWindow *window : windows) {
        if (!window->close())
            return false;
    }
    return true;
}

QStringList DocumentManager::recentFiles() const
{
    QStringList files = UserDefaults::value(QString::fromLatin1(RecentFilesKey)).toStringList();
    files.removeIf([](const QString &path) { return !QFileInfo::exists(path); });
    return files;
}

void DocumentManager::noteRecentFile(const QString &path)
{
    if (path.isEmpty())
        return;
    QStringList files = UserDefaults::value(QString::fromLatin1(RecentFilesKey)).toStringList();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > MaximumRecentFiles)
        files.removeLast();
    UserDefaults::setValue(QString::fromLatin1(RecentFilesKey), files);
}
