#include "tour/MapDesk.h"

#include "editors/TilePickerGrid.h"
#include "mapeditor/MapToolPalette.h"
#include "support/DialogDriver.h"
#include "tour/MapPicture.h"

#include <QContextMenuEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QSpinBox>
#include <QToolButton>
#include <QUndoStack>
#include <QWheelEvent>

using MapEditor::GridGeometry;

namespace {

constexpr int WheelNotch = 120; // eighths of a degree
constexpr int OutlineReach = 4; // pixels that an outline and its handles cover beside its line
const QRect StatusArea(0, 0, 200, 16); // of the grid, where it tells cell and time

} // namespace

void clickRow(QListWidget *list, int row)
{
    QApplication::processEvents(); // lays the items out
    QListWidgetItem *const item = list->item(row);
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

void typeValue(QSpinBox *field, int value)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::number(value));
    QTest::keyClick(field, Qt::Key_Tab);
}

QPointer<Map> levelMap(WindowTour &tour)
{
    if (tour.project()) {
        for (const auto &map : tour.project()->maps()) {
            if (map->name() == QStringLiteral("first level"))
                return map;
        }
    }
    return nullptr;
}

MapDesk::MapDesk(WindowTour &tour, const QUuid &mapId)
    : m_tour(tour)
    , m_map(tour.project()->map(mapId))
{
    tour.window().documentController()->setActiveMap(mapId);
    m_view = qobject_cast<MapEditor::View *>(tour.views().tabs->currentWidget());
    tour.activate();
    m_view->setFocus();
}

QUndoStack &MapDesk::stack()
{
    return *m_tour.window().documentController()->undoStack(m_map->id());
}

QPoint MapDesk::cellPoint(QPoint cell)
{
    return grid().cellGeometry().fromCells({cell, QSize(1, 1)}).center();
}

QPoint MapDesk::pixelPoint(QPoint mapPixel)
{
    const GridGeometry &geometry = grid().cellGeometry();
    const int half = geometry.cellSize / GridGeometry::CellPixels / 2;
    return geometry.fromMapPixel(mapPixel) + QPoint(half, half);
}

void MapDesk::moveTo(QPoint point)
{
    // The cursor's own move would send nothing where it already is.
    QMouseEvent event(QEvent::MouseMove, point, grid().mapToGlobal(point), Qt::NoButton, m_held,
                      Qt::NoModifier);
    QApplication::sendEvent(&grid(), &event);
}

void MapDesk::leave()
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&grid(), &event);
}

void MapDesk::click(QPoint cell, Qt::MouseButton button)
{
    hover(cell);
    QTest::mouseClick(&grid(), button, {}, cellPoint(cell));
}

void MapDesk::clickPixel(QPoint mapPixel)
{
    moveTo(pixelPoint(mapPixel));
    QTest::mouseClick(&grid(), Qt::LeftButton, {}, pixelPoint(mapPixel));
}

void MapDesk::drag(QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    hover(from);
    QTest::mousePress(&grid(), button, modifiers, cellPoint(from));
    m_held = button;
    const QPoint way = to - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    for (int step = 1; step <= steps; ++step)
        hover(from + way * step / steps);
    m_held = Qt::NoButton;
    QTest::mouseRelease(&grid(), button, modifiers, cellPoint(to));
}

void MapDesk::dragPixels(QPoint from, QPoint to)
{
    moveTo(pixelPoint(from));
    QTest::mousePress(&grid(), Qt::LeftButton, {}, pixelPoint(from));
    m_held = Qt::LeftButton;
    for (int step = 1; step <= 8; ++step)
        moveTo(pixelPoint(from + (to - from) * step / 8));
    m_held = Qt::NoButton;
    QTest::mouseRelease(&grid(), Qt::LeftButton, {}, pixelPoint(to));
}

void MapDesk::wheel(int notches, Qt::KeyboardModifiers modifiers)
{
    const QPoint position = grid().rect().center();
    QWheelEvent event(position, grid().mapToGlobal(position), {}, {0, notches * WheelNotch},
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&grid(), &event);
}

void MapDesk::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    m_tour.activate();
    QTest::keyClick(m_view.data(), key, modifiers);
}

void MapDesk::press(Tool tool)
{
    for (auto *const button : m_view->toolPalette()->findChildren<QToolButton *>()) {
        if (button->defaultAction() == m_view->toolPalette()->action(tool))
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

bool MapDesk::isPressed(Tool tool)
{
    return m_view->toolPalette()->action(tool)->isChecked();
}

void MapDesk::pickTile(int index)
{
    TilePickerGrid *const picker = m_tour.views().tilePicker->grid();
    QTest::mouseClick(picker, Qt::LeftButton, {}, picker->cellRect(index).center());
}

void MapDesk::select(QPoint from, QPoint to)
{
    press(Tool::Select);
    drag(from, to);
}

void MapDesk::chooseAt(QPoint cell, const QString &entry)
{
    const bool chosen = m_tour.chooseInPopup(
        entry, [this, cell] { QTest::mouseClick(&grid(), Qt::RightButton, {}, cellPoint(cell)); });
    m_tour.check(chosen, QStringLiteral("%1 is in the menu").arg(entry));
}

void MapDesk::pressButton(const QString &name)
{
    auto *const button = DialogDriver::field<QToolButton>(*m_view, name);
    if (m_tour.check(button, QStringLiteral("%1: there is a button").arg(name)))
        QTest::mouseClick(button, Qt::LeftButton);
}

void MapDesk::setField(const QString &name, int value)
{
    auto *const field = DialogDriver::field<QSpinBox>(*m_tour.views().mapToolBar, name);
    if (m_tour.check(field, QStringLiteral("%1 is in the tool bar").arg(name)))
        typeValue(field, value);
    m_view->setFocus();
}

void MapDesk::toggleLayer(const QString &name)
{
    MapEditor::ToolBar *const bar = m_tour.views().mapToolBar;
    for (QAction *const action : bar->actions()) {
        if (action->text() == name)
            QTest::mouseClick(bar->widgetForAction(action), Qt::LeftButton);
    }
}

MapDesk::Content MapDesk::content()
{
    return {m_tour.project()->archiveEntries(false), m_map->state()};
}

bool MapDesk::step(const QString &text, const QString &what, const Edit &edit)
{
    const Content before = content();
    const int index = stack().index();
    edit();
    const Content after = content();
    const bool isOneStep = after != before && stack().index() == index + 1 &&
                           stack().count() == index + 1 && stack().undoText() == text;
    m_tour.undo();
    const bool isUndone = content() == before && looksRight();
    m_tour.redo();
    const bool isDoneAgain = content() == after && looksRight();
    QString told = what + QStringLiteral(" and back");
    told += isOneStep ? QString() : QStringLiteral(" is no step, but ") + stack().undoText();
    told += isUndone ? QString() : QStringLiteral(" is not undone");
    told += isDoneAgain ? QString() : QStringLiteral(" is not done again");
    return m_tour.check(isOneStep && isUndone && isDoneAgain, told);
}

bool MapDesk::changesNothing(const QString &what, const Edit &edit)
{
    const Content before = content();
    const int index = stack().index();
    edit();
    return m_tour.check(content() == before && stack().index() == index, what);
}

bool MapDesk::isCovered(QPoint point)
{
    const auto isNearLine = [point](const QRect &rect) {
        const QMargins reach(OutlineReach, OutlineReach, OutlineReach, OutlineReach);
        return rect.isValid() && rect.marginsAdded(reach).contains(point) &&
               !rect.marginsRemoved(reach).contains(point);
    };
    const GridGeometry &geometry = grid().cellGeometry();
    const auto onScreen = [&geometry](const QRect &cells) {
        return cells.isValid() ? geometry.fromCells(cells) : QRect();
    };
    return StatusArea.contains(point) || isNearLine(onScreen(grid().selection())) ||
           (grid().mode() == Tool::Paste && isNearLine(onScreen(grid().pasteRect())));
}

bool MapDesk::looksRight()
{
    leave();
    const QImage shown = grid().grab().toImage();
    const GridGeometry &geometry = grid().cellGeometry();
    const QImage expected = MapPicture::drawn(*m_map, m_tour.project()->spriteBanks(),
                                              m_view->animator().ticks(), geometry.scroll);
    int differing = 0;
    const QRect cells = geometry.visibleCells();
    const QRect pixels(cells.topLeft() * GridGeometry::CellPixels,
                       cells.size() * GridGeometry::CellPixels);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QPoint point = pixelPoint({x, y});
            if (!isCovered(point) && shown.pixel(point) != expected.pixel(x, y))
                ++differing;
        }
    }
    if (differing > 0)
        m_tour.tour().tell(QStringLiteral("grid"), QStringLiteral("%1 pixels").arg(differing),
                           QStringLiteral("differ"));
    return differing == 0;
}
