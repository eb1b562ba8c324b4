// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingColumns.h"

#include <QCoreApplication>

namespace HoldingColumns {
namespace {

constexpr Qt::Alignment Left = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment Right = Qt::AlignRight | Qt::AlignVCenter;
constexpr Qt::Alignment Centre = Qt::AlignCenter;

constexpr Descriptor Descriptors[Count] = {
    {"series", QT_TRANSLATE_NOOP("HoldingColumns", "Series"), true, Left, 96},
    {"quantity", QT_TRANSLATE_NOOP("HoldingColumns", "Quantity"), true, Right, 70},
    {"issueDate", QT_TRANSLATE_NOOP("HoldingColumns", "Issue Date"), true, Centre, 84},
    {"faceValue", QT_TRANSLATE_NOOP("HoldingColumns", "Face Value"), true, Right, 92},
    {"issuePrice", QT_TRANSLATE_NOOP("HoldingColumns", "Issue Price"), false, Right, 92},
    {"interestEarned", QT_TRANSLATE_NOOP("HoldingColumns", "Interest Earned"), false, Right, 112},
    {"value", QT_TRANSLATE_NOOP("HoldingColumns", "Value"), false, Right, 96},
    {"ytdInterest", QT_TRANSLATE_NOOP("HoldingColumns", "YTD Interest"), false, Right, 96},
    {"currentYield", QT_TRANSLATE_NOOP("HoldingColumns", "Current Yield"), false, Right, 100},
    {"growthRate", QT_TRANSLATE_NOOP("HoldingColumns", "Growth Rate"), false, Right, 92},
    {"rate", QT_TRANSLATE_NOOP("HoldingColumns", "Rate"), false, Right, 210},
    {"finalMaturity", QT_TRANSLATE_NOOP("HoldingColumns", "Final Maturity"), false, Centre, 100},
    {"nextIncrease", QT_TRANSLATE_NOOP("HoldingColumns", "Next Increase"), false, Centre, 100},
    {"note", QT_TRANSLATE_NOOP("HoldingColumns", "Note"), false, Left, 300},
    {"serialNumber", QT_TRANSLATE_NOOP("HoldingColumns", "Serial Number"), true, Left, 116},
    {"paper", QT_TRANSLATE_NOOP("HoldingColumns", "Paper"), true, Centre, 52},
    {"owner", QT_TRANSLATE_NOOP("HoldingColumns", "Owner"), true, Left, 150},
    {"co-owner", QT_TRANSLATE_NOOP("HoldingColumns", "Co-owner"), true, Left, 150},
    {"beneficiary", QT_TRANSLATE_NOOP("HoldingColumns", "Beneficiary"), true, Left, 150},
    {"registration", QT_TRANSLATE_NOOP("HoldingColumns", "Registration"), false, Left, 280},
};

} // namespace

const Descriptor &descriptor(int column)
{
    return Descriptors[column];
}

bool shownByDefault(int column)
{
    return !isPerson(column) && column != GrowthRate && column != YtdInterest && column != Rate
           && column != FinalMaturity && column != NextIncrease && column != Note;
}

QString title(int column)
{
    return QCoreApplication::translate("HoldingColumns", Descriptors[column].title);
}

QString key(int column)
{
    return QString::fromLatin1(Descriptors[column].key);
}

int columnForKey(const QString &key)
{
    for (int column = 0; column < Count; ++column) {
        if (key == QLatin1String(Descriptors[column].key))
            return column;
    }
    return -1;
}

bool isFigure(int column)
{
    return column == IssuePrice || column == InterestEarned || column == Value || column == YtdInterest
           || column == CurrentYield || column == GrowthRate;
}

bool isPerson(int column)
{
    return column == Owner || column == CoOwner || column == Beneficiary;
}

} // namespace HoldingColumns
