// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/VCardLines.h"

#include <QStringDecoder>

namespace VCardLines {

namespace {

// Where a content line's value begins: after the first colon outside a quoted parameter.
qsizetype valueColon(const QByteArray &line)
{
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) == '"')
            quoted = !quoted;
        else if (line.at(i) == ':' && !quoted)
            return i;
    }
    return -1;
}

bool isQuotedPrintable(const QByteArray &line)
{
    const qsizetype colon = valueColon(line);
    return colon > 0 && line.left(colon).toUpper().contains("QUOTED-PRINTABLE");
}

QByteArray quotedPrintableDecoded(const QByteArray &text)
{
    QByteArray out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool ok = false;
        if (text.at(i) == '=' && i + 2 < text.size()) {
            const int byte = text.mid(i + 1, 2).toInt(&ok, 16);
            if (ok) {
                out += char(byte);
                i += 2;
                continue;
            }
        }
        out += text.at(i);
    }
    return out;
}

// Windows-1252's characters for 0x80 to 0x9F, where ISO-8859-1 has control codes.
QString windows1252(const QByteArray &bytes)
{
    static const char16_t high[32] = {0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                      0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178};
    QString out;
    out.reserve(bytes.size());
    for (char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += byte >= 0x80 && byte < 0xA0 ? QChar(high[byte - 0x80]) : QChar(byte);
    }
    return out;
}

QString decoded(const QByteArray &bytes, const QByteArray &charset)
{
    if (charset == "ISO-8859-1" || charset == "LATIN1")
        return QString::fromLatin1(bytes);
    if (charset == "WINDOWS-1252" || charset == "CP1252")
        return windows1252(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() && charset.isEmpty() ? windows1252(bytes) : text;
}

// The line as text: its value decoded, ENCODING and CHARSET parameters dropped.
QString textOf(const QByteArray &line)
{
    const qsizetype colon = valueColon(line);
    if (colon < 0)
        return decoded(line, {});
    QList<QByteArray> parts = line.left(colon).split(';');
    QByteArray charset;
    bool quotedPrintable = false;
    QByteArray head = parts.takeFirst();
    for (const QByteArray &part : std::as_const(parts)) {
        const QByteArray upper = part.trimmed().toUpper();
        if (upper == "QUOTED-PRINTABLE" || upper == "ENCODING=QUOTED-PRINTABLE")
            quotedPrintable = true;
        else if (upper.startsWith("CHARSET="))
            charset = upper.mid(8);
        else if (upper != "8BIT" && upper != "ENCODING=8BIT")
            head += ';' + part;
    }
    QByteArray value = line.mid(colon + 1);
    if (quotedPrintable)
        value = quotedPrintableDecoded(value);
    QString text = decoded(value, charset);
    // A decoded line break is an escaped one in the text that is kept.
    text.replace(QLatin1String("\r\n"), QLatin1String("\\n")).replace(u'\n', QLatin1String("\\n"));
    return QString::fromLatin1(head) + u':' + text;
}

} // namespace

QList<Line> read(const QByteArray &data)
{
    QByteArray bytes = data;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    bytes.replace("\r\n", "\n");
    bytes.replace('\r', '\n');
    const QList<QByteArray> physical = bytes.split('\n');
    QList<QByteArray> logical;
    QList<int> numbers;
    for (qsizetype k = 0; k < physical.size(); ++k) {
        const QByteArray &line = physical.at(k);
        if (!logical.isEmpty() && isQuotedPrintable(logical.last()) && logical.last().endsWith('=')) {
            // A soft line break: the value goes on in this line, whatever it starts with.
            logical.last().chop(1);
            logical.last() += line.startsWith(' ') || line.startsWith('\t') ? line.mid(1) : line;
            continue;
        }
        if ((line.startsWith(' ') || line.startsWith('\t')) && !logical.isEmpty()) {
            logical.last() += line.mid(1);
            continue;
        }
        logical << line;
        numbers << int(k + 1);
    }
    QList<Line> lines;
    for (qsizetype k = 0; k < logical.size(); ++k)
        lines.append({textOf(logical.at(k)), numbers.at(k)});
    return lines;
}

}
