// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/PortfolioReading.h"

#include "document/KeyedArchive.h"
#include "document/PortfolioArchive.h"

#include <QFile>
#include <QCoreApplication>

namespace PortfolioReading {

namespace {
// Far above any real portfolio; refuses to read whatever huge file was chosen by mistake.
constexpr qint64 MaximumFileSize = 64 * 1024 * 1024;

Result failure(const QString &error)
{
    Result result;
    result.error = error;
    return result;
}
} // namespace

bool adopt(QList<PersonRef> &titleHolders, Holding &holding)
{
    auto listed = [&titleHolders](const PersonRef &person) -> PersonRef {
        for (const PersonRef &candidate : titleHolders) {
            if (samePerson(candidate.get(), person.get()))
                return candidate;
        }
        return nullptr;
    };
    bool grew = false;
    if (const PersonRef owner = holding.owner()) {
        if (const PersonRef own = listed(owner)) {
            holding.setOwner(own);
        } else {
            titleHolders << owner;
            grew = true;
            holding.setOwner(nullptr);
        }
    }
    if (const PersonRef coOwner = holding.coOwner()) {
        if (const PersonRef own = listed(coOwner))
            holding.setCoOwner(own);
    }
    if (const PersonRef beneficiary = holding.beneficiary()) {
        if (const PersonRef own = listed(beneficiary))
            holding.setBeneficiary(own);
    }
    return grew;
}

Result fromData(const QByteArray &data, const PeopleStore &people, const QList<PersonRef> &titleHoldersIfNone)
{
    const KeyedArchive::DecodeResult archive = KeyedArchive::decode(data);
    if (!archive.ok)
        return failure(archive.error);
    const PortfolioArchive::Decoded decoded = PortfolioArchive::decodePortfolio(archive.root, people);
    if (!decoded.ok)
        return failure(decoded.error);
    Result result;
    result.ok = true;
    QList<PersonRef> titleHolders =
        Portfolio::sortedByName(decoded.hasTitleHolders ? decoded.titleHolders : titleHoldersIfNone);
    for (const HoldingRef &holding : decoded.holdings + decoded.redeemed)
        adopt(titleHolders, *holding);
    result.portfolio.titleHolders = Portfolio::sortedByName(titleHolders);
    result.portfolio.holdings = decoded.holdings;
    result.portfolio.redeemed = decoded.redeemed;
    result.portfolio.yearlyInterestReporters = decoded.yearlyInterestReporters;
    result.missingPeople = decoded.missingPeople;
    return result;
}

Result fromFile(const QString &path, const PeopleStore &people, const QList<PersonRef> &titleHoldersIfNone)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return failure(QCoreApplication::translate("PortfolioReading", "Could not open %1: %2").arg(path, file.errorString()));
    if (file.size() > MaximumFileSize)
        return failure(QCoreApplication::translate("PortfolioReading", "%1 is far too large to be a portfolio.").arg(path));
    return fromData(file.readAll(), people, titleHoldersIfNone);
}

} // namespace PortfolioReading
