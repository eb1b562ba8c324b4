// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bond table's columns: one descriptor per column, in the table's designed order. A column's
// key names it in the saved column settings; keys never change, whatever the titles read, so
// that settings saved by any earlier version keep working.
#include <QString>
#include <Qt>

namespace HoldingColumns {

enum Column {
    Series,
    Quantity,
    IssueDate,
    FaceValue,
    IssuePrice,
    InterestEarned,
    Value,
    YtdInterest,
    CurrentYield,
    GrowthRate,
    Rate,
    FinalMaturity,
    NextIncrease,
    Note,
    SerialNumber,
    Paper,
    Owner,
    CoOwner,
    Beneficiary,
    Registration,
    Count
};

struct Descriptor
{
    const char *key;
    const char *title;
    bool editable;
    Qt::Alignment alignment;
    int width; // designed width in pixels
};

const Descriptor &descriptor(int column);
// Shown until the user chooses columns: the three people columns repeat what the registration
// says and the growth rate matters least; without them the table fits a 1600-pixel window. The
// bond's year-to-date interest, rate, months and note wait in the menu for the same reason: the
// grey lines and the totals already tell which bonds stopped earning.
bool shownByDefault(int column);
QString title(int column);
QString key(int column);
// The column of a saved key, or -1.
int columnForKey(const QString &key);
bool isFigure(int column);
bool isPerson(int column);

} // namespace HoldingColumns
