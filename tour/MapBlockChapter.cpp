#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "tour/MapDesk.h"

#include <QListWidget>
#include <QUndoStack>

using Tool = MapDesk::Tool;

namespace {

const QString PlaceAnimation = QStringLiteral("Place Animation");
constexpr int PlayMs = 5000; // at most, until an animation has gone round

/// A block of 2 by 1 cells that shows three pairs of tiles in turn, five times a second.
QPointer<TileAnimation> makeBlock(Project &project, const QPointer<TileSet> &tiles)
{
    const auto blocks = project.createBlockList(QStringLiteral("blocks"), tiles->id());
    const auto block = blocks->createTileAnimation(QStringLiteral("lamp"));
    block->setTileSet(tiles);
    block->setSize({2, 1});
    block->setDelay(10);
    for (int frame = 0; frame < 3; ++frame) {
        AnimationFrame *const cells = block->addFrame();
        cells->setCell({0, 0}, {.index = 10 + 2 * frame, .mirror = frame == 1});
        cells->setCell({1, 0}, {.index = 11 + 2 * frame, .rotate = frame == 2});
    }
    block->notifyContentChanged();
    return block;
}

/// Which frame the object layer shows at @p cell; -1 for none.
int shownFrame(MapDesk &desk, const TileAnimation &block, QPoint cell)
{
    for (int frame = 0; frame < block.frameCount(); ++frame) {
        bool isShown = true;
        for (int x = 0; x < block.size().width(); ++x) {
            const auto wanted = block.frame(frame)->cell({x, 0});
            const auto &found = desk.map().objectLayer()->cell(cell + QPoint(x, 0));
            isShown &= found.index == wanted.index && found.rotate == wanted.rotate &&
                       found.mirror == wanted.mirror && found.occupied;
        }
        if (isShown)
            return frame;
    }
    return -1;
}

void placeBlocks(MapDesk &desk, const TileAnimation &block)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("block"));
    desk.toggleLayer(QStringLiteral("Objects"));
    desk.checkLooks(QStringLiteral("the layer of objects shows"));
    desk.press(Tool::PlaceAnim);
    BlockSelectorWindow *const dock = tour.views().blockSelector;
    tour.check(dock->isVisible(), QStringLiteral("the dock of blocks shows"));
    clickRow(dock->findChild<QListWidget *>(), 0);
    desk.hover({12, 6});
    tour.picture(QStringLiteral("map-06-block"));
    desk.step(PlaceAnimation, QStringLiteral("a click places it"), [&desk] {
        desk.click({12, 6});
    });
    const int columns = desk.grid().cellGeometry().visibleCells().width();
    for (int column = columns; column < desk.map().tileLayer()->width(); ++column)
        desk.key(Qt::Key_Right);
    desk.step(PlaceAnimation, QStringLiteral("a second one, over the edge"), [&desk] {
        desk.click({39, 8});
    });
    const auto &placed = desk.map().animatedBlocks()->blocks();
    tour.check(placed.size() == 2 && placed.first()->id == block.id() &&
                   placed.first()->rect == QRect(12, 6, 2, 1) &&
                   shownFrame(desk, block, {12, 6}) == 0,
               QStringLiteral("its first frame is on the map"));
    desk.step(QStringLiteral("Remove Animation"), QStringLiteral("Delete takes one away"), [&desk] {
        desk.hover({39, 8});
        desk.key(Qt::Key_Delete);
    });
    tour.check(desk.map().animatedBlocks()->blocks().size() == 1,
               QStringLiteral("and leaves the other"));
    while (desk.grid().cellGeometry().scroll.x() > 0)
        desk.press(Tool::MoveLeft);
}

void playBlocks(MapDesk &desk, const TileAnimation &block)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("play"));
    const int index = desk.stack().index();
    QList<int> frames{shownFrame(desk, block, {12, 6})};
    bool isRight = true;
    desk.press(Tool::AnimPlay);
    const bool isPlayed = QTest::qWaitFor(
        [&] {
            const int frame = shownFrame(desk, block, {12, 6});
            if (frame != frames.last()) {
                frames.append(frame);
                isRight &= desk.looksRight();
            }
            return frames.size() > 4;
        },
        PlayMs);
    desk.press(Tool::AnimPlay);
    tour.check(isPlayed && frames == QList<int>({0, 1, 2, 0, 1}),
               QStringLiteral("each frame in its turn"));
    tour.check(isRight, QStringLiteral("each as it must look"));
    tour.check(desk.stack().index() == index && !desk.view().animator().timer().isActive(),
               QStringLiteral("leaves no step, and stops"));
}

/// Hides and shows each layer; what is hidden takes no edit.
void toggleLayers(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    desk.pickTile(5);
    const QList<QPair<QString, Tool>> layers{{QStringLiteral("Tiles"), Tool::Draw},
                                             {QStringLiteral("Objects"), Tool::PlaceAnim},
                                             {QStringLiteral("Sprites"), Tool::PlaceSprite}};
    for (const auto &[layer, tool] : layers) {
        tour.setSubject(layer);
        desk.press(tool);
        if (tool == Tool::PlaceAnim)
            clickRow(tour.views().blockSelector->findChild<QListWidget *>(), 0);
        desk.toggleLayer(layer);
        desk.checkLooks(QStringLiteral("are hidden"));
        desk.changesNothing(QStringLiteral("hidden ones take no click"), [&desk] {
            desk.click({12, 15});
        });
        tour.check(desk.grid().cursor().shape() == Qt::ForbiddenCursor,
                   QStringLiteral("and the cursor says so"));
        desk.toggleLayer(layer);
        desk.checkLooks(QStringLiteral("show again"));
    }
    desk.press(Tool::Draw);
}

} // namespace

void mapBlockChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Blocks are placed"));
    const QPointer<Map> map = levelMap(tour);
    if (!map)
        return;
    const auto block = makeBlock(*tour.project(), map->tileSet());
    MapDesk desk(tour, map->id());
    placeBlocks(desk, *block);
    playBlocks(desk, *block);
    toggleLayers(desk);
    tour.pictures(QStringLiteral("map-09-level"));
}
