#include "HoldingColumns.h"

namespace HoldingColumns {
namespace {

constexpr Qt::Alignment Left = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment Right = Qt::AlignRight | Qt::AlignVCenter;
constexpr Qt::Alignment Centre = Qt::AlignCenter;

constexpr Descriptor Descriptors[Count] = {
    {"series", "Series", true, Left, 96},
    {"quantity", "Quantity", true, Right, 70},
    {"issueDate", "Issue Date", true, Centre, 84},
    {"faceValue", "Face Value", true, Right, 92},
    {"issuePrice", "Issue Price", false, Right, 92},
    {"interestEarned", "Interest Earned", false, Right, 112},
    {"value", "Value", false, Right, 96},
    {"currentYield", "Current Yield", false, Right, 100},
    {"growthRate", "Growth Rate", false, Right, 92},
    {"serialNumber", "Serial Number", true, Left, 116},
    {"paper", "Paper", true, Centre, 52},
    {"owner", "Owner", true, Left, 150},
    {"co-owner", "Co-owner", true, Left, 150},
    {"beneficiary", "Beneficiary", true, Left, 150},
    {"registration", "Registration", false, Left, 280},
};

} // namespace

const Descriptor &descriptor(int column)
{
    return Descriptors[column];
}

QString title(int column)
{
    return QString::fromLatin1(Descriptors[column].title);
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
    return column == IssuePrice || column == InterestEarned || column == Value || column == CurrentYield
           || column == GrowthRate;
}

bool isPerson(int column)
{
    return column == Owner || column == CoOwner || column == Beneficiary;
}

} // namespace HoldingColumns
