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
