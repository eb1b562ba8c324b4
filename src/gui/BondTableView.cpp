// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BondTableView.h"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMimeData>

BondTableView::BondTableView(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setSortingEnabled(true);
    setAlternatingRowColors(true);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
    setTabKeyNavigation(true);
    setWordWrap(false);
    verticalHeader()->hide();
}

namespace {
// Which table a drag left from: drops are only meaningful in the same window.
QString tableToken(const BondTableView *table)
{
    return QString::number(QCoreApplication::applicationPid()) + QLatin1Char(':')
           + QString::number(reinterpret_cast<quintptr>(table), 16);
}
}

QMimeData *BondTableView::mimeDataForRows(const QList<int> &rows) const
{
    QJsonArray array;
    for (int row : rows)
        array.append(row);
    auto *data = new QMimeData;
    data->setData(QString::fromLatin1(TableIndicesType),
                  QJsonDocument(QJsonObject{{QStringLiteral("table"), tableToken(this)}, {QStringLiteral("rows"), array}})
                      .toJson(QJsonDocument::Compact));
    return data;
}

QList<int> BondTableView::rowsFromMimeData(const QMimeData *data) const
{
    QList<int> rows;
    if (!data || !data->hasFormat(QString::fromLatin1(TableIndicesType)))
        return rows;
    const QJsonObject object = QJsonDocument::fromJson(data->data(QString::fromLatin1(TableIndicesType))).object();
    if (object.value(QStringLiteral("table")).toString() != tableToken(this))
        return rows;
    for (const QJsonValue &value : object.value(QStringLiteral("rows")).toArray())
        rows << value.toInt();
    return rows;
}

void BondTableView::startDrag(Qt::DropActions supportedActions)
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows << index.row();
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    auto *drag = new QDrag(this);
    drag->setMimeData(mimeDataForRows(rows));
    drag->setPixmap(QApplication::windowIcon().pixmap(48, 48));
    // Whatever the target does with the rows, the table itself keeps them.
    drag->exec(supportedActions | Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
}

QModelIndex BondTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if ((cursorAction != MoveNext && cursorAction != MovePrevious) || !current.isValid() || !model())
        return QTableView::moveCursor(cursorAction, modifiers);
    // Tab walks the editable cells in the order shown, skipping the figures, which cannot be
    // typed into, and the hidden columns; it wraps to the next (or previous) line.
    const int rows = model()->rowCount();
    const int columns = horizontalHeader()->count();
    int row = current.row();
    int visual = horizontalHeader()->visualIndex(current.column());
    for (int step = 0; step < rows * columns; ++step) {
        if (cursorAction == MoveNext && ++visual >= columns) {
            visual = 0;
            row = (row + 1) % rows;
        } else if (cursorAction == MovePrevious && --visual < 0) {
            visual = columns - 1;
            row = (row - 1 + rows) % rows;
        }
        const int column = horizontalHeader()->logicalIndex(visual);
        if (isColumnHidden(column))
            continue;
        const QModelIndex candidate = model()->index(row, column);
        if (candidate.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable))
            return candidate;
    }
    return current;
}

void BondTableView::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && state() != EditingState
        && currentIndex().isValid() && (currentIndex().flags() & Qt::ItemIsEditable)) {
        edit(currentIndex());
        return;
    }
    QTableView::keyPressEvent(event);
}
