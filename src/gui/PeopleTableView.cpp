// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PeopleTableView.h"

#include "BondTableView.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>

PeopleTableView::PeopleTableView(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setAcceptDrops(true);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(true);
    setEditTriggers(NoEditTriggers);
    verticalHeader()->hide();
}

PeopleTableView::Role PeopleTableView::roleForDropAction(Qt::DropAction action)
{
    switch (action) {
    case Qt::LinkAction:
        return Role::CoOwner;
    case Qt::CopyAction:
        return Role::Beneficiary;
    default:
        return Role::Owner;
    }
}

bool PeopleTableView::acceptsDrag(const QDropEvent *event) const
{
    return m_bondSource && !m_bondSource->rowsFromMimeData(event->mimeData()).isEmpty();
}

void PeopleTableView::dragEnterEvent(QDragEnterEvent *event)
{
    if (acceptsDrag(event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void PeopleTableView::dragMoveEvent(QDragMoveEvent *event)
{
    if (!acceptsDrag(event) || model()->rowCount() == 0) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
}

void PeopleTableView::dropEvent(QDropEvent *event)
{
    if (!acceptsDrag(event) || model()->rowCount() == 0) {
        event->ignore();
        return;
    }
    const int row = indexAt(event->position().toPoint()).row();
    const QList<int> rows = m_bondSource->rowsFromMimeData(event->mimeData());
    // The proposed action carries the modifier keys; the drop itself removes nothing anywhere.
    const Role role = roleForDropAction(event->proposedAction());
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit bondsDropped(rows, row < 0 ? 0 : row, role);
}
