// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The look the window's notice bars share: a strip in the tooltip's colours with a wrapping
// message and a close button at its right end.
#include <initializer_list>

class QFrame;
class QLabel;
class QToolButton;
class QWidget;

namespace NoticeBarLook {
struct Parts
{
    QLabel *message;
    QToolButton *close;
};
// Styles the bar and lays out its message, the widgets given (buttons), and the close button.
Parts apply(QFrame *bar, std::initializer_list<QWidget *> between = {});
}
