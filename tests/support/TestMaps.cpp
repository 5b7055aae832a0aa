#include "support/TestMaps.h"

#include "model/AnimatedBlocks.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"

TileMap::TileData TestMaps::cell(int index, int offset)
{
    TileMap::TileData data;
    data.index = index;
    data.offset = offset;
    data.occupied = true;
    return data;
}

QList<QList<int>> TestMaps::indices(const TileMap &map)
{
    QList<QList<int>> rows;
    for (const auto &row : map.rows()) {
        rows.append(QList<int>());
        for (const TileMap::TileData &data : row)
            rows.last().append(data.index);
    }
    return rows;
}

TileMap::Rows TestMaps::counted(int width, int height)
{
    TileMap::Rows rows;
    for (int y = 0; y < height; ++y) {
        rows.append(QList<TileMap::TileData>());
        for (int x = 0; x < width; ++x)
            rows.last().append(cell(y * width + x));
    }
    return rows;
}

TestMaps::PlainTiles::PlainTiles(int count)
    : palette(std::make_unique<Palette>())
    , set(std::make_unique<TileSet>(nullptr, count))
{
    palette->setDefaultColours();
    set->setPalette(palette.get());
    for (int i = 0; i < count; ++i) {
        QImage image = Tile::blankImage(palette->colourTable());
        image.fill(static_cast<uint>(i & 15));
        set->tile(i)->setImage(image);
    }
}

TestMaps::PlainTiles::~PlainTiles() = default;

std::unique_ptr<Map> TestMaps::map(QSize size, TileSet *tiles)
{
    auto map = std::make_unique<Map>(QStringLiteral("level"));
    map->setTileLayer(new TileMap(size));
    map->setObjectLayer(new TileMap(size));
    if (tiles)
        map->setTileSet(tiles);
    return map;
}

Map::PlacedSprite TestMaps::spriteAt(int x, int y)
{
    Map::PlacedSprite sprite;
    sprite.x = x;
    sprite.y = y;
    return sprite;
}

QList<QPoint> TestMaps::positions(const Map &map)
{
    QList<QPoint> list;
    for (const Map::PlacedSprite &sprite : map.sprites())
        list << QPoint(sprite.x, sprite.y);
    return list;
}

QList<QRect> TestMaps::placedRects(const Map &map)
{
    QList<QRect> list;
    for (const auto &block : map.animatedBlocks()->blocks())
        list << block->rect;
    return list;
}
