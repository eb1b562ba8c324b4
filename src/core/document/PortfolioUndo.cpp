// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/PortfolioUndo.h"

#include "document/BondPortfolio.h"

#include <QUndoStack>

PortfolioRecorder::PortfolioRecorder(BondPortfolio *portfolio, QUndoStack *stack)
    : QObject(portfolio)
    , m_portfolio(portfolio)
    , m_stack(stack)
{
}

void PortfolioRecorder::startObserving(const HoldingRef &holding)
{
    Holding *raw = holding.get();
    // The connection keeps only a weak reference; the portfolio's list owns the holding.
    std::weak_ptr<Holding> weak = holding;
    connect(raw, &Holding::valueChanged, this, [this, weak](HoldingProperty property, const QVariant &oldValue) {
        if (const HoldingRef strong = weak.lock())
            valueChanged(strong, property, oldValue);
    });
    connect(raw, &Holding::changesCompleted, this, &PortfolioRecorder::changesCompleted);
}

void PortfolioRecorder::stopObserving(Holding *holding)
{
    disconnect(holding, nullptr, this, nullptr);
}

void PortfolioRecorder::valueChanged(const HoldingRef &holding, HoldingProperty property, const QVariant &oldValue)
{
    if (!isApplying()) {
        if (!m_pending)
            m_pending = new QUndoCommand(UndoActionName::text(UndoActionName::Edit));
        new ChangeValueCommand(m_portfolio, holding, property, oldValue, holding->value(property), m_pending);
    }
    emit m_portfolio->holdingChanged(holding.get(), property);
    emit m_portfolio->interestSummaryChanged();
}

void PortfolioRecorder::changesCompleted()
{
    if (!m_pending)
        return;
    QUndoCommand *command = m_pending;
    m_pending = nullptr;
    record(command);
}

void PortfolioRecorder::record(QUndoCommand *command)
{
    if (m_stepDepth > 0 && !m_stepOpenOnStack) {
        m_stack->beginMacro(UndoActionName::text(m_stepName));
        m_stepOpenOnStack = true;
    }
    m_stack->push(command);
}

void PortfolioRecorder::beginStep(const char *actionName)
{
    if (m_stepDepth++ == 0)
        m_stepName = actionName;
}

void PortfolioRecorder::endStep()
{
    if (m_stepDepth == 0 || --m_stepDepth > 0)
        return;
    if (m_stepOpenOnStack) {
        m_stepOpenOnStack = false;
        m_stack->endMacro();
    }
}

ChangeValueCommand::ChangeValueCommand(BondPortfolio *portfolio, HoldingRef holding, HoldingProperty property,
                                       QVariant oldValue, QVariant newValue, QUndoCommand *parent)
    : QUndoCommand(UndoActionName::text(UndoActionName::Edit), parent)
    , m_portfolio(portfolio)
    , m_holding(std::move(holding))
    , m_property(property)
    , m_oldValue(std::move(oldValue))
    , m_newValue(std::move(newValue))
{
}

void ChangeValueCommand::undo()
{
    m_portfolio->changeValue(m_holding.get(), m_property, m_oldValue);
}

void ChangeValueCommand::redo()
{
    if (m_happened) {
        m_happened = false;
        return;
    }
    m_portfolio->changeValue(m_holding.get(), m_property, m_newValue);
}

SetTitleHoldersCommand::SetTitleHoldersCommand(BondPortfolio *portfolio, QList<PersonRef> oldPeople,
                                               QList<PersonRef> newPeople)
    : QUndoCommand(UndoActionName::text(UndoActionName::EditPeople))
    , m_portfolio(portfolio)
    , m_oldPeople(std::move(oldPeople))
    , m_newPeople(std::move(newPeople))
{
}

void SetTitleHoldersCommand::undo()
{
    m_portfolio->setTitleHoldersWithoutRecording(m_oldPeople);
}

void SetTitleHoldersCommand::redo()
{
    if (m_happened) {
        m_happened = false;
        return;
    }
    m_portfolio->setTitleHoldersWithoutRecording(m_newPeople);
}

HoldingRoles HoldingRoles::of(const Holding &holding)
{
    return {holding.owner(), holding.coOwner(), holding.beneficiary()};
}

void HoldingRoles::restoreTo(Holding &holding) const
{
    if (owner)
        holding.setOwner(owner);
    if (coOwner)
        holding.setCoOwner(coOwner);
    if (beneficiary)
        holding.setBeneficiary(beneficiary);
}

HoldingPlacementCommand::HoldingPlacementCommand(const char *actionName, BondPortfolio *portfolio, HoldingRef holding,
                                                 int index)
    : QUndoCommand(UndoActionName::text(actionName))
    , m_portfolio(portfolio)
    , m_holding(std::move(holding))
    , m_index(index)
    , m_roles(HoldingRoles::of(*m_holding))
{
}

void HoldingPlacementCommand::putBack()
{
    m_portfolio->insertHoldingWithoutRecording(m_holding, m_index);
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    m_roles.restoreTo(*m_holding);
}

void HoldingPlacementCommand::takeOut()
{
    m_roles = HoldingRoles::of(*m_holding);
    m_portfolio->takeHoldingWithoutRecording(m_index);
}

InsertHoldingCommand::InsertHoldingCommand(BondPortfolio *portfolio, HoldingRef holding, int index)
    : HoldingPlacementCommand(UndoActionName::InsertHolding, portfolio, std::move(holding), index)
{
}

DeleteHoldingCommand::DeleteHoldingCommand(BondPortfolio *portfolio, int index)
    : HoldingPlacementCommand(UndoActionName::DeleteHolding, portfolio, portfolio->holdings().at(index), index)
{
}

AppendHoldingsCommand::AppendHoldingsCommand(BondPortfolio *portfolio, QList<HoldingRef> added)
    : QUndoCommand(UndoActionName::text(UndoActionName::InsertHolding))
    , m_portfolio(portfolio)
    , m_added(std::move(added))
{
}

void AppendHoldingsCommand::undo()
{
    QList<HoldingRef> remaining = m_portfolio->holdings();
    remaining.resize(remaining.size() - m_added.size()); // undone in order, so they are the last
    // Out of the list they are no longer observed: clearing the roles records nothing.
    m_portfolio->setHoldings(remaining);
    m_roles.clear();
    for (const HoldingRef &holding : std::as_const(m_added)) {
        m_roles << HoldingRoles::of(*holding);
        holding->setOwner(nullptr);
        holding->setCoOwner(nullptr);
        holding->setBeneficiary(nullptr);
    }
}

void AppendHoldingsCommand::redo()
{
    if (m_happened) {
        m_happened = false;
        return;
    }
    m_portfolio->setHoldings(m_portfolio->holdings() + m_added);
    PortfolioRecorder::Applying applying(m_portfolio->m_recorder);
    for (qsizetype k = 0; k < m_added.size(); ++k)
        m_roles.at(k).restoreTo(*m_added.at(k));
}
