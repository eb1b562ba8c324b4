// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ColorCircleDelegate.h"

#include <QApplication>
#include <QPainter>

ColorCircleDelegate::ColorCircleDelegate(const QColor &circleColor, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_circleColor(circleColor)
{
}

QRectF ColorCircleDelegate::ovalRect(const QRectF &cell, const QString &text, const QFontMetricsF &metrics)
{
    const qreal textWidth = metrics.horizontalAdvance(text);
    const qreal width = std::max(textWidth, metrics.horizontalAdvance(QStringLiteral("88")));
    const qreal middle = cell.x() + cell.width() * 0.5f;
    return QRectF(middle - 0.6f * width, cell.y(), 1.2f * width, metrics.height());
}

void ColorCircleDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int count = index.data(Qt::DisplayRole).toInt();
    // The ordinary cell first: background and selection, without its own text.
    QStyleOptionViewItem plain = option;
    initStyleOption(&plain, index);
    plain.text.clear();
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &plain, painter, widget);
    if (count == 0)
        return;

    const QString text = QString::number(count);
    const QFontMetricsF metrics(option.font);
    const QRectF cell = QRectF(option.rect).adjusted(0, 1, 0, 0);
    const QRectF oval = ovalRect(cell, text, metrics);
    const qreal textWidth = metrics.horizontalAdvance(text);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_circleColor);
    painter->drawEllipse(oval);
    painter->setPen(Qt::white);
    painter->setFont(option.font);
    painter->drawText(QRectF(cell.x() + cell.width() * 0.5f - 0.5f * textWidth, cell.y(), textWidth, metrics.height()),
                      Qt::AlignCenter, text);
    painter->restore();
}
