// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Alerts.h"

#include <QApplication>
#include <QMessageBox>

namespace {
void show(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &message)
{
    // The title leads the alert in bold and the message follows, as desktop alerts read; the
    // window's own title bar, which would cut a long title, only names the program.
    auto *box = new QMessageBox(icon, QApplication::applicationDisplayName(), title, QMessageBox::Ok, parent);
    box->setInformativeText(message);
    box->setAttribute(Qt::WA_DeleteOnClose);
    if (parent)
        box->setWindowModality(Qt::WindowModal);
    box->open();
}
}

namespace Alerts {

void warn(QWidget *parent, const QString &title, const QString &message)
{
    show(parent, QMessageBox::Warning, title, message);
}

void inform(QWidget *parent, const QString &title, const QString &message)
{
    show(parent, QMessageBox::Information, title, message);
}

} // namespace Alerts
