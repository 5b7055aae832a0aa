#include "bench/MapScene.h"
#include "bench/Pickers.h"
#include "bench/Rows.h"

#include "colour/ChannelSlider.h"
#include "colour/PaletteGrid.h"
#include "colour/PaletteWindow.h"
#include "editors/SpriteList.h"
#include "editors/TilePickerGrid.h"
#include "model/Palette.h"
#include "model/TileSet.h"

#include <QPushButton>

#include <memory>

namespace {

using Bench::MapScene;
using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr int SpriteCount = 512;
constexpr int Entry = 37; // one that many pixels show

/// A map, its tiles and the sprites on it, all on display beside the palette that they share.
struct Display
{
    explicit Display(int side);

    /// Moves a slider of the colour to another level, and takes that over.
    void dragOneStep();
    void repaint();

    MapScene scene;
    TilePickerGrid tiles;
    SpriteEditor::SpriteList sprites;
    PaletteWindow palette;
    ChannelSlider *slider = nullptr;
    QPushButton *apply = nullptr;
};

Display::Display(int side)
    : scene(side, SpriteCount)
{
    tiles.setTileSet(scene.level.tiles.get());
    Bench::showWhole(&tiles, TileMap::CellSide);
    sprites.setSprites(scene.bank.get());
    Bench::showWhole(&sprites, SpriteBank::SpriteSide);
    palette.setPalette(scene.level.palette.get());
    palette.show();
    emit palette.findChild<PaletteGrid *>()->selectionChanged(Entry, Entry);
    slider = palette.findChild<ChannelSlider *>();
    for (QPushButton *button : palette.findChildren<QPushButton *>()) {
        if (button->accessibleName() == PaletteWindow::tr("Apply"))
            apply = button;
    }
    QCoreApplication::processEvents();
}

void Display::dragOneStep()
{
    slider->setValue(slider->value() == 1 ? 2 : 1);
    apply->click();
    MapScene::settle();
}

void Display::repaint()
{
    scene.view.grid()->repaint();
    tiles.repaint();
    sprites.repaint();
    palette.findChild<PaletteGrid *>()->repaint();
}

Row slider(int side)
{
    const std::string input = "512 sprites, 512 tiles, map of " + std::to_string(side);
    return {"palette slider, one step", input, 6, [side] {
                const auto display = std::make_shared<Display>(side);
                const Work measured = [display] { display->dragOneStep(); };
                const Work bound = [display] { display->repaint(); };
                return Pair{measured, bound};
            }};
}

} // namespace

void Bench::addPaletteRows(std::vector<Row> *rows)
{
    for (const int side : {64, 256, 1024})
        rows->push_back(slider(side));
}
