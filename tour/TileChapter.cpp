#include "colour/ColourSelector.h"
#include "editors/TilePickerGrid.h"
#include "formats/FileBytes.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "tour/AnimationDesk.h"
#include "tour/PaintDesk.h"
#include "uikit/CheckList.h"
#include "uikit/Expandable.h"
#include "uikit/ToolPalette.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QProcess>
#include <QSpinBox>
#include <QToolButton>
#include <QUndoStack>

namespace {

constexpr int StatusHeight = 20; // pixels
constexpr int InkCell = 5;       // of a bank's colours
constexpr int Edited = 12;       // the tile that is drawn in, counted from 0

/// The docks of tiles over a set that a map uses, with all that must come back.
struct Bench
{
    WindowTour &tour;
    QPointer<TileSet> tiles;
    QPointer<Map> map;
    MapEditor::View *view;
    TileSet::State tilesBefore = tiles->state();
    Map::State mapBefore = map->state();

    TilePickerGrid *picker() const { return tour.views().tilePicker->grid(); }
    TileWindow *editor() const { return tour.views().tileWindow; }
    /// What the window shows of the map, without the line that tells how long the paint took.
    QImage look() const
    {
        QApplication::processEvents();
        const QWidget *const grid = view->grid();
        return view->grid()->grab(grid->rect().adjusted(0, StatusHeight, 0, 0)).toImage();
    }
    bool isAsBefore() const { return tiles->state() == tilesBefore && map->state() == mapBefore; }
};

void undoAll(const Bench &bench, QUndoStack *stack, int steps)
{
    const QImage look = bench.look();
    WindowTour &tour = bench.tour;
    tour.check(stack->index() == steps,
               QStringLiteral("all of it in %1 steps").arg(stack->index()));
    while (stack->canUndo() && tour.undo()) {
    }
    tour.check(bench.isAsBefore(), QStringLiteral("undone, tiles and cells are as before"));
    while (stack->canRedo() && tour.redo()) {
    }
    tour.check(bench.look() == look, QStringLiteral("done again, the map looks the same"));
    while (stack->canUndo() && tour.undo()) {
    }
    tour.check(bench.isAsBefore(), QStringLiteral("and undone again"));
}

void dragTile(const Bench &bench, int from, int to, Qt::KeyboardModifiers modifiers,
              const QString &pictureName = {})
{
    TilePickerGrid *const picker = bench.picker();
    const auto data = dragOff(picker, picker->cellRect(from).center());
    if (!bench.tour.check(data != nullptr, QStringLiteral("a tile can be dragged")))
        return;
    const QPoint target = picker->cellRect(to).center();
    if (!pictureName.isEmpty()) {
        DragEvents::enter(picker, target, data.get());
        DragEvents::move(picker, target, data.get());
        bench.tour.picture(pictureName);
    }
    bench.tour.check(DragEvents::drop(picker, target, data.get(), modifiers),
                     QStringLiteral("and dropped"));
}

void moveAndCopy(const Bench &bench)
{
    WindowTour &tour = bench.tour;
    tour.setSubject(QStringLiteral("picker"));
    tour.views().tabs->setCurrentIndex(0);
    tour.views().tabs->setCurrentWidget(bench.view); // undo is that of the map
    QUndoStack *const stack = tour.window().documentController()->undoStack(bench.map->id());
    stack->clear();
    const QImage look = bench.look();
    const auto at = [&bench](int index) { return bench.tiles->state().at(index); };
    const auto before = [&bench](int index) { return bench.tilesBefore.at(index); };

    dragTile(bench, 5, 20, Qt::NoModifier, QStringLiteral("painting-tile-1-drag"));
    tour.check(at(20) == before(5) && at(5) == before(6) && at(19) == before(20) &&
                   at(21) == before(21),
               QStringLiteral("a dragged tile moves, those between close up"));
    tour.check(bench.map->state() != bench.mapBefore && bench.look() == look,
               QStringLiteral("and the map looks as before"));
    dragTile(bench, 30, 2, Qt::NoModifier);
    tour.check(at(2) == before(30) && bench.look() == look, QStringLiteral("back to front, too"));
    dragTile(bench, 2, 40, Qt::ShiftModifier);
    tour.check(at(40).image == at(2).image && at(40).offset == at(2).offset && at(2) == before(30),
               QStringLiteral("Shift copies"));
    undoAll(bench, stack, 3);
}

void chooseAt(const Bench &bench, int index, const QString &entry)
{
    TilePickerGrid *const picker = bench.picker();
    const bool done = bench.tour.chooseInPopup(entry, [picker, index] {
        QTest::mouseClick(picker, Qt::RightButton, {}, picker->cellRect(index).center());
    });
    bench.tour.check(done, QStringLiteral("has %1 in its menu").arg(entry));
}

/// Inserts and deletes tiles, with the undo of the tile editor.
void changeStructure(const Bench &bench)
{
    WindowTour &tour = bench.tour;
    tour.setSubject(QStringLiteral("picker"));
    const int count = bench.tiles->count();
    const QImage look = bench.look();
    chooseAt(bench, 4, QStringLiteral("Insert"));
    tour.check(bench.tiles->count() == count + 1 &&
                   bench.tiles->state().at(5) == bench.tilesBefore.at(4) && bench.look() == look,
               QStringLiteral("an inserted tile leaves the map as it looks"));
    chooseAt(bench, 4, QStringLiteral("Delete"));
    tour.check(bench.tiles->state() == bench.tilesBefore && bench.look() == look,
               QStringLiteral("and so does deleting it"));
    chooseAt(bench, 1, QStringLiteral("Delete"));
    tour.check(bench.tiles->count() == count - 1 && bench.look() != look,
               QStringLiteral("a tile that the map shows is gone from it"));
    tour.undo();
    tour.check(bench.isAsBefore() && bench.look() == look, QStringLiteral("until it is undone"));
    tour.redo();
    chooseAt(bench, 8, QStringLiteral("Copy Image"));
    chooseAt(bench, 9, QStringLiteral("Paste Image"));
    tour.check(bench.tiles->tile(9)->image() == bench.tiles->tile(8)->image(),
               QStringLiteral("an image is copied by the menu"));
}

PaintDesk deskOf(const Bench &bench, QUndoStack *stack)
{
    return {bench.tour, bench.editor()->findChild<Canvas *>(),
            bench.editor()->findChild<ToolPalette *>(), stack};
}

void drawTile(const Bench &bench, QUndoStack *stack)
{
    WindowTour &tour = bench.tour;
    TilePickerGrid *const picker = bench.picker();
    QTest::mouseDClick(picker, Qt::LeftButton, {}, picker->cellRect(Edited).center());
    tour.setSubject(QStringLiteral("tile"));
    tour.check(bench.editor()->tileNumber() == Edited + 1,
               QStringLiteral("opens by a double click"));
    PaintDesk desk = deskOf(bench, stack);
    const QImage look = bench.look();
    tour.check(desk.canvas().zoomLevel() == 32 && desk.looksRight(),
               QStringLiteral("shows in the canvas"));
    auto *const offset =
        DialogDriver::field<QSpinBox>(*bench.editor(), QStringLiteral("Palette Offset"));
    const int offsetBefore = bench.tiles->tile(Edited)->offset();
    QTest::keyClick(offset, offsetBefore < 15 ? Qt::Key_Up : Qt::Key_Down);
    tour.check(bench.tiles->tile(Edited)->offset() != offsetBefore && desk.looksRight(),
               QStringLiteral("takes another palette offset"));

    auto *const colours = bench.editor()->findChild<ColourSelector *>();
    QTest::mouseClick(colours, Qt::LeftButton, {}, colours->grid().rectOf(InkCell).center());
    desk.choose(PaintDesk::Tool::Line);
    desk.step(QStringLiteral("Line"), {0, 0, 8, 8}, [&desk] { desk.drag({0, 0}, {7, 5}); });
    desk.step(QStringLiteral("Rotate"), {0, 0, 8, 8},
              [&desk] { desk.choose(PaintDesk::Tool::RotateCW); });
    desk.step(QStringLiteral("Scroll"), {0, 0, 8, 8},
              [&desk] { desk.choose(PaintDesk::Tool::MoveLeft); });
    desk.choose(PaintDesk::Tool::Draw);
    tour.check(bench.look() != look, QStringLiteral("drawn in, changes the map"));
}

/// Clicks the box of an attribute in the open sheet.
void clickBox(const Bench &bench, int attribute)
{
    for (auto *const box : bench.editor()->findChildren<QCheckBox *>()) {
        if (box->property("attribute").toInt() == attribute)
            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    }
}

void openSection(const Bench &bench, const QString &title)
{
    for (auto *const section : bench.editor()->findChildren<Expandable *>()) {
        if (section->title() == title && !section->isExpanded())
            QTest::mouseClick(section->header(), Qt::LeftButton);
    }
}

void setAttributes(const Bench &bench)
{
    WindowTour &tour = bench.tour;
    tour.setSubject(QStringLiteral("attributes"));
    openSection(bench, QStringLiteral("Attributes"));
    clickBox(bench, Tile::TA_DEADLY);
    clickBox(bench, Tile::TA_DOOR);
    auto *const edges = bench.editor()->findChild<CheckList *>();
    QTest::mouseClick(edges, Qt::LeftButton, {}, {8, edges->height() / 2});
    QTest::keyClick(edges->view(), Qt::Key_Space);
    tour.picture(QStringLiteral("painting-tile-2-edges"), edges->view()->window());
    QTest::keyClick(edges->view(), Qt::Key_Escape);
    const int number = bench.editor()->tileNumber();
    tour.check(bench.tiles->tile(number - 1)->attributes() ==
                   (Tile::TA_DEADLY | Tile::TA_DOOR | Tile::TA_TOPSOLID),
               QStringLiteral("are those that were clicked"));
    tour.pictures(QStringLiteral("painting-tile-3-attributes"));
}

void editTiles(const Bench &bench)
{
    WindowTour &tour = bench.tour;
    QUndoStack *const stack = tour.window().documentController()->undoStack(bench.tiles->id());
    stack->clear();
    // A click into the canvas makes undo that of the tiles.
    PaintDesk desk = deskOf(bench, stack);
    desk.choose(PaintDesk::Tool::Select);
    desk.click({0, 0});
    desk.choose(PaintDesk::Tool::Draw);
    changeStructure(bench);
    drawTile(bench, stack);
    setAttributes(bench);
    undoAll(bench, stack, 7);
}

bool run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

/// Exports the attributes as text and as bytes, and has a real assembler read the text.
void exportAttributes(const Bench &bench)
{
    WindowTour &tour = bench.tour;
    bench.editor()->setTileIndex(Edited + 1);
    setAttributes(bench);
    tour.setSubject(QStringLiteral("attributes"));
    const QDir folder = tour.folder();
    for (const QString &name :
         {QStringLiteral("attributes.asm"), QStringLiteral("attributes.bin")}) {
        tour.choose(tour.views().menuBar->tileMenu(), QStringLiteral("Export Attributes"));
        tour.chooseFile(folder.filePath(name));
        tour.activate();
    }
    QByteArray expected;
    for (const Tile *const tile : bench.tiles->tiles())
        expected.append(static_cast<char>(tile->attributes()));
    const auto bytes = FileBytes::read(folder.filePath(QStringLiteral("attributes.bin")));
    tour.check(bytes == expected && expected.count('\0') < expected.size(),
               QStringLiteral("are exported as bytes"));

    const QString object = folder.filePath(QStringLiteral("attributes.o"));
    const QString rom = folder.filePath(QStringLiteral("attributes.rom"));
    tour.check(
        run(QStringLiteral("z80-unknown-coff-as"),
            {QStringLiteral("-o"), object, folder.filePath(QStringLiteral("attributes.asm"))}) &&
            run(QStringLiteral("z80-unknown-coff-objcopy"),
                {QStringLiteral("-O"), QStringLiteral("binary"), QStringLiteral("-j"),
                 QStringLiteral(".text"), object, rom}),
        QStringLiteral("and as text that an assembler takes"));
    tour.check(FileBytes::read(rom) == expected, QStringLiteral("and makes the same bytes of"));
}

} // namespace

void tileChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Tiles are moved, drawn and described"));
    tour.setSubject(QStringLiteral("tiles"));
    const QPointer<Map> map = tour.project() ? tour.project()->maps().value(0) : nullptr;
    if (!tour.check(map && map->tileSet(), QStringLiteral("a map uses some")))
        return;
    openInTree(tour, map->id());
    auto *const view =
        qobject_cast<MapEditor::View *>(tour.views().tabs->documentWidget(map->id()));
    if (!tour.check(view && tour.views().tilePicker->tileSet() == map->tileSet(),
                    QStringLiteral("its picker shows them")))
        return;

    const Bench bench{tour, map->tileSet(), map, view};
    moveAndCopy(bench);
    editTiles(bench);
    exportAttributes(bench);
}
