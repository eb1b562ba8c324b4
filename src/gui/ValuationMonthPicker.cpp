// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ValuationMonthPicker.h"

#include "valuation/RedemptionDateRangeNotifier.h"
#include "valuation/BondAssessor.h"

#include <QGuiApplication>

ValuationMonthPicker::ValuationMonthPicker(QWidget *parent)
    : QDateEdit(parent)
{
    setDisplayFormat(QStringLiteral("MM/yyyy"));
    // A month typed where the cursor is takes effect once the typing pauses (or at Return), so
    // that "05" sets May without waiting for the field to lose focus, and a year typed digit by
    // digit values the portfolio once.
    setCurrentSection(QDateTimeEdit::MonthSection);
    m_typingPause.setSingleShot(true);
    m_typingPause.setInterval(TypingPause);
    connect(&m_typingPause, &QTimer::timeout, this, &ValuationMonthPicker::pickShownMonth);
    connect(this, &QDateEdit::dateChanged, this, [this] {
        if (m_showing)
            return;
        if (hasFocus())
            m_typingPause.start();
        else
            pickShownMonth();
    });
    connect(this, &QDateEdit::editingFinished, this, [this] {
        if (m_typingPause.isActive())
            pickShownMonth();
    });
    connect(&m_rangeCheck, &QTimer::timeout, this, &ValuationMonthPicker::checkRange);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            checkRange();
    });
    connect(RedemptionDateRangeNotifier::instance(), &RedemptionDateRangeNotifier::redemptionDateRangeDidChange,
            this, [this](const QObject *, const QVariantMap &userInfo) { redemptionDateRangeDidChange(userInfo); });
}

void ValuationMonthPicker::setLimits(const QDateTime &earliest, const QDateTime &latest)
{
    m_showing = true;
    if (latest.isValid())
        setMaximumDate(latest.date());
    if (earliest.isValid())
        setMinimumDate(QDate(earliest.date().year(), earliest.date().month(), 1));
    m_showing = false;
}

void ValuationMonthPicker::followRange(RangeSource source)
{
    m_rangeSource = std::move(source);
    m_range = m_rangeSource();
    setLimits(m_range.first, m_range.second);
    m_rangeCheck.start(RangeCheckInterval);
}

void ValuationMonthPicker::checkRange()
{
    if (!m_rangeSource)
        return;
    const std::pair<QDateTime, QDateTime> range = m_rangeSource();
    if (range == m_range)
        return;
    m_range = range;
    setLimits(range.first, range.second);
    emit rangeMoved();
}

void ValuationMonthPicker::showMonth(const QDateTime &month)
{
    m_showing = true;
    setDate(month.date());
    m_showing = false;
}

void ValuationMonthPicker::redemptionDateRangeDidChange(const QVariantMap &userInfo)
{
    // The latest month first, then the earliest, as the announcement is meant to be read.
    m_showing = true;
    const QDateTime latest = userInfo.value(QString::fromLatin1(QBMaximumRedemptionDateKey)).toDateTime();
    const QDateTime earliest = userInfo.value(QString::fromLatin1(QBMinimumRedemptionDateKey)).toDateTime();
    if (latest.isValid())
        setMaximumDate(latest.date());
    if (earliest.isValid())
        setMinimumDate(QDate(earliest.date().year(), earliest.date().month(), 1));
    m_showing = false;
}

void ValuationMonthPicker::pickShownMonth()
{
    m_typingPause.stop();
    const QDate shown = date();
    emit monthPicked(BondAssessor::monthDate(shown.year(), shown.month()));
}
