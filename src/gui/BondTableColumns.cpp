// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BondTableColumns.h"

#include "HoldingColumns.h"
#include "base/UserDefaults.h"

#include <QHeaderView>
#include <QMenu>
#include <QSet>
#include <QTableView>

BondTableColumns::BondTableColumns(QTableView *table)
    : QObject(table)
    , m_table(table)
    , m_menu(new QMenu(table))
{
    for (int column = 0; column < HoldingColumns::Count; ++column) {
        QAction *action = m_menu->addAction(HoldingColumns::title(column));
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, column] { toggleColumnVisibility(column); });
    }
    restoreColumnSettings();
    updateMenu();
    header()->setSectionsMovable(true);
    header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header(), &QHeaderView::customContextMenuRequested, this,
            [this](const QPoint &pos) { m_menu->popup(header()->mapToGlobal(pos)); });
    connect(header(), &QHeaderView::sectionMoved, this, &BondTableColumns::saveColumnSettings);
    connect(header(), &QHeaderView::sectionResized, this, [this](int logical, int, int newSize) {
        // Hiding a column resizes it to 0; that is no width to remember.
        if (newSize > 0 && !header()->isSectionHidden(logical))
            saveColumnSettings();
    });
}

QHeaderView *BondTableColumns::header() const
{
    return m_table->horizontalHeader();
}

void BondTableColumns::restoreColumnSettings()
{
    const QVariantList settings =
        UserDefaults::value(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey)).toList();
    m_restoring = true;
    if (settings.isEmpty()) {
        for (int column = 0; column < HoldingColumns::Count; ++column)
            header()->setSectionHidden(column, !HoldingColumns::shownByDefault(column));
        m_restoring = false;
        return;
    }
    QSet<int> noted;
    int position = 0;
    for (const QVariant &entry : settings) {
        const QVariantMap map = entry.toMap();
        const int column = HoldingColumns::columnForKey(map.value(QString::fromLatin1(KeyKey)).toString());
        // A name this table has no column for is skipped.
        if (column < 0 || noted.contains(column))
            continue;
        const int width = qRound(map.value(QString::fromLatin1(WidthKey)).toDouble());
        if (width > 0)
            header()->resizeSection(column, width);
        const int current = header()->visualIndex(column);
        if (current != position)
            header()->moveSection(current, position);
        noted.insert(column);
        ++position;
    }
    for (int column = 0; column < HoldingColumns::Count; ++column)
        header()->setSectionHidden(column, !noted.contains(column));
    m_restoring = false;
}

void BondTableColumns::toggleColumnVisibility(int column)
{
    if (column < 0 || column >= HoldingColumns::Count)
        return;
    m_restoring = true;
    if (!header()->isSectionHidden(column)) {
        header()->setSectionHidden(column, true);
    } else {
        header()->moveSection(header()->visualIndex(column), header()->count() - 1);
        header()->setSectionHidden(column, false);
        if (header()->sectionSize(column) <= 0)
            header()->resizeSection(column, header()->defaultSectionSize());
    }
    m_restoring = false;
    updateMenu();
    saveColumnSettings();
}

QVariantList BondTableColumns::currentSettings() const
{
    QVariantList list;
    for (int visual = 0; visual < header()->count(); ++visual) {
        const int column = header()->logicalIndex(visual);
        if (header()->isSectionHidden(column))
            continue;
        list.append(QVariantMap{{QString::fromLatin1(WidthKey), double(header()->sectionSize(column))},
                                {QString::fromLatin1(KeyKey), HoldingColumns::key(column)}});
    }
    return list;
}

void BondTableColumns::saveColumnSettings()
{
    if (m_restoring)
        return;
    UserDefaults::setValue(QString::fromLatin1(UserDefaults::BondTableColumnSettingsKey), currentSettings());
}

void BondTableColumns::updateMenu()
{
    // One item per column, in column order.
    const QList<QAction *> items = m_menu->actions();
    for (int column = 0; column < HoldingColumns::Count; ++column)
        items.at(column)->setChecked(!header()->isSectionHidden(column));
}
