#include "colour/SwatchGrid.h"

#include <algorithm>

namespace {

constexpr int MinCellSide = 8; // pixels
constexpr int GoodCellSide = 10;
constexpr int MaxCellSide = 24;
constexpr int MinColumns = 8;
constexpr int MaxColumns = 64;

QPoint turned(QPoint point, Qt::Orientation orientation)
{
    return orientation == Qt::Vertical ? point : point.transposed();
}

} // namespace

SwatchGrid SwatchGrid::fitting(int width, int count)
{
    SwatchGrid grid;
    grid.count = count;
    grid.columns = std::min(count, 2 * MinColumns);
    if (width < grid.columns * MinCellSide && count > MinColumns)
        grid.columns = MinColumns;
    while (grid.columns < std::min(count, MaxColumns) && width >= 2 * grid.columns * GoodCellSide)
        grid.columns *= 2;
    grid.cellSide = std::clamp(width / grid.columns, MinCellSide, MaxCellSide);
    return grid;
}

int SwatchGrid::cellAt(QPoint position) const
{
    const QPoint point = turned(position, orientation);
    if (point.x() < 0 || point.y() < 0 || point.x() >= columns * cellSide)
        return -1;
    const int cell = point.y() / cellSide * columns + point.x() / cellSide;
    return cell < count ? cell : -1;
}

QRect SwatchGrid::rectOf(int cell) const
{
    const QPoint place(cell % columns * cellSide, cell / columns * cellSide);
    return {turned(place, orientation), QSize(cellSide, cellSide)};
}

QSize SwatchGrid::size() const
{
    const QSize upright(columns * cellSide, (count + columns - 1) / columns * cellSide);
    return orientation == Qt::Vertical ? upright : upright.transposed();
}

int SwatchGrid::stepped(int cell, int key) const
{
    const bool upright = orientation == Qt::Vertical;
    const int across = upright ? 1 : columns;
    const int down = upright ? columns : 1;
    int target = cell;
    switch (key) {
    case Qt::Key_Left:
        target = cell - across;
        break;
    case Qt::Key_Right:
        target = cell + across;
        break;
    case Qt::Key_Up:
        target = cell - down;
        break;
    case Qt::Key_Down:
        target = cell + down;
        break;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count - 1;
    default:
        return -1;
    }
    return target >= 0 && target < count ? target : cell;
}
