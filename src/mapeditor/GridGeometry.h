#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

namespace MapEditor {

/// Where the cells of a map stand in a widget, and the way between widget points, cells and map
/// pixels.
///
/// A map pixel is an eighth of a cell, whatever the zoom. Widget points outside the grid convert as
/// well, truncated towards zero.
struct GridGeometry
{
    static constexpr int CellPixels = 8; // map pixels of a cell's side

    QRect gridRect;    ///< widget rectangle of the visible cells
    int cellSize = 32; ///< screen pixels of a cell's side, 1 or more
    QPoint scroll;     ///< top-left visible cell

    /// The grid centred in @p widget: as many whole cells as fit, no more than @p map and, unless
    /// it is empty, @p viewport cells.
    static QRect centred(QSize widget, QSize map, QSize viewport, int cellSize);
    /// The largest cell with which @p cells fit into @p widget, at least 1.
    static int fittingCellSize(QSize widget, QSize cells);

    /// The whole cells on view, in map coordinates.
    QRect visibleCells() const;

    /// The offset of a widget point from the grid's corner, in cells.
    QPoint cellOffset(QPoint position) const;
    QPoint cellAt(QPoint position) const { return cellOffset(position) + scroll; }
    QPoint mapPixelAt(QPoint position) const;
    QPoint fromMapPixel(QPoint pixel) const;
    /// The widget rectangle of cells; what lies far beyond every screen comes nearer.
    QRect fromCells(const QRect &cells) const;
    /// The side of @p mapPixels on screen, rounded half away from zero; at most 2^29 or so.
    int scaled(int mapPixels) const;
};

/// A position of an event as whole pixels, rounded half away from zero within the range of int.
QPoint wholePosition(QPointF position);

/// @p cell with both axes reduced to a multiple of @p snap by integer division; 1 leaves it.
QPoint snappedCell(QPoint cell, int snap);
/// @p pixel with both axes less their remainder modulo the snap; 1 leaves it.
QPoint snappedPixel(QPoint pixel, int snapCells);

} // namespace MapEditor
