#include "model/MapJson.h"

#include "model/AnimatedBlocks.h"
#include "model/ArchiveNames.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/Map.h"
#include "model/TileMapData.h"
#include "model/TileSet.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace MapJson {

namespace {

constexpr int NoticeMs = 2500;

QJsonObject blockToJson(const AnimationProperties &block)
{
    QJsonObject object{{"id"_L1, block.id.toString()},
                       {"initialDelay"_L1, block.initialDelay},
                       {"repeatDelay"_L1, block.repeatDelay},
                       {"startFrame"_L1, block.startFrame}};
    JsonValues::insertRect(object, block.rect);
    return object;
}

Map::PlacedBlock blockFromJson(const QJsonObject &object)
{
    return {JsonValues::id(object, "id"_L1), JsonValues::rect(object, QRect(0, 0, 0, 0)),
            object.value("initialDelay"_L1).toInt(), object.value("repeatDelay"_L1).toInt(),
            object.value("startFrame"_L1).toInt()};
}

QJsonObject spriteToJson(const Map::PlacedSprite &sprite)
{
    return {{"bank"_L1, sprite.bank.toString()},
            {"animation"_L1, sprite.animation.toString()},
            {"sprite"_L1, sprite.sprite},
            {"x"_L1, sprite.x},
            {"y"_L1, sprite.y},
            {"mirror"_L1, sprite.mirror},
            {"flip"_L1, sprite.flip},
            {"rotate"_L1, sprite.rotate},
            {"startFrame"_L1, sprite.startFrame},
            {"initialDelay"_L1, sprite.initialDelay},
            {"repeatDelay"_L1, sprite.repeatDelay},
            {"paletteOffset"_L1, sprite.paletteOffset},
            {"name"_L1, sprite.name}};
}

Map::PlacedSprite spriteFromJson(const QJsonObject &object)
{
    Map::PlacedSprite sprite;
    sprite.bank = JsonValues::id(object, "bank"_L1);
    sprite.animation = JsonValues::id(object, "animation"_L1);
    sprite.sprite = object.value("sprite"_L1).toInt(-1);
    sprite.x = JsonValues::coordinate(object, "x"_L1);
    sprite.y = JsonValues::coordinate(object, "y"_L1);
    sprite.mirror = object.value("mirror"_L1).toBool();
    sprite.flip = object.value("flip"_L1).toBool();
    sprite.rotate = object.value("rotate"_L1).toBool();
    sprite.startFrame = object.value("startFrame"_L1).toInt();
    sprite.initialDelay = object.value("initialDelay"_L1).toInt();
    sprite.repeatDelay = object.value("repeatDelay"_L1).toInt();
    sprite.paletteOffset = object.value("paletteOffset"_L1).toInt();
    sprite.name = object.value("name"_L1).toString();
    return sprite;
}

void readSettings(const QJsonObject &object, Map *map)
{
    map->setTileTransparencyIndex(object.value("tile_transparency"_L1).toInt(Map::Off));
    map->setGridVisible(object.value("grid_visible"_L1).toBool(true));
    map->setBackgroundTileIndex(object.value("backgroundTileIndex"_L1).toInt(Map::Off));
    map->setSpriteLayerVisible(object.value("spriteLayerVisible"_L1).toBool(true));
}

void readPlaced(const QJsonObject &object, Map *map)
{
    const QJsonArray blocks = object.value("animations"_L1).toArray();
    for (const auto &value : blocks) {
        if (const QJsonObject block = value.toObject(); !block.isEmpty())
            map->addAnimation(blockFromJson(block));
    }
    QList<Map::PlacedSprite> sprites;
    const QJsonArray records = object.value("sprites"_L1).toArray();
    for (const auto &value : records)
        sprites.append(spriteFromJson(value.toObject()));
    map->setSprites(sprites);
}

/// Makes the two layers from the map's entry and binds them.
void readLayers(const QJsonObject &object, const TileMapData::Block &block, Map *map)
{
    // Without rows there is none that tells the width.
    const bool hasRows = !block.rows.isEmpty();
    auto *tileLayer = new TileMap(hasRows ? QSize(0, 0) : block.size, map->parent());
    if (hasRows)
        tileLayer->setTiles(block.rows);
    tileLayer->setVisible(object.value("tileLayerVisible"_L1).toBool(true));
    auto *objectLayer = new TileMap(block.size, map->parent());
    objectLayer->setVisible(object.value("objectLayerVisible"_L1).toBool(false));
    map->setTileLayer(tileLayer);
    map->setObjectLayer(objectLayer);
}

} // namespace

QJsonObject write(const Map &map)
{
    QJsonArray blocks;
    for (const auto &block : map.animatedBlocks()->blocks()) {
        if (block)
            blocks.append(blockToJson(*block));
    }
    QJsonArray sprites;
    for (const Map::PlacedSprite &sprite : map.sprites())
        sprites.append(spriteToJson(sprite));
    return {{"id"_L1, map.id().toString()},
            {"name"_L1, map.name()},
            {"tileset"_L1, JsonValues::idText(map.tileSet())},
            {"tile_transparency"_L1, map.tileTransparencyIndex()},
            {"grid_visible"_L1, map.isGridVisible()},
            {"tileLayerVisible"_L1, map.tileLayer() && map.tileLayer()->isVisible()},
            {"objectLayerVisible"_L1, map.objectLayer() && map.objectLayer()->isVisible()},
            {"spriteLayerVisible"_L1, map.isSpriteLayerVisible()},
            {"backgroundTileIndex"_L1, map.backgroundTileIndex()},
            {"animations"_L1, blocks},
            {"sprites"_L1, sprites}};
}

bool read(const QJsonObject &object, LoadContext &context)
{
    const QString name = object.value("name"_L1).toString();
    const auto fail = [&] {
        return context.fail(QStringLiteral("Failed to load tile map anim for map %1").arg(name));
    };
    if (!context.takeRecords(object.value("animations"_L1).toArray().size() +
                             object.value("sprites"_L1).toArray().size()))
        return false;
    const QUuid id = JsonValues::idOrNew(object, "id"_L1);
    const std::optional<TileMapData::Block> block =
        TileMapData::read(context.entry(ArchiveNames::tileMap(id)));
    const QPointer<TileSet> tileSet =
        context.project()->tileSet(JsonValues::id(object, "tileset"_L1));
    if (!block || !tileSet || !context.takeMapCells(block->size))
        return fail();

    auto *map = new Map(name, context.project());
    map->setId(id);
    readSettings(object, map);
    readPlaced(object, map);
    readLayers(object, *block, map);
    map->setTileSet(tileSet);
    context.project()->addMap(map);
    emit context.project()->showMessage(QStringLiteral("New map added: %1").arg(name), NoticeMs);
    return true;
}

} // namespace MapJson
