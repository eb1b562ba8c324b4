#pragma once
// The "Value as of" month picker: months only, limited to the redemption months the database
// holds, and following the database's range when the updater installs new values.
#include <QDateEdit>

class ValuationMonthPicker : public QDateEdit
{
    Q_OBJECT
public:
    explicit ValuationMonthPicker(QWidget *parent = nullptr);

    void setLimits(const QDateTime &earliest, const QDateTime &latest);
    void showMonth(const QDateTime &month);

signals:
    // The user settled on a month (not emitted by showMonth).
    void monthPicked(const QDateTime &month);

private:
    void redemptionDateRangeDidChange(const QVariantMap &userInfo);
    bool m_showing = false;
};
