#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// The cells of a field of swatches: @p columns side by side, then the next row.
///
/// Rows follow each other down (Qt::Vertical), or the whole is turned and they follow each other to
/// the right (Qt::Horizontal). Cells count from 0; all else is in pixels.
struct SwatchGrid
{
    int columns = 1;
    int cellSide = 1;
    int count = 0;
    Qt::Orientation orientation = Qt::Vertical;

    /// A field of @p count cells, a power of two, for @p width pixels: rows of 8 to 64 cells, none
    /// smaller than a pointer can hit nor larger than needed.
    static SwatchGrid fitting(int width, int count);

    /// The cell at @p position, -1 if there is none.
    int cellAt(QPoint position) const;
    QRect rectOf(int cell) const;
    QSize size() const;

    /// Where @p key (an arrow, Home or End) leads from @p cell: @p cell itself at the border, -1
    /// for other keys.
    int stepped(int cell, int key) const;
};
