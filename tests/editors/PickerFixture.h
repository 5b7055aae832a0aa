#pragma once

#include "editors/TilePickerGrid.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QMenu>
#include <QTest>

/// A shown grid, 4 columns of 32 pixels, over a set whose tile i has the pixels and the value i.
struct PickerFixture
{
    static constexpr int Side = 32; // pixels, at magnification 4
    static constexpr int Columns = 4;

    explicit PickerFixture(int count = 10)
        : tiles(count)
    {
        for (int i = 0; i < count; ++i)
            tiles.set->tile(i)->setValue(i);
        grid.resize(Columns * Side, Columns * Side);
        grid.setMagnification(4);
        grid.setTileSet(tiles.set.get());
        grid.resize(Columns * Side, Columns * Side);
        grid.show();
        if (!QTest::qWaitForWindowExposed(&grid))
            qFatal("the grid does not show");
    }

    /// The middle of a cell.
    static QPoint at(int index)
    {
        return {index % Columns * Side + Side / 2, index / Columns * Side + Side / 2};
    }
    QPoint globalAt(int index) const { return grid.mapToGlobal(at(index)); }

    /// Through the window, so that the grid is under the mouse.
    void hover(int index) { QTest::mouseMove(grid.windowHandle(), at(index)); }
    void click(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&grid, button, {}, at(index));
    }
    /// Right-clicks a tile and chooses from the menu.
    void choose(int index, const QString &text)
    {
        click(index, Qt::RightButton);
        for (QAction *action : menu()->actions()) {
            if (action->text() == text)
                action->trigger();
        }
        menu()->hide();
    }
    static QMenu *menu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }

    /// The values of the tiles in the order of the set.
    QList<int> order() const
    {
        QList<int> values;
        for (const Tile *tile : tiles.set->tiles())
            values.append(tile->value());
        return values;
    }
    QColor colourAt(QPoint position) { return grid.grab().toImage().pixelColor(position); }
    QColor paletteColour(int index) const { return tiles.palette->colour(index); }

    TestMaps::PlainTiles tiles;
    TilePickerGrid grid;
};
