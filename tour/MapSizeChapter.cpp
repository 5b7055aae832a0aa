#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapToolPalette.h"
#include "support/DialogDriver.h"
#include "tour/MapDesk.h"

#include <QLabel>
#include <QSpinBox>
#include <QToolButton>
#include <QUndoStack>

using Tool = MapDesk::Tool;

namespace {

/// A button at the end of a scroll bar, and what it does to the map.
struct SizeButton
{
    QString name;
    QString step;
    QSize growth;
    QPoint shift; ///< of what was there, in cells
};

QList<SizeButton> sizeButtons()
{
    const auto addRows = QStringLiteral("Add Rows");
    const auto removeRows = QStringLiteral("Remove Rows");
    const auto addColumns = QStringLiteral("Add Columns");
    const auto removeColumns = QStringLiteral("Remove Columns");
    return {{"Add a row at the top", addRows, {0, 1}, {0, 1}},
            {"Add a row at the bottom", addRows, {0, 1}, {0, 0}},
            {"Add a column at the left", addColumns, {1, 0}, {1, 0}},
            {"Add a column at the right", addColumns, {1, 0}, {0, 0}},
            {"Remove the bottom row", removeRows, {0, -1}, {0, 0}},
            {"Remove the top row", removeRows, {0, -1}, {0, -1}},
            {"Remove the rightmost column", removeColumns, {-1, 0}, {0, 0}},
            {"Remove the leftmost column", removeColumns, {-1, 0}, {-1, 0}}};
}

/// Where the old content goes on each axis for the nine anchors: 0 stays, 1 halfway, 2 all the way.
struct Anchor
{
    QString name;
    QPoint part;
};

QList<Anchor> anchors()
{
    return {{"Top left", {0, 0}},    {"Top", {1, 0}},    {"Top right", {2, 0}},
            {"Left", {0, 1}},        {"Centre", {1, 1}}, {"Right", {2, 1}},
            {"Bottom left", {0, 2}}, {"Bottom", {1, 2}}, {"Bottom right", {2, 2}}};
}

/// Whether @p after is @p before moved by @p shift cells, with blank cells where nothing came.
bool isMoved(const Map::State &before, const Map::State &after, QSize size, QPoint shift)
{
    if (after.tileRows.size() != size.height() || after.tileRows.first().size() != size.width())
        return false;
    const QRect old(0, 0, int(before.tileRows.first().size()), int(before.tileRows.size()));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QPoint from = QPoint(x, y) - shift;
            const auto cell = old.contains(from) ? before.tileRows.at(from.y()).at(from.x())
                                                 : TileMap::TileData();
            if (after.tileRows.at(y).at(x) != cell)
                return false;
        }
    }
    for (qsizetype i = 0; i < after.sprites.size(); ++i) {
        if (after.sprites.at(i).x != before.sprites.at(i).x + 8 * shift.x() ||
            after.sprites.at(i).y != before.sprites.at(i).y + 8 * shift.y())
            return false;
    }
    return after.sprites.size() == before.sprites.size() && !after.animations.isEmpty() &&
           after.animations.first().rect == before.animations.first().rect.translated(shift);
}

bool tellsSize(WindowTour &tour, QSize size)
{
    const QString text = QStringLiteral("%1x%2 (%3 bytes)")
                             .arg(size.width())
                             .arg(size.height())
                             .arg(size.width() * size.height() * 2);
    return DialogDriver::button<QLabel>(*tour.views().mapToolBar, text) != nullptr;
}

void useButtons(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("rows, columns"));
    for (const SizeButton &button : sizeButtons()) {
        const Map::State before = desk.map().state();
        const QSize size = desk.map().tileLayer()->size() + button.growth;
        desk.step(button.step, button.name, [&] { desk.pressButton(button.name); });
        tour.check(isMoved(before, desk.map().state(), size, button.shift),
                   QStringLiteral("all else has moved along"));
        tour.check(tellsSize(tour, size), QStringLiteral("the tool bar tells the size"));
    }
}

/// Resizes through the dialog.
void resize(MapDesk &desk, const QString &anchor, QSize size, const QString &picture)
{
    WindowTour &tour = desk.tour();
    tour.chooseInPopup(QStringLiteral("Resize Map"),
                       [&desk] { desk.pressButton(QStringLiteral("Map actions")); });
    ResizeMapDialog *const dialog = desk.view().resizeDialog();
    if (!tour.check(dialog->isVisible(), QStringLiteral("the dialog shows")))
        return;
    QTest::mouseClick(DialogDriver::field<QToolButton>(*dialog, anchor), Qt::LeftButton);
    typeValue(DialogDriver::field<QSpinBox>(*dialog, QStringLiteral("Width")), size.width());
    typeValue(DialogDriver::field<QSpinBox>(*dialog, QStringLiteral("Height")), size.height());
    if (!picture.isEmpty())
        tour.pictures(picture, dialog);
    DialogDriver::pressOk(*dialog);
}

void useAnchors(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("resize"));
    const Map::State before = desk.map().state();
    const QSize old = desk.map().tileLayer()->size();
    for (const Anchor &anchor : anchors()) {
        for (const QSize growth : {QSize(5, 3), QSize(-3, -1)}) {
            const bool grows = growth.width() > 0;
            const QString picture = anchor.name == QStringLiteral("Top right") && grows
                                        ? QStringLiteral("map-10-resize")
                                        : QString();
            desk.step(QStringLiteral("Resize Map"),
                      QStringLiteral("%1, %2").arg(anchor.name).arg(growth.width()),
                      [&] { resize(desk, anchor.name, old + growth, picture); });
            const QPoint shift(growth.width() * anchor.part.x() / 2,
                               growth.height() * anchor.part.y() / 2);
            tour.check(isMoved(before, desk.map().state(), old + growth, shift),
                       QStringLiteral("the content stays at its anchor"));
            tour.undo();
        }
    }
    desk.changesNothing(QStringLiteral("the same size is no step"),
                        [&] { resize(desk, QStringLiteral("Bottom"), old, {}); });
}

} // namespace

void mapSizeChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("The level takes other sizes"));
    const QPointer<Map> map = levelMap(tour);
    if (!map)
        return;
    MapDesk desk(tour, map->id());
    useButtons(desk);
    useAnchors(desk);
}
