// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The user manual, shipped inside the program and shown in a window of its own: one for the
// whole program, raised again when asked for while it is open.
class QWidget;

namespace HelpWindow {
// The manual's resource, for the window and the tests.
inline constexpr const char *ManualUrl = "qrc:/help/user-manual.html";
void show(QWidget *parent);
}
