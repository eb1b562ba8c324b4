// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PlistReader.h"

PlistReader::Format PlistReader::detectFormat(const QByteArray &data)
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

PlistReader::Result PlistReader::read(const QByteArray &data, const Limits &limits)
{
    switch (detectFormat(data)) {
    case Format::Binary:
        return readBinary(data, limits);
    case Format::Xml:
        return readXml(data, limits);
    case Format::Unknown:
        break;
    }
    return {};
}
