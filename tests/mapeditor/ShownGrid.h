#pragma once

#include "mapeditor/MapGrid.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QUndoStack>
#include <QWheelEvent>

#include <memory>

/// A map of 6 by 4 cells, all of tile 1 under an empty object layer, on a shown grid of 400 by 300
/// pixels with cells of 32: its top left cell begins at (104, 86).
struct ShownGrid
{
    static inline const QPoint Corner{104, 86};
    static constexpr int Cell = 32; // pixels

    ShownGrid()
    {
        TileMap::Rows rows(4, QList<TileMap::TileData>(6, TestMaps::cell(1)));
        map->tileLayer()->setTiles(rows);
        map->objectLayer()->fill(map->objectLayer()->rect(), false);
        grid.setUndoStack(&stack);
        grid.resize(400, 300);
        grid.setMap(map.get());
        grid.setTransparencyIndex(0); // without one the empty object layer hides the tiles
        grid.show();
    }

    static QPoint at(int x, int y) { return Corner + QPoint(x, y) * Cell + QPoint(16, 16); }

    void press(QPoint position, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&grid, button, modifiers, position);
    }
    void move(QPoint position, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(QEvent::MouseMove, position, grid.mapToGlobal(position), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QApplication::sendEvent(&grid, &event);
    }
    void release(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(&grid, button, {}, position);
    }
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        press(position, button);
        release(position, button);
    }
    void wheel(QPoint delta, Qt::KeyboardModifiers modifiers = {})
    {
        const QPoint position = at(0, 0);
        QWheelEvent event(position, grid.mapToGlobal(position), QPoint(), delta, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&grid, &event);
    }
    int tileAt(int x, int y) const { return map->tileLayer()->cell({x, y}).index; }
    QColor pixel(QPoint position) { return grid.grab().toImage().pixelColor(position); }
    QString undoText() const { return stack.undoText(); }

    TestMaps::PlainTiles tiles{16};
    std::unique_ptr<Map> map = TestMaps::map({6, 4}, tiles.set.get());
    QUndoStack stack;
    MapEditor::MapGrid grid;
};
