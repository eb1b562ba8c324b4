// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the binary form in two passes: a walk of the object graph that checks the limits
// without recursion, then the values built from the checked graph, whose depth is now bounded.
#include "base/BinaryPlistLayout.h"
#include "base/PlistReader.h"

#include <QHash>

#include <algorithm>
#include <bit>
#include <vector>
#include <QCoreApplication>

namespace {

using Result = PlistReader::Result;

QString tooDeep(int maximumDepth)
{
    return QCoreApplication::translate("BinaryPlistReader", "its values are nested more than %1 levels deep").arg(maximumDepth);
}

QString tooMany(qint64 maximumNodes)
{
    return QCoreApplication::translate("BinaryPlistReader", "it holds more than %1 values").arg(maximumNodes);
}

// Walks the object graph from the top object without recursion, computing for each object
// the number of nodes it expands to and the depth below it (each object once, so the walk is
// linear in the size of the file even when references fan out).
bool checkGraph(const BinaryPlistLayout &layout, const PlistReader::Limits &limits, QString *problem)
{
    const QString damaged = QCoreApplication::translate("BinaryPlistReader", "its object table is broken");
    const int maximumDepth = limits.maximumDepth;
    const qint64 maximumNodes = limits.maximumNodes;
    enum : quint8 { Unvisited, OnPath, Done };
    std::vector<quint8> state(layout.count(), Unvisited);
    std::vector<quint32> weight(layout.count(), 0);
    std::vector<quint16> height(layout.count(), 0);
    struct Frame
    {
        quint64 index;
        qint64 firstReference;
        quint64 referenceCount;
        quint64 next;
        quint64 keyCount;
        qint64 weight;
        int height;
    };
    std::vector<Frame> path;

    // Visits one object: a leaf is finished at once, a container goes on the path.
    auto enter = [&](quint64 index) -> bool {
        qint64 first = 0;
        quint64 references = 0;
        bool isDictionary = false;
        if (!layout.containerReferences(index, &first, &references, &isDictionary)) {
            *problem = damaged;
            return false;
        }
        if (references == 0) {
            // Such a text would be cut short in silence; two-byte ones are read whole, and
            // whoever reads them refuses the character if it matters.
            if (layout.textAt(index) == BinaryPlistLayout::Text::OneByteWithNull) {
                *problem = QCoreApplication::translate("BinaryPlistReader", "it holds a text with a null character");
                return false;
            }
            state[index] = Done;
            weight[index] = 1;
            height[index] = 1;
            return true;
        }
        if (int(path.size()) >= maximumDepth) {
            *problem = tooDeep(maximumDepth);
            return false;
        }
        state[index] = OnPath;
        path.push_back({index, first, references, 0, isDictionary ? references / 2 : 0, 1, 1});
        return true;
    };
    auto addChild = [&](Frame &parent, quint64 child) -> bool {
        parent.weight = std::min<qint64>(parent.weight + weight[child], maximumNodes + 1);
        parent.height = std::max<int>(parent.height, height[child] + 1);
        if (parent.weight > maximumNodes) {
            *problem = tooMany(maximumNodes);
            return false;
        }
        if (parent.height > maximumDepth) {
            *problem = tooDeep(maximumDepth);
            return false;
        }
        return true;
    };

    if (!enter(layout.top()))
        return false;
    while (!path.empty()) {
        Frame &frame = path.back();
        if (frame.next == frame.referenceCount) {
            const Frame finished = frame;
            path.pop_back();
            state[finished.index] = Done;
            weight[finished.index] = quint32(finished.weight);
            height[finished.index] = quint16(finished.height);
            if (!path.empty() && !addChild(path.back(), finished.index))
                return false;
            continue;
        }
        quint64 child = 0;
        const qint64 position = frame.firstReference + qint64(frame.next) * layout.referenceWidth();
        ++frame.next;
        if (!layout.readNumber(position, layout.referenceWidth(), &child) || child >= layout.count()) {
            *problem = damaged;
            return false;
        }
        // A key with a null character would not survive being read; a key that is no text at
        // all is left to the second pass, which finds the table unreadable.
        const BinaryPlistLayout::Text key = frame.next <= frame.keyCount ? layout.textAt(child)
                                                                        : BinaryPlistLayout::Text::NotText;
        if (key != BinaryPlistLayout::Text::NotText && key != BinaryPlistLayout::Text::Clean) {
            *problem = QCoreApplication::translate("BinaryPlistReader", "it has an unusable dictionary key");
            return false;
        }
        if (state[child] == OnPath) {
            *problem = QCoreApplication::translate("BinaryPlistReader", "a value contains itself");
            return false;
        }
        if (state[child] == Unvisited) {
            if (!enter(child))
                return false;
            if (state[child] == OnPath)
                continue; // finished when its own references are done
        }
        if (!addChild(path.back(), child))
            return false;
    }
    return true;
}

// Two-byte text as the property-list tools of other systems convert it: a lone surrogate is
// dropped, and a leading one waits for the next trailing one, whatever lies between.
QString fromUtf16BigEndian(const uchar *units, quint64 count)
{
    QString text;
    text.reserve(qsizetype(count));
    bool haveLead = false;
    char16_t lead = 0;
    for (quint64 i = 0; i < count; ++i) {
        const char16_t unit = char16_t(units[2 * i] << 8 | units[2 * i + 1]);
        if (QChar::isHighSurrogate(unit)) {
            haveLead = !haveLead; // a second leading one in a row drops both
            lead = unit;
        } else if (QChar::isLowSurrogate(unit)) {
            if (haveLead)
                text.append(QChar(lead)).append(QChar(unit));
            haveLead = false;
        } else {
            text.append(QChar(unit));
        }
    }
    return text;
}

// Builds the values of a graph that checkGraph accepted: references are in range, there is
// no cycle, and the depth is bounded, so plain recursion is safe.
class TreeBuilder
{
public:
    explicit TreeBuilder(const BinaryPlistLayout &layout) : m_layout(layout) {}

    bool build(quint64 index, PlistValue *value)
    {
        qint64 offset = 0;
        if (!m_layout.objectOffset(index, &offset))
            return false;
        const uchar marker = m_layout.byteAt(offset);
        const int kind = marker >> 4;
        const int size = marker & 0x0F;
        qint64 start = offset + 1;
        const qint64 end = m_layout.tableOffset();
        switch (kind) {
        case 0x0:
            if (size != 0x8 && size != 0x9)
                return false;
            *value = PlistValue::boolean(size == 0x9);
            return true;
        case 0x1: {
            const qint64 width = qint64(1) << size;
            if (size > 4 || start + width > end)
                return false;
            quint64 number = 0; // of sixteen bytes, the low eight
            m_layout.readNumber(start + width - std::min<qint64>(width, 8), int(std::min<qint64>(width, 8)), &number);
            *value = PlistValue::integer(number, width == 16);
            return true;
        }
        case 0x2:
        case 0x3: {
            double number = 0;
            if (!readReal(start, size, &number) || (kind == 0x3 && size != 3))
                return false;
            *value = kind == 0x2 ? PlistValue::real(number) : PlistValue::date(number);
            return true;
        }
        case 0x8: {
            const int width = size + 1;
            quint64 number = 0;
            if (start + width > end)
                return false;
            m_layout.readNumber(start + width - std::min(width, 8), std::min(width, 8), &number);
            if (number > 0xFFFFFFFFu)
                return false;
            *value = PlistValue::uid(number);
            return true;
        }
        default:
            break;
        }
        quint64 length = quint64(size);
        if (size == 0x0F && !readLength(&start, &length))
            return false;
        switch (kind) {
        case 0x4:
            if (length > quint64(end - start))
                return false;
            *value = PlistValue::data(QByteArray(m_layout.charsAt(start), qsizetype(length)));
            return true;
        case 0x5:
        case 0x6:
            return readText(kind, start, length, value);
        case 0xA:
        case 0xC:
            return buildArray(start, length, value);
        case 0xD:
            return buildDictionary(start, length, value);
        default:
            return false;
        }
    }

private:
    bool readLength(qint64 *start, quint64 *length) const
    {
        const qint64 end = m_layout.tableOffset();
        if (*start >= end || (m_layout.byteAt(*start) >> 4) != 0x1)
            return false;
        const int width = 1 << (m_layout.byteAt(*start) & 0x0F);
        if (*start + 1 + width > end)
            return false;
        m_layout.readNumber(*start + 1 + width - std::min(width, 8), std::min(width, 8), length);
        *start += 1 + width;
        return true;
    }

    bool readReal(qint64 start, int size, double *number) const
    {
        quint64 bits = 0;
        if ((size != 2 && size != 3) || start + (qint64(1) << size) > m_layout.tableOffset())
            return false;
        m_layout.readNumber(start, 1 << size, &bits);
        *number = size == 2 ? double(std::bit_cast<float>(quint32(bits))) : std::bit_cast<double>(bits);
        return true;
    }

    bool readText(int kind, qint64 start, quint64 length, PlistValue *value) const
    {
        const quint64 available = quint64(m_layout.tableOffset() - start);
        if (kind == 0x5) {
            if (length > available)
                return false;
            *value = PlistValue::string(QString::fromUtf8(m_layout.charsAt(start), qsizetype(length)));
            return true;
        }
        if (length == 0 || length > available / 2) // an empty two-byte text is refused elsewhere too
            return false;
        *value = PlistValue::string(
            fromUtf16BigEndian(reinterpret_cast<const uchar *>(m_layout.charsAt(start)), length));
        return true;
    }

    bool reference(qint64 start, quint64 position, quint64 *index) const
    {
        const int width = m_layout.referenceWidth();
        const qint64 at = start + qint64(position) * width;
        return at + width <= m_layout.tableOffset() && m_layout.readNumber(at, width, index);
    }

    bool buildArray(qint64 start, quint64 length, PlistValue *value)
    {
        std::vector<PlistValue> items(length);
        for (quint64 i = 0; i < length; ++i) {
            quint64 index = 0;
            if (!reference(start, i, &index) || !build(index, &items[i]))
                return false;
        }
        *value = PlistValue::array(std::move(items));
        return true;
    }

    bool buildDictionary(qint64 start, quint64 length, PlistValue *value)
    {
        PlistValue::Entries entries;
        entries.reserve(length);
        for (quint64 i = 0; i < length; ++i) {
            quint64 keyIndex = 0, valueIndex = 0;
            QString name;
            PlistValue item;
            if (!reference(start, i, &keyIndex) || !reference(start, length + i, &valueIndex)
                || !key(keyIndex, &name) || !build(valueIndex, &item))
                return false;
            entries.emplace_back(std::move(name), std::move(item));
        }
        *value = PlistValue::dictionary(std::move(entries));
        return true;
    }

    // Keys are few and shared by many dictionaries: each is read once.
    bool key(quint64 index, QString *name)
    {
        if (const auto known = m_keys.constFind(index); known != m_keys.cend()) {
            *name = *known;
            return true;
        }
        PlistValue text;
        if (!build(index, &text) || !text.is(PlistValue::Type::String))
            return false;
        *name = text.text();
        m_keys.insert(index, *name);
        return true;
    }

    const BinaryPlistLayout &m_layout;
    QHash<quint64, QString> m_keys;
};

} // namespace

PlistReader::Result PlistReader::readBinary(const QByteArray &data, const Limits &limits)
{
    Result result;
    result.format = Format::Binary;
    result.outcome = Result::Outcome::Refused;
    BinaryPlistLayout layout(data);
    if (!layout.readTrailer(limits.maximumNodes)) {
        result.problem = QCoreApplication::translate("BinaryPlistReader", "its object table is broken");
        return result;
    }
    if (!checkGraph(layout, limits, &result.problem))
        return result;
    result.outcome = TreeBuilder(layout).build(layout.top(), &result.root) ? Result::Outcome::Read
                                                                           : Result::Outcome::Unreadable;
    if (result.outcome != Result::Outcome::Read)
        result.root = PlistValue();
    return result;
}
