#pragma once
// A plain pair of dates, start then end, passed by value.
#include <QDateTime>

struct DateRange
{
    QDateTime start;
    QDateTime end;
};
