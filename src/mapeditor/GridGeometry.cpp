#include "mapeditor/GridGeometry.h"

#include <QStyle>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace MapEditor;

namespace {

/// Beyond every screen, and so far within int that the sides of a rectangle can be added.
constexpr qint64 Farthest = 1 << 29;

int onScreen(qint64 position)
{
    return static_cast<int>(std::clamp(position, -Farthest, Farthest));
}

} // namespace

QRect GridGeometry::centred(QSize widget, QSize map, QSize viewport, int cellSize)
{
    QSize cells(widget.width() / cellSize, widget.height() / cellSize);
    if (!viewport.isEmpty())
        cells = cells.boundedTo(viewport);
    cells = cells.boundedTo(map);
    return QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, cells * cellSize,
                               QRect(QPoint(), widget));
}

int GridGeometry::fittingCellSize(QSize widget, QSize cells)
{
    return std::max(1, std::min(widget.width() / std::max(1, cells.width()),
                                widget.height() / std::max(1, cells.height())));
}

QRect GridGeometry::visibleCells() const
{
    return {scroll, QSize(gridRect.width() / cellSize, gridRect.height() / cellSize)};
}

QPoint GridGeometry::cellOffset(QPoint position) const
{
    const QPoint inside = position - gridRect.topLeft();
    return {inside.x() / cellSize, inside.y() / cellSize};
}

QPoint GridGeometry::mapPixelAt(QPoint position) const
{
    const auto axis = [this](int inside, int first) {
        const qint64 pixel = qint64(inside) * CellPixels / cellSize + qint64(first) * CellPixels;
        return static_cast<int>(pixel);
    };
    return {axis(position.x() - gridRect.left(), scroll.x()),
            axis(position.y() - gridRect.top(), scroll.y())};
}

QPoint GridGeometry::fromMapPixel(QPoint pixel) const
{
    return QPoint(scaled(pixel.x() - CellPixels * scroll.x()),
                  scaled(pixel.y() - CellPixels * scroll.y())) +
           gridRect.topLeft();
}

QRect GridGeometry::fromCells(const QRect &cells) const
{
    const auto axis = [this](qint64 cell, qint64 first, int edge) {
        return onScreen((cell - first) * cellSize + edge);
    };
    const QPoint topLeft(axis(cells.left(), scroll.x(), gridRect.left()),
                         axis(cells.top(), scroll.y(), gridRect.top()));
    const QPoint beyond(axis(qint64(cells.right()) + 1, scroll.x(), gridRect.left()),
                        axis(qint64(cells.bottom()) + 1, scroll.y(), gridRect.top()));
    return {topLeft, beyond - QPoint(1, 1)};
}

int GridGeometry::scaled(int mapPixels) const
{
    return onScreen(std::llround(mapPixels * (cellSize * 0.125)));
}

QPoint MapEditor::wholePosition(QPointF position)
{
    const auto whole = [](double value) {
        constexpr auto Limits = std::numeric_limits<int>();
        return static_cast<int>(
            std::round(std::clamp(value, double(Limits.min()), double(Limits.max()))));
    };
    return {whole(position.x()), whole(position.y())};
}

QPoint MapEditor::snappedCell(QPoint cell, int snap)
{
    return snap > 1 ? QPoint(cell.x() / snap * snap, cell.y() / snap * snap) : cell;
}

QPoint MapEditor::snappedPixel(QPoint pixel, int snapCells)
{
    const int side = snapCells * GridGeometry::CellPixels;
    return snapCells > 1 ? pixel - QPoint(pixel.x() % side, pixel.y() % side) : pixel;
}
