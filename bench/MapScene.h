#pragma once

#include "bench/Inputs.h"

#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPoint>
#include <QSize>
#include <QUndoStack>

#include <memory>

namespace Bench {

/// A map's grid that fills a window, with every layer, the background and the lines to draw. All
/// that is placed lies in view, whatever the size of the map.
struct MapScene
{
    static constexpr QSize Window{1920, 1080}; // pixels
    static constexpr QSize Cells{60, 33};      // that it shows whole
    static constexpr int SpriteCount = 17;     // of its bank

    /// A square map of @p side cells; its sprites come from a bank of @p spriteCount.
    explicit MapScene(int side, int spriteCount = SpriteCount);

    void send(QEvent::Type type, QPoint cell, Qt::MouseButton button, Qt::MouseButtons buttons);
    /// Lets what waits for a repaint have it. Not by the type of the event: Qt keeps the places of
    /// events that were picked out, and looks through more of them each time.
    static void settle() { QCoreApplication::sendPostedEvents(); }
    /// A cell on view that is another for each of many numbers; no placed block covers it.
    static QPoint freeCell(int number)
    {
        return {number % Cells.width(), number / Cells.width() % (Cells.height() / 3) * 3 + 2};
    }

    Level level;
    std::unique_ptr<MapObjects> blocks = std::make_unique<MapObjects>();
    std::unique_ptr<SpriteBank> bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    QUndoStack stack;
    MapEditor::View view;
    int number = 0;

private:
    void placeBlocks();
    void placeSprites();
};

} // namespace Bench
