#include "access/DocumentChanges.h"

#include "access/Surfaces.h"
#include "model/AnimatedBlocks.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

namespace {

Map *mapOf(Surfaces &surfaces)
{
    return surfaces.project()->maps().first();
}

/// A picture in which no two neighbours are the same.
QImage stripes(int side, int first)
{
    QImage image(side, side, QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(256, qRgb(0, 0, 0)));
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, static_cast<uint>((first + x + y) % 16));
    }
    return image;
}

void setTile(TileSet *tiles, int index, int first)
{
    tiles->tile(index)->setImage(stripes(Tile::Side, first));
    tiles->notifyImageChanged(index + 1);
}

TileAnimation *anyBlock(MapObjects *blocks)
{
    return blocks->animations().cbegin().value();
}

SpriteAnim *anyAnimation(SpriteBank *bank)
{
    return bank->animations().cbegin().value();
}

void turnFirstCell(Animation *animation, int index)
{
    AnimationFrame *const frame = animation->frame(0);
    AnimationFrame::Cell cell = frame->cell({0, 0});
    cell.rotate = !cell.rotate;
    cell.index = index;
    frame->setCell({0, 0}, cell);
    frame->notifyChanged();
}

Changes ofColours(Surfaces &surfaces)
{
    Changes changes;
    Project *const project = surfaces.project();
    for (const QPointer<Palette> &palette : project->palettes()) {
        for (const int index : {0, 1, 0xE3})
            changes.append({QStringLiteral("colour %1 of %2").arg(index).arg(palette->name()),
                            [palette, index] {
                                const QColor colour = palette->colour(index);
                                palette->setColour(
                                    index, QColor(255 - colour.red(), colour.blue(), 109), true);
                            }});
        changes.append({"name of palette " + palette->name(),
                        [palette] { palette->setName(palette->name() + " anew"); }});
    }
    return changes;
}

Changes ofTiles(Surfaces &surfaces)
{
    const QPointer<TileSet> tiles = mapOf(surfaces)->tileSet();
    const QPointer<Palette> palette = tiles->palette();
    Project *const project = surfaces.project();
    return {
        {"picture of the first tile", [tiles] { setTile(tiles, 0, 1); }},
        {"picture of another tile", [tiles] { setTile(tiles, 3, 5); }},
        {"clear a tile", [tiles] { tiles->clearImage(0); }},
        {"insert a tile", [tiles] { tiles->insertTile(1); }},
        {"delete a tile", [tiles] { tiles->deleteTile(2); }},
        {"move a tile", [tiles] { tiles->moveTile(0, 6); }},
        {"copy a tile", [tiles] { tiles->copyTile(0, 4); }},
        {"many tiles",
         [tiles] {
             for (int i = 0; i < tiles->count(); ++i)
                 setTile(tiles, i, i);
         }},
        {"restored tiles",
         [tiles] {
             TileSet::State state = tiles->state();
             std::reverse(state.begin(), state.end());
             state.removeLast();
             tiles->restore(state);
             tiles->notifyRestored();
         }},
        {"another palette of tiles",
         [&surfaces, project] {
             surfaces.window()->changeTilePalette(
                 project->createPalette(CreateDefault, "other tiles")->id());
         }},
        {"the palette of tiles again",
         [&surfaces, palette] { surfaces.window()->changeTilePalette(palette->id()); }},
        {"name of tiles", [tiles] { tiles->setName("tiles anew"); }},
    };
}

Changes ofMap(Surfaces &surfaces)
{
    const QPointer<Map> map = mapOf(surfaces);
    return {
        {"cells of a map",
         [map] {
             TileMap::Rows rows = map->tileLayer()->rows();
             for (auto &row : rows)
                 row.first() = {.index = 2, .offset = 1, .occupied = true};
             map->tileLayer()->setTiles(rows);
         }},
        {"objects of a map",
         [map] {
             TileMap::Rows rows = map->objectLayer()->rows();
             rows[1][1] = {.index = 3, .flip = true, .occupied = true};
             map->objectLayer()->setTiles(rows);
         }},
        {"restored map",
         [map] {
             const Map::State before = map->state();
             map->resize({8, 6}, Qt::AlignLeft | Qt::AlignTop);
             map->sprites().clear();
             const Map::State small = map->state();
             map->restore(before);
             map->restore(small);
         }},
        {"grown map",
         [map] {
             Map::State state = map->state();
             map->resize({50, 40}, Qt::AlignCenter);
             state = map->state();
             map->restore(state);
         }},
        {"name of a map", [map] { map->setName("map anew"); }},
    };
}

Changes ofBlocks(Surfaces &surfaces)
{
    const QPointer<MapObjects> blocks = surfaces.project()->mapObjects().first();
    return {
        {"cell of a block", [blocks] { turnFirstCell(anyBlock(blocks), 3); }},
        {"cells of all blocks",
         [blocks] {
             for (const auto &block : blocks->animations())
                 turnFirstCell(block, 4);
         }},
        {"size of blocks",
         [blocks] {
             for (const auto &block : blocks->animations())
                 block->setSize({3, 2});
         }},
        {"name of a block",
         [blocks] { anyBlock(blocks)->setName(anyBlock(blocks)->name() + " anew"); }},
        {"delay of blocks",
         [blocks] {
             for (const auto &block : blocks->animations())
                 block->setDelay(7);
         }},
        {"type of blocks",
         [blocks] {
             for (const auto &block : blocks->animations())
                 block->setMapObjectType(MapObjectType::HorizontalPlatform);
         }},
        {"frames of blocks",
         [blocks] {
             for (const auto &block : blocks->animations()) {
                 block->addFrame();
                 block->notifyContentChanged();
             }
         }},
        {"fewer frames of blocks",
         [blocks] {
             for (const auto &block : blocks->animations())
                 block->removeFrame(0);
         }},
        {"another block",
         [blocks] {
             auto *const created = new TileAnimation(blocks);
             created->setTileSet(blocks->tileSet());
             created->addFrame();
             blocks->addAnimation(created);
         }},
        {"a block less", [blocks] { blocks->removeAnimation(anyBlock(blocks)->id()); }},
        {"name of blocks", [blocks] { blocks->setName("blocks anew"); }},
    };
}

Changes ofSprites(Surfaces &surfaces)
{
    const QPointer<SpriteBank> bank = surfaces.project()->spriteBanks().first();
    const QPointer<Palette> palette = bank->palette();
    Project *const project = surfaces.project();
    return {
        {"picture of the first sprite",
         [bank] { bank->setImage(0, stripes(SpriteBank::SpriteSide, 2)); }},
        {"pictures of all sprites",
         [bank] {
             for (int i = 0; i < bank->count(); ++i)
                 bank->setImage(i, stripes(SpriteBank::SpriteSide, i));
         }},
        {"another sprite", [bank] { bank->addSprite(); }},
        {"moved sprite", [bank] { bank->moveSprite(0, 2); }},
        {"cleared sprite", [bank] { bank->clearSprite(1); }},
        {"a sprite less",
         [bank] {
             emit bank->structureAboutToChange();
             bank->deleteSprite(0);
             emit bank->structureChanged("Delete Sprite");
         }},
        {"another palette of sprites",
         [&surfaces, project] {
             surfaces.window()->changeSpritePalette(
                 project->createPalette(CreateDefault, "other sprites")->id());
         }},
        {"the palette of sprites again",
         [&surfaces, palette] { surfaces.window()->changeSpritePalette(palette->id()); }},
        {"cells of sprite animations",
         [bank] {
             for (const auto &animation : bank->animations())
                 turnFirstCell(animation, 1);
         }},
        {"size of sprite animations",
         [bank] {
             for (const auto &animation : bank->animations())
                 animation->setSize({2, 2});
         }},
        {"frames of sprite animations",
         [bank] {
             for (const auto &animation : bank->animations()) {
                 animation->addFrame();
                 animation->notifyContentChanged();
             }
         }},
        {"fewer frames of sprite animations",
         [bank] {
             for (const auto &animation : bank->animations())
                 animation->removeFrame(0);
         }},
        {"name and delay of a sprite animation",
         [bank] {
             for (const auto &animation : bank->animations()) {
                 animation->setName(animation->name() + " anew");
                 animation->setDelay(9);
             }
         }},
        {"another sprite animation", [bank] { bank->createAnimation(); }},
        {"a sprite animation less", [bank] { bank->removeAnimation(anyAnimation(bank)->id()); }},
        {"restored sprites",
         [bank] {
             SpriteBank::State state = bank->state();
             state.image = state.image.mirrored(true, true);
             bank->restore(state);
         }},
    };
}

} // namespace

Changes DocumentChanges::ofProject(Surfaces &surfaces)
{
    Project *const project = surfaces.project();
    DocumentController *const documents = surfaces.window()->documentController();
    const QUuid tiles = mapOf(surfaces)->tileSetId();
    const auto last = std::make_shared<QUuid>();
    using Node = ProjectTree::ProjectNode;
    const auto remove = [window = surfaces.views().projectWindow](Node node, const QUuid &id) {
        emit window->deleteItemTriggered(node, id);
    };
    return {
        {"new palette", [=] { *last = project->createPalette(CreateBlank, "new")->id(); }},
        {"open the palette", [=] { documents->setActivePalette(*last); }},
        {"delete the palette", [=] { remove(Node::Palette, *last); }},
        {"new tile set", [=] { *last = project->createTileSet("new", QUuid(), 12)->id(); }},
        {"open the tile set", [=] { documents->setActiveTileSet(*last); }},
        {"delete the tile set", [=] { remove(Node::TileSet, *last); }},
        {"no tile set", [=] { documents->setActiveTileSet(QUuid()); }},
        {"the tile set again", [=] { documents->setActiveTileSet(tiles); }},
        {"new bank",
         [=] {
             *last = project
                         ->createSpriteBank(Tessaril::Sprite::FourBit, "new",
                                            project->palettes().first()->id())
                         ->id();
         }},
        {"open the bank", [=] { documents->setActiveSpriteEditor(*last); }},
        {"delete the bank", [=] { remove(Node::Sprites, *last); }},
        {"new blocks", [=] { *last = project->createBlockList("new", tiles)->id(); }},
        {"open the blocks", [=] { documents->setActiveBlockEditor(*last); }},
        {"delete the blocks", [=] { remove(Node::Objects, *last); }},
        {"new map",
         [=] {
             *last = project->createMap("new", tiles, {40, 32})->id();
         }},
        {"open the map", [=] { documents->setActiveMap(*last); }},
        {"delete the map", [=] { remove(Node::Map, *last); }},
    };
}

Changes DocumentChanges::ofContents(Surfaces &surfaces)
{
    // The map last, as it loses what is placed there.
    return ofColours(surfaces) + ofTiles(surfaces) + ofBlocks(surfaces) + ofSprites(surfaces) +
           ofMap(surfaces);
}

Changes DocumentChanges::all(Surfaces &surfaces)
{
    return ofContents(surfaces) + ofProject(surfaces);
}
