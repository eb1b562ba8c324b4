// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A count drawn in white inside a coloured oval (the people table's role counts). A count of
// none or 0 draws nothing but the ordinary cell. One- and two-digit counts get the same oval, as
// wide as "88"; wider counts a wider one. The oval is one text line tall, at the top of the cell,
// centred across it.
#include <QColor>
#include <QStyledItemDelegate>

class ColorCircleDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    ColorCircleDelegate(const QColor &circleColor, QObject *parent = nullptr);

    QColor circleColor() const { return m_circleColor; }
    // The oval for a text in a cell, with the font's metrics.
    static QRectF ovalRect(const QRectF &cell, const QString &text, const QFontMetricsF &metrics);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QColor m_circleColor;
};
