#include "dialogs/ExportMapDialog.h"
#include "mapeditor/MapToolPalette.h"
#include "model/Image.h"
#include "model/Palette.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/ProjectDifferences.h"
#include "tour/MapDesk.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QTimer>

using Tool = MapDesk::Tool;

namespace {

const QString Shown = QStringLiteral("level-shown.png");

/// Saves the map's tiles as the window shows them, one screen pixel for each of theirs.
void saveShown(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    desk.setField(QStringLiteral("Transparency"), -1);
    for (const QString &layer : {QStringLiteral("Objects"), QStringLiteral("Sprites")})
        desk.toggleLayer(layer);
    while (desk.grid().zoomLevel() > 1)
        desk.press(Tool::ZoomOut);
    desk.leave();
    const QRect cells = desk.grid().cellGeometry().gridRect;
    tour.check(cells.size() == desk.map().tileLayer()->size() * 8 &&
                   desk.grid().grab(cells).save(tour.folder().filePath(Shown)),
               QStringLiteral("the whole map is on the screen"));
    for (int level = 1; level < 4; ++level)
        desk.press(Tool::ZoomIn);
    for (const QString &layer : {QStringLiteral("Objects"), QStringLiteral("Sprites")})
        desk.toggleLayer(layer);
    desk.setField(QStringLiteral("Transparency"), 0);
}

void exportAll(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.chooseInPopup(QStringLiteral("Export Map Data"),
                       [&desk] { desk.pressButton(QStringLiteral("Map actions")); });
    auto *const dialog = tour.dialog<ExportMapDialog>();
    if (!dialog)
        return;
    DialogDriver::pressOk(*dialog);
    tour.check(dialog->isVisible(), QStringLiteral("wants something to export"));
    tour.pictures(QStringLiteral("map-17-export"), dialog);
    for (auto *const box : dialog->findChildren<QCheckBox *>())
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    QTimer::singleShot(0, dialog, [&tour] { tour.chooseFile(tour.folder().absolutePath()); });
    DialogDriver::pressOk(*dialog);
    tour.check(!dialog->isVisible(), QStringLiteral("asks for a folder"));
}

/// What the independent reader is to rebuild from the three files.
QJsonObject expected(const Map &map)
{
    QJsonArray blank;
    for (int y = 0; y < map.tileLayer()->height(); ++y) {
        for (int x = 0; x < map.tileLayer()->width(); ++x) {
            if (!map.tileLayer()->cell({x, y}).occupied)
                blank.append(QJsonArray{x, y});
        }
    }
    return {{"map", map.name() + QStringLiteral("_tilemap.bin")},
            {"tiles", map.tileSet()->name() + QStringLiteral("_tiles.nxt")},
            {"palette", map.tileSet()->palette()->name() + QStringLiteral("_palette.bin")},
            {"columns", map.tileLayer()->width()},
            {"picture", Shown},
            {"blank", blank}};
}

void openAgain(WindowTour &tour, const QUuid &id)
{
    tour.setSubject(QStringLiteral("File"));
    FileMenu *const menu = tour.views().menuBar->fileMenu();
    const Map::State state = tour.project()->map(id)->state();
    QList<QUuid> tabs = tour.views().tabs->documentIds();
    tabs.removeIf([&tour](const QUuid &tab) { return tour.project()->image(tab) != nullptr; });
    tour.choose(menu, QStringLiteral("Save"));
    ProjectStore other;
    if (!tour.check(other.load(tour.projectFile()), QStringLiteral("saves")))
        return;
    // What was read again starts on the first frame of each placed block.
    QStringList differences = ProjectDifferences::between(*other.project(), *tour.project());
    differences.removeOne(QStringLiteral("object layer"));
    tour.check(differences.isEmpty(),
               QStringLiteral("all that there is ") + differences.join(u' '));
    tour.choose(menu, QStringLiteral("Close"));
    tour.choose(menu->findChild<QMenu *>(), QStringLiteral("window.tessaril"));
    if (!tour.check(tour.project() && tour.project()->map(id), QStringLiteral("opens it again")))
        return;
    const Map::State loaded = tour.project()->map(id)->state();
    tour.check(loaded.tileRows == state.tileRows && loaded.animations == state.animations &&
                   loaded.sprites == state.sprites,
               QStringLiteral("with its cells, blocks and sprites"));
    tour.check(tour.views().tabs->documentIds() == tabs,
               QStringLiteral("with all tabs but images"));
    MapDesk desk(tour, id);
    desk.checkLooks(QStringLiteral("and looks as before"));
    tour.pictures(QStringLiteral("map-18-again"));
}

} // namespace

void mapFileChapter(WindowTour &tour, const QString &reader)
{
    tour.tour().beginChapter(QStringLiteral("The level is exported, saved and opened again"));
    const QPointer<Map> map = levelMap(tour);
    if (!map)
        return;
    MapDesk desk(tour, map->id());
    tour.setSubject(QStringLiteral("export"));
    saveShown(desk);
    exportAll(desk);
    readBack(tour.tour(), reader, tour.folder(), {{"shown", QJsonArray{expected(*map)}}});
    openAgain(tour, map->id());
}
