#include "bench/MapScene.h"
#include "bench/Rows.h"

#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/TileSet.h"

#include <memory>

namespace {

using Bench::MapScene;
using Bench::Pair;
using Bench::Row;
using Bench::Work;

Work paintOf(const std::shared_ptr<MapScene> &scene)
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
                return Pair{paintOf(std::make_shared<MapScene>(side)),
                            Bench::pictureOf(MapScene::Window)};
            }};
}

/// Nothing that the grid showed before is where it was.
Row paintScrolled(int side)
{
    return {"its paint after a scroll", inputOf(side), Bench::NoBudget, [side] {
                const auto scene = std::make_shared<MapScene>(side);
                const Work measured = [scene] {
                    scene->view.grid()->setHorizontalScrollPosition(++scene->number % 2);
                    MapScene::settle();
                };
                return Pair{measured, Bench::pictureOf(MapScene::Window)};
            }};
}

Row moveAndPaint(int side)
{
    return {"move that paints a cell", inputOf(side), 1.2, [side] {
                const auto scene = std::make_shared<MapScene>(side);
                scene->send(QEvent::MouseButtonPress, MapScene::freeCell(0), Qt::LeftButton,
                            Qt::LeftButton);
                const Work measured = [scene] {
                    const int step = ++scene->number;
                    if (step % 256 == 0) // before cells come again
                        scene->view.setTileIndex(step / 256 % TileSet::DefaultCount);
                    scene->send(QEvent::MouseMove, MapScene::freeCell(step), Qt::NoButton,
                                Qt::LeftButton);
                    MapScene::settle();
                };
                return Pair{measured, paintOf(scene)};
            }};
}

Row pressAndRelease(int side)
{
    return {"press, one cell, release", inputOf(side), 1.5, [side] {
                const auto scene = std::make_shared<MapScene>(side);
                const Work measured = [scene] {
                    const int step = ++scene->number;
                    const QPoint cell = MapScene::freeCell(step);
                    if (step % 256 == 0)
                        scene->view.setTileIndex(step / 256 % TileSet::DefaultCount);
                    scene->send(QEvent::MouseButtonPress, cell, Qt::LeftButton, Qt::LeftButton);
                    scene->send(QEvent::MouseButtonRelease, cell, Qt::LeftButton, Qt::NoButton);
                    MapScene::settle();
                };
                return Pair{measured, paintOf(scene)};
            }};
}

Row tick(int side)
{
    return {"tick of the frame clock", inputOf(side), 0.25, [side] {
                const auto scene = std::make_shared<MapScene>(side);
                const Work measured = [scene] { scene->view.animator().tick(); };
                return Pair{measured, paintOf(scene)};
            }};
}

Row tickAndPaint(int side)
{
    return {"tick with its repaint", inputOf(side), Bench::NoBudget, [side] {
                const auto scene = std::make_shared<MapScene>(side);
                const Work measured = [scene] {
                    scene->view.animator().tick();
                    MapScene::settle();
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
