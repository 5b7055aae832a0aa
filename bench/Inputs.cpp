#include "bench/Inputs.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QRandomGenerator>

Bench::Level::Level(int side)
    : palette(std::make_unique<Palette>())
    , tiles(std::make_unique<TileSet>())
    , map(std::make_unique<Map>(QStringLiteral("level")))
{
    QRandomGenerator generator(512);
    palette->setDefaultColours();
    tiles->setPalette(palette.get());
    for (Tile *tile : tiles->tiles()) {
        QImage image = Tile::blankImage(palette->colourTable());
        for (int i = 0; i < Tile::Side * Tile::Side; ++i)
            image.setPixel(i % Tile::Side, i / Tile::Side, generator.bounded(16U));
        tile->setImage(image);
    }

    TileMap::Rows rows(side, QList<TileMap::TileData>(side));
    for (QList<TileMap::TileData> &row : rows) {
        for (TileMap::TileData &cell : row)
            cell = anyCell(generator.bounded(1 << 16));
    }
    map->setTileLayer(new TileMap({side, side}));
    map->setObjectLayer(new TileMap({side, side}));
    map->tileLayer()->setTiles(rows);
    map->setTileSet(tiles.get());
}

Bench::Level::~Level() = default;

TileMap::TileData Bench::anyCell(int number)
{
    const auto bits = static_cast<unsigned>(number);
    TileMap::TileData cell;
    cell.index = static_cast<int>(bits % TileSet::DefaultCount);
    cell.rotate = (bits >> 9) & 1;
    cell.flip = (bits >> 10) & 1;
    cell.mirror = (bits >> 11) & 1;
    cell.offset = static_cast<int>((bits >> 12) & 15);
    cell.occupied = true;
    return cell;
}
