#pragma once

#include "canvas/Canvas.h"
#include "colour/ColourSelector.h"
#include "colour/PaletteEditor.h"
#include "editors/TileSheet.h"
#include "editors/TileWindow.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/TestImages.h"
#include "support/TestMaps.h"
#include "uikit/NumberRange.h"

#include <QSpinBox>
#include <QTest>
#include <QUndoStack>

/// A shown tile editor over a set whose tile i is filled with the pixel value i.
struct TileWindowFixture
{
    explicit TileWindowFixture(int count = 5)
        : tiles(count)
    {
        tiles.set->setName("cave");
        window.setStackFor([this](const QUuid &id) {
            askedFor = id;
            return &stack;
        });
        window.setPalette(tiles.palette.get());
        window.setTileSet(tiles.set.get());
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the window does not show");
    }

    Canvas *canvas() const { return window.findChild<Canvas *>(); }
    ColourSelector *colours() const { return window.findChild<ColourSelector *>(); }
    NumberRange *range() const { return window.findChild<NumberRange *>(); }
    PaletteEditor *paletteEditor() const { return window.findChild<PaletteEditor *>(); }
    QSpinBox *offset() const
    {
        return DialogDriver::field<QSpinBox>(window, QStringLiteral("Palette Offset"));
    }
    Tile *tile(int index) const { return tiles.set->tile(index); }

    /// Draws one pixel with the ink.
    void draw(int x, int y) const
    {
        QTest::mouseClick(canvas(), Qt::LeftButton, {},
                          canvas()->cellRect(QRect(x, y, 1, 1)).center());
    }
    /// A pixel of a tile as it is stored.
    int pixel(int index, int x, int y) const { return tile(index)->image().pixelIndex(x, y); }
    int canvasPixel(int x, int y) const { return canvas()->image().pixelIndex(x, y); }

    TestMaps::PlainTiles tiles;
    QUndoStack stack;
    QUuid askedFor;
    TileWindow window;
};
