#include "HoldingColumns.h"

#include <QStringList>

namespace HoldingColumns {
namespace {

constexpr Qt::Alignment Left = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment Right = Qt::AlignRight | Qt::AlignVCenter;
constexpr Qt::Alignment Centre = Qt::AlignCenter;

constexpr Descriptor Descriptors[Count] = {
    {"Series", true, Left, 96},
    {"Quantity", true, Right, 70},
    {"Issue Date", true, Centre, 84},
    {"Face Value", true, Right, 92},
    {"Issue Price", false, Right, 92},
    {"Interest Earned", false, Right, 112},
    {"Value", false, Right, 96},
    {"Current Yield", false, Right, 100},
    {"Growth Rate", false, Right, 92},
    {"Serial Number", true, Left, 116},
    {"Paper", true, Centre, 52},
    {"Owner", true, Left, 150},
    {"Co-owner", true, Left, 150},
    {"Beneficiary", true, Left, 150},
    {"Registration", false, Left, 280},
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

QString identifier(int column)
{
    return identifierForTitle(title(column));
}

int columnForIdentifier(const QString &id)
{
    for (int column = 0; column < Count; ++column) {
        if (identifier(column) == id)
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

QString identifierForTitle(const QString &title)
{
    const QStringList pieces = title.split(QLatin1Char(' '));
    if (pieces.size() == 1)
        return title.toLower();
    QString id = pieces.first().toLower();
    for (qsizetype k = 1; k < pieces.size(); ++k)
        id += pieces.at(k);
    return id;
}

} // namespace HoldingColumns
