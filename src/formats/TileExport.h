#pragma once

#include <QByteArray>
#include <QString>

class TileSet;

/// The export of tiles as the Next's own bytes.
namespace TileExport {

/// One-based numbers of the first and the last tile, and whether each tile's rows become its
/// columns.
struct Range
{
    int first = 1;
    int last = 0;
    bool transposed = false;
};

/// 64 bytes a tile, row by row, each the low four bits of the pixel plus 16 times the tile's
/// palette offset. The range is lowered to the tiles that there are; one that ends before it begins
/// gives nothing.
QByteArray wideBytes(const TileSet &tileSet, const Range &range);

/// Writes by the suffix of @p fileName: ".nxt" the whole set with 32 bytes a tile, ".bin" the
/// range with 64 bytes a tile, anything else no file. False only if a write failed.
[[nodiscard]] bool write(TileSet *tileSet, const QString &fileName, const Range &range);

} // namespace TileExport
