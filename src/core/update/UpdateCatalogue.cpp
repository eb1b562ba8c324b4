// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateCatalogue.h"

#include <algorithm>

#include "base/PlistReader.h"

#include <QSet>
#include <limits>
#include <QCoreApplication>

namespace {

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
        catalogue.m_status = corrupt(&catalogue.m_error, QCoreApplication::translate("UpdateCatalogue", "catalogue too large"));
        return catalogue;
    }
    // The reply comes from the network: the reader bounds what it builds.
    const PlistReader::Result read = PlistReader::read(data, {MaximumDepth, MaximumValues});
    if (read.outcome == PlistReader::Result::Outcome::Refused) {
        catalogue.m_status = corrupt(&catalogue.m_error, read.problem);
        return catalogue;
    }
    if (read.outcome != PlistReader::Result::Outcome::Read) {
        catalogue.m_status = corrupt(&catalogue.m_error, QCoreApplication::translate("UpdateCatalogue", "not a property list"));
        return catalogue;
    }
    if (!read.root.is(PlistValue::Type::Array)) {
        catalogue.m_status = corrupt(&catalogue.m_error, QCoreApplication::translate("UpdateCatalogue", "the top level is not an array"));
        return catalogue;
    }
    QStringList entries;
    entries.reserve(static_cast<qsizetype>(read.root.items().size()));
    for (const PlistValue &item : read.root.items()) {
        const qsizetype i = entries.size();
        if (!item.is(PlistValue::Type::String)) {
            catalogue.m_status = corrupt(&catalogue.m_error, QCoreApplication::translate("UpdateCatalogue", "entry %1 is not a string").arg(i));
            return catalogue;
        }
        // An empty name would resolve to the directory itself, never to a price data file.
        if (item.text().isEmpty()) {
            catalogue.m_status = corrupt(&catalogue.m_error, QCoreApplication::translate("UpdateCatalogue", "entry %1 is empty").arg(i));
            return catalogue;
        }
        entries << item.text();
    }
    catalogue.m_status = Status::Valid;
    catalogue.m_entries = entries;
    return catalogue;
}

// The XML form of an array of strings, laid out as property-list tools have long written it.
QByteArray UpdateCatalogue::encode(const QStringList &entries)
{
    QByteArray xml("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                   "<plist version=\"1.0\">\n");
    if (entries.isEmpty()) {
        xml += "<array/>\n";
    } else {
        xml += "<array>\n";
        for (const QString &entry : entries) {
            // Only what XML needs escaped: & and the angle brackets; a null character ends the text.
            QByteArray text = entry.toUtf8();
            text.truncate(text.indexOf('\0') < 0 ? text.size() : text.indexOf('\0'));
            text.replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;");
            xml += "\t<string>" + text + "</string>\n";
        }
        xml += "</array>\n";
    }
    return xml + "</plist>\n";
}

QString UpdateCatalogue::entryProblem(const QString &entry)
{
    // A name is resolved against the directory and recorded as it stands: only a plain one can
    // neither leave the directory nor be recorded under two spellings.
    static const QString forbidden = QStringLiteral("/\\?#:%");
    const bool plain = !entry.isEmpty() && entry != QLatin1String(".") && entry != QLatin1String("..")
                       && std::none_of(entry.cbegin(), entry.cend(), [](QChar c) { return forbidden.contains(c) || c < QChar(0x20); });
    return plain ? QString() : QCoreApplication::translate("UpdateCatalogue", "the entry \"%1\" is not a file of the update directory").arg(entry);
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
