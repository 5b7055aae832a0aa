#include "bench/Inputs.h"
#include "bench/Rows.h"

#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/AnimationFrame.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QUndoStack>

#include <memory>

namespace {

using Bench::Level;
using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr QSize Window(1920, 1080); // pixels
constexpr QSize Cells(60, 33);      // that it shows whole
constexpr int BlockCount = 50;
constexpr int BlockSide = 2; // cells
constexpr int SpriteCount = 200;
constexpr int FrameCount = 4;
constexpr int Delay = 5; // ticks a frame, of blocks and sprites

/// A grid that fills a window, with every layer, the background and the lines to draw. All that is
/// placed lies in view, whatever the size of the map.
struct Scene
{
    explicit Scene(int side);

    void placeBlocks();
    void placeSprites();
    void send(QEvent::Type type, QPoint cell, Qt::MouseButton button, Qt::MouseButtons buttons);
    /// Lets what waits for a repaint have it.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest); }
    /// A cell on view that is another for each of many numbers; no placed block covers it.
    static QPoint freeCell(int number)
    {
        return {number % Cells.width(), number / Cells.width() % (Cells.height() / 3) * 3 + 2};
    }

    Level level;
    std::unique_ptr<MapObjects> blocks = std::make_unique<MapObjects>();
    std::unique_ptr<SpriteBank> bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    QUndoStack stack;
    MapEditor::View view;
    int number = 0;
};

Scene::Scene(int side)
    : level(side)
{
    placeBlocks();
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
void Scene::placeBlocks()
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
void Scene::placeSprites()
{
    QRandomGenerator generator(200);
    bank->setPalette(level.palette.get());
    bank->grow(FrameCount * BlockSide * BlockSide);
    QImage picture(SpriteBank::SpriteSide, SpriteBank::SpriteSide, QImage::Format_Indexed8);
    for (int i = 0; i < bank->count(); ++i) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.scanLine(y)[x] = static_cast<uchar>(generator.bounded(256));
        }
        bank->setImage(i, picture);
    }
    const auto animation = bank->createAnimation();
    animation->setSize({BlockSide, 1});
    animation->setDelay(Delay);
    while (animation->frameCount() < FrameCount)
        animation->addFrame();
    for (int i = 0; i < FrameCount; ++i) {
        for (int x = 0; x < BlockSide; ++x)
            animation->frame(i)->setCell({x, 0}, {.index = i * BlockSide + x});
    }
    for (int i = 0; i < SpriteCount; ++i) {
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

void Scene::send(QEvent::Type type, QPoint cell, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    MapEditor::MapGrid *const grid = view.grid();
    const QPoint position =
        grid->cellGeometry().fromCells({cell, QSize(1, 1)}).center() - QPoint(1, 1);
    QMouseEvent event(type, position, grid->mapToGlobal(position), button, buttons, {});
    QCoreApplication::sendEvent(grid, &event);
}

Work paintOf(const std::shared_ptr<Scene> &scene)
{
    return [scene] { scene->view.grid()->repaint(); };
}

std::string inputOf(int side)
{
    return std::to_string(side) + " cells a side, 1920 x 1080";
}

Row paint(int side)
{
    return {"paint of the map editor", inputOf(side), 6, [side] {
                return Pair{paintOf(std::make_shared<Scene>(side)), Bench::pictureOf(Window)};
            }};
}

/// Nothing that the grid showed before is where it was.
Row paintScrolled(int side)
{
    return {"its paint after a scroll", inputOf(side), Bench::NoBudget, [side] {
                const auto scene = std::make_shared<Scene>(side);
                const Work measured = [scene] {
                    scene->view.grid()->setHorizontalScrollPosition(++scene->number % 2);
                    Scene::settle();
                };
                return Pair{measured, Bench::pictureOf(Window)};
            }};
}

Row moveAndPaint(int side)
{
    return {"move that paints a cell", inputOf(side), 1.2, [side] {
                const auto scene = std::make_shared<Scene>(side);
                scene->send(QEvent::MouseButtonPress, Scene::freeCell(0), Qt::LeftButton,
                            Qt::LeftButton);
                const Work measured = [scene] {
                    const int step = ++scene->number;
                    if (step % 256 == 0) // before cells come again
                        scene->view.setTileIndex(step / 256 % TileSet::DefaultCount);
                    scene->send(QEvent::MouseMove, Scene::freeCell(step), Qt::NoButton,
                                Qt::LeftButton);
                    Scene::settle();
                };
                return Pair{measured, paintOf(scene)};
            }};
}

Row pressAndRelease(int side)
{
    return {"press, one cell, release", inputOf(side), 1.5, [side] {
                const auto scene = std::make_shared<Scene>(side);
                const Work measured = [scene] {
                    const int step = ++scene->number;
                    const QPoint cell = Scene::freeCell(step);
                    if (step % 256 == 0)
                        scene->view.setTileIndex(step / 256 % TileSet::DefaultCount);
                    scene->send(QEvent::MouseButtonPress, cell, Qt::LeftButton, Qt::LeftButton);
                    scene->send(QEvent::MouseButtonRelease, cell, Qt::LeftButton, Qt::NoButton);
                    Scene::settle();
                };
                return Pair{measured, paintOf(scene)};
            }};
}

Row tick(int side)
{
    return {"tick of the frame clock", inputOf(side), 0.25, [side] {
                const auto scene = std::make_shared<Scene>(side);
                const Work measured = [scene] { scene->view.animator().tick(); };
                return Pair{measured, paintOf(scene)};
            }};
}

Row tickAndPaint(int side)
{
    return {"tick with its repaint", inputOf(side), Bench::NoBudget, [side] {
                const auto scene = std::make_shared<Scene>(side);
                const Work measured = [scene] {
                    scene->view.animator().tick();
                    Scene::settle();
                };
                return Pair{measured, paintOf(scene)};
            }};
}

} // namespace

void Bench::addMapPaintRows(std::vector<Row> *rows)
{
    for (const auto &row :
         {paint, paintScrolled, moveAndPaint, pressAndRelease, tick, tickAndPaint}) {
        for (const int side : {64, 256, 1024})
            rows->push_back(row(side));
    }
}
