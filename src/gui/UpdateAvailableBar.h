// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bar above a portfolio window's tables that says new redemption values can be installed,
// with a button that opens the updater and one that puts the bar away. Never modal.
#include <QFrame>

class QLabel;
class QPushButton;
class QToolButton;

class UpdateAvailableBar : public QFrame
{
    Q_OBJECT
public:
    explicit UpdateAvailableBar(QWidget *parent = nullptr);

    QLabel *message() const { return m_message; }
    QPushButton *updateButton() const { return m_update; }
    QToolButton *closeButton() const { return m_close; }

signals:
    void updateRequested();

private:
    void follow();

    QLabel *m_message = nullptr;
    QPushButton *m_update = nullptr;
    QToolButton *m_close = nullptr;
};
