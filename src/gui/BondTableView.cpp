#include "BondTableView.h"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
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

QList<int> BondTableView::rowsFromMimeData(const QMimeData *data)
{
    QList<int> rows;
    if (!data || !data->hasFormat(QString::fromLatin1(TableIndicesType)))
        return rows;
    const QJsonArray array = QJsonDocument::fromJson(data->data(QString::fromLatin1(TableIndicesType))).array();
    for (const QJsonValue &value : array)
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
    QJsonArray array;
    for (int row : std::as_const(rows))
        array.append(row);
    auto *data = new QMimeData;
    data->setData(QString::fromLatin1(TableIndicesType), QJsonDocument(array).toJson(QJsonDocument::Compact));
    auto *drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(QApplication::windowIcon().pixmap(48, 48));
    // Whatever the target does with the rows, the table itself keeps them.
    drag->exec(supportedActions | Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
}

QModelIndex BondTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers)
{
    QModelIndex next = QTableView::moveCursor(cursorAction, modifiers);
    if (cursorAction != MoveNext && cursorAction != MovePrevious)
        return next;
    // Tab skips the figures, which cannot be typed into.
    const QModelIndex start = next;
    const int cells = model() ? model()->rowCount() * model()->columnCount() : 0;
    for (int step = 0; next.isValid() && step < cells && !(next.flags() & Qt::ItemIsEditable); ++step) {
        setCurrentIndex(next);
        next = QTableView::moveCursor(cursorAction, modifiers);
        if (next == start)
            break;
    }
    return next;
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
