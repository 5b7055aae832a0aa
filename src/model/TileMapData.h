#pragma once

#include "model/TileMap.h"

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <QUuid>

#include <optional>

/// The bytes of a block of cells, as the archive and the clipboard hold it.
///
/// Big-endian: height and width as 32 bits, then the cells row by row, 12 bytes each: index (32
/// bits), occupied (8), palette offset (32), rotate, flip, mirror (8 each). The 16 bytes of the
/// tile set's id come last and are not read back.
namespace TileMapData {

inline constexpr int HeaderBytes = 8;
inline constexpr int CellBytes = 12;

/// A block of cells that was read.
struct Block
{
    QSize size;
    TileMap::Rows rows;
};

/// The cells of @p rect; those outside @p rows are all zero.
QByteArray write(const TileMap::Rows &rows, QRect rect, const QUuid &tileSet);

/// The bytes of the block whose first bytes are @p start, by its own word; 0 if they are no header
/// of a block that a map may have.
qint64 claimedSize(const QByteArray &start);

/// The block in @p data. Nothing if it is cut, claims more cells than it holds, or has a size that
/// no map may have; checked before anything is allocated.
std::optional<Block> read(const QByteArray &data);

} // namespace TileMapData
