// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HelpWindow.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace HelpWindow {

void show(QWidget *parent)
{
    static QPointer<QDialog> window;
    if (!window) {
        // No parent: the manual stays open when the window that asked for it closes.
        window = new QDialog(nullptr, Qt::Window);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowTitle(QCoreApplication::translate("HelpWindow", "Quillmere Help"));
        auto *browser = new QTextBrowser(window);
        browser->setOpenExternalLinks(true);
        browser->setSource(QUrl(QString::fromLatin1(ManualUrl)));
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, window);
        QObject::connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::close);
        auto *layout = new QVBoxLayout(window);
        layout->addWidget(browser);
        layout->addWidget(buttons);
        window->resize(720, 640);
        if (parent)
            window->move(parent->geometry().center() - window->rect().center());
    }
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace HelpWindow
