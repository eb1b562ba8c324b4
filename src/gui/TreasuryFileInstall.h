// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Installs a value file as the Treasury publishes it (sbYYYYMM.asc, or a Fiscal Data value CSV)
// into the user's database without an update server. The work runs on a worker thread while a
// progress dialog, modal to the whole program, shows that it goes on; the event loop keeps
// running meanwhile, and finished() reports what was added or why nothing was.
#include <QObject>
#include <QPointer>
#include <QString>

class QProgressDialog;
class QThread;
class QWidget;

class TreasuryFileInstall : public QObject
{
    Q_OBJECT
public:
    struct Result
    {
        bool installed = false;
        QString text; // what was added, or why nothing was
    };

    // The progress dialog stands over the window.
    explicit TreasuryFileInstall(QWidget *window);
    // Waits for a worker still running: the file goes in whole or not at all.
    ~TreasuryFileInstall() override;

    // Starts installing the file into the database in force and returns at once; finished()
    // follows, also when the database cannot be written. One file per object.
    void start(const QString &path);
    bool isRunning() const { return m_worker != nullptr; }

    // Asks for the file, installs it and says in an alert over the window how it went.
    static void chooseAndInstall(QWidget *window);

signals:
    void finished(const TreasuryFileInstall::Result &result);

private:
    void workerFinished();

    QWidget *m_window;
    QPointer<QProgressDialog> m_progress;
    QThread *m_worker = nullptr;
    Result m_result; // written by the worker, read once it has finished
};
