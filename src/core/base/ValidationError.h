// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Why a proposed value was refused: a domain naming the key, a code and a sentence for the user.
#include <QString>

struct ValidationError
{
    QString domain;
    int code = 0;
    QString message;
};
