// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the portfolio records its changes: an observer that turns the holdings' announcements into
// undo commands, and the commands themselves. A recorded change has already happened, so the
// first redo() of such a command does nothing; undo() and later redo() set values through the
// holding's own setters while the recorder ignores the announcements that follow.
#include "model/Holding.h"
#include "model/Person.h"

#include <QObject>
#include <QUndoCommand>
#include <QVariant>

class BondPortfolio;
class QUndoStack;

class PortfolioRecorder : public QObject
{
    Q_OBJECT
public:
    PortfolioRecorder(BondPortfolio *portfolio, QUndoStack *stack);

    void startObserving(const HoldingRef &holding);
    void stopObserving(Holding *holding);

    // While one exists, announcements are not recorded (a command is applying a value).
    class Applying
    {
    public:
        explicit Applying(PortfolioRecorder *recorder) : m_recorder(recorder) { ++m_recorder->m_applying; }
        ~Applying() { --m_recorder->m_applying; }
        Applying(const Applying &) = delete;
        Applying &operator=(const Applying &) = delete;

    private:
        PortfolioRecorder *m_recorder;
    };
    bool isApplying() const { return m_applying > 0; }

    // Puts a command that has already happened on the stack, inside the open step if any.
    void record(QUndoCommand *command);
    // The stack's macro opens at the first command recorded, so an empty step leaves nothing.
    void beginStep(const char *actionName);
    void endStep();

private:
    void valueChanged(const HoldingRef &holding, HoldingProperty property, const QVariant &oldValue);
    void changesCompleted();

    BondPortfolio *m_portfolio;
    QUndoStack *m_stack;
    int m_applying = 0;
    QUndoCommand *m_pending = nullptr; // "Edit" collecting the changes of one setter call
    int m_stepDepth = 0;
    const char *m_stepName = nullptr; // of the outermost open step
    bool m_stepOpenOnStack = false;
};

// One property of one holding, from an old value to a new one.
class ChangeValueCommand : public QUndoCommand
{
public:
    ChangeValueCommand(BondPortfolio *portfolio, HoldingRef holding, HoldingProperty property, QVariant oldValue,
                       QVariant newValue, QUndoCommand *parent);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    HoldingRef m_holding;
    HoldingProperty m_property;
    QVariant m_oldValue;
    QVariant m_newValue;
    bool m_happened = true;
};

// The title-holder list, replaced as a whole.
class SetTitleHoldersCommand : public QUndoCommand
{
public:
    SetTitleHoldersCommand(BondPortfolio *portfolio, QList<PersonRef> oldPeople, QList<PersonRef> newPeople);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    QList<PersonRef> m_oldPeople;
    QList<PersonRef> m_newPeople;
    bool m_happened = true;
};

// The owner, co-owner and beneficiary of a holding that leaves the list, to give back on return.
struct HoldingRoles
{
    PersonRef owner;
    PersonRef coOwner;
    PersonRef beneficiary;
    static HoldingRoles of(const Holding &holding);
    void restoreTo(Holding &holding) const;
};

// One holding at one place in the list, leaving and returning: insertion and deletion are the
// same two steps in opposite order.
class HoldingPlacementCommand : public QUndoCommand
{
protected:
    HoldingPlacementCommand(const char *actionName, BondPortfolio *portfolio, HoldingRef holding, int index);
    void putBack();
    void takeOut();

private:
    BondPortfolio *m_portfolio;
    HoldingRef m_holding;
    int m_index;
    HoldingRoles m_roles; // as they were when the holding last left
};

class InsertHoldingCommand : public HoldingPlacementCommand
{
public:
    InsertHoldingCommand(BondPortfolio *portfolio, HoldingRef holding, int index);
    void undo() override { takeOut(); }
    void redo() override { putBack(); }
};

class DeleteHoldingCommand : public HoldingPlacementCommand
{
public:
    DeleteHoldingCommand(BondPortfolio *portfolio, int index);
    void undo() override { putBack(); }
    void redo() override { takeOut(); }
};

// Holdings appended after the others all at once, as an import adds them: undo takes them all
// out again, with the roles they had, and redo puts them back.
class AppendHoldingsCommand : public QUndoCommand
{
public:
    AppendHoldingsCommand(BondPortfolio *portfolio, QList<HoldingRef> added);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    QList<HoldingRef> m_added;
    QList<HoldingRoles> m_roles;
    bool m_happened = true;
};
