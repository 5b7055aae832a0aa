#pragma once

#include "model/TileMap.h"

#include <QImage>
#include <QSize>

#include <memory>

class Map;
class Palette;
class SpriteBank;
class TileSet;

/// What the rows work on: made here, with fixed seeds, the same in every run.
namespace Bench {

/// 512 tiles of noise over the start-up palette, and a map over them.
struct Level
{
    /// A square map of @p side cells: every tile, turn and palette offset, all of it occupied.
    explicit Level(int side);
    ~Level();

    std::unique_ptr<Palette> palette;
    std::unique_ptr<TileSet> tiles;
    std::unique_ptr<Map> map;
};

/// Noise of all sixteen values in every tile.
void fillTiles(TileSet *tiles);
/// Makes a bank of one sprite one of @p count, with noise of all 256 values.
void fillBank(SpriteBank *bank, int count);

/// A cell of any tile, turn and offset that @p number stands for; near numbers differ.
TileMap::TileData anyCell(int number);

/// A picture of two colours made of 512 tiles, as many as fit, which come again in no order.
QImage pictureOfTiles(QSize size);
/// Slow changes of colour under fine noise, so that no two tiles are the same.
QImage photo(QSize size);
/// A picture in which no two pixels have the same colour, up to 2^24.
QImage pictureOfColours(QSize size);

} // namespace Bench
