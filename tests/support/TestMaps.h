#pragma once

#include "model/Map.h"
#include "model/TileMap.h"

#include <memory>

class Palette;
class TileSet;

/// Small tile sets and maps that several tests draw.
namespace TestMaps {

/// An occupied cell.
TileMap::TileData cell(int index, int offset = 0);

/// The tile indices of a grid, rows[y][x].
QList<QList<int>> indices(const TileMap &map);

/// A map of @p width by @p height whose cell at (x, y) is occupied by tile y * width + x.
TileMap::Rows counted(int width, int height);

/// Tile i of a set is filled with pixel value i & 15; its palette has the start-up colours.
struct PlainTiles
{
    explicit PlainTiles(int count);
    ~PlainTiles();

    std::unique_ptr<Palette> palette;
    std::unique_ptr<TileSet> set;
};

/// A map with both layers of @p size; @p tiles may be null.
std::unique_ptr<Map> map(QSize size, TileSet *tiles);

/// A placed sprite at a map pixel.
Map::PlacedSprite spriteAt(int x, int y);

/// Where the placed sprites of a map stand, in their order.
QList<QPoint> positions(const Map &map);

/// The cells of a map's placed blocks, in their order.
QList<QRect> placedRects(const Map &map);

} // namespace TestMaps
