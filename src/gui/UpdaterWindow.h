// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The window that checks for new redemption values and installs them: a status line, a progress
// bar, and Check, Install and Close. Each window runs its own PriceUpdater, which it owns; a
// worker still running when the window goes finishes its work against the database anyway.
#include <QDialog>

class PriceUpdater;
class QLabel;
class QProgressBar;
class QPushButton;

class UpdaterWindow : public QDialog
{
    Q_OBJECT
public:
    // Takes ownership of the updater.
    explicit UpdaterWindow(PriceUpdater *updater, QWidget *parent = nullptr);

    PriceUpdater *updater() const { return m_updater; }
    QLabel *statusLine() const { return m_status; }
    QProgressBar *progressBar() const { return m_progress; }
    QPushButton *checkButton() const { return m_check; }
    QPushButton *installButton() const { return m_install; }

private:
    void updateButtons();
    void showDownloading(bool downloading);
    void showProgress(double value, double maximum);

    PriceUpdater *m_updater;
    QLabel *m_status = nullptr;
    QProgressBar *m_progress = nullptr;
    QPushButton *m_check = nullptr;
    QPushButton *m_install = nullptr;
    int m_installMaximum = 0;
};

// Opens the updater window, one at a time, modally, with a fresh updater each time; or, when the
// database cannot be written, says so and offers to quit.
class UpdaterSession : public QObject
{
    Q_OBJECT
public:
    static UpdaterSession &instance();
    bool isShowing() const { return m_showing; }
    // Returns when the window has closed (or at once after the not-writable alert).
    void showUpdater(QWidget *parent);

    static constexpr const char *NotWritableTitle =
        QT_TRANSLATE_NOOP("UpdaterSession", "Your installation cannot be updated.");
    static constexpr const char *NotWritableMessage = QT_TRANSLATE_NOOP(
        "UpdaterSession",
        "Your installation isn't writeable by the updater.  Typically this occurs when you continue to run the "
        "application from the downloaded DMG file.  The solution is to quit the application and install it "
        "properly by copying it to the Applications folder on your computer.  You may then re-launch the "
        "application from your Applications folder. Any portfolios you have created will not be affected by "
        "moving the application to its proper location.");
    static constexpr const char *QuitButton = QT_TRANSLATE_NOOP("UpdaterSession", "Quit Quillmere");
    static constexpr const char *CancelButton = QT_TRANSLATE_NOOP("UpdaterSession", "Cancel");

signals:
    void showingChanged(bool showing);

private:
    bool m_showing = false;
};
