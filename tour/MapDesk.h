#pragma once

#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "tour/WindowTour.h"

#include <QMap>
#include <QPointer>

#include <functional>

class QListWidget;
class QSpinBox;
class QUndoStack;

/// The hands and eyes of a level designer on the tab of one map.
///
/// Positions are cells or map pixels, and every gesture is one of real events on shown widgets.
class MapDesk
{
public:
    using Tool = Tessaril::Ui::ToolButton;
    using Edit = std::function<void()>;

    /// Brings the tab of the map to the front, or opens it.
    MapDesk(WindowTour &tour, const QUuid &mapId);

    WindowTour &tour() { return m_tour; }
    Map &map() { return *m_map; }
    MapEditor::View &view() { return *m_view; }
    MapEditor::MapGrid &grid() { return *m_view->grid(); }
    QUndoStack &stack();
    TileMap::TileData cell(QPoint cell) const { return m_map->tileLayer()->cell(cell); }

    /// Widget points of the grid: the middle of a cell, and of a map pixel.
    QPoint cellPoint(QPoint cell);
    QPoint pixelPoint(QPoint mapPixel);

    void moveTo(QPoint point);
    void hover(QPoint cell) { moveTo(cellPoint(cell)); }
    void leave();
    void click(QPoint cell, Qt::MouseButton button = Qt::LeftButton);
    void clickPixel(QPoint mapPixel);
    /// From the middle of one cell to that of another, through those between.
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {});
    void dragPixels(QPoint from, QPoint to);
    void wheel(int notches, Qt::KeyboardModifiers modifiers = {});
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    /// Presses a button of the tool palette.
    void press(Tool tool);
    bool isPressed(Tool tool);
    /// Picks a tile in the dock of tiles.
    void pickTile(int index);
    /// Selects by the mouse, then chooses an entry of the context menu.
    void select(QPoint from, QPoint to);
    void chooseAt(QPoint cell, const QString &entry);
    /// Presses a button with that accessible name in the view.
    void pressButton(const QString &name);
    /// Types a value into a field of the map's tool bar.
    void setField(const QString &name, int value);
    void toggleLayer(const QString &name);

    /// Does @p edit, which must be one undo step named @p text, undoes it and does it again. The
    /// whole project and the map are compared each time, and then what the grid shows.
    bool step(const QString &text, const QString &what, const Edit &edit);
    /// Does what must not be an undo step, nor change anything in the project.
    bool changesNothing(const QString &what, const Edit &edit);
    /// Whether each pixel of the map on the screen is as it must be. Outlines are left out.
    bool looksRight();
    bool checkLooks(const QString &what) { return m_tour.check(looksRight(), what); }

private:
    struct Content
    {
        QMap<QString, QByteArray> entries;
        Map::State state;

        bool operator==(const Content &) const = default;
    };

    Content content();
    bool isCovered(QPoint point);

    WindowTour &m_tour;
    QPointer<Map> m_map;
    QPointer<MapEditor::View> m_view;
    Qt::MouseButtons m_held; // during a drag
};

/// Clicks the item in row @p row of a list in a dock.
void clickRow(QListWidget *list, int row);
/// Types a value into a field and goes on to the next.
void typeValue(QSpinBox *field, int value);

/// The map that the chapters work on; null if it is not there.
QPointer<Map> levelMap(WindowTour &tour);

/// The chapters on a map; each goes on with the project of the one before.
void mapDrawChapter(WindowTour &tour);
void mapSizeChapter(WindowTour &tour);
void mapSpriteChapter(WindowTour &tour);
void mapBlockChapter(WindowTour &tour);
void mapViewChapter(WindowTour &tour);
void mapFileChapter(WindowTour &tour, const QString &reader);
