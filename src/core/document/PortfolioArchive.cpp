// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/PortfolioArchive.h"

#include "model/PeopleStore.h"
#include "base/Series.h"

#include <QHash>
#include <QSet>
#include <QTimeZone>
#include <limits>
#include <QCoreApplication>

namespace {

const QString HoldingClass = QStringLiteral("Holding");
const QString PersonClass = QStringLiteral("Person");
const QString SeriesClass = QStringLiteral("Series");
const QString NSObjectClass = QStringLiteral("NSObject");

// The file needs an instant for an issue month. Noon UTC on the first falls on the first in
// every time zone, so the month reads back the same wherever the file is opened.
QDateTime instantOf(Month month)
{
    return QDateTime(QDate(month.year(), month.month(), 1), QTime(12, 0), QTimeZone::utc());
}

std::shared_ptr<ArchiveObject> makeObject(const QString &className)
{
    auto object = std::make_shared<ArchiveObject>();
    object->className = className;
    object->classHierarchy = {className, NSObjectClass};
    return object;
}

// One archive object per program object, so that shared objects stay shared.
class Encoder
{
public:
    ArchiveRef person(const PersonRef &person)
    {
        if (!person)
            return std::monostate();
        auto &slot = m_people[person.get()];
        if (!slot) {
            slot = makeObject(PersonClass);
            slot->set(QStringLiteral("uid"), ArchiveRef(person->uniqueId()));
        }
        return slot;
    }

    ArchiveRef series(const Series *series)
    {
        auto &slot = m_series[series];
        if (!slot) {
            slot = makeObject(SeriesClass);
            slot->set(QStringLiteral("code"), ArchiveRef(series->code()));
        }
        return slot;
    }

    ArchiveRef holding(const Holding &holding)
    {
        auto object = makeObject(HoldingClass);
        object->set(QString::fromLatin1(HoldingKey::Series), series(holding.series()));
        object->set(QString::fromLatin1(HoldingKey::Quantity), qint64(holding.quantity()));
        object->set(QString::fromLatin1(HoldingKey::FaceValue), qint64(holding.faceValue()));
        object->set(QString::fromLatin1(HoldingKey::IssueDate),
                    holding.issueDate().isNull() ? ArchiveRef() : ArchiveRef(ArchiveDate{instantOf(holding.issueDate())}));
        object->set(QString::fromLatin1(HoldingKey::SerialNumber),
                    holding.serialNumber().isNull() ? ArchiveRef() : ArchiveRef(holding.serialNumber()));
        object->set(QString::fromLatin1(HoldingKey::Owner), person(holding.owner()));
        object->set(QString::fromLatin1(HoldingKey::CoOwner), person(holding.coOwner()));
        object->set(QString::fromLatin1(HoldingKey::Beneficiary), person(holding.beneficiary()));
        object->set(QString::fromLatin1(HoldingKey::Paper), holding.isPaper());
        if (holding.isRedeemed()) {
            object->set(QString::fromLatin1(HoldingKey::RedemptionMonth), ArchiveRef(ArchiveDate{instantOf(holding.redemptionMonth())}));
            object->set(QString::fromLatin1(HoldingKey::AmountReceived), qint64(holding.amountReceived()));
        }
        return object;
    }

    std::shared_ptr<ArchiveArray> holdings(const QList<HoldingRef> &holdings)
    {
        auto array = std::make_shared<ArchiveArray>();
        array->className = QStringLiteral("NSMutableArray");
        for (const HoldingRef &h : holdings)
            array->items << holding(*h);
        return array;
    }

private:
    QHash<const Person *, std::shared_ptr<ArchiveObject>> m_people;
    QHash<const Series *, std::shared_ptr<ArchiveObject>> m_series;
};

struct DecodeFailure
{
    QString message;
};

QString damaged(const QString &detail)
{
    return QCoreApplication::translate("PortfolioArchive", "The portfolio file is damaged: %1.").arg(detail);
}

class Decoder
{
public:
    explicit Decoder(const PeopleStore &people) : m_people(people) {}

    // Null when the record is unknown to the store (the person vanishes silently).
    PersonRef person(const ArchiveRef &ref)
    {
        if (std::holds_alternative<std::monostate>(ref))
            return nullptr;
        const auto *object = std::get_if<std::shared_ptr<ArchiveObject>>(&ref);
        if (!object || !*object || (*object)->className != PersonClass)
            throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a title holder is not a person"))};
        const ArchiveObject *key = object->get();
        if (m_decodedPeople.contains(key))
            return m_decodedPeople.value(key);
        PersonRef result;
        const ArchiveField *uid = (*object)->field(QStringLiteral("uid"));
        if (uid) {
            const auto *ref = std::get_if<ArchiveRef>(uid);
            const QString *text = ref ? std::get_if<QString>(ref) : nullptr;
            if (!text && !(ref && std::holds_alternative<std::monostate>(*ref)))
                throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a person's identifier is not text"))};
            if (text) {
                if (const auto record = m_people.recordForUniqueId(*text))
                    result = Person::create(record);
                else
                    m_missingIdentifiers.insert(*text);
            }
        }
        m_decodedPeople.insert(key, result);
        return result;
    }

    int missingPeople() const { return int(m_missingIdentifiers.size()); }

    HoldingRef holding(const ArchiveRef &ref)
    {
        const auto *pointer = std::get_if<std::shared_ptr<ArchiveObject>>(&ref);
        if (!pointer || !*pointer || (*pointer)->className != HoldingClass)
            throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "the list of holdings holds something else"))};
        const ArchiveObject &object = **pointer;
        if (m_decodedHoldings.contains(&object))
            throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a holding appears twice"))};
        m_decodedHoldings.insert(&object);

        auto result = std::make_shared<Holding>();
        const qint64 quantity = integer(object, HoldingKey::Quantity);
        if (quantity < std::numeric_limits<qint32>::min() || quantity > std::numeric_limits<qint32>::max())
            throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a quantity is out of range"))};
        result->setQuantity(qint32(quantity));
        result->setFaceValue(integer(object, HoldingKey::FaceValue));
        result->setSeries(series(object));
        result->setIssueDate(date(object, HoldingKey::IssueDate));
        result->setSerialNumber(text(object, HoldingKey::SerialNumber));
        result->setOwner(person(reference(object, HoldingKey::Owner)));
        result->setCoOwner(person(reference(object, HoldingKey::CoOwner)));
        result->setBeneficiary(person(reference(object, HoldingKey::Beneficiary)));
        result->setPaper(paper(object));
        result->setRedemptionMonth(date(object, HoldingKey::RedemptionMonth));
        result->setAmountReceived(integer(object, HoldingKey::AmountReceived));
        return result;
    }

private:
    static QString keyName(const char *key) { return QString::fromLatin1(key); }

    static qint64 integer(const ArchiveObject &object, const char *key)
    {
        const ArchiveField *field = object.field(keyName(key));
        if (!field)
            return 0;
        if (const qint64 *value = std::get_if<qint64>(field))
            return *value;
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "the holding's %1 is not a whole number").arg(keyName(key)))};
    }

    static ArchiveRef reference(const ArchiveObject &object, const char *key)
    {
        const ArchiveField *field = object.field(keyName(key));
        if (!field)
            return std::monostate();
        if (const ArchiveRef *ref = std::get_if<ArchiveRef>(field))
            return *ref;
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "the holding's %1 is of the wrong kind").arg(keyName(key)))};
    }

    static const Series *series(const ArchiveObject &object)
    {
        const ArchiveRef ref = reference(object, HoldingKey::Series);
        if (std::holds_alternative<std::monostate>(ref))
            return nullptr;
        const auto *pointer = std::get_if<std::shared_ptr<ArchiveObject>>(&ref);
        if (!pointer || !*pointer || (*pointer)->className != SeriesClass)
            throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a holding's series is of the wrong kind"))};
        const ArchiveField *code = (*pointer)->field(QStringLiteral("code"));
        const ArchiveRef *codeRef = code ? std::get_if<ArchiveRef>(code) : nullptr;
        const QString *text = codeRef ? std::get_if<QString>(codeRef) : nullptr;
        return text ? Series::seriesForCode(*text) : nullptr; // an unknown code is no series
    }

    // Converting to local time asks the C library, which re-reads the zone file each time; many
    // holdings share an issue date, so conversions are remembered (bounded, per thread).
    static QDateTime localTime(const QDateTime &instant)
    {
        thread_local QHash<qint64, QDateTime> converted;
        const qint64 key = instant.toMSecsSinceEpoch();
        if (const auto found = converted.constFind(key); found != converted.cend())
            return *found;
        if (converted.size() > 4096)
            converted.clear();
        return *converted.insert(key, instant.toLocalTime());
    }

    // The file keeps an instant; the holding keeps the month it falls in here.
    static Month date(const ArchiveObject &object, const char *key)
    {
        const ArchiveRef ref = reference(object, key);
        if (std::holds_alternative<std::monostate>(ref))
            return {};
        if (const auto *value = std::get_if<ArchiveDate>(&ref)) {
            if (!value->instant.isValid())
                throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "an issue date is out of range"))};
            return Month::of(localTime(value->instant));
        }
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "an issue date is not a date"))};
    }

    static QString text(const ArchiveObject &object, const char *key)
    {
        const ArchiveRef ref = reference(object, key);
        if (std::holds_alternative<std::monostate>(ref))
            return {};
        if (const auto *value = std::get_if<QString>(&ref))
            return *value;
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a serial number is not text"))};
    }

    static bool paper(const ArchiveObject &object)
    {
        const ArchiveField *field = object.field(keyName(HoldingKey::Paper));
        if (!field)
            return true; // files from before electronic bonds
        if (const bool *value = std::get_if<bool>(field))
            return *value;
        if (const qint64 *value = std::get_if<qint64>(field))
            return *value != 0;
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a holding's paper flag is not a yes or no"))};
    }

    const PeopleStore &m_people;
    QHash<const ArchiveObject *, PersonRef> m_decodedPeople;
    QSet<const ArchiveObject *> m_decodedHoldings;
    QSet<QString> m_missingIdentifiers;
};

const ArchiveArray *arrayOf(const ArchiveRef &ref, const QString &what)
{
    if (std::holds_alternative<std::monostate>(ref))
        return nullptr;
    const auto *pointer = std::get_if<std::shared_ptr<ArchiveArray>>(&ref);
    if (!pointer || !*pointer)
        throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "the %1 are not a list").arg(what))};
    return pointer->get();
}

} // namespace

namespace PortfolioArchive {

ArchiveRef encodePortfolio(const Portfolio &portfolio)
{
    Encoder encoder;
    auto people = std::make_shared<ArchiveArray>();
    people->className = QStringLiteral("NSArray");
    for (const PersonRef &person : portfolio.titleHolders)
        people->items << encoder.person(person);
    auto root = std::make_shared<ArchiveDictionary>();
    root->className = QStringLiteral("NSDictionary");
    root->entries.append({QStringLiteral("holdings"), encoder.holdings(portfolio.holdings)});
    root->entries.append({QStringLiteral("titleHolders"), people});
    // Written only when there is something to keep, so that other files stay as they were.
    if (!portfolio.redeemed.isEmpty())
        root->entries.append({QString::fromLatin1(RedeemedHoldingsKey), encoder.holdings(portfolio.redeemed)});
    if (!portfolio.yearlyInterestReporters.isEmpty()) {
        auto ids = std::make_shared<ArchiveArray>();
        ids->className = QStringLiteral("NSArray");
        for (const QString &id : portfolio.yearlyInterestReporters)
            ids->items << ArchiveRef(id);
        root->entries.append({QString::fromLatin1(YearlyInterestReportersKey), ids});
    }
    return root;
}

ArchiveRef encodeHoldings(const QList<HoldingRef> &holdings)
{
    Encoder encoder;
    return encoder.holdings(holdings);
}

Decoded decodePortfolio(const ArchiveRef &root, const PeopleStore &people)
{
    Decoded result;
    Decoder decoder(people);
    try {
        const ArchiveArray *holdings = nullptr;
        const ArchiveArray *titleHolders = nullptr;
        const ArchiveArray *redeemed = nullptr;
        const ArchiveArray *yearly = nullptr;
        if (const auto *list = std::get_if<std::shared_ptr<ArchiveArray>>(&root); list && *list) {
            holdings = list->get();
        } else if (const auto *dict = std::get_if<std::shared_ptr<ArchiveDictionary>>(&root); dict && *dict) {
            result.hasTitleHolders = true;
            if (const ArchiveRef *entry = (*dict)->value(QStringLiteral("holdings")))
                holdings = arrayOf(*entry, QStringLiteral("holdings"));
            if (const ArchiveRef *entry = (*dict)->value(QStringLiteral("titleHolders")))
                titleHolders = arrayOf(*entry, QCoreApplication::translate("PortfolioArchive", "title holders"));
            if (const ArchiveRef *entry = (*dict)->value(QString::fromLatin1(RedeemedHoldingsKey)))
                redeemed = arrayOf(*entry, QCoreApplication::translate("PortfolioArchive", "redeemed holdings"));
            if (const ArchiveRef *entry = (*dict)->value(QString::fromLatin1(YearlyInterestReportersKey)))
                yearly = arrayOf(*entry, QCoreApplication::translate("PortfolioArchive", "yearly interest reporters"));
        } else {
            result.error = QCoreApplication::translate("PortfolioArchive", "The file is not a Quillmere portfolio.");
            return result;
        }
        // People first, so that a person listed and named on bonds is one object.
        if (titleHolders) {
            for (const ArchiveRef &item : titleHolders->items) {
                if (const PersonRef person = decoder.person(item))
                    result.titleHolders << person;
            }
        }
        if (holdings) {
            for (const ArchiveRef &item : holdings->items) {
                if (!std::holds_alternative<std::monostate>(item))
                    result.holdings << decoder.holding(item);
                // A held bond carries no redemption, whatever a damaged file says.
                if (!result.holdings.isEmpty() && result.holdings.last()->isRedeemed()) {
                    result.holdings.last()->setRedemptionMonth({});
                    result.holdings.last()->setAmountReceived(0);
                }
            }
        }
        for (const ArchiveRef &item : redeemed ? redeemed->items : QList<ArchiveRef>()) {
            const HoldingRef holding = decoder.holding(item);
            if (!holding->isRedeemed())
                throw DecodeFailure{damaged(QCoreApplication::translate("PortfolioArchive", "a redeemed holding has no redemption date"))};
            result.redeemed << holding;
        }
        for (const ArchiveRef &item : yearly ? yearly->items : QList<ArchiveRef>()) {
            if (const auto *id = std::get_if<QString>(&item))
                result.yearlyInterestReporters << *id;
        }
    } catch (const DecodeFailure &failure) {
        result.holdings.clear();
        result.titleHolders.clear();
        result.redeemed.clear();
        result.error = failure.message;
        return result;
    }
    result.missingPeople = decoder.missingPeople();
    result.ok = true;
    return result;
}

} // namespace PortfolioArchive
