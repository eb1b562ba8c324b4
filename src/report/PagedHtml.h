// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A report on paper made of pieces of HTML: paragraphs and the lines of tables. Each page takes
// the pieces that fit it, laid out as they will be printed, so pages break between a table's
// lines and never inside one; a table's opening (its column titles) starts every page the table
// continues on, followed by the rows the page's first line carries (the heading of its group);
// "Page 1 of 3" stands at the foot of every page. Paints onto any paged device, so that a printer
// and a PDF file get the same pages.
#include <QList>
#include <QString>

class QPagedPaintDevice;

namespace PagedHtml {

struct Piece
{
    QString html;
    QString tableOpening; // empty for a paragraph
    QString carried;      // rows repeated under the opening when the piece is the first on a page
};

struct Style
{
    qreal fontPoints = 9.5;
    QString footerNote; // at the foot's left on every page, beside the page number; may be empty
};

// Paints every page onto the device; false when a piece is too tall for a page.
bool print(QPagedPaintDevice &device, const QList<Piece> &pieces, const Style &style = {});

} // namespace PagedHtml
