#include "bench/Inputs.h"
#include "bench/Pickers.h"
#include "bench/Rows.h"

#include "editors/SpriteList.h"
#include "editors/TilePickerGrid.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include <memory>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

struct TilePicker
{
    static constexpr const char *Name = "tile picker";

    explicit TilePicker(int count)
        : tiles(nullptr, count)
    {
        palette.setDefaultColours();
        tiles.setPalette(&palette);
        Bench::fillTiles(&tiles);
        picker.setTileSet(&tiles);
        Bench::showWhole(&picker, Tile::Side);
        QCoreApplication::processEvents();
    }

    Palette palette;
    TileSet tiles;
    TilePickerGrid picker;
};

struct SpritePicker
{
    static constexpr const char *Name = "sprite list";

    explicit SpritePicker(int count)
    {
        palette.setDefaultColours();
        bank.setPalette(&palette);
        Bench::fillBank(&bank, count);
        picker.setSprites(&bank);
        Bench::showWhole(&picker, SpriteBank::SpriteSide);
        QCoreApplication::processEvents();
    }

    Palette palette;
    SpriteBank bank{Tessaril::Sprite::EightBit};
    SpriteEditor::SpriteList picker;
};

void hover(QWidget *picker, const QRect &cell)
{
    const QPoint position = cell.center();
    QMouseEvent event(QEvent::MouseMove, position, picker->mapToGlobal(position), Qt::NoButton,
                      Qt::NoButton, {});
    QCoreApplication::sendEvent(picker, &event);
    QCoreApplication::sendPostedEvents();
}

std::string inputOf(int count)
{
    return std::to_string(count) + ", magnification 4";
}

template <typename Shown>
Row paint(int count)
{
    return {std::string("paint of the ") + Shown::Name, inputOf(count), 4, [count] {
                const auto shown = std::make_shared<Shown>(count);
                const Work measured = [shown] { shown->picker.repaint(); };
                return Pair{measured, Bench::pictureOf(shown->picker.size())};
            }};
}

template <typename Shown>
Row hoverCells(int count)
{
    // What Qt does for an event and its repaint is more than a tenth of painting few cells.
    const double budget = count < 512 ? Bench::NoBudget : 0.1;
    return {std::string("hover in the ") + Shown::Name, inputOf(count), budget, [count] {
                const auto shown = std::make_shared<Shown>(count);
                const auto cell = std::make_shared<int>(0);
                const Work measured = [shown, cell, count] {
                    *cell = (*cell + 1) % count;
                    hover(&shown->picker, shown->picker.cellRect(*cell));
                };
                const Work bound = [shown] { shown->picker.repaint(); };
                return Pair{measured, bound};
            }};
}

} // namespace

void Bench::addPickerRows(std::vector<Row> *rows)
{
    for (const int count : {128, 512, 2048}) {
        rows->push_back(paint<TilePicker>(count));
        rows->push_back(hoverCells<TilePicker>(count));
    }
    for (const int count : {128, 512, 2048}) {
        rows->push_back(paint<SpritePicker>(count));
        rows->push_back(hoverCells<SpritePicker>(count));
    }
}
