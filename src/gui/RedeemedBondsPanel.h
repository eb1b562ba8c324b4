// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The redeemed side of the window's Held / Redeemed switch: the table of cashed bonds with the
// buttons that put them back among the held ones or delete them, each an undoable step.
#include "model/Holding.h"

#include <QWidget>

class BondPortfolio;
class QLabel;
class QPushButton;
class QTableView;
class RedeemedTableModel;

class RedeemedBondsPanel : public QWidget
{
    Q_OBJECT
public:
    explicit RedeemedBondsPanel(BondPortfolio *portfolio, QWidget *parent = nullptr);

    QTableView *table() const { return m_table; }
    RedeemedTableModel *model() const { return m_model; }
    QPushButton *unredeemButton() const { return m_unredeem; }
    QPushButton *deleteButton() const { return m_delete; }
    // Shows only the bonds naming any of these people, as the held bonds are narrowed; everyone's for none.
    void setSelectedPeople(const QList<PersonRef> &people);
    // How many bonds the rows shown hold, what they brought and their interest.
    QString totalsText() const;
    QList<HoldingRef> selectedHoldings() const;

    void unredeemSelected();
    void deleteSelected();

signals:
    void editRefused(const QString &title, const QString &message);

private:
    // The redeemed list's rows of the selection, last first, so that each removal leaves the rest in place.
    QList<int> selectedRowsFromLast() const;
    void follow();

    BondPortfolio *m_portfolio;
    RedeemedTableModel *m_model = nullptr;
    class ShownRows;
    ShownRows *m_shown = nullptr;
    QTableView *m_table = nullptr;
    QPushButton *m_unredeem = nullptr;
    QPushButton *m_delete = nullptr;
    QLabel *m_totals = nullptr;
};
