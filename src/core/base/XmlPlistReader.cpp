// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the XML form: the tags are counted first, so that nesting and size are bounded before
// the document is parsed; then QXmlStreamReader builds the values with an explicit stack.
#include "base/PlistReader.h"

#include <QDateTime>
#include <QTimeZone>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <QCoreApplication>

namespace {

using Result = PlistReader::Result;

// Counts elements and nesting by their tags. Declarations, comments and character data
// sections are skipped; anything doubtful counts as an opening tag, so the estimate errs
// towards refusing.
bool checkTags(const QByteArray &data, const PlistReader::Limits &limits, QString *problem)
{
    const char *text = data.constData();
    const qint64 size = data.size();
    qint64 elements = 0;
    int depth = 0;
    qint64 position = 0;
    auto startsAt = [&](qint64 at, const char *literal) {
        const qint64 length = qint64(qstrlen(literal));
        return size - at >= length && memcmp(text + at, literal, size_t(length)) == 0;
    };
    auto skipPast = [&](const char *terminator) {
        const qint64 found = data.indexOf(terminator, position);
        position = found < 0 ? size : found + qint64(qstrlen(terminator));
    };
    while (position < size) {
        const qint64 open = data.indexOf('<', position);
        if (open < 0)
            break;
        position = open + 1;
        if (startsAt(position, "!--")) {
            skipPast("-->");
            continue;
        }
        if (startsAt(position, "![CDATA[")) {
            skipPast("]]>");
            continue;
        }
        if (startsAt(position, "?") || startsAt(position, "!")) {
            skipPast(">");
            continue;
        }
        const qint64 close = data.indexOf('>', position);
        const qint64 end = close < 0 ? size : close;
        const bool closing = startsAt(position, "/");
        const size_t span = end > position ? size_t(end - position) : 0;
        const bool quoted = memchr(text + position, '"', span) || memchr(text + position, '\'', span);
        const bool selfClosing = end > position && text[end - 1] == '/' && !quoted;
        position = close < 0 ? size : close + 1;
        if (closing) {
            depth = std::max(0, depth - 1);
            continue;
        }
        if (++elements > limits.maximumNodes) {
            *problem = QCoreApplication::translate("XmlPlistReader", "it holds more than %1 values").arg(limits.maximumNodes);
            return false;
        }
        if (!selfClosing && ++depth > limits.maximumDepth) {
            *problem = QCoreApplication::translate("XmlPlistReader", "its values are nested more than %1 levels deep").arg(limits.maximumDepth);
            return false;
        }
    }
    return true;
}

// Integers as C's strtoull reads them after an optional sign (so "0x1F" is hexadecimal and
// "017" octal), which is how XML property lists have always been read here.
PlistValue integerFrom(const QString &text)
{
    QByteArray digits = text.toUtf8();
    const char *start = digits.constData();
    while (*start == ' ' || *start == '\t' || *start == '\r' || *start == '\n')
        ++start;
    const bool negative = *start == '-';
    if (*start == '-' || *start == '+')
        ++start;
    const quint64 value = std::strtoull(start, nullptr, 0);
    if (negative || value <= quint64(std::numeric_limits<qint64>::max()))
        return PlistValue::integer(negative ? 0 - value : value);
    return PlistValue::integer(value, true);
}

PlistValue dateFrom(const QString &text)
{
    QDateTime instant = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (!instant.isValid())
        instant = QDateTime::fromSecsSinceEpoch(0, QTimeZone::utc());
    return PlistValue::date(double(instant.toSecsSinceEpoch() - 978307200));
}

class XmlTreeBuilder
{
public:
    explicit XmlTreeBuilder(const QByteArray &data) : m_xml(data) {}

    // False when the document is not a property list. Whatever follows the first complete
    // value is not looked at.
    bool build(PlistValue *root)
    {
        bool wrapperHasContent = false;
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement: {
                const QStringView name = m_xml.name();
                if (name == u"plist") { // a wrapper, wherever it stands
                    wrapperHasContent = false;
                    continue;
                }
                wrapperHasContent = true;
                PlistValue value;
                if (name == u"dict" || name == u"array") {
                    m_open.push_back({name == u"dict" ? PlistValue::dictionary() : PlistValue::array(), {}, false});
                    continue;
                }
                if (name == u"key" && !m_open.empty() && m_open.back().value.is(PlistValue::Type::Dictionary)
                    && !m_open.back().haveKey) {
                    m_open.back().key = m_xml.readElementText();
                    m_open.back().haveKey = !m_xml.hasError();
                    continue;
                }
                if (!scalar(name, &value) || !add(std::move(value), root))
                    return false;
                if (m_open.empty())
                    return true;
                continue;
            }
            case QXmlStreamReader::EndElement:
                if (m_xml.name() == u"plist") {
                    if (!wrapperHasContent)
                        return false;
                    continue;
                }
                if (!m_open.empty()) {
                    PlistValue finished = std::move(m_open.back().value);
                    m_open.pop_back();
                    if (!add(std::move(finished), root))
                        return false;
                    if (m_open.empty())
                        return true;
                }
                continue;
            case QXmlStreamReader::Characters: // text belongs in a value's element only
                if (!m_xml.isWhitespace())
                    return false;
                continue;
            default:
                continue;
            }
        }
        return false; // ended early, or not XML at all
    }

private:
    struct Open
    {
        PlistValue value;
        QString key;
        bool haveKey;
    };

    bool scalar(QStringView name, PlistValue *value)
    {
        const QString text = m_xml.readElementText();
        if (m_xml.hasError())
            return false;
        if (name == u"string" || name == u"key")
            *value = PlistValue::string(text);
        else if (name == u"integer")
            *value = integerFrom(text);
        else if (name == u"real")
            *value = PlistValue::real(std::strtod(text.toUtf8().constData(), nullptr));
        else if (name == u"true" || name == u"false")
            *value = PlistValue::boolean(name == u"true");
        else if (name == u"data")
            *value = PlistValue::data(QByteArray::fromBase64(text.toLatin1()));
        else if (name == u"date")
            *value = dateFrom(text);
        else
            return false;
        return true;
    }

    // Adds a finished value to the open container, or makes it the root.
    bool add(PlistValue value, PlistValue *root)
    {
        if (m_open.empty()) {
            *root = std::move(value);
            return true;
        }
        Open &parent = m_open.back();
        if (parent.value.is(PlistValue::Type::Array)) {
            parent.value.items().push_back(std::move(value));
            return true;
        }
        if (!parent.haveKey)
            return false;
        parent.value.insert(parent.key, std::move(value));
        parent.haveKey = false;
        return true;
    }

    QXmlStreamReader m_xml;
    std::vector<Open> m_open;
};

} // namespace

PlistReader::Result PlistReader::readXml(const QByteArray &data, const Limits &limits)
{
    Result result;
    result.format = Format::Xml;
    if (!checkTags(data, limits, &result.problem)) {
        result.outcome = Result::Outcome::Refused;
        return result;
    }
    result.outcome = XmlTreeBuilder(data).build(&result.root) ? Result::Outcome::Read : Result::Outcome::Unreadable;
    if (result.outcome != Result::Outcome::Read)
        result.root = PlistValue();
    return result;
}
