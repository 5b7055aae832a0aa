#include "mapeditor/MapToolPalette.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "tour/MapDesk.h"
#include "tour/MapPicture.h"

#include <QClipboard>
#include <QPainter>
#include <QUndoStack>

using Tool = MapDesk::Tool;

namespace {

/// The first tile after @p last that looks different each way it is turned; -1 if there is none.
int unevenTile(const TileSet &tiles, int last)
{
    for (int index = last + 1; index < tiles.count(); ++index) {
        QList<QImage> turns;
        for (int turn = 0; turn < 8; ++turn) {
            const QImage image = tiles.tileImage(index, turn & 4, turn & 1, turn & 2, 0);
            if (!turns.contains(image))
                turns.append(image);
        }
        if (turns.size() == 8)
            return index;
    }
    return -1;
}

/// Draws with both tiles, turned each way, and takes some away.
void draw(MapDesk &desk, int tile, int other)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("draw"));
    desk.pickTile(tile);
    tour.check(desk.grid().currentTile() == tile, QStringLiteral("a tile is picked in its dock"));
    desk.step(QStringLiteral("Paint"), QStringLiteral("a stroke"), [&desk] {
        desk.drag({2, 2}, {12, 2});
    });
    tour.check(desk.cell({7, 2}).index == tile, QStringLiteral("the stroke has the tile"));
    desk.step(QStringLiteral("Paint"), QStringLiteral("a slanting stroke"), [&desk] {
        desk.drag({14, 3}, {20, 9});
    });
    desk.changesNothing(QStringLiteral("the same stroke again changes nothing"), [&desk] {
        desk.drag({14, 3}, {20, 9});
    });

    desk.pickTile(other);
    for (int turn = 1; turn < 8; ++turn) {
        const bool rotate = turn & 4;
        const bool flip = turn & 1;
        const bool mirror = turn & 2;
        if (rotate != desk.isPressed(Tool::RotateCW))
            desk.key(Qt::Key_R, Qt::ControlModifier);
        if (flip != desk.isPressed(Tool::Flip))
            desk.key(Qt::Key_F, Qt::ShiftModifier);
        if (mirror != desk.isPressed(Tool::Mirror))
            desk.press(Tool::Mirror);
        const QPoint at(2 + 2 * turn, 4);
        desk.step(QStringLiteral("Paint"), QStringLiteral("turn %1").arg(turn),
                  [&desk, at] { desk.click(at); });
        const TileMap::TileData cell = desk.cell(at);
        tour.check(cell.index == other && cell.rotate == rotate && cell.flip == flip &&
                       cell.mirror == mirror && cell.occupied,
                   QStringLiteral("turn %1 is in the cell").arg(turn));
    }
    desk.hover({5, 6});
    tour.pictures(QStringLiteral("map-02-drawn"));
    desk.step(QStringLiteral("Paint"), QStringLiteral("a stroke of the right button"), [&desk] {
        desk.drag({4, 2}, {6, 2}, Qt::RightButton);
    });
    tour.check(!desk.cell({5, 2}).occupied, QStringLiteral("which erases"));
}

/// Picks cells from the map, by the middle button and by the tool.
void pick(MapDesk &desk, int tile, int other)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("pick"));
    desk.changesNothing(QStringLiteral("is no step"), [&desk] {
        desk.press(Tool::Draw);
        desk.click({2, 2}, Qt::MiddleButton);
    });
    tour.check(desk.grid().currentTile() == tile && !desk.isPressed(Tool::RotateCW) &&
                   !desk.isPressed(Tool::Flip) && !desk.isPressed(Tool::Mirror) &&
                   desk.isPressed(Tool::Draw),
               QStringLiteral("the middle button takes a plain tile"));
    desk.key(Qt::Key_P);
    tour.check(desk.isPressed(Tool::Pick), QStringLiteral("P takes the pick tool"));
    desk.click({2 + 2 * 6, 4});
    tour.check(desk.grid().currentTile() == other && desk.isPressed(Tool::RotateCW) &&
                   !desk.isPressed(Tool::Flip) && desk.isPressed(Tool::Mirror),
               QStringLiteral("which takes a turned tile"));
    tour.check(desk.isPressed(Tool::Draw), QStringLiteral("and goes back to drawing"));
    for (const Tool turn : {Tool::RotateCW, Tool::Mirror})
        desk.press(turn);
}

/// Whether the cells of @p size at both places are the same.
bool areAlike(MapDesk &desk, QPoint first, QPoint second, QSize size)
{
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (desk.cell(first + QPoint(x, y)) != desk.cell(second + QPoint(x, y)))
                return false;
        }
    }
    return true;
}

void copyAndPaste(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    const EditMenu *const menu = tour.views().menuBar->editMenu();
    tour.setSubject(QStringLiteral("selection"));
    desk.changesNothing(QStringLiteral("selecting and copying is no step"), [&] {
        desk.key(Qt::Key_S);
        desk.drag({4, 2}, {8, 4});
        tour.check(desk.grid().selection() == QRect(4, 2, 5, 3),
                   QStringLiteral("is what was dragged over"));
        tour.pictures(QStringLiteral("map-03-selection"));
        tour.choose(menu, QStringLiteral("Copy"));
        tour.choose(menu, QStringLiteral("Paste"));
    });
    tour.check(desk.grid().mode() == Tool::Paste, QStringLiteral("Paste floats the block"));
    desk.step(QStringLiteral("Paste"), QStringLiteral("a click puts it down"), [&desk] {
        desk.click({10, 13});
    });
    tour.check(areAlike(desk, {4, 2}, {8, 12}, {5, 3}), QStringLiteral("the block is there"));
    desk.step(QStringLiteral("Paste"), QStringLiteral("another click, another block"), [&desk] {
        desk.click({0, 0});
    });
    desk.hover({9, 8});
    tour.picture(QStringLiteral("map-04-paste"));
    desk.key(Qt::Key_Escape);
    tour.check(desk.grid().mode() == Tool::Draw, QStringLiteral("Escape goes back to drawing"));
}

/// The entries of the context menu.
void useMenu(MapDesk &desk, int tile)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("menu"));
    const auto blank =
        TileMap::TileData{.offset = desk.map().tileSet()->tileOffset(0), .occupied = true};
    desk.step(QStringLiteral("Cut"), QStringLiteral("Cut"), [&desk] {
        desk.select({8, 12}, {12, 14});
        desk.chooseAt({9, 13}, QStringLiteral("Cut"));
    });
    tour.check(desk.cell({8, 12}) == blank && desk.cell({12, 14}) == blank,
               QStringLiteral("leaves tile 0"));
    desk.pickTile(tile);
    desk.press(Tool::Flip);
    desk.step(QStringLiteral("Fill"), QStringLiteral("Fill"), [&desk] {
        desk.select({11, 14}, {15, 18});
        desk.chooseAt({12, 15}, QStringLiteral("Fill"));
    });
    tour.check(desk.cell({11, 14}).index == tile && desk.cell({15, 18}).flip &&
                   desk.cell({16, 18}).index != tile,
               QStringLiteral("takes the tile as it is turned"));
    desk.press(Tool::Flip);
    desk.step(QStringLiteral("Clear"), QStringLiteral("Delete"), [&desk] {
        desk.select({13, 15}, {14, 16});
        desk.key(Qt::Key_Delete);
    });
    tour.check(desk.cell({13, 15}) == blank && desk.cell({15, 15}).index == tile,
               QStringLiteral("clears the selection"));
    desk.changesNothing(QStringLiteral("Copy as Image is no step"), [&desk] {
        desk.select({4, 2}, {8, 4});
        desk.chooseAt({5, 3}, QStringLiteral("Copy as Image"));
    });
    const QImage image = QApplication::clipboard()->image();
    QImage shown(image.size(), QImage::Format_ARGB32);
    shown.fill(Qt::black);
    QPainter(&shown).drawImage(0, 0, image);
    const QImage whole = MapPicture::drawn(desk.map(), {}, 0, {});
    tour.check(shown == whole.copy(32, 16, 40, 24), QStringLiteral("and takes each pixel"));
    tour.check(image.text(QStringLiteral("paletteid")) ==
                   desk.map().tileSet()->paletteId().toString(),
               QStringLiteral("and names the palette"));
}

/// Copies a selection to a map of its own, and comes back.
void copyToMap(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("new map"));
    const auto mapCount = tour.project()->maps().size();
    desk.select({2, 2}, {15, 5});
    desk.chooseAt({4, 4}, QStringLiteral("Copy to new map"));
    const auto *const view = qobject_cast<MapEditor::View *>(tour.views().tabs->currentWidget());
    if (!tour.check(tour.project()->maps().size() == mapCount + 1 && view &&
                        view->map() != &desk.map(),
                    QStringLiteral("shows in a tab of its own")))
        return;
    const Map &part = *view->map();
    bool isAlike = part.tileLayer()->size() == QSize(14, 4);
    for (int x = 0; isAlike && x < 14; ++x)
        isAlike = part.tileLayer()->cell({x, 2}) == desk.cell({x + 2, 4});
    tour.check(isAlike && part.name() == desk.map().name() + QStringLiteral(" Part"),
               QStringLiteral("has the cells and a name of both"));
    MapDesk partDesk(tour, part.id());
    partDesk.checkLooks(QStringLiteral("and looks so"));
    tour.picture(QStringLiteral("map-05-part"));
    tour.window().documentController()->setActiveMap(desk.map().id());
    tour.check(tour.views().tabs->currentWidget() == &desk.view(),
               QStringLiteral("the first map comes back"));
    QApplication::processEvents();
    desk.key(Qt::Key_D);
}

/// With a snap of two cells a stroke sets each second one.
void snap(MapDesk &desk, int tile)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("snap"));
    desk.pickTile(tile);
    desk.setField(QStringLiteral("Snap"), 2);
    desk.step(QStringLiteral("Paint"), QStringLiteral("a stroke"), [&desk] {
        desk.drag({2, 18}, {9, 18});
    });
    bool isEverySecond = true;
    for (int x = 2; x < 10; ++x)
        isEverySecond &= (desk.cell({x, 18}).index == tile) == (x % 2 == 0);
    tour.check(isEverySecond, QStringLiteral("sets each second cell"));
    desk.setField(QStringLiteral("Snap"), 1);
}

/// Goes back to the first step and forward to the last.
void wayBack(MapDesk &desk, const Map::State &first)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("undo"));
    const Map::State last = desk.map().state();
    const int steps = desk.stack().count();
    while (desk.stack().canUndo())
        tour.undo();
    tour.check(desk.map().state() == first && desk.looksRight(),
               QStringLiteral("takes all %1 steps back").arg(steps));
    while (desk.stack().canRedo())
        tour.redo();
    tour.check(desk.map().state() == last && desk.looksRight(),
               QStringLiteral("and redo does them again"));
}

} // namespace

void mapDrawChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("A level is drawn"));
    tour.setSubject(QStringLiteral("map"));
    const QPointer<Map> map = levelMap(tour);
    if (!tour.check(map && map->tileSet(), QStringLiteral("is there")))
        return;
    const int tile = unevenTile(*map->tileSet(), 0);
    const int other = unevenTile(*map->tileSet(), tile);
    if (!tour.check(tile > 0 && other > 0, QStringLiteral("has tiles that show their turns")))
        return;

    MapDesk desk(tour, map->id());
    tour.picture(QStringLiteral("map-01-open"));
    desk.checkLooks(QStringLiteral("shows its cells"));
    desk.setField(QStringLiteral("Transparency"), 0);
    desk.checkLooks(QStringLiteral("shows what is not transparent"));
    const Map::State first = map->state();
    draw(desk, tile, other);
    pick(desk, tile, other);
    copyAndPaste(desk);
    useMenu(desk, tile);
    copyToMap(desk);
    snap(desk, other);
    wayBack(desk, first);
}
