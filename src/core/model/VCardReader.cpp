// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading vCard text as contact programs export it: versions 3.0 and 4.0 (2.1 where it agrees),
// folded lines, backslash escapes, parameter lists with quoted values, CRLF, LF or CR line ends.
#include "model/VCard.h"
#include "model/VCardLines.h"

#include <QHash>
#include <QSet>
#include <QUuid>
#include <optional>
#include <QCoreApplication>

namespace {

struct ContentLine
{
    QString group;
    QString name; // upper case
    QList<std::pair<QString, QStringList>> params; // names upper case
    QString value;
    QString raw;

    QStringList param(const QString &key) const
    {
        QStringList values;
        for (const auto &p : params) {
            if (p.first == key)
                values += p.second;
        }
        return values;
    }
};

bool isNameChar(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'-'
           || c == u'_';
}

// Caret escapes of quoted parameter values (^n, ^^, ^').
QString unescapeParameter(const QString &text)
{
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == u'^' && i + 1 < text.size()) {
            const QChar next = text.at(i + 1);
            if (next == u'n') { out += u'\n'; ++i; continue; }
            if (next == u'^') { out += u'^'; ++i; continue; }
            if (next == u'\'') { out += u'"'; ++i; continue; }
        }
        out += text.at(i);
    }
    return out;
}

// name *(";" param) ":" value, with an optional "group." prefix. False when the line has no
// colon outside quotes or no valid name.
bool parseContentLine(const QString &line, ContentLine *out)
{
    qsizetype i = 0;
    const qsizetype n = line.size();
    QString name;
    while (i < n && (isNameChar(line.at(i)) || line.at(i) == u'.'))
        name += line.at(i++);
    if (name.isEmpty() || i >= n)
        return false;
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot >= 0) {
        out->group = name.left(dot);
        name = name.mid(dot + 1);
    }
    if (name.isEmpty())
        return false;
    out->name = name.toUpper();
    while (i < n && line.at(i) == u';') {
        ++i;
        QString key;
        while (i < n && line.at(i) != u'=' && line.at(i) != u';' && line.at(i) != u':')
            key += line.at(i++);
        QStringList values;
        if (i < n && line.at(i) == u'=') {
            ++i;
            for (;;) {
                QString v;
                if (i < n && line.at(i) == u'"') {
                    const qsizetype close = line.indexOf(u'"', i + 1);
                    if (close < 0)
                        return false;
                    v = unescapeParameter(line.mid(i + 1, close - i - 1));
                    i = close + 1;
                } else {
                    while (i < n && line.at(i) != u',' && line.at(i) != u';' && line.at(i) != u':')
                        v += line.at(i++);
                }
                values << v;
                if (i < n && line.at(i) == u',') {
                    ++i;
                    continue;
                }
                break;
            }
            out->params.append({key.trimmed().toUpper(), values});
        } else {
            // A bare parameter, as in "EMAIL;WORK:...", names a type.
            out->params.append({QStringLiteral("TYPE"), {key.trimmed()}});
        }
    }
    if (i >= n || line.at(i) != u':')
        return false;
    out->value = line.mid(i + 1);
    out->raw = line;
    return true;
}

QString unescapeText(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\\' && i + 1 < text.size()) {
            const QChar next = text.at(++i);
            if (next == u'n' || next == u'N')
                out += u'\n';
            else if (next == u'\\' || next == u',' || next == u';' || next == u':')
                out += next;
            else
                out += c, out += next;
        } else {
            out += c;
        }
    }
    return out;
}

// Splits a structured value at semicolons that are not escaped.
QStringList splitStructured(const QString &value)
{
    QStringList parts;
    QString current;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        if (c == u'\\' && i + 1 < value.size()) {
            current += c;
            current += value.at(++i);
        } else if (c == u';') {
            parts << current;
            current.clear();
        } else {
            current += c;
        }
    }
    parts << current;
    return parts;
}

// A list-valued name component ("Margaret,Anne") as words; escaped commas stay.
QString wordsOfList(const QString &component)
{
    QString out;
    for (qsizetype i = 0; i < component.size(); ++i) {
        if (component.at(i) == u'\\' && i + 1 < component.size()) {
            out += component.at(i);
            out += component.at(++i);
        } else {
            out += component.at(i) == u',' ? u' ' : component.at(i);
        }
    }
    return out;
}

bool isPlainEmailType(const QString &type)
{
    return type.isEmpty() || type == QLatin1String("internet") || type == QLatin1String("pref")
           || type == QLatin1String("x400");
}

// Labels as the store keeps them: lower case, single blanks, no quotes or commas (which a
// parameter value cannot carry back).
QString normalizedLabel(QString label)
{
    label.remove(u'"');
    label.replace(u',', u' ');
    label = label.simplified().toLower();
    return isPlainEmailType(label) ? QStringLiteral("other") : label;
}

// Apple writes custom labels as "_$!<Home>!$_" in an X-ABLabel line of the same group.
QString cleanLabel(QString label)
{
    if (label.startsWith(QLatin1String("_$!<")) && label.endsWith(QLatin1String(">!$_")))
        label = label.mid(4, label.size() - 8);
    return normalizedLabel(label);
}

QString labelFromTypes(const QStringList &types)
{
    QStringList flat;
    for (const QString &type : types)
        flat += type.split(u','); // 4.0 exports quote lists: TYPE="home,voice"
    for (const QString &type : flat) {
        const QString t = type.simplified().toLower();
        if (!isPlainEmailType(t))
            return normalizedLabel(t);
    }
    return QStringLiteral("other");
}

struct CardText
{
    QStringList lines;
    int firstLine = 0;
};

bool parseCard(const CardText &card, PersonRecord *record, QString *problem)
{
    QList<ContentLine> parsed;
    for (qsizetype k = 0; k < card.lines.size(); ++k) {
        ContentLine line;
        if (!parseContentLine(card.lines.at(k), &line)) {
            *problem = QCoreApplication::translate("VCardReader", "unreadable line \"%1\"").arg(card.lines.at(k).left(40));
            return false;
        }
        parsed << line;
    }
    QHash<QString, QString> groupLabels;
    QSet<QString> emailGroups;
    for (const ContentLine &line : parsed) {
        if (line.name == QLatin1String("X-ABLABEL") && !line.group.isEmpty())
            groupLabels.insert(line.group.toUpper(), cleanLabel(unescapeText(line.value)));
        if (line.name == QLatin1String("EMAIL") && !line.group.isEmpty())
            emailGroups.insert(line.group.toUpper());
    }
    std::optional<ContentLine> formattedName;
    for (const ContentLine &line : parsed) {
        if (line.name == QLatin1String("VERSION")) {
            const QString version = line.value.trimmed();
            if (version != QLatin1String("3.0") && version != QLatin1String("4.0")
                && version != QLatin1String("2.1")) {
                *problem = QCoreApplication::translate("VCardReader", "unsupported version %1").arg(version.left(10));
                return false;
            }
        } else if (line.name == QLatin1String("UID")) {
            record->uniqueId = unescapeText(line.value).trimmed();
        } else if (line.name == QLatin1String("N")) {
            const QStringList parts = splitStructured(line.value);
            record->lastName = unescapeText(wordsOfList(parts.value(0))).trimmed();
            record->firstName = unescapeText(wordsOfList(parts.value(1))).trimmed();
            record->otherNameParts.clear();
            for (qsizetype k = 2; k < parts.size(); ++k)
                record->otherNameParts << unescapeText(parts.at(k));
            while (!record->otherNameParts.isEmpty() && record->otherNameParts.last().isEmpty())
                record->otherNameParts.removeLast();
        } else if (line.name == QLatin1String("EMAIL")) {
            QString label = labelFromTypes(line.param(QStringLiteral("TYPE")));
            if (!line.group.isEmpty() && groupLabels.contains(line.group.toUpper()))
                label = groupLabels.value(line.group.toUpper());
            const QString address = unescapeText(line.value).trimmed();
            if (!address.isEmpty())
                record->emails.append({label, address});
        } else if (line.name == QLatin1String("X-ABLABEL") && !line.group.isEmpty()) {
            // Consumed with the e-mail line of its group; any other group keeps it.
            if (!emailGroups.contains(line.group.toUpper()))
                record->otherLines << line.raw;
        } else if (line.name == QLatin1String("FN")) {
            formattedName = line;
        } else if (line.name != QLatin1String("PRODID") && line.name != QLatin1String("REV")) {
            record->otherLines << line.raw;
        }
    }
    // A card with a formatted name only (Thunderbird, Google) takes its names from it.
    if (formattedName && record->firstName.isEmpty() && record->lastName.isEmpty()) {
        const QString full = unescapeText(formattedName->value).simplified();
        const qsizetype space = full.lastIndexOf(u' ');
        record->lastName = full.mid(space + 1);
        record->firstName = space < 0 ? QString() : full.left(space);
    }
    // A formatted name other than "First Last" (titles, a company) is kept; the plain one is
    // written afresh from the names.
    if (formattedName) {
        const QString plain = (record->firstName + u' ' + record->lastName).trimmed();
        if (unescapeText(formattedName->value).trimmed() != plain)
            record->otherLines.prepend(formattedName->raw);
    }
    return true;
}

} // namespace

namespace VCard {

ReadResult read(const QByteArray &data)
{
    ReadResult result;
    QStringList logical;
    QList<int> lineNumbers;
    for (const VCardLines::Line &line : VCardLines::read(data)) {
        logical << line.text;
        lineNumbers << line.number;
    }

    QHash<QString, bool> seen;
    std::optional<CardText> card;
    auto finish = [&](const CardText &c) {
        PersonRecord record;
        QString problem;
        if (!parseCard(c, &record, &problem)) {
            result.warnings << QCoreApplication::translate("VCardReader", "Skipped the card starting at line %1: %2.").arg(c.firstLine).arg(problem);
            return;
        }
        if (record.uniqueId.isEmpty()) {
            static const QUuid space(QStringLiteral("{5b3f1b0e-8a4e-4c44-9d55-2f3e1a7c6b21}"));
            record.uniqueId = QUuid::createUuidV5(space, c.lines.join(u'\n')).toString(QUuid::WithoutBraces);
        }
        if (seen.contains(record.uniqueId)) {
            result.warnings << QCoreApplication::translate("VCardReader", "Skipped the card starting at line %1: its identifier %2 is used by an earlier card.")
                                   .arg(c.firstLine).arg(record.uniqueId.left(60));
            return;
        }
        seen.insert(record.uniqueId, true);
        result.records << record;
    };
    for (qsizetype k = 0; k < logical.size(); ++k) {
        const QString trimmed = logical.at(k).trimmed();
        if (trimmed.compare(QLatin1String("BEGIN:VCARD"), Qt::CaseInsensitive) == 0) {
            if (card)
                result.warnings << QCoreApplication::translate("VCardReader", "Skipped the card starting at line %1: it has no END line.").arg(card->firstLine);
            card = CardText{{}, lineNumbers.at(k)};
        } else if (trimmed.compare(QLatin1String("END:VCARD"), Qt::CaseInsensitive) == 0) {
            if (card)
                finish(*card);
            else
                result.warnings << QCoreApplication::translate("VCardReader", "Ignored an END line without card at line %1.").arg(lineNumbers.at(k));
            card.reset();
        } else if (trimmed.isEmpty()) {
            continue;
        } else if (card) {
            card->lines << logical.at(k);
        } else {
            result.warnings << QCoreApplication::translate("VCardReader", "Ignored line %1 outside any card.").arg(lineNumbers.at(k));
        }
    }
    if (card)
        result.warnings << QCoreApplication::translate("VCardReader", "Skipped the card starting at line %1: it has no END line.").arg(card->firstLine);
    return result;
}

} // namespace VCard
