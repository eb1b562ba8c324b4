#pragma once
// The bond table as shown: the holdings the document's people filter lets through, sorted by the
// chosen column's raw values. The document decides what is shown, so the table and the interest
// summary always agree.
#include <QSortFilterProxyModel>

class BondPortfolio;

class HoldingsFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit HoldingsFilterModel(BondPortfolio *portfolio, QObject *parent = nullptr);

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    BondPortfolio *m_portfolio;
};
