// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "NoticeBarLook.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace NoticeBarLook {

Parts apply(QFrame *bar, std::initializer_list<QWidget *> between)
{
    bar->setFrameShape(QFrame::StyledPanel);
    bar->setAutoFillBackground(true);
    bar->setBackgroundRole(QPalette::ToolTipBase);
    bar->setForegroundRole(QPalette::ToolTipText);
    Parts parts{new QLabel(bar), new QToolButton(bar)};
    parts.message->setWordWrap(true);
    parts.close->setIcon(bar->style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    parts.close->setAutoRaise(true);
    parts.close->setToolTip(QApplication::translate("NoticeBarLook", "Close"));
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(parts.message, 1);
    for (QWidget *widget : between)
        layout->addWidget(widget);
    layout->addWidget(parts.close);
    return parts;
}

}
