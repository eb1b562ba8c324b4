// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The people table: bonds dropped on a person name that person on them, in the role the drop
// action chooses: a plain drag the owner, a link drag (Ctrl+Shift) the co-owner, a copy drag
// (Ctrl) the beneficiary.
#include "model/Holding.h"

#include <QTableView>

class BondTableView;

class PeopleTableView : public QTableView
{
    Q_OBJECT
public:
    enum class Role { Owner, CoOwner, Beneficiary };

    explicit PeopleTableView(QWidget *parent = nullptr);

    // The bond table whose rows this table accepts (the one of the same window).
    void setBondSource(BondTableView *source) { m_bondSource = source; }
    static Role roleForDropAction(Qt::DropAction action);

signals:
    // Rows of the bond table as shown, dropped on the person at personRow.
    void bondsDropped(const QList<int> &bondRows, int personRow, PeopleTableView::Role role);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool acceptsDrag(const QDropEvent *event) const;
    BondTableView *m_bondSource = nullptr;
};
