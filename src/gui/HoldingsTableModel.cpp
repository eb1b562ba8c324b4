// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingsTableModel.h"

#include "HoldingColumns.h"
#include "HoldingExplanations.h"
#include "document/BondPortfolio.h"
#include "document/HoldingEntry.h"
#include "document/HoldingPresentation.h"

#include <QColor>
#include <QFont>

using namespace HoldingColumns;

namespace {

QVariant monthSortKey(Month month)
{
    return month.isNull() ? QVariant() : QVariant(month.index());
}

} // namespace

HoldingsTableModel::HoldingsTableModel(BondPortfolio *portfolio, QObject *parent)
    : QAbstractTableModel(parent)
    , m_portfolio(portfolio)
    , m_figures(portfolio)
{
    // Figures are read as the rows come and change, never while they are painted.
    connect(portfolio, &BondPortfolio::holdingsAboutToBeReset, this, &HoldingsTableModel::beginResetModel);
    connect(portfolio, &BondPortfolio::holdingsReset, this, [this] {
        m_figures.refreshAll();
        endResetModel();
    });
    connect(portfolio, &BondPortfolio::holdingAboutToBeInserted, this,
            [this](int index) { beginInsertRows({}, index, index); });
    connect(portfolio, &BondPortfolio::holdingInserted, this, [this](int index) {
        m_figures.refresh(*m_portfolio->holdings().at(index));
        endInsertRows();
    });
    connect(portfolio, &BondPortfolio::holdingAboutToBeRemoved, this, [this](int index) {
        m_figures.forget(m_portfolio->holdings().at(index).get());
        beginRemoveRows({}, index, index);
    });
    connect(portfolio, &BondPortfolio::holdingRemoved, this, &HoldingsTableModel::endRemoveRows);
    connect(portfolio, &BondPortfolio::holdingChanged, this,
            [this](Holding *holding, HoldingProperty) { holdingChanged(holding); });
    connect(portfolio, &BondPortfolio::figuresChanged, this, &HoldingsTableModel::figuresChanged);
    // A person's name can change in the address book between reads; a new list re-reads them.
    connect(portfolio, &BondPortfolio::titleHoldersChanged, this, [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, Owner), index(rowCount() - 1, Registration));
    });
    m_figures.refreshAll();
}

HoldingRef HoldingsTableModel::holdingAt(int row) const
{
    if (row < 0 || row >= m_portfolio->holdings().size())
        return {};
    return m_portfolio->holdings().at(row);
}

int HoldingsTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_portfolio->holdings().size());
}

int HoldingsTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant HoldingsTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Holding &holding = *m_portfolio->holdings().at(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return displayData(holding, column);
    case Qt::EditRole:
        return editData(holding, column);
    case SortRole:
        return sortData(holding, column);
    case HoldingRole:
        return QVariant::fromValue(m_portfolio->holdings().at(index.row()));
    case Qt::CheckStateRole:
        if (column == Paper)
            return holding.isPaper() ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(descriptor(column).alignment);
    case Qt::ForegroundRole:
        return lineColor(m_figures.of(holding));
    case Qt::ToolTipRole:
        if (column == Quantity && holding.hasQuantityBelowOne())
            return tr("quantity below 1: counts as no bonds");
        if (column == Value || column == InterestEarned)
            return HoldingExplanations::valueTip(m_portfolio->figuresOf(holding));
        return {};
    case Qt::FontRole:
        // Values the program computed rather than the Treasury published are set in italics.
        if ((column == Value || column == InterestEarned) && m_figures.of(holding).valueDerived) {
            QFont italic;
            italic.setItalic(true);
            return italic;
        }
        return {};
    default:
        return {};
    }
}

QVariant HoldingsTableModel::lineColor(const RowFigures &figures)
{
    // A line without value is red when no value exists, blue while the bond cannot be cashed yet;
    // a bond past final maturity is grey, still worth its value but earning nothing. Any other
    // line has no colour of its own: the view draws it in its palette's text colour, which a dark
    // theme makes light.
    if (lacksPricingData(figures.status))
        return QColor(Qt::red);
    if (figures.status == HoldingStatus::NotYetRedeemable)
        return QColor(Qt::blue);
    if (figures.stoppedEarning)
        return QColor(Qt::gray);
    return {};
}

QVariant HoldingsTableModel::displayData(const Holding &holding, int column) const
{
    auto name = [](const PersonRef &person) { return person ? person->name() : QString(); };
    const RowFigures &figures = m_figures.of(holding);
    switch (column) {
    case HoldingColumns::Series:
        return holding.series()->label();
    case Quantity:
        return holding.quantity();
    case IssueDate:
        return HoldingPresentation::issueMonthText(holding.issueDate());
    case FaceValue:
        return formatDollars(holding.faceValue());
    case IssuePrice:
        return formatDollars(holding.issuePrice());
    case InterestEarned:
        return formatDollars(figures.interestEarned);
    case Value:
        return formatDollars(figures.value);
    case CurrentYield:
        return figures.currentYield ? HoldingPresentation::percentText(*figures.currentYield) : QString();
    case GrowthRate:
        return HoldingPresentation::percentText(figures.growthRate);
    case YtdInterest:
        return formatDollars(figures.ytdInterest);
    case Rate:
        return HoldingPresentation::rateText(figures.rate);
    case FinalMaturity:
        return HoldingPresentation::monthText(figures.finalMaturity);
    case NextIncrease:
        return HoldingPresentation::monthText(figures.nextIncrease);
    case Note:
        return HoldingPresentation::noteText(figures.note, figures.noteUntil);
    case SerialNumber:
        return holding.serialNumber();
    case Paper:
        return {};
    case Owner:
        return name(holding.owner());
    case CoOwner:
        return name(holding.coOwner());
    case Beneficiary:
        return name(holding.beneficiary());
    case Registration:
        return holding.registration();
    }
    return {};
}

QVariant HoldingsTableModel::editData(const Holding &holding, int column) const
{
    auto id = [](const PersonRef &person) { return person ? person->uniqueId() : QString(); };
    switch (column) {
    case HoldingColumns::Series:
        return holding.series()->code();
    case IssueDate:
        return holding.issueDate().isNull() ? QVariant() : QVariant::fromValue(holding.issueDate());
    case FaceValue:
        return DollarTransformer::transformedValue(holding.faceValue());
    case Paper:
        return holding.isPaper();
    case Owner:
        return id(holding.owner());
    case CoOwner:
        return id(holding.coOwner());
    case Beneficiary:
        return id(holding.beneficiary());
    default:
        return displayData(holding, column);
    }
}

QVariant HoldingsTableModel::sortData(const Holding &holding, int column) const
{
    const RowFigures &figures = m_figures.of(holding);
    switch (column) {
    case HoldingColumns::Series:
        return holding.series()->label();
    case IssueDate:
        return holding.issueDate().index();
    case FaceValue:
        return holding.faceValue();
    case IssuePrice:
        return holding.issuePrice();
    case InterestEarned:
        return figures.interestEarned;
    case Value:
        return figures.value;
    case CurrentYield: // none sorts last, in either order
        return figures.currentYield ? QVariant(*figures.currentYield) : QVariant();
    case GrowthRate:
        return figures.growthRate;
    case YtdInterest:
        return figures.ytdInterest;
    // Rates, months and notes that are none sort last, in either order.
    case Rate:
        return figures.rate.basis == RateBasis::Unknown ? QVariant() : QVariant(figures.rate.basisPoints);
    case FinalMaturity:
        return monthSortKey(figures.finalMaturity);
    case NextIncrease:
        return monthSortKey(figures.nextIncrease);
    case Note:
        return figures.note == BondNote::None ? QVariant() : displayData(holding, column);
    case Paper:
        return holding.isPaper();
    default:
        return displayData(holding, column);
    }
}

QVariant HoldingsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= Count)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return title(section);
    return {};
}

Qt::ItemFlags HoldingsTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    flags |= Qt::ItemIsDragEnabled;
    if (index.column() == Paper)
        flags |= Qt::ItemIsUserCheckable;
    else if (descriptor(index.column()).editable)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool HoldingsTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    Holding &holding = *m_portfolio->holdings().at(index.row());
    const int column = index.column();
    if (column == Paper && role == Qt::CheckStateRole)
        return accepted(HoldingEntry::setPaper(*m_portfolio, holding, value.toInt() == Qt::Checked), holding,
                        tr("Invalid kind of bond"));
    if (role != Qt::EditRole)
        return false;
    // An unchanged value records nothing. The setters ignore a value the holding already has;
    // the series (none reads as EE) and the serial number (none reads as empty) are compared as
    // the cell shows them.
    switch (column) {
    case HoldingColumns::Series: {
        const ::Series *series = ::Series::seriesForCode(value.toString());
        if (!series)
            return false;
        if (series == holding.series())
            return true;
        return accepted(HoldingEntry::setSeries(*m_portfolio, holding, series), holding, tr("Invalid series"));
    }
    case Quantity: {
        bool ok = false;
        const qlonglong quantity = value.toString().trimmed().toLongLong(&ok);
        return accepted(ok ? HoldingEntry::setQuantity(*m_portfolio, holding, quantity) : EntryRefusal::QuantityBelowOne,
                        holding, tr("Invalid quantity"));
    }
    case IssueDate:
        return setIssueDate(holding, value);
    case FaceValue:
        return accepted(HoldingEntry::setFaceValue(*m_portfolio, holding, value.toString()), holding,
                        tr("Invalid face value"));
    case SerialNumber:
        if (value.toString() != holding.serialNumber())
            holding.setSerialNumber(value.toString());
        return true;
    case Owner:
    case CoOwner:
    case Beneficiary: {
        const PersonRef person = titleHolderWithId(value.toString());
        const HoldingProperty role = column == Owner     ? HoldingProperty::Owner
                                     : column == CoOwner ? HoldingProperty::CoOwner
                                                         : HoldingProperty::Beneficiary;
        if (holding.value(role).value<PersonRef>() != person)
            holding.setValue(role, QVariant::fromValue(person));
        return true;
    }
    default:
        return false;
    }
}

bool HoldingsTableModel::setIssueDate(Holding &holding, const QVariant &value)
{
    // The editor hands over what was typed when it is no month.
    const Month month = value.metaType() == QMetaType::fromType<Month>() ? value.value<Month>() : Month();
    if (!month.isNull() && holding.issueDate() == month)
        return true;
    ValidationError refusal;
    if (!month.isNull() && !holding.validateIssueDate(month, m_portfolio->assessor(), &refusal)) {
        emit editRefused(tr("Invalid issue date"), refusal.message);
        return false;
    }
    return accepted(HoldingEntry::setIssueMonth(*m_portfolio, holding, month), holding, tr("Invalid issue date"));
}

bool HoldingsTableModel::accepted(EntryRefusal refusal, const Holding &holding, const QString &title)
{
    if (refusal == EntryRefusal::None)
        return true;
    emit editRefused(title, EntryRules::describe(refusal, holding.series()));
    return false;
}

PersonRef HoldingsTableModel::titleHolderWithId(const QString &uniqueId) const
{
    if (uniqueId.isEmpty())
        return {};
    for (const PersonRef &person : m_portfolio->titleHolders()) {
        if (person->uniqueId() == uniqueId)
            return person;
    }
    return {};
}

void HoldingsTableModel::holdingChanged(Holding *holding)
{
    const int row = m_portfolio->indexOfHolding(holding);
    if (row < 0)
        return;
    m_figures.refresh(*holding);
    emit dataChanged(index(row, 0), index(row, Count - 1));
}

void HoldingsTableModel::figuresChanged()
{
    m_figures.refreshAll();
    if (rowCount() == 0)
        return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, Count - 1));
}
