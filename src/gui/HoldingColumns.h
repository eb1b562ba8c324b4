#pragma once
// The bond table's columns: one descriptor per column, in the table's designed order. A column's
// identifier is derived from its title, which is how the column menu and the saved column
// settings find it again.
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
    CurrentYield,
    GrowthRate,
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
    const char *title;
    bool editable;
    Qt::Alignment alignment;
    int width; // designed width in pixels
};

const Descriptor &descriptor(int column);
QString title(int column);
QString identifier(int column);
// The column of an identifier, or -1.
int columnForIdentifier(const QString &identifier);
bool isFigure(int column);
bool isPerson(int column);

// "Face Value" → "faceValue": the first word lower-cased, the further words joined unchanged;
// a single word lower-cased whole.
QString identifierForTitle(const QString &title);

} // namespace HoldingColumns
