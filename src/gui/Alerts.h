// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Alerts that never block the caller: window-modal sheets over a window, or a plain dialog when
// there is no window yet.
#include <QString>

class QWidget;

namespace Alerts {
void warn(QWidget *parent, const QString &title, const QString &message);
void inform(QWidget *parent, const QString &title, const QString &message);
}
