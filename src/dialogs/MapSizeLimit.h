#pragma once

#include <QSize>

/// The largest map that is ever made, in cells.
namespace MapSizeLimit {

inline constexpr qint64 MaxCells = qint64(1) << 27;

inline bool isTooLarge(QSize sizeInCells)
{
    return qint64(sizeInCells.width()) * sizeInCells.height() > MaxCells;
}

} // namespace MapSizeLimit
