// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BondClipboard.h"

#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"

#include <QMimeData>

namespace BondClipboard {

QMimeData *mimeDataFor(const QList<HoldingRef> &holdings)
{
    if (holdings.isEmpty())
        return nullptr;
    const QByteArray archive = KeyedArchive::encode(PortfolioArchive::encodeHoldings(holdings));
    if (archive.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    data->setData(QString::fromLatin1(HoldingsType), archive);
    return data;
}

QList<HoldingRef> holdingsFrom(const QMimeData *data, const PeopleStore &people)
{
    if (!data)
        return {};
    const QStringList formats = data->formats();
    if (formats.isEmpty() || formats.first() != QLatin1String(HoldingsType))
        return {};
    const KeyedArchive::DecodeResult archive = KeyedArchive::decode(data->data(QString::fromLatin1(HoldingsType)));
    if (!archive.ok)
        return {};
    const PortfolioArchive::Decoded decoded = PortfolioArchive::decodePortfolio(archive.root, people);
    return decoded.ok ? decoded.holdings : QList<HoldingRef>();
}

} // namespace BondClipboard
