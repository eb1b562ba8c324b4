// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing person records as vCard 3.0 cards.
#include "model/VCard.h"

#include <QRegularExpression>

namespace {

QString escapeText(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\\' || c == u',' || c == u';')
            out += u'\\', out += c;
        else if (c == u'\n')
            out += QLatin1String("\\n");
        else if (c != u'\r')
            out += c;
    }
    return out;
}

// Parameter values may be quoted; a quote itself cannot appear in them.
QString parameterValue(QString value)
{
    value.remove(u'"');
    value.remove(u'\r');
    value.replace(u'\n', u' ');
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9-]+$"));
    if (plain.match(value).hasMatch())
        return value;
    value.replace(u'^', QLatin1String("^^"));
    return u'"' + value + u'"';
}

// Lines longer than 75 octets continue on lines that begin with a blank; a UTF-8 sequence is
// never split.
void appendFolded(QByteArray &out, const QString &line)
{
    const QByteArray bytes = line.toUtf8();
    qsizetype start = 0;
    qsizetype limit = 75;
    while (bytes.size() - start > limit) {
        qsizetype cut = start + limit;
        while (cut > start && (static_cast<unsigned char>(bytes.at(cut)) & 0xC0) == 0x80)
            --cut;
        out += bytes.mid(start, cut - start);
        out += "\r\n ";
        start = cut;
        limit = 74; // the leading blank counts
    }
    out += bytes.mid(start);
    out += "\r\n";
}

} // namespace

namespace VCard {

QByteArray write(const QList<PersonRecord> &records)
{
    QByteArray out;
    for (const PersonRecord &record : records) {
        appendFolded(out, QStringLiteral("BEGIN:VCARD"));
        appendFolded(out, QStringLiteral("VERSION:3.0"));
        appendFolded(out, QStringLiteral("UID:") + escapeText(record.uniqueId));
        QStringList nameParts{escapeText(record.lastName), escapeText(record.firstName)};
        for (const QString &part : record.otherNameParts)
            nameParts << escapeText(part);
        while (nameParts.size() < 5)
            nameParts << QString();
        appendFolded(out, QStringLiteral("N:") + nameParts.join(u';'));
        bool hasFormattedName = false;
        for (const QString &line : record.otherLines)
            hasFormattedName |= line.startsWith(QLatin1String("FN:"), Qt::CaseInsensitive)
                                || line.startsWith(QLatin1String("FN;"), Qt::CaseInsensitive);
        if (!hasFormattedName) {
            const QString full = (record.firstName + u' ' + record.lastName).trimmed();
            appendFolded(out, QStringLiteral("FN:") + escapeText(full));
        }
        for (const LabelledEmail &email : record.emails) {
            const QString type = email.label.isEmpty() ? QStringLiteral("INTERNET")
                                                       : QStringLiteral("INTERNET,") + parameterValue(email.label);
            appendFolded(out, QStringLiteral("EMAIL;TYPE=") + type + u':' + escapeText(email.address));
        }
        for (const QString &line : record.otherLines)
            appendFolded(out, line);
        appendFolded(out, QStringLiteral("END:VCARD"));
    }
    return out;
}

} // namespace VCard
