// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reads the list a household keeps in the Treasury's web Savings Bond Calculator, saved as an
// HTML page: the calculator keeps each column of the list in a hidden form field, every value
// followed by ";". Only paper bonds are valued there, so every bond comes in as paper. The bonds
// are appended to a portfolio as one undoable "Insert Holding".
#include "base/Money.h"
#include "base/Month.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class BondPortfolio;
class Series;

namespace CalculatorListImport {

struct Bond
{
    const Series *series = nullptr;
    Month issue;
    Pennies faceValue = 0;
    QString serialNumber; // null when the calculator had none
};

struct Page
{
    QString error;          // why the file is no saved calculator list; empty when it is one
    QList<Bond> bonds;
    QStringList skipped;    // "bond 3: why", for each entry that could not be read
    bool ok() const { return error.isEmpty(); }
};

// Months in the calculator's lists: May 1941 is 1.
Month monthOfNumber(int number);
Page read(const QByteArray &html);

struct Outcome
{
    QString error;           // the file was refused; nothing changed
    int imported = 0;
    QStringList skipped;
    QStringList withoutValues; // "bond 2: Series EE bonds of 03/1979 ..." imported, but the database has no values
    bool ok() const { return error.isEmpty(); }
};
Outcome importInto(BondPortfolio &portfolio, const QByteArray &html);

}
