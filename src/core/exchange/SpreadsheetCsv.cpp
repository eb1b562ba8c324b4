// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/SpreadsheetCsv.h"

namespace SpreadsheetCsv {

QString quotedField(const QString &text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) && !text.contains(QLatin1Char('\n'))
        && !text.contains(QLatin1Char('\r')))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QList<QStringList> records(QStringView text)
{
    QList<QStringList> result;
    QStringList record;
    QString field;
    bool quoted = false;     // inside a field that began with a quote
    bool fieldBegun = false; // the field has a character or an opening quote
    auto endField = [&] {
        record << field;
        field.clear();
        fieldBegun = false;
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (quoted) {
            if (character != QLatin1Char('"'))
                field += character;
            else if (at + 1 < text.size() && text.at(at + 1) == QLatin1Char('"'))
                field += text.at(++at);
            else
                quoted = false;
        } else if (character == QLatin1Char('"') && !fieldBegun) {
            quoted = fieldBegun = true;
        } else if (character == QLatin1Char(',')) {
            endField();
        } else if (character == QLatin1Char('\n')) {
            if (field.endsWith(QLatin1Char('\r')))
                field.chop(1);
            endField();
            result << record;
            record.clear();
        } else {
            field += character;
            fieldBegun = true;
        }
    }
    endField();
    result << record; // what follows the last line feed, empty for a file that ends in one
    return result;
}

} // namespace SpreadsheetCsv
