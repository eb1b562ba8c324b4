// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The open portfolios of the program: one window each. Makes new ones, opens files (raising the
// window of a file already open), keeps the recent files, and quits by closing every window,
// each asking about its own unsaved changes.
#include <QList>
#include <QObject>
#include <QStringList>

class BondPortfolio;
class PortfolioWindow;
class QWidget;

class DocumentManager : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *RecentFilesKey = "recentFiles";
    static constexpr int MaximumRecentFiles = 10;

    static DocumentManager &instance();

    PortfolioWindow *newDocument();
    // The window of the file, opened now or already open; nullptr (after an alert over parent)
    // when the file is no portfolio or cannot be read.
    PortfolioWindow *openFile(const QString &path, QWidget *parent = nullptr);
    // Asks for files to open.
    void openWithDialog(QWidget *parent);
    // Closes every window; stops at the first whose user cancels. True when all closed.
    bool closeAll();

    QList<PortfolioWindow *> windows() const { return m_windows; }
    PortfolioWindow *windowForFile(const QString &path) const;
    QStringList recentFiles() const;
    void noteRecentFile(const QString &path);
    // The database every new document reads (the working copy unless overridden).
    QString databasePath() const;

private:
    DocumentManager() = default;
    PortfolioWindow *show(BondPortfolio *portfolio);

    QList<PortfolioWindow *> m_windows;
};
