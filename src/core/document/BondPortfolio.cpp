#include "document/BondPortfolio.h"

#include "document/PortfolioUndo.h"
#include "model/PeopleStore.h"
#include "base/Series.h"
#include "valuation/RedemptionDateRangeNotifier.h"

#include <QFileInfo>
#include <QUndoStack>
#include <algorithm>

BondPortfolio::BondPortfolio(PeopleStore *people, const QString &databasePath, QObject *parent)
    : QObject(parent)
    , m_assessor(std::make_unique<BondAssessor>(databasePath))
    , m_people(people ? people : &PeopleStore::shared())
    , m_undoStack(new QUndoStack(this))
    , m_recorder(new PortfolioRecorder(this, m_undoStack))
{
    connect(m_undoStack, &QUndoStack::cleanChanged, this, [this](bool clean) { emit editedChanged(!clean); });
    connect(this, &BondPortfolio::valueOfDateChanged, this, &BondPortfolio::figuresChanged);
    // Figures are read afresh from the database; an installation only has to say so.
    connect(RedemptionDateRangeNotifier::instance(), &RedemptionDateRangeNotifier::redemptionDateRangeDidChange,
            this, &BondPortfolio::redemptionValuesChanged);
    setTitleHolders(Person::family(*m_people));
    m_summaryMode = SummaryMode::Cumulative;
    storeValueOfDate(initialValueOfDate());
    // Nothing done so far can be undone: a new document is not edited.
    m_undoStack->clear();
}

void BondPortfolio::redemptionValuesChanged()
{
    emit figuresChanged();
    emit interestSummaryChanged();
}

BondPortfolio::~BondPortfolio()
{
    for (const HoldingRef &holding : std::as_const(m_holdings))
        m_recorder->stopObserving(holding.get());
    // Commands keep removed holdings alive; let them go while this object is still whole.
    delete m_undoStack;
    m_undoStack = nullptr;
}

void BondPortfolio::setHoldings(const QList<HoldingRef> &holdings)
{
    if (holdings == m_holdings)
        return;
    emit holdingsAboutToBeReset();
    for (const HoldingRef &holding : std::as_const(m_holdings))
        m_recorder->stopObserving(holding.get());
    m_holdings = holdings;
    for (const HoldingRef &holding : std::as_const(m_holdings))
        m_recorder->startObserving(holding);
    emit holdingsReset();
    emit interestSummaryChanged();
}

void BondPortfolio::insertHolding(const HoldingRef &holding, int index)
{
    if (!holding || m_holdings.contains(holding))
        return;
    index = std::clamp(index, 0, int(m_holdings.size()));
    m_recorder->record(new InsertHoldingCommand(this, holding, index));
}

void BondPortfolio::appendHoldings(const QList<HoldingRef> &holdings)
{
    if (holdings.isEmpty())
        return;
    // Installed at once, as loading does, then recorded as the one step it was.
    setHoldings(m_holdings + holdings);
    m_recorder->record(new AppendHoldingsCommand(this, holdings));
}

void BondPortfolio::removeHoldingAt(int index)
{
    if (index < 0 || index >= m_holdings.size())
        return;
    m_recorder->record(new DeleteHoldingCommand(this, index));
}

int BondPortfolio::indexOfHolding(const Holding *holding) const
{
    for (qsizetype i = 0; i < m_holdings.size(); ++i) {
        if (m_holdings.at(i).get() == holding)
            return int(i);
    }
    return -1;
}

void BondPortfolio::insertHoldingWithoutRecording(const HoldingRef &holding, int index)
{
    index = std::clamp(index, 0, int(m_holdings.size()));
    emit holdingAboutToBeInserted(index);
    m_recorder->startObserving(holding);
    m_holdings.insert(index, holding);
    emit holdingInserted(index);
    emit interestSummaryChanged();
}

HoldingRef BondPortfolio::takeHoldingWithoutRecording(int index)
{
    const HoldingRef holding = m_holdings.at(index);
    emit holdingAboutToBeRemoved(index);
    m_recorder->stopObserving(holding.get());
    // Unobserved, so clearing the roles records nothing; it unlinks the people's lists.
    holding->setOwner(nullptr);
    holding->setCoOwner(nullptr);
    holding->setBeneficiary(nullptr);
    m_holdings.removeAt(index);
    emit holdingRemoved(index);
    emit interestSummaryChanged();
    return holding;
}

HoldingRef BondPortfolio::addNewHolding(int index)
{
    const HoldingRef holding = Holding::create();
    adopt(*holding);
    insertHolding(holding, index);
    return holding;
}

void BondPortfolio::setTitleHolders(const QList<PersonRef> &people)
{
    if (people == m_titleHolders)
        return;
    if (!m_recorder->isApplying())
        m_recorder->record(new SetTitleHoldersCommand(this, m_titleHolders, people));
    installTitleHolders(people);
}

void BondPortfolio::setTitleHoldersWithoutRecording(const QList<PersonRef> &people)
{
    PortfolioRecorder::Applying applying(m_recorder);
    installTitleHolders(people);
}

void BondPortfolio::installTitleHolders(const QList<PersonRef> &people)
{
    QList<PersonRef> sorted;
    for (const PersonRef &person : people) {
        if (person)
            sorted << person;
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const PersonRef &a, const PersonRef &b) { return a->name() < b->name(); });
    emit titleHoldersAboutToChange();
    m_titleHolders = sorted;
    emit titleHoldersChanged();
}

void BondPortfolio::deleteTitleHolderFromAllBonds(const PersonRef &person)
{
    if (!person)
        return;
    // Roles name the list's own objects; the caller may hold an equal one.
    QList<const Person *> objects{person.get()};
    for (const PersonRef &listed : std::as_const(m_titleHolders)) {
        if (listed != person && samePerson(listed.get(), person.get()))
            objects << listed.get();
    }
    UndoStep step(*this, UndoActionName::EditPeople);
    QList<PersonRef> remaining = m_titleHolders;
    remaining.removeIf([&person](const PersonRef &p) { return samePerson(p.get(), person.get()); });
    setTitleHolders(remaining);
    const QList<HoldingRef> holdings = m_holdings;
    for (const HoldingRef &holding : holdings) {
        for (const Person *object : std::as_const(objects))
            holding->deleteTitleHolder(object);
    }
}

QList<const Series *> BondPortfolio::series() const
{
    return Series::allSeries();
}

bool BondPortfolio::isEdited() const
{
    return !m_undoStack->isClean();
}

void BondPortfolio::beginUndoStep(const char *actionName)
{
    m_recorder->beginStep(actionName);
}

void BondPortfolio::endUndoStep()
{
    m_recorder->endStep();
}

void BondPortfolio::markEdited()
{
    m_undoStack->resetClean();
}

void BondPortfolio::markSaved()
{
    m_undoStack->setClean();
}

void BondPortfolio::changeKeyPath(Holding *holding, const QString &key, const QVariant &value)
{
    PortfolioRecorder::Applying applying(m_recorder);
    holding->setValueForKey(key, value);
}

void BondPortfolio::setFileName(const QString &fileName)
{
    if (fileName == m_fileName)
        return;
    m_fileName = fileName;
    emit fileNameChanged();
}

QString BondPortfolio::displayName() const
{
    if (m_fileName.isEmpty())
        return QStringLiteral("Untitled");
    return QFileInfo(m_fileName).completeBaseName();
}

void BondPortfolio::adopt(Holding &holding)
{
    QList<PersonRef> people = m_titleHolders;
    auto listed = [&people](const PersonRef &person) -> PersonRef {
        for (const PersonRef &candidate : people) {
            if (samePerson(candidate.get(), person.get()))
                return candidate;
        }
        return nullptr;
    };
    bool peopleChanged = false;
    if (const PersonRef owner = holding.owner()) {
        if (const PersonRef own = listed(owner)) {
            holding.setOwner(own);
        } else {
            people << owner;
            peopleChanged = true;
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
    if (peopleChanged)
        setTitleHolders(people);
}
