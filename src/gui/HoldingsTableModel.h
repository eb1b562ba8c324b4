// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bond table's model: one row per holding of the portfolio, in the document's order, one
// column per HoldingColumns entry. Texts and figures come from the holding and the core's
// presentation helpers; edits go to the holding's setters, which the document records for undo.
#include "BondTableFigures.h"
#include "model/EntryRules.h"
#include "model/Holding.h"
#include "valuation/HoldingFigures.h"

#include <QAbstractTableModel>

class BondPortfolio;

class HoldingsTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Role {
        SortRole = Qt::UserRole + 1, // raw numbers, dates and texts to compare
        HoldingRole,                 // the HoldingRef of the row
    };

    explicit HoldingsTableModel(BondPortfolio *portfolio, QObject *parent = nullptr);

    BondPortfolio *portfolio() const { return m_portfolio; }
    HoldingRef holdingAt(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    // An edit the holding refused, with the message to show; the old value stays.
    void editRefused(const QString &title, const QString &message);

private:
    QVariant displayData(const Holding &holding, int column) const;
    QVariant editData(const Holding &holding, int column) const;
    QVariant sortData(const Holding &holding, int column) const;
    static QVariant lineColor(const RowFigures &figures);
    bool setIssueDate(Holding &holding, const QVariant &value);
    // True for no refusal; otherwise tells the window why, under the title.
    bool accepted(EntryRefusal refusal, const Holding &holding, const QString &title);
    PersonRef titleHolderWithId(const QString &uniqueId) const;
    void holdingChanged(Holding *holding);
    void figuresChanged();

    BondPortfolio *m_portfolio;
    BondTableFigures m_figures;
};
