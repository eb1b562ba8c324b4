// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The records of one holding in the Quicken Interchange Format: each holding is a security of
// its own, bought by one "shares in" transaction and priced month by month from the database.
// Every line of these records ends in a bare carriage return.
#include "model/Holding.h"

#include <QString>
#include <QStringList>

namespace HoldingQuicken {
// Issue month (two digits), issue year, series code: "031995N".
QString security(const Holding &holding);
// Issue month, four-digit issue year, series label: "03/1995 EE Bond".
QString quickenName(const Holding &holding);
// The purchase: the series' share price, the holding's total issue price (one bond's issue
// price times the quantity) and the shares that buys, with a memo naming the series, serial
// number, issue month and registration.
QString asQuickenTransaction(const Holding &holding);
}
