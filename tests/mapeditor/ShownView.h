#pragma once

#include "mapeditor/MapGrid.h"
#include "mapeditor/ToolBar.h"
#include "mapeditor/View.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"
#include "support/TestSprites.h"

#include <QTest>
#include <QUndoStack>

#include <memory>

/// A map of 6 by 4 cells, all of tile 1, in a shown and active view of 600 by 700 pixels, beside a
/// bank of two sprites.
struct ShownView
{
    ShownView()
    {
        map->tileLayer()->setTiles(
            TileMap::Rows(4, QList<TileMap::TileData>(6, TestMaps::cell(1))));
        TestSprites::fill(bank, 2);
        view.resize(600, 700);
        view.setUndoStack(&stack);
        view.setMap(map.get());
        view.setSpriteBanks({&bank});
        view.show();
        view.activateWindow();
        view.setFocus();
    }

    MapEditor::MapGrid &grid() const { return *view.grid(); }

    void placeSpriteAt(QPoint mapPixel)
    {
        Map::PlacedSprite sprite;
        sprite.bank = bank.id();
        sprite.sprite = 1;
        sprite.x = mapPixel.x();
        sprite.y = mapPixel.y();
        map->sprites().append(sprite);
    }
    /// The middle of a cell, in pixels of the grid.
    QPoint at(int x, int y) const { return grid().cellGeometry().fromCells({x, y, 1, 1}).center(); }
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&grid(), button, {}, position);
    }

    TestMaps::PlainTiles tiles{16};
    SpriteBank bank{Tessaril::Sprite::EightBit};
    std::unique_ptr<Map> map = TestMaps::map({6, 4}, tiles.set.get());
    QUndoStack stack;
    MapEditor::ToolBar bar;
    MapEditor::View view;
};
