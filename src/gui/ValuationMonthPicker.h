// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Value as of" month picker: months only, limited to the redemption months the database
// holds, and following the database's range when the updater, or another process, installs new
// values.
#include <QDateEdit>
#include <QDateTime>
#include <QTimer>

#include <functional>
#include <utility>

class ValuationMonthPicker : public QDateEdit
{
    Q_OBJECT
public:
    explicit ValuationMonthPicker(QWidget *parent = nullptr);

    void setLimits(const QDateTime &earliest, const QDateTime &latest);
    void showMonth(const QDateTime &month);
    // The earliest and latest redemption months, as the database holds them now.
    using RangeSource = std::function<std::pair<QDateTime, QDateTime>()>;
    // Sets the limits from the source, and asks it again every few seconds and whenever the
    // application becomes active. Another process's installation sends this one no notice; the
    // source is cheap to ask while the database is unchanged (it reads the range again only when
    // SQLite's data_version says another connection has written).
    void followRange(RangeSource source);
    static constexpr int RangeCheckInterval = 3000; // ms
    static constexpr int TypingPause = 400;         // ms

signals:
    // The user settled on a month (not emitted by showMonth).
    void monthPicked(const QDateTime &month);
    // The database's range moved under the picker (another process installed values, say).
    void rangeMoved();

private:
    void redemptionDateRangeDidChange(const QVariantMap &userInfo);
    void checkRange();
    void pickShownMonth();
    bool m_showing = false;
    RangeSource m_rangeSource;
    std::pair<QDateTime, QDateTime> m_range;
    QTimer m_rangeCheck;
    QTimer m_typingPause;
};
