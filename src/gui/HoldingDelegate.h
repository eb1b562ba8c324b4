// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Editors of the bond table: the series pop-up, the month editor ("mm/yyyy"), the dollar editor
// and the person pickers. They only hand values to the model; validation and the role rules are
// the holding's.
#include "base/Month.h"
#include <QStyledItemDelegate>

class BondPortfolio;

class HoldingDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit HoldingDelegate(BondPortfolio *portfolio, QObject *parent = nullptr);

    // "MM/yyyy" (or "M/yyyy") as a month date; invalid for anything else.
    static Month monthFromText(const QString &text);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    BondPortfolio *m_portfolio;
};
