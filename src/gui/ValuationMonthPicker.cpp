#include "ValuationMonthPicker.h"

#include "valuation/RedemptionDateRangeNotifier.h"
#include "valuation/BondAssessor.h"

#include <QGuiApplication>

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
