// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bond table: drags carry the dragged rows (as shown) under "QBBondPortfolioTableIndices"
// and never move or remove anything; Tab walks the editable cells; Enter and F2 start editing.
#include <QTableView>

class BondTableView : public QTableView
{
    Q_OBJECT
public:
    static constexpr const char *TableIndicesType = "QBBondPortfolioTableIndices";

    explicit BondTableView(QWidget *parent = nullptr);

    // What a drag of these rows (as shown) carries, marked as coming from this table.
    QMimeData *mimeDataForRows(const QList<int> &rows) const;
    // The rows of a drag from this very table; empty for any other drag.
    QList<int> rowsFromMimeData(const QMimeData *data) const;

protected:
    void startDrag(Qt::DropActions supportedActions) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
};
