#include "bench/Inputs.h"
#include "bench/Rows.h"

#include "model/Map.h"

#include <benchmark/benchmark.h>

namespace {

using Bench::Level;
using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr int NoTransparency = -1;

/// Throws the picture away and draws it whole; the part asked for is one cell.
Work wholePictureOf(const std::shared_ptr<Level> &level)
{
    return [level] {
        TileMap *layer = level->map->tileLayer();
        layer->setTiles(layer->rows());
        benchmark::DoNotOptimize(layer->picture({0, 0, 1, 1}, TileMap::CellSide, NoTransparency));
    };
}

Row wholePicture(int side, double budget)
{
    return {"whole picture of a map", std::to_string(side) + " cells a side", budget, [side] {
                const auto level = std::make_shared<Level>(side);
                const qsizetype bytes = qsizetype(side) * side * 64;
                return Pair{wholePictureOf(level), Bench::copyOf(bytes)};
            }};
}

Row oneCell(int side, double budget)
{
    return {"one cell written to it", std::to_string(side) + " cells a side", budget, [side] {
                const auto level = std::make_shared<Level>(side);
                const Work whole = wholePictureOf(level);
                whole();
                const auto number = std::make_shared<int>(0);
                const Work measured = [level, number, side] {
                    const int step = ++*number;
                    const QPoint position((step * 7) % side, (step * 13) % side);
                    level->map->tileLayer()->setCell(position, Bench::anyCell(step * 29));
                };
                return Pair{measured, whole};
            }};
}

Row screen(int cellSide, double budget)
{
    constexpr QSize Screen(1920, 1080); // pixels
    const std::string input = "1920 x 1080 at " + std::to_string(cellSide) + " pixels a cell";
    return {"part of it for the screen", input, budget, [cellSide, Screen] {
                const auto level = std::make_shared<Level>(1024);
                const QRect cells(100, 100, Screen.width() / cellSide,
                                  (Screen.height() + cellSide - 1) / cellSide);
                const Work measured = [level, cells, cellSide] {
                    TileMap *layer = level->map->tileLayer();
                    benchmark::DoNotOptimize(layer->picture(cells, cellSide, NoTransparency));
                };
                measured();
                return Pair{measured, Bench::copyOf(qsizetype(Screen.width()) * Screen.height())};
            }};
}

Row snapshot(int side, double budget)
{
    return {"snapshot, one cell, compare", std::to_string(side) + " cells a side", budget, [side] {
                const auto level = std::make_shared<Level>(side);
                const Work whole = wholePictureOf(level);
                whole();
                const auto number = std::make_shared<int>(0);
                const Work measured = [level, number, side] {
                    const int step = ++*number;
                    const Map::State before = level->map->state();
                    level->map->tileLayer()->setCell({step % side, side - 1},
                                                     Bench::anyCell(step * 29));
                    benchmark::DoNotOptimize(level->map->state() == before);
                };
                return Pair{measured, whole};
            }};
}

} // namespace

void Bench::addMapRows(std::vector<Row> *rows)
{
    // The smaller ones show how it grows.
    for (const int side : {64, 256, 1024}) {
        const bool isLarge = side == 1024;
        rows->push_back(wholePicture(side, isLarge ? 8 : Bench::NoBudget));
        rows->push_back(oneCell(side, isLarge ? 1.0 / 10000 : Bench::NoBudget));
        rows->push_back(snapshot(side, isLarge ? 1.0 / 100 : Bench::NoBudget));
    }
    rows->push_back(screen(8, 4));
    rows->push_back(screen(16, 6));
    rows->push_back(screen(32, 6));
}
