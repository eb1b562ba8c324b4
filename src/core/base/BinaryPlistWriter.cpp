// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The tree is flattened first, so that the object count, and with it the width of every
// reference, is known before a single container is written; the second pass then writes the
// file into one buffer of exactly the right size.
#include "base/BinaryPlistWriter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

// Object markers: the high nibble names the type, the low nibble holds a size or a length.
enum Marker : quint8 {
    FalseMarker = 0x08,
    TrueMarker = 0x09,
    IntegerType = 0x1,
    RealType = 0x2,
    DateMarker = 0x33,
    DataType = 0x4,
    AsciiType = 0x5,
    Utf16Type = 0x6,
    UidType = 0x8,
    ArrayType = 0xA,
    DictionaryType = 0xD,
};

constexpr quint8 LengthFollows = 0xF;
constexpr std::string_view Magic = "bplist00";
constexpr int TrailerSize = 32;

// Integers and UIDs are stored in one, two, four or eight bytes.
int widthOf(quint64 value)
{
    return value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : value <= 0xFFFFFFFFu ? 4 : 8;
}

// Offsets and references take as many bytes as the largest needs, three included.
int exactWidthOf(quint64 value)
{
    int width = 1;
    while (width < 8 && value >> (8 * width))
        ++width;
    return width;
}

// Readers hold UIDs in 32 bits.
constexpr quint64 LargestUid = 0xFFFFFFFFu;

quint8 log2Of(int width)
{
    return quint8(std::countr_zero(unsigned(width)));
}

char *putBigEndian(char *at, quint64 value, int width)
{
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        *at++ = char(value >> shift);
    return at;
}

// Bytes of a length written after a marker: none below 15, else an integer object.
int lengthSuffixSize(quint64 count)
{
    return count < LengthFollows ? 0 : 1 + widthOf(count);
}

char *putMarkerAndLength(char *at, quint8 type, quint64 count)
{
    if (count < LengthFollows) {
        *at++ = char(type << 4 | count);
        return at;
    }
    *at++ = char(type << 4 | LengthFollows);
    const int width = widthOf(count);
    *at++ = char(IntegerType << 4 | log2Of(width));
    return putBigEndian(at, count, width);
}

enum class Kind : quint8 { Scalar, Array, Dictionary };

// A scalar's encoded bytes live in the scalar arena; a container's references in the reference
// list (a dictionary's keys, then its values).
struct FlatObject
{
    quint64 start;
    quint64 count;
    Kind kind;
};

struct ArenaSpan
{
    quint64 offset;
    quint64 length;
};

class TreeFlattener
{
public:
    bool flatten(const PlistValue &root)
    {
        m_pending.push_back({&root, NoSlot});
        while (!m_pending.empty()) {
            const Pending next = m_pending.back();
            m_pending.pop_back();
            quint64 index = 0;
            if (!visit(*next.node, &index))
                return false;
            if (next.slot != NoSlot)
                m_references[next.slot] = index;
        }
        return true;
    }

    const std::vector<FlatObject> &objects() const { return m_objects; }
    const std::vector<quint64> &references() const { return m_references; }
    const std::string &scalars() const { return m_scalars; }

private:
    static constexpr quint64 NoSlot = std::numeric_limits<quint64>::max();

    struct Pending
    {
        const PlistValue *node;
        quint64 slot;
    };

    struct SpanHash
    {
        const std::string *arena;
        size_t operator()(const ArenaSpan &span) const
        {
            return std::hash<std::string_view>()(std::string_view(arena->data() + span.offset, span.length));
        }
    };

    struct SpanEqual
    {
        const std::string *arena;
        bool operator()(const ArenaSpan &a, const ArenaSpan &b) const
        {
            return a.length == b.length && std::memcmp(arena->data() + a.offset, arena->data() + b.offset, a.length) == 0;
        }
    };

    bool visit(const PlistValue &node, quint64 *index)
    {
        switch (node.type()) {
        case PlistValue::Type::Array:
            return visitArray(node, index);
        case PlistValue::Type::Dictionary:
            return visitDictionary(node, index);
        default:
            return encodeScalar(node, index);
        }
    }

    bool visitArray(const PlistValue &node, quint64 *index)
    {
        const quint64 count = node.items().size();
        const quint64 firstSlot = beginContainer(Kind::Array, count, count, index);
        // Children are taken from the back of the stack; pushed in reverse, they are numbered in order.
        for (quint64 i = count; i-- > 0;)
            m_pending.push_back({&node.items()[i], firstSlot + i});
        return true;
    }

    bool visitDictionary(const PlistValue &node, quint64 *index)
    {
        const quint64 count = node.entries().size();
        const quint64 firstSlot = beginContainer(Kind::Dictionary, count, 2 * count, index);
        for (quint64 i = 0; i < count; ++i) {
            if (!encodeString(node.entries()[i].first, &m_references[firstSlot + i]))
                return false;
        }
        for (quint64 i = count; i-- > 0;)
            m_pending.push_back({&node.entries()[i].second, firstSlot + count + i});
        return true;
    }

    quint64 beginContainer(Kind kind, quint64 count, quint64 slotCount, quint64 *index)
    {
        *index = m_objects.size();
        const quint64 firstSlot = m_references.size();
        m_objects.push_back({firstSlot, count, kind});
        m_references.resize(firstSlot + slotCount);
        return firstSlot;
    }

    bool encodeScalar(const PlistValue &node, quint64 *index)
    {
        const quint64 begin = m_scalars.size();
        switch (node.type()) {
        case PlistValue::Type::Boolean:
            m_scalars.push_back(char(node.toBool() ? TrueMarker : FalseMarker));
            break;
        case PlistValue::Type::Integer:
            appendInteger(node.toInteger(), node.isSixteenByteInteger());
            break;
        case PlistValue::Type::Real:
            appendReal(node.toReal());
            break;
        case PlistValue::Type::String:
            return encodeString(node.text(), index);
        case PlistValue::Type::Date:
            m_scalars.push_back(char(DateMarker));
            appendBigEndian(std::bit_cast<quint64>(node.toReal()), 8);
            break;
        case PlistValue::Type::Data: {
            const QByteArray &bytes = node.bytes();
            appendWithLength(DataType, bytes.constData(), quint64(bytes.size()));
            break;
        }
        case PlistValue::Type::Uid: {
            const quint64 value = node.toInteger();
            if (value > LargestUid)
                return false;
            const int width = widthOf(value);
            m_scalars.push_back(char(UidType << 4 | (width - 1)));
            appendBigEndian(value, width);
            break;
        }
        default:
            return false;
        }
        *index = intern(begin);
        return true;
    }

    // Strings without a character above 0x7F are stored as they are; all others as UTF-16
    // big-endian, as the format requires.
    bool encodeString(const QString &text, quint64 *index)
    {
        const quint64 begin = m_scalars.size();
        const bool ascii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
        if (ascii) {
            appendWithLength(AsciiType, nullptr, quint64(text.size()));
            for (const QChar c : text)
                m_scalars.push_back(char(c.unicode()));
        } else {
            // A lone surrogate cannot be stored; it is replaced as in any UTF-8 conversion.
            const QString valid = text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
            appendWithLength(Utf16Type, nullptr, quint64(valid.size()));
            for (const QChar unit : valid)
                appendBigEndian(unit.unicode(), 2);
        }
        *index = intern(begin);
        return true;
    }

    void appendInteger(quint64 value, bool sixteenBytes)
    {
        if (sixteenBytes) {
            m_scalars.push_back(char(IntegerType << 4 | 4));
            m_scalars.append(8, '\0');
            appendBigEndian(value, 8);
            return;
        }
        // Values with the top bit set take all eight bytes and so read back as negative numbers.
        const int width = widthOf(value);
        m_scalars.push_back(char(IntegerType << 4 | log2Of(width)));
        appendBigEndian(value, width);
    }

    void appendReal(double value)
    {
        const float narrow = float(value);
        if (double(narrow) == value) {
            m_scalars.push_back(char(RealType << 4 | 2));
            appendBigEndian(std::bit_cast<quint32>(narrow), 4);
        } else {
            m_scalars.push_back(char(RealType << 4 | 3));
            appendBigEndian(std::bit_cast<quint64>(value), 8);
        }
    }

    void appendWithLength(quint8 type, const char *bytes, quint64 length)
    {
        char header[1 + 1 + 8];
        m_scalars.append(header, size_t(putMarkerAndLength(header, type, length) - header));
        if (bytes)
            m_scalars.append(bytes, length);
    }

    void appendBigEndian(quint64 value, int width)
    {
        char bytes[8];
        m_scalars.append(bytes, size_t(putBigEndian(bytes, value, width) - bytes));
    }

    // The encoding just appended at begin becomes an object, unless an equal one exists already.
    quint64 intern(quint64 begin)
    {
        const ArenaSpan span{begin, m_scalars.size() - begin};
        const auto [found, added] = m_uniqued.try_emplace(span, m_objects.size());
        if (!added) {
            m_scalars.resize(begin);
            return found->second;
        }
        m_objects.push_back({span.offset, span.length, Kind::Scalar});
        return found->second;
    }

    std::vector<FlatObject> m_objects;
    std::vector<quint64> m_references;
    std::string m_scalars;
    std::unordered_map<ArenaSpan, quint64, SpanHash, SpanEqual> m_uniqued{
        64, SpanHash{&m_scalars}, SpanEqual{&m_scalars}};
    std::vector<Pending> m_pending;
};

QByteArray serialise(const TreeFlattener &flat)
{
    const std::vector<FlatObject> &objects = flat.objects();
    const quint64 objectCount = objects.size();
    const int referenceWidth = exactWidthOf(objectCount);

    std::vector<quint64> offsets(objectCount);
    quint64 at = Magic.size();
    for (quint64 i = 0; i < objectCount; ++i) {
        offsets[i] = at;
        const FlatObject &object = objects[i];
        if (object.kind == Kind::Scalar) {
            at += object.count;
        } else {
            const quint64 slotCount = object.kind == Kind::Dictionary ? 2 * object.count : object.count;
            at += 1 + lengthSuffixSize(object.count) + slotCount * quint64(referenceWidth);
        }
    }
    const quint64 offsetTableAt = at;
    const int offsetWidth = exactWidthOf(offsets.back());
    const quint64 total = offsetTableAt + objectCount * quint64(offsetWidth) + TrailerSize;
    if (total > quint64(std::numeric_limits<qsizetype>::max()))
        return {};

    QByteArray file(qsizetype(total), Qt::Uninitialized);
    char *out = file.data();
    out = std::copy(Magic.begin(), Magic.end(), out);
    const std::string &scalars = flat.scalars();
    const quint64 *references = flat.references().data();
    for (const FlatObject &object : objects) {
        if (object.kind == Kind::Scalar) {
            out = std::copy_n(scalars.data() + object.start, object.count, out);
            continue;
        }
        const bool dictionary = object.kind == Kind::Dictionary;
        out = putMarkerAndLength(out, dictionary ? DictionaryType : ArrayType, object.count);
        const quint64 slotCount = dictionary ? 2 * object.count : object.count;
        for (quint64 i = 0; i < slotCount; ++i)
            out = putBigEndian(out, references[object.start + i], referenceWidth);
    }
    for (const quint64 offset : offsets)
        out = putBigEndian(out, offset, offsetWidth);
    out = std::fill_n(out, 6, '\0');
    *out++ = char(offsetWidth);
    *out++ = char(referenceWidth);
    out = putBigEndian(out, objectCount, 8);
    out = putBigEndian(out, 0, 8); // the root is always flattened first
    putBigEndian(out, offsetTableAt, 8);
    return file;
}

} // namespace

QByteArray BinaryPlistWriter::write(const PlistValue &root)
{
    TreeFlattener flat;
    if (!flat.flatten(root))
        return {};
    return serialise(flat);
}
