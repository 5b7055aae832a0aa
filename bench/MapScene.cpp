#include "bench/MapScene.h"

#include "model/AnimationFrame.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QMouseEvent>
#include <QRandomGenerator>

using Bench::MapScene;

namespace {

constexpr int BlockCount = 50;
constexpr int BlockSide = 2; // cells
constexpr int PlacedCount = 200;
constexpr int FrameCount = 4;
constexpr int Delay = 5; // ticks a frame, of blocks and sprites

} // namespace

MapScene::MapScene(int side, int spriteCount)
    : level(side)
{
    placeBlocks();
    bank->setPalette(level.palette.get());
    fillBank(bank.get(), spriteCount);
    placeSprites();
    stack.setUndoLimit(1);
    level.map->setGridVisible(true);
    level.map->setTileTransparencyIndex(0);
    level.map->setBackgroundTileIndex(7);
    view.setUndoStack(&stack);
    view.setMap(level.map.get());
    view.setSpriteBanks({bank.get()});
    view.resize(Window);
    view.show();
    QCoreApplication::processEvents();
    view.resize(view.size() + Window - view.grid()->size());
    QCoreApplication::processEvents();
}

/// In rows of cells of which each third stays free.
void MapScene::placeBlocks()
{
    blocks->setTileSet(level.tiles.get());
    const auto animation = blocks->createTileAnimation(QStringLiteral("block"));
    animation->setSize({BlockSide, BlockSide});
    animation->setDelay(Delay);
    for (int i = 0; i < FrameCount; ++i) {
        AnimationFrame *const frame = animation->addFrame();
        for (int cell = 0; cell < BlockSide * BlockSide; ++cell)
            frame->setCell({cell % BlockSide, cell / BlockSide},
                           {.index = i * BlockSide * BlockSide + cell});
    }
    for (int i = 0; i < BlockCount; ++i) {
        const QPoint cell(i % 10 * 6, i / 10 * 6);
        level.map->addAnimation(
            {.id = animation->id(), .rect = QRect(cell, QSize(BlockSide, BlockSide))});
    }
    level.map->restoreAnimations({blocks.get()});
}

/// Half of them play an animation.
void MapScene::placeSprites()
{
    QRandomGenerator generator(201);
    const auto animation = bank->createAnimation();
    animation->setSize({BlockSide, 1});
    animation->setDelay(Delay);
    while (animation->frameCount() < FrameCount)
        animation->addFrame();
    for (int i = 0; i < FrameCount; ++i) {
        for (int x = 0; x < BlockSide; ++x)
            animation->frame(i)->setCell({x, 0}, {.index = i * BlockSide + x});
    }
    for (int i = 0; i < PlacedCount; ++i) {
        Map::PlacedSprite sprite;
        sprite.bank = bank->id();
        sprite.sprite = i % bank->count();
        sprite.animation = i % 2 == 0 ? QUuid() : animation->id();
        sprite.mirror = i % 3 == 0;
        sprite.startFrame = i % FrameCount;
        sprite.x = generator.bounded((Cells.width() - 4) * TileMap::CellSide);
        sprite.y = generator.bounded((Cells.height() - 4) * TileMap::CellSide);
        level.map->sprites().append(sprite);
    }
}

void MapScene::send(QEvent::Type type, QPoint cell, Qt::MouseButton button,
                    Qt::MouseButtons buttons)
{
    MapEditor::MapGrid *const grid = view.grid();
    const QPoint position =
        grid->cellGeometry().fromCells({cell, QSize(1, 1)}).center() - QPoint(1, 1);
    QMouseEvent event(type, position, grid->mapToGlobal(position), button, buttons, {});
    QCoreApplication::sendEvent(grid, &event);
}
