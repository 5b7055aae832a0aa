#pragma once

#include "ShownGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/TestSprites.h"

/// The shown map with a block and sprites at hand; none is placed yet.
struct FurnishedGrid : ShownGrid
{
    explicit FurnishedGrid(int sprites = 2)
    {
        blocks.setTileSet(tiles.set.get());
        door = blocks.createTileAnimation(QStringLiteral("Door"));
        door->setTileSet(tiles.set.get());
        door->setSize({2, 1});
        AnimationFrame *const frame = door->addFrame();
        frame->setCell({0, 0}, {.index = 8});
        frame->setCell({1, 0}, {.index = 9});
        TestSprites::fill(bank, sprites);
        grid.setSpriteBanks({&bank});
    }

    /// Places the bank's second sprite.
    void placeSpriteAt(QPoint mapPixel)
    {
        Map::PlacedSprite sprite;
        sprite.bank = bank.id();
        sprite.sprite = 1;
        sprite.x = mapPixel.x();
        sprite.y = mapPixel.y();
        map->sprites().append(sprite);
    }

    MapObjects blocks;
    QPointer<TileAnimation> door; // 2 by 1 cells: tiles 8 and 9
    SpriteBank bank{Tessaril::Sprite::EightBit};
};
