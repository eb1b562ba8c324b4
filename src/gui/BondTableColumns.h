// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bond table's visible columns, their order and widths, kept under "BondTableColumnSettings"
// for every portfolio window: restored when a window opens, saved at every show, hide, move and
// resize (the last window changed wins). A hidden column comes back at the right end.
#include <QObject>
#include <QVariantList>

class QHeaderView;
class QMenu;
class QTableView;

class BondTableColumns : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *KeyKey = "key";
    static constexpr const char *WidthKey = "width";

    // Restores the saved settings on the table and saves from then on.
    explicit BondTableColumns(QTableView *table);

    // The column menu: one checkable item per column, titled as the column.
    QMenu *columnMenu() const { return m_menu; }
    // Hides a shown column (HoldingColumns::Column) or shows a hidden one.
    void toggleColumnVisibility(int column);
    void saveColumnSettings();
    // The visible columns, left to right, as the settings list them.
    QVariantList currentSettings() const;

private:
    void restoreColumnSettings();
    void updateMenu();
    QHeaderView *header() const;

    QTableView *m_table;
    QMenu *m_menu;
    bool m_restoring = false;
};
