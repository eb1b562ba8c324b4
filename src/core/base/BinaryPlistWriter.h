// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes a property list in the binary form ("bplist00"), in time linear in its size.
#include "base/PlistValue.h"

#include <QByteArray>

class BinaryPlistWriter
{
public:
    // The whole file: header, objects, offset table and trailer. Equal strings, numbers, dates,
    // data and UIDs are stored once; arrays and dictionaries never are. Returns an empty array
    // when the value holds a UID above 32 bits, which readers cannot take.
    static QByteArray write(const PlistValue &root);
};
