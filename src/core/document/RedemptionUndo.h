// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The undo commands of cashing bonds: a redemption (the whole holding moves to the redeemed list,
// or a copy of some of its bonds joins it while the rest stay held), a redeemed holding leaving
// or returning to the redeemed list, and the choice of who reports interest every year.
#include "base/Money.h"
#include "base/Month.h"
#include "document/PortfolioUndo.h"

#include <QStringList>
#include <QUndoCommand>

class BondPortfolio;

class RedeemCommand : public QUndoCommand
{
public:
    // Redeems `quantity` bonds of the held holding at heldIndex.
    RedeemCommand(BondPortfolio *portfolio, int heldIndex, qint32 quantity, Month month, Pennies amount);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    HoldingRef m_held;
    HoldingRef m_redeemed; // m_held itself when every bond is cashed
    int m_heldIndex;
    qint32 m_quantity;
    Month m_month;
    Pennies m_amount;
    HoldingRoles m_roles;
};

// A redeemed holding at one place in the redeemed list; to the held list's end and back when
// un-redeemed, or nowhere when deleted.
class RedeemedPlacementCommand : public QUndoCommand
{
public:
    enum class Kind { Unredeem, Delete };
    RedeemedPlacementCommand(BondPortfolio *portfolio, int redeemedIndex, Kind kind);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    HoldingRef m_holding;
    int m_index;
    Kind m_kind;
    Month m_month;
    Pennies m_amount;
    HoldingRoles m_roles;
};

class YearlyReportersCommand : public QUndoCommand
{
public:
    YearlyReportersCommand(BondPortfolio *portfolio, QStringList before, QStringList after);
    void undo() override;
    void redo() override;

private:
    BondPortfolio *m_portfolio;
    QStringList m_before, m_after;
};
