// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One page of the Treasury Fiscal Data "Savings Bonds Value Files" data set (sb_value), read into
// the same records the Treasury value-file reader makes. Every field of the service is a JSON
// string; where the documentation leaves a form open the reader accepts the plausible ones and
// refuses anything else, so that a damaged or unexpected reply can never install values.
//
// Amounts are the value of a $25 paper bond in dollars ("53.92"), stored as cents. "null", "",
// JSON null or a missing month mean the bond was not issued (no pricing data, -2); "0", "0.00" and
// "NO PAY" mean it exists but cannot be cashed yet (-1).
#include "update/PriceDataFile.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

struct FiscalDataPage
{
    QList<PriceRecord> records;
    int totalPages = 0;
    qint64 totalCount = 0;
    QString error; // why the page was refused; empty when it was read

    bool ok() const { return error.isEmpty(); }

    static FiscalDataPage parse(const QByteArray &json);
};

namespace FiscalDataFields {
// The amount field of issue month 1..12: "issue_jan_amt" … "issue_dec_amt".
QString amountField(int month);
// The cents of an amount cell as described above, or nothing when it is not an amount.
std::optional<qint32> amountCents(const QString &text);
}
