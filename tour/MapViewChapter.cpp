#include "mapeditor/MapToolPalette.h"
#include "model/TileSet.h"
#include "tour/MapDesk.h"

#include <QUndoStack>

using Tool = MapDesk::Tool;

namespace {

const QColor GridLine(0x40, 0x40, 0x40);

void background(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("background"));
    desk.setField(QStringLiteral("Background"), 14);
    desk.checkLooks(QStringLiteral("a tile shows where the map is transparent"));
    desk.key(Qt::Key_Down);
    desk.checkLooks(QStringLiteral("and stays where it is when the map scrolls"));
    desk.key(Qt::Key_Up);
    tour.picture(QStringLiteral("map-11-background"));
    desk.setField(QStringLiteral("Transparency"), 3);
    desk.checkLooks(QStringLiteral("another colour is transparent"));
    desk.setField(QStringLiteral("Transparency"), 0);
    desk.setField(QStringLiteral("Background"), -1);
}

void grid(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("grid"));
    const QRect cells = desk.grid().cellGeometry().gridRect;
    const int side = desk.grid().cellGeometry().cellSize;
    const auto hasLines = [&] {
        desk.leave();
        const QImage shown = desk.grid().grab().toImage();
        const QPoint corner = cells.topLeft() + QPoint(3, 5) * side;
        return shown.pixelColor(corner + QPoint(0, 7)) == GridLine &&
               shown.pixelColor(corner + QPoint(7, 0)) == GridLine;
    };
    const bool hadLines = hasLines();
    desk.key(Qt::Key_G);
    tour.check(!hadLines && hasLines() && desk.map().isGridVisible(),
               QStringLiteral("G shows its lines"));
    desk.checkLooks(QStringLiteral("and leaves the tiles as they are"));
    tour.pictures(QStringLiteral("map-12-grid"));
    desk.press(Tool::Grid);
    tour.check(!hasLines() && !desk.map().isGridVisible(), QStringLiteral("its button hides them"));
}

void zoom(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("zoom"));
    while (desk.grid().zoomLevel() > 1)
        desk.key(Qt::Key_Minus);
    for (int level = 1; level <= 8; ++level) {
        tour.check(desk.grid().zoomLevel() == level &&
                       desk.grid().cellGeometry().cellSize == 8 * level && desk.looksRight(),
                   QStringLiteral("level %1 shows each pixel").arg(level));
        if (level == 1 || level == 8)
            tour.picture(QStringLiteral("map-13-zoom-%1").arg(level));
        desk.key(Qt::Key_Equal);
    }
    desk.wheel(-1, Qt::ControlModifier);
    tour.check(desk.grid().zoomLevel() == 7, QStringLiteral("the wheel with Control takes a step"));
    desk.press(Tool::ExpandToFit);
    tour.check(desk.grid().cellGeometry().visibleCells().size() == desk.map().tileLayer()->size(),
               QStringLiteral("the whole map fits"));
    tour.picture(QStringLiteral("map-14-fit"));
    for (int level = 1; level < 4; ++level)
        desk.press(Tool::ZoomIn);
}

void scroll(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("scroll"));
    for (int step = 0; step < 100; ++step)
        desk.wheel(-1, Qt::ShiftModifier);
    const QRect cells = desk.grid().cellGeometry().visibleCells();
    tour.check(cells.right() == desk.map().tileLayer()->width() - 1 && desk.looksRight(),
               QStringLiteral("the wheel with Shift reaches the last column"));
    while (desk.grid().cellGeometry().scroll.x() > 0)
        desk.key(Qt::Key_Left);
    desk.checkLooks(QStringLiteral("and the arrow key comes back"));
}

void viewport(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("viewport"));
    desk.setField(QStringLiteral("Viewport width"), 12);
    desk.setField(QStringLiteral("Viewport height"), 9);
    desk.press(Tool::ToggleViewport);
    const MapEditor::GridGeometry &geometry = desk.grid().cellGeometry();
    tour.check(geometry.visibleCells().size() == QSize(12, 9) && desk.looksRight(),
               QStringLiteral("shows so many cells"));
    const QPoint off = geometry.gridRect.center() - desk.grid().rect().center();
    tour.check(off.manhattanLength() < 3, QStringLiteral("in the middle"));
    tour.pictures(QStringLiteral("map-15-viewport"));
    desk.press(Tool::ToggleViewport);
    desk.press(Tool::ZoomOut);
    desk.press(Tool::ZoomIn);
    tour.check(geometry.visibleCells().width() > 12 && desk.looksRight(),
               QStringLiteral("is gone with the next zoom"));
}

/// The window as small and as large as people have it.
void sizes(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("window"));
    const QSize before = tour.window().size();
    for (const QSize size : {QSize(800, 600), QSize(1920, 1080)}) {
        tour.window().resize(size);
        QApplication::processEvents();
        desk.hover({3, 3});
        tour.pictures(QStringLiteral("map-16-%1").arg(size.width()));
        desk.checkLooks(QStringLiteral("%1 pixels wide").arg(size.width()));
    }
    tour.window().resize(before);
    QApplication::processEvents();
}

} // namespace

void mapViewChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("The level is looked at"));
    const QPointer<Map> map = levelMap(tour);
    if (!map)
        return;
    MapDesk desk(tour, map->id());
    const Map::State before = map->state();
    const int index = desk.stack().index();
    background(desk);
    grid(desk);
    zoom(desk);
    scroll(desk);
    viewport(desk);
    sizes(desk);
    tour.setSubject(QStringLiteral("map"));
    tour.check(map->state() == before && desk.stack().index() == index,
               QStringLiteral("looking changes nothing"));
}
