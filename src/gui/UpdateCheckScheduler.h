// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The check for new redemption values that the program makes by itself after start: in the
// background, never blocking and never asking anything. When it finds values, every portfolio
// window shows a bar offering the update, until an update installs them.
#include <QObject>
#include <QPointer>

class PriceUpdater;

class UpdateCheckScheduler : public QObject
{
    Q_OBJECT
public:
    static UpdateCheckScheduler &instance();

    // Starts the check if it is due; one check at most in the life of the process. Returns at once.
    void start();

    // New values were found and are not yet installed.
    bool hasNewValues() const { return m_newValues; }
    // The last month of the values found (MonthIndex), 0 when the source did not say.
    int newValuesThrough() const { return m_through; }
    // True while a check runs.
    bool isChecking() const { return m_checking; }

signals:
    void newValuesChanged(bool available);
    void checkFinished();

private:
    UpdateCheckScheduler();
    void check();
    void finish(PriceUpdater *updater);
    void setNewValues(bool available, int through);

    bool m_started = false;
    bool m_checking = false;
    bool m_newValues = false;
    int m_through = 0;
};
