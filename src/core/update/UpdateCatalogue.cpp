#include "update/UpdateCatalogue.h"

#include <algorithm>

#include "document/PlistInputGuard.h"

#include <QSet>
#include <limits>
#include <memory>
#include <plist/plist.h>

namespace {
using PlistPtr = std::unique_ptr<void, decltype(&plist_free)>;

// A catalogue is one array of names: a few levels deep and a few hundred values. The bounds are
// far above that, and keep a hostile reply from exhausting the stack or memory in the parser.
constexpr int MaximumDepth = 16;
constexpr qint64 MaximumValues = 100'000;

UpdateCatalogue::Status corrupt(QString *error, const QString &why)
{
    *error = why;
    return UpdateCatalogue::Status::Corrupt;
}
} // namespace

UpdateCatalogue UpdateCatalogue::parse(const QByteArray &data)
{
    UpdateCatalogue catalogue;
    if (data.isEmpty())
        return catalogue;
    if (data.size() > std::numeric_limits<uint32_t>::max()) {
        catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("catalogue too large"));
        return catalogue;
    }
    // The reply comes from the network, so it is screened before the parser sees it.
    const PlistInputGuard::Format format = PlistInputGuard::detectFormat(data);
    if (format == PlistInputGuard::Format::Unknown) {
        catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("not a property list"));
        return catalogue;
    }
    const bool binary = format == PlistInputGuard::Format::Binary;
    QString problem;
    const bool acceptable = binary ? PlistInputGuard::checkBinary(data, MaximumDepth, MaximumValues, &problem)
                                   : PlistInputGuard::checkXml(data, MaximumDepth, MaximumValues, &problem);
    if (!acceptable) {
        catalogue.m_status = corrupt(&catalogue.m_error, problem);
        return catalogue;
    }
    plist_t root = nullptr;
    if (binary)
        plist_from_bin(data.constData(), static_cast<uint32_t>(data.size()), &root);
    else
        plist_from_xml(data.constData(), static_cast<uint32_t>(data.size()), &root);
    PlistPtr owner(root, &plist_free);
    if (!root) {
        catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("not a property list"));
        return catalogue;
    }
    if (plist_get_node_type(root) != PLIST_ARRAY) {
        catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("the top level is not an array"));
        return catalogue;
    }
    const uint32_t count = plist_array_get_size(root);
    QStringList entries;
    entries.reserve(static_cast<qsizetype>(count));
    for (uint32_t i = 0; i < count; ++i) {
        plist_t item = plist_array_get_item(root, i);
        if (!item || plist_get_node_type(item) != PLIST_STRING) {
            catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("entry %1 is not a string").arg(i));
            return catalogue;
        }
        uint64_t length = 0;
        const char *text = plist_get_string_ptr(item, &length);
        // An empty name would resolve to the directory itself, never to a price data file.
        if (!text || length == 0) {
            catalogue.m_status = corrupt(&catalogue.m_error, QStringLiteral("entry %1 is empty").arg(i));
            return catalogue;
        }
        entries << QString::fromUtf8(text, static_cast<qsizetype>(length));
    }
    catalogue.m_status = Status::Valid;
    catalogue.m_entries = entries;
    return catalogue;
}

QByteArray UpdateCatalogue::encode(const QStringList &entries)
{
    PlistPtr root(plist_new_array(), &plist_free);
    for (const QString &entry : entries)
        plist_array_append_item(root.get(), plist_new_string(entry.toUtf8().constData()));
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    QByteArray result(xml, static_cast<qsizetype>(length));
    plist_to_xml_free(xml);
    return result;
}

QString UpdateCatalogue::entryProblem(const QString &entry)
{
    // A name is resolved against the directory and recorded as it stands: only a plain one can
    // neither leave the directory nor be recorded under two spellings.
    static const QString forbidden = QStringLiteral("/\\?#:%");
    const bool plain = !entry.isEmpty() && entry != QLatin1String(".") && entry != QLatin1String("..")
                       && std::none_of(entry.cbegin(), entry.cend(), [](QChar c) { return forbidden.contains(c) || c < QChar(0x20); });
    return plain ? QString() : QStringLiteral("the entry \"%1\" is not a file of the update directory").arg(entry);
}

QStringList UpdateCatalogue::determineUpdateDataDelta(const QStringList &catalogue, const QStringList &known)
{
    const QSet<QString> installed(known.cbegin(), known.cend());
    QStringList delta;
    for (const QString &entry : catalogue) {
        if (!installed.contains(entry))
            delta << entry;
    }
    return delta;
}
