#include "ValuationMonthPicker.h"

#include "update/RedemptionDateRangeNotifier.h"
#include "valuation/BondAssessor.h"

ValuationMonthPicker::ValuationMonthPicker(QWidget *parent)
    : QDateEdit(parent)
{
    setDisplayFormat(QStringLiteral("MM/yyyy"));
    // Only a finished choice is a new valuation month, not every keystroke on the way.
    setKeyboardTracking(false);
    setCurrentSection(QDateTimeEdit::MonthSection);
    connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
        if (!m_showing)
            emit monthPicked(BondAssessor::monthDate(date.year(), date.month()));
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
