#pragma once

#include <QPoint>

#include <cmath>

/// The widget pixel that a mouse position lies in.
///
/// At scales between the whole ones the mouse stands between pixels. QPointF::toPoint() would round
/// it to the nearest, which beside the edge of a cell is one of the next cell.
inline QPoint cellPoint(QPointF position)
{
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}
