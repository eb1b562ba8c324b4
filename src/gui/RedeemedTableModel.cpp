// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "RedeemedTableModel.h"

#include "TypedDollars.h"
#include "base/Series.h"
#include "base/ValidationError.h"
#include "document/BondPortfolio.h"
#include "document/HoldingPresentation.h"


namespace {

const char *const Titles[RedeemedTableModel::Count] = {
    QT_TRANSLATE_NOOP("RedeemedTableModel", "Series"),     QT_TRANSLATE_NOOP("RedeemedTableModel", "Quantity"),
    QT_TRANSLATE_NOOP("RedeemedTableModel", "Face Value"), QT_TRANSLATE_NOOP("RedeemedTableModel", "Issue Date"),
    QT_TRANSLATE_NOOP("RedeemedTableModel", "Redeemed"),   QT_TRANSLATE_NOOP("RedeemedTableModel", "Amount Received"),
    QT_TRANSLATE_NOOP("RedeemedTableModel", "Interest"),   QT_TRANSLATE_NOOP("RedeemedTableModel", "Tax Year"),
    QT_TRANSLATE_NOOP("RedeemedTableModel", "Serial Number"), QT_TRANSLATE_NOOP("RedeemedTableModel", "People"),
};

bool isMoney(int column)
{
    return column == RedeemedTableModel::FaceValue || column == RedeemedTableModel::AmountReceived
           || column == RedeemedTableModel::Interest;
}

} // namespace

RedeemedTableModel::RedeemedTableModel(BondPortfolio *portfolio, QObject *parent)
    : QAbstractTableModel(parent)
    , m_portfolio(portfolio)
{
    connect(portfolio, &BondPortfolio::redeemedAboutToBeReset, this, &RedeemedTableModel::beginResetModel);
    connect(portfolio, &BondPortfolio::redeemedReset, this, &RedeemedTableModel::endResetModel);
    connect(portfolio, &BondPortfolio::redeemedAboutToBeInserted, this, [this](int index) { beginInsertRows({}, index, index); });
    connect(portfolio, &BondPortfolio::redeemedInserted, this, &RedeemedTableModel::endInsertRows);
    connect(portfolio, &BondPortfolio::redeemedAboutToBeRemoved, this, [this](int index) { beginRemoveRows({}, index, index); });
    connect(portfolio, &BondPortfolio::redeemedRemoved, this, &RedeemedTableModel::endRemoveRows);
    connect(portfolio, &BondPortfolio::holdingChanged, this, [this](Holding *holding) { rowChanged(holding); });
    const auto everyRow = [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, Count - 1));
    };
    connect(portfolio, &BondPortfolio::titleHoldersChanged, this, everyRow);
    connect(portfolio, &BondPortfolio::yearlyInterestReportersChanged, this, everyRow);
}

HoldingRef RedeemedTableModel::holdingAt(int row) const
{
    return row >= 0 && row < m_portfolio->redeemedHoldings().size() ? m_portfolio->redeemedHoldings().at(row) : HoldingRef();
}

int RedeemedTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_portfolio->redeemedHoldings().size());
}

int RedeemedTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QString RedeemedTableModel::taxYearText(const Holding &holding) const
{
    if (holding.owner() && m_portfolio->reportsInterestYearly(holding.owner().get()))
        return tr("every year");
    // Interest of a bond cashed after its final maturity was that earlier year's.
    const Month maturity = holding.series()->finalMaturity(holding.issueDate());
    return QString::number(std::min(holding.redemptionMonth().year(), maturity.year()));
}

QVariant RedeemedTableModel::displayData(const Holding &holding, int column) const
{
    switch (column) {
    case Series: return holding.series()->label();
    case Quantity: return holding.quantity();
    case FaceValue: return formatDollars(holding.faceValue());
    case IssueDate: return HoldingPresentation::issueMonthText(holding.issueDate());
    case SerialNumber: return holding.serialNumber();
    case People: return holding.registration();
    case RedemptionMonth: return HoldingPresentation::monthText(holding.redemptionMonth());
    case AmountReceived: return formatDollars(holding.amountReceived());
    case Interest: return formatDollars(holding.redemptionInterest());
    case TaxYear: return taxYearText(holding);
    }
    return {};
}

QVariant RedeemedTableModel::sortData(const Holding &holding, int column) const
{
    switch (column) {
    case Quantity: return holding.quantity();
    case FaceValue: return holding.faceValue();
    case IssueDate: return holding.issueDate().index();
    case RedemptionMonth: return holding.redemptionMonth().index();
    case AmountReceived: return holding.amountReceived();
    case Interest: return holding.redemptionInterest();
    default: return displayData(holding, column);
    }
}

QVariant RedeemedTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const HoldingRef holding = holdingAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return displayData(*holding, index.column());
    case Qt::EditRole:
        // Plain dollars to type over.
        if (index.column() == AmountReceived)
            return plainDollars(holding->amountReceived());
        return displayData(*holding, index.column());
    case SortRole:
        return sortData(*holding, index.column());
    case HoldingRole:
        return QVariant::fromValue(holding);
    case Qt::TextAlignmentRole:
        if (isMoney(index.column()) || index.column() == Quantity)
            return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        return QVariant::fromValue(index.column() == People || index.column() == SerialNumber || index.column() == Series ? Qt::AlignLeft | Qt::AlignVCenter
                                                                                              : Qt::AlignCenter);
    default:
        return {};
    }
}

QVariant RedeemedTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= Count)
        return {};
    return tr(Titles[section]);
}

Qt::ItemFlags RedeemedTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const int column = index.column();
    if (column == RedemptionMonth || column == AmountReceived || column == SerialNumber)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool RedeemedTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    const HoldingRef holding = holdingAt(index.row());
    const QString text = value.toString().trimmed();
    switch (index.column()) {
    case RedemptionMonth: {
        const Month month = Month::fromString(text, Month::Form::Slash);
        ValidationError error;
        if (month.isNull()) {
            emit editRefused(tr("Invalid redemption month"), tr("Type the month as MM/YYYY, such as 03/2021."));
            return false;
        }
        if (!m_portfolio->validateRedemption(*holding, month, &error)) {
            emit editRefused(tr("Invalid redemption month"), error.message);
            return false;
        }
        holding->setRedemptionMonth(month);
        return true;
    }
    case AmountReceived: {
        const Pennies amount = typedDollars(text);
        if (amount < 0) {
            emit editRefused(tr("Invalid amount"), tr("Type the amount received in dollars, such as 1,234.56."));
            return false;
        }
        holding->setAmountReceived(amount);
        return true;
    }
    case SerialNumber:
        holding->setSerialNumber(text);
        return true;
    }
    return false;
}

void RedeemedTableModel::rowChanged(const Holding *holding)
{
    const int row = m_portfolio->indexOfRedeemed(holding);
    if (row >= 0)
        emit dataChanged(index(row, 0), index(row, Count - 1));
}
