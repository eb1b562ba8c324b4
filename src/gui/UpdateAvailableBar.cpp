// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateAvailableBar.h"

#include "NoticeBarLook.h"

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
    m_update = new QPushButton(tr("Update Now…"), this);
    const NoticeBarLook::Parts parts = NoticeBarLook::apply(this, {m_update});
    m_message = parts.message;
    m_close = parts.close;

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
