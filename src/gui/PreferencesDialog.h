// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The preferences: the series and the paper or electronic issue that new bonds start with, and
// where redemption value updates come from and whether the program looks for them itself. One
// window for the life of the process; edits are held until OK and dropped by Cancel, and closing
// the window otherwise keeps them pending for the next showing.
#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

class PreferencesDialog : public QDialog
{
    Q_OBJECT
public:
    // The one window, created on first use.
    static PreferencesDialog &instance();
    // Shows the window (not modal) and brings it to the front.
    static void showPreferences();

    QComboBox *seriesChoice() const { return m_series; }
    QRadioButton *paperChoice() const { return m_paper; }
    QRadioButton *electronicChoice() const { return m_electronic; }
    QComboBox *updateSourceChoice() const { return m_source; }
    QLineEdit *updateDirectoryField() const { return m_directory; }
    QCheckBox *automaticCheckChoice() const { return m_automatic; }

    void accept() override;
    void reject() override;

protected:
    // Closing the window neither saves nor drops: the edits wait for OK or Cancel.
    void closeEvent(QCloseEvent *event) override;

private:
    PreferencesDialog();
    // Shows the stored settings, dropping whatever was pending.
    void revert();

    QComboBox *m_series = nullptr;
    QRadioButton *m_paper = nullptr;
    QRadioButton *m_electronic = nullptr;
    QComboBox *m_source = nullptr;
    QLineEdit *m_directory = nullptr;
    QCheckBox *m_automatic = nullptr;
};
