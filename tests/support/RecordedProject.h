#pragma once

#include "history/EditRecorder.h"
#include "history/UndoStacks.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/Tile.h"

#include <QUndoStack>

/// A small project with one document of each kind, in which everything differs from its
/// neighbours, watched by a recorder with a clock that stands still.
///
/// Eight tiles, a map of 6 by 4 cells that uses them all, a block list of one animation, four
/// sprites with one animation, and three placed sprites.
struct RecordedProject
{
    static constexpr int TileCount = 8;
    static constexpr int SpriteCount = 4;
    static inline const QSize MapSize{6, 4};

    RecordedProject()
    {
        makePaletteAndTiles();
        makeBlocks();
        makeSprites();
        makeMap();
        const auto stackFor = [this](const QUuid &id) { return stacks.recordingStack(id); };
        recorder =
            std::make_unique<EditRecorder>(&project, stackFor, nullptr, [this] { return now; });
    }

    /// Only the first of two edits in a row is then merged with what came before.
    void wait(qint64 milliseconds) { now += milliseconds; }
    QUndoStack *stackOf(const QUuid &id) { return stacks.stack(id); }

    Project project;
    UndoStacks stacks;
    std::unique_ptr<EditRecorder> recorder;
    qint64 now = 1'000'000;
    QPointer<Palette> palette;
    QPointer<TileSet> tileSet;
    QPointer<MapObjects> blocks;
    QPointer<TileAnimation> block;
    QPointer<SpriteBank> sprites;
    QPointer<SpriteAnim> animation;
    QPointer<Map> map;

private:
    static QImage filled(const QImage &like, int value)
    {
        QImage image = like;
        image.fill(value);
        return image;
    }

    void makePaletteAndTiles()
    {
        palette = project.createPalette(CreateDefault, QStringLiteral("Colours"));
        tileSet = project.createTileSet(QStringLiteral("Tiles"), palette->id(), TileCount);
        for (int index = 0; index < TileCount; ++index) {
            Tile *tile = tileSet->tile(index);
            tile->setImage(filled(Tile::blankImage(palette->colourTable()), index));
            tile->setOffset(index);
            tile->setAttributes(1 << index);
            tile->setValue(10 * index);
        }
    }

    void makeBlocks()
    {
        blocks = project.createBlockList(QStringLiteral("Blocks"), tileSet->id());
        block = blocks->createTileAnimation(QStringLiteral("Door"));
        block->setTileSet(tileSet);
        block->setSize({2, 1});
        for (int index = 0; index < 2; ++index) {
            AnimationFrame *frame = block->addFrame();
            frame->setCell({0, 0}, {2 + index, 1, true, false, false});
            frame->setCell({1, 0}, {5, 0, false, true, true});
        }
    }

    void makeSprites()
    {
        sprites = project.createSpriteBank(Tessaril::Sprite::EightBit, QStringLiteral("Heroes"),
                                           palette->id());
        while (sprites->count() < SpriteCount)
            sprites->addSprite();
        for (int index = 0; index < SpriteCount; ++index)
            sprites->setImage(index, filled(sprites->sprite(index), 20 + index));
        animation = sprites->createAnimation();
        animation->setSize({4, 1});
        for (int index = 0; index < SpriteCount; ++index)
            animation->frame(0)->setCell({index, 0}, {index, 2, false, true, false});
    }

    void makeMap()
    {
        map = project.createMap(QStringLiteral("Level"), tileSet->id(), MapSize);
        for (int y = 0; y < MapSize.height(); ++y) {
            for (int x = 0; x < MapSize.width(); ++x) {
                TileMap::TileData cell;
                cell.index = (x + y) % TileCount;
                cell.offset = x;
                cell.occupied = true;
                map->tileLayer()->setCell({x, y}, cell);
            }
        }
        map->addAnimation({block->id(), {1, 1, 2, 1}, 3, 4, 1});
        map->stampAnimation(block, {1, 1});
        for (int index = 1; index < SpriteCount; ++index) {
            Map::PlacedSprite placed;
            placed.bank = sprites->id();
            placed.sprite = index;
            placed.x = 8 * index;
            placed.name = QStringLiteral("hero %1").arg(index);
            map->sprites().append(placed);
        }
    }
};
