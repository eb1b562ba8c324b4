#include "document/PlistInputGuard.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace PlistInputGuard {

namespace {

constexpr int TrailerSize = 32;
constexpr int HeaderSize = 8;

void setProblem(QString *problem, const QString &text)
{
    if (problem)
        *problem = text;
}

QString tooDeep(int maximumDepth)
{
    return QStringLiteral("its values are nested more than %1 levels deep").arg(maximumDepth);
}

QString tooMany(qint64 maximumNodes)
{
    return QStringLiteral("it holds more than %1 values").arg(maximumNodes);
}

// The object table of a binary property list: where each object starts and how wide the
// references between objects are.
class BinaryLayout
{
public:
    explicit BinaryLayout(const QByteArray &data)
        : m_bytes(reinterpret_cast<const uchar *>(data.constData())), m_size(data.size())
    {
    }

    bool readTrailer(qint64 maximumObjects)
    {
        if (m_size < HeaderSize + TrailerSize)
            return false;
        const qint64 trailer = m_size - TrailerSize;
        m_offsetWidth = m_bytes[trailer + 6];
        m_referenceWidth = m_bytes[trailer + 7];
        quint64 count = 0, top = 0, table = 0;
        if (m_offsetWidth < 1 || m_offsetWidth > 8 || m_referenceWidth < 1 || m_referenceWidth > 8
            || !readNumber(trailer + 8, 8, &count) || !readNumber(trailer + 16, 8, &top)
            || !readNumber(trailer + 24, 8, &table))
            return false;
        if (count == 0 || count > quint64(maximumObjects) || top >= count || table < HeaderSize
            || table > quint64(trailer) || count * m_offsetWidth > quint64(trailer) - table)
            return false;
        m_count = count;
        m_top = top;
        m_tableOffset = qint64(table);
        return true;
    }

    quint64 count() const { return m_count; }
    quint64 top() const { return m_top; }
    int referenceWidth() const { return m_referenceWidth; }

    // Big-endian unsigned number of 1 to 8 bytes, within the object area.
    bool readNumber(qint64 position, int width, quint64 *value) const
    {
        if (position < 0 || width < 1 || width > 8 || position + width > m_size)
            return false;
        quint64 result = 0;
        for (int i = 0; i < width; ++i)
            result = (result << 8) | m_bytes[position + i];
        *value = result;
        return true;
    }

    // Where the references of a container object start and how many there are; a leaf has none.
    // For a dictionary, *dictionaryKeys is set and its first half of references are its keys.
    bool containerReferences(quint64 index, qint64 *first, quint64 *count, bool *dictionaryKeys = nullptr) const
    {
        quint64 offset = 0;
        if (!readNumber(m_tableOffset + qint64(index) * m_offsetWidth, m_offsetWidth, &offset)
            || offset < HeaderSize || offset >= quint64(m_tableOffset))
            return false;
        const uchar marker = m_bytes[offset];
        const int kind = marker >> 4;
        *count = 0;
        *first = qint64(offset) + 1;
        if (dictionaryKeys)
            *dictionaryKeys = false;
        if (kind != 0xA && kind != 0xC && kind != 0xD)
            return true; // array, set and dictionary are the only containers
        if (dictionaryKeys)
            *dictionaryKeys = kind == 0xD;
        quint64 length = marker & 0x0F;
        if (length == 0x0F) {
            if (*first >= m_tableOffset || (m_bytes[*first] >> 4) != 0x1)
                return false;
            const int width = 1 << (m_bytes[*first] & 0x0F);
            if (width > 8 || !readNumber(*first + 1, width, &length))
                return false;
            *first += 1 + width;
        }
        const quint64 available = quint64(m_tableOffset - *first) / quint64(m_referenceWidth);
        const quint64 references = kind == 0xD ? length * 2 : length;
        if (length > available || references > available)
            return false;
        *count = references;
        return true;
    }

    enum class Text { NotText, Clean, OneByteWithNull, TwoByteWithNull, Broken };

    // libplist aborts the whole program on a dictionary key with a null character in it, so
    // such keys must never reach it.
    bool keyIsUsable(quint64 index) const
    {
        const Text text = textAt(index);
        return text == Text::NotText || text == Text::Clean; // not text: libplist refuses it by itself
    }

    // Whether the object is a text, and whether it holds a null character.
    Text textAt(quint64 index) const
    {
        quint64 offset = 0;
        if (!readNumber(m_tableOffset + qint64(index) * m_offsetWidth, m_offsetWidth, &offset)
            || offset < HeaderSize || offset >= quint64(m_tableOffset))
            return Text::Broken;
        const int kind = m_bytes[offset] >> 4;
        if (kind != 0x5 && kind != 0x6)
            return Text::NotText;
        quint64 length = m_bytes[offset] & 0x0F;
        qint64 start = qint64(offset) + 1;
        if (length == 0x0F) {
            if (start >= m_tableOffset || (m_bytes[start] >> 4) != 0x1)
                return Text::Broken;
            const int width = 1 << (m_bytes[start] & 0x0F);
            if (width > 8 || !readNumber(start + 1, width, &length))
                return Text::Broken;
            start += 1 + width;
        }
        const int unit = kind == 0x6 ? 2 : 1;
        if (length > quint64(m_tableOffset - start) / unit)
            return Text::Broken;
        for (qint64 i = 0; i < qint64(length); ++i) {
            const uchar *character = m_bytes + start + i * unit;
            if (character[0] == 0 && (unit == 1 || character[1] == 0))
                return unit == 1 ? Text::OneByteWithNull : Text::TwoByteWithNull;
        }
        return Text::Clean;
    }

private:
    const uchar *m_bytes;
    qint64 m_size;
    int m_offsetWidth = 0;
    int m_referenceWidth = 0;
    quint64 m_count = 0;
    quint64 m_top = 0;
    qint64 m_tableOffset = 0;
};

} // namespace

Format detectFormat(const QByteArray &data)
{
    if (data.startsWith("bplist00"))
        return Format::Binary;
    for (char c : data) {
        if (c == '<')
            return Format::Xml;
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n')
            break;
    }
    return Format::Unknown;
}

// Walks the object graph from the top object without recursion, computing for each object
// the number of nodes it expands to and the depth below it (each object once, so the walk is
// linear in the size of the file even when references fan out).
bool checkBinary(const QByteArray &data, int maximumDepth, qint64 maximumNodes, QString *problem)
{
    const QString damaged = QStringLiteral("its object table is broken");
    BinaryLayout layout(data);
    if (!layout.readTrailer(maximumNodes)) {
        setProblem(problem, damaged);
        return false;
    }
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
            setProblem(problem, damaged);
            return false;
        }
        if (references == 0) {
            // libplist cuts a one-byte text at its first null without a word; the decoder sees
            // the two-byte ones whole and refuses them itself.
            if (layout.textAt(index) == BinaryLayout::Text::OneByteWithNull) {
                setProblem(problem, QStringLiteral("it holds a text with a null character"));
                return false;
            }
            state[index] = Done;
            weight[index] = 1;
            height[index] = 1;
            return true;
        }
        if (int(path.size()) >= maximumDepth) {
            setProblem(problem, tooDeep(maximumDepth));
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
            setProblem(problem, tooMany(maximumNodes));
            return false;
        }
        if (parent.height > maximumDepth) {
            setProblem(problem, tooDeep(maximumDepth));
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
            setProblem(problem, damaged);
            return false;
        }
        if (frame.next <= frame.keyCount && !layout.keyIsUsable(child)) {
            setProblem(problem, QStringLiteral("it has an unusable dictionary key"));
            return false;
        }
        if (state[child] == OnPath) {
            setProblem(problem, QStringLiteral("a value contains itself"));
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

// Counts elements and nesting by their tags. Markup that libplist skips (declarations,
// comments, character data sections) is skipped the same way; anything doubtful counts as an
// opening tag, so the estimate errs towards refusing.
bool checkXml(const QByteArray &data, int maximumDepth, qint64 maximumNodes, QString *problem)
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
        if (++elements > maximumNodes) {
            setProblem(problem, tooMany(maximumNodes));
            return false;
        }
        if (!selfClosing && ++depth > maximumDepth) {
            setProblem(problem, tooDeep(maximumDepth));
            return false;
        }
    }
    return true;
}

} // namespace PlistInputGuard
