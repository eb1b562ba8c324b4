// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/BondPortfolio.h"

#include "document/PortfolioReading.h"

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
    for (const HoldingRef &holding : m_data.holdings + m_data.redeemed)
        m_recorder->stopObserving(holding.get());
    // Commands keep removed holdings alive; let them go while this object is still whole.
    delete m_undoStack;
    m_undoStack = nullptr;
}

void BondPortfolio::setHoldings(const QList<HoldingRef> &holdings)
{
    if (holdings == m_data.holdings)
        return;
    emit holdingsAboutToBeReset();
    for (const HoldingRef &holding : std::as_const(m_data.holdings))
        m_recorder->stopObserving(holding.get());
    m_data.holdings = holdings;
    for (const HoldingRef &holding : std::as_const(m_data.holdings))
        m_recorder->startObserving(holding);
    emit holdingsReset();
    emit interestSummaryChanged();
}

void BondPortfolio::insertHolding(const HoldingRef &holding, int index)
{
    if (!holding || m_data.holdings.contains(holding))
        return;
    index = std::clamp(index, 0, int(m_data.holdings.size()));
    m_recorder->record(new InsertHoldingCommand(this, holding, index));
}

void BondPortfolio::appendHoldings(const QList<HoldingRef> &holdings)
{
    if (holdings.isEmpty())
        return;
    // Installed at once, as loading does, then recorded as the one step it was.
    setHoldings(m_data.holdings + holdings);
    m_recorder->record(new AppendHoldingsCommand(this, holdings));
}

void BondPortfolio::removeHoldingAt(int index)
{
    if (index < 0 || index >= m_data.holdings.size())
        return;
    m_recorder->record(new DeleteHoldingCommand(this, index));
}

int BondPortfolio::indexOfHolding(const Holding *holding) const
{
    for (qsizetype i = 0; i < m_data.holdings.size(); ++i) {
        if (m_data.holdings.at(i).get() == holding)
            return int(i);
    }
    return -1;
}

void BondPortfolio::insertHoldingWithoutRecording(const HoldingRef &holding, int index)
{
    index = std::clamp(index, 0, int(m_data.holdings.size()));
    emit holdingAboutToBeInserted(index);
    m_recorder->startObserving(holding);
    m_data.holdings.insert(index, holding);
    emit holdingInserted(index);
    emit interestSummaryChanged();
}

HoldingRef BondPortfolio::takeHoldingWithoutRecording(int index)
{
    const HoldingRef holding = m_data.holdings.at(index);
    emit holdingAboutToBeRemoved(index);
    m_recorder->stopObserving(holding.get());
    // Unobserved, so clearing the roles records nothing; it unlinks the people's lists.
    holding->setOwner(nullptr);
    holding->setCoOwner(nullptr);
    holding->setBeneficiary(nullptr);
    m_data.holdings.removeAt(index);
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
    if (people == m_data.titleHolders)
        return;
    if (!m_recorder->isApplying())
        m_recorder->record(new SetTitleHoldersCommand(this, m_data.titleHolders, people));
    installTitleHolders(people);
}

void BondPortfolio::setTitleHoldersWithoutRecording(const QList<PersonRef> &people)
{
    PortfolioRecorder::Applying applying(m_recorder);
    installTitleHolders(people);
}

void BondPortfolio::installTitleHolders(const QList<PersonRef> &people)
{
    const QList<PersonRef> sorted = Portfolio::sortedByName(people);
    emit titleHoldersAboutToChange();
    m_data.titleHolders = sorted;
    emit titleHoldersChanged();
}

void BondPortfolio::deleteTitleHolderFromAllBonds(const PersonRef &person)
{
    if (!person)
        return;
    // Roles name the list's own objects; the caller may hold an equal one.
    QList<const Person *> objects{person.get()};
    for (const PersonRef &listed : std::as_const(m_data.titleHolders)) {
        if (listed != person && samePerson(listed.get(), person.get()))
            objects << listed.get();
    }
    UndoStep step(*this, UndoActionName::EditPeople);
    QList<PersonRef> remaining = m_data.titleHolders;
    remaining.removeIf([&person](const PersonRef &p) { return samePerson(p.get(), person.get()); });
    setTitleHolders(remaining);
    const QList<HoldingRef> holdings = m_data.holdings + m_data.redeemed;
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

void BondPortfolio::changeValue(Holding *holding, HoldingProperty property, const QVariant &value)
{
    PortfolioRecorder::Applying applying(m_recorder);
    holding->setValue(property, value);
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
    return Portfolio::displayNameOf(m_fileName);
}

void BondPortfolio::adopt(Holding &holding)
{
    QList<PersonRef> people = m_data.titleHolders;
    if (PortfolioReading::adopt(people, holding))
        setTitleHolders(people);
}
