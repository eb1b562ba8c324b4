// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HoldingDelegate.h"

#include "base/Month.h"
#include "HoldingColumns.h"
#include "document/BondPortfolio.h"
#include "document/HoldingPresentation.h"
#include "base/Series.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

using namespace HoldingColumns;

HoldingDelegate::HoldingDelegate(BondPortfolio *portfolio, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_portfolio(portfolio)
{
}

Month HoldingDelegate::monthFromText(const QString &text)
{
    return Month::fromString(text, Month::Form::Slash);
}

QWidget *HoldingDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    switch (index.column()) {
    case HoldingColumns::Series: {
        auto *combo = new QComboBox(parent);
        for (const ::Series *series : ::Series::allSeries())
            combo->addItem(series->label(), series->code());
        return combo;
    }
    case Owner:
    case CoOwner:
    case Beneficiary: {
        auto *combo = new QComboBox(parent);
        combo->addItem(QString(), QString());
        for (const PersonRef &person : m_portfolio->titleHolders())
            combo->addItem(person->name(), person->uniqueId());
        return combo;
    }
    case IssueDate: {
        auto *edit = new QLineEdit(parent);
        edit->setPlaceholderText(QString::fromLatin1(HoldingPresentation::NoIssueMonthText));
        edit->setValidator(new QRegularExpressionValidator(
            QRegularExpression(QStringLiteral("\\d{0,2}/?\\d{0,4}")), edit));
        return edit;
    }
    case FaceValue: {
        auto *edit = new QLineEdit(parent);
        edit->setAlignment(Qt::AlignRight);
        return edit;
    }
    default:
        return QStyledItemDelegate::createEditor(parent, option, index);
    }
}

void HoldingDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::EditRole);
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        combo->setCurrentIndex(std::max(0, combo->findData(value.toString())));
        return;
    }
    if (auto *edit = qobject_cast<QLineEdit *>(editor); edit && index.column() == IssueDate) {
        edit->setText(HoldingPresentation::monthText(value.value<Month>()));
        return;
    }
    if (auto *edit = qobject_cast<QLineEdit *>(editor); edit && index.column() == FaceValue) {
        edit->setText(QString::number(value.toDouble(), 'f', 2));
        return;
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void HoldingDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, combo->currentData(), Qt::EditRole);
        return;
    }
    if (auto *edit = qobject_cast<QLineEdit *>(editor); edit && index.column() == IssueDate) {
        // Blank leaves the old month; text that is no month is refused by the model with a message.
        const QString text = edit->text().trimmed();
        if (text.isEmpty())
            return;
        const Month month = monthFromText(text);
        model->setData(index, month.isNull() ? QVariant(text) : QVariant::fromValue(month), Qt::EditRole);
        return;
    }
    if (auto *edit = qobject_cast<QLineEdit *>(editor); edit && index.column() == FaceValue) {
        if (!edit->text().trimmed().isEmpty())
            model->setData(index, edit->text(), Qt::EditRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}
