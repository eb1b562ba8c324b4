// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateAvailableBar.h"

#include "base/Month.h"
#include "UpdateCheckScheduler.h"
#include "valuation/MonthIndex.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

UpdateAvailableBar::UpdateAvailableBar(QWidget *parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("UpdateAvailableBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    m_message = new QLabel(this);
    m_message->setWordWrap(true);
    m_update = new QPushButton(tr("Update Now…"), this);
    m_close = new QToolButton(this);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setAutoRaise(true);
    m_close->setToolTip(tr("Close"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(m_message, 1);
    layout->addWidget(m_update);
    layout->addWidget(m_close);

    connect(m_update, &QPushButton::clicked, this, &UpdateAvailableBar::updateRequested);
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);
    connect(&UpdateCheckScheduler::instance(), &UpdateCheckScheduler::newValuesChanged, this, &UpdateAvailableBar::follow);
    follow();
}

void UpdateAvailableBar::follow()
{
    const UpdateCheckScheduler &scheduler = UpdateCheckScheduler::instance();
    const int through = scheduler.newValuesThrough();
    if (through)
        m_message->setText(tr("New redemption values through %1 are available.")
                               .arg(Month::fromIndex(through).toString(Month::Style::Slash)));
    else
        m_message->setText(tr("New redemption values are available."));
    setVisible(scheduler.hasNewValues());
}
