// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One record of the people store: what the program knows of a person apart from their bonds.
#include <QList>
#include <QString>
#include <QStringList>

struct LabelledEmail
{
    QString label;   // "home", "work", "other", or a program's own label
    QString address;
    bool operator==(const LabelledEmail &) const = default;
};

struct PersonRecord
{
    QString uniqueId;  // the card's UID; never changes once given
    QString firstName; // empty when the card has none
    QString lastName;
    QList<LabelledEmail> emails;
    // Further parts of the card's structured name (additional names, prefixes, suffixes), kept
    // as read so that they are written back.
    QStringList otherNameParts;
    // Content lines of the card this program does not interpret (telephones, addresses, ...),
    // unfolded, written back unchanged so that rewriting a contacts file loses nothing.
    QStringList otherLines;

    bool operator==(const PersonRecord &) const = default;
};
